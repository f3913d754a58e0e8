#include "VantrelPaths.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <vector>

#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelText.h"

namespace {
constexpr std::string_view PathDelimiters = "\\/";
constexpr std::string_view NameDelimiters = "\\/:";
constexpr std::size_t LongestFullPath = 261;

bool IsPathDelimiter(char letter) {
  return PathDelimiters.find(letter) != std::string_view::npos;
}

bool BeginsWithDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

bool BeginsWithShare(std::string_view path) {
  return path.starts_with("\\\\");
}

char DelimiterOf(std::string_view path) {
  const bool foreign = BeginsWithDrive(path) || path.find('\\') != std::string_view::npos;
  return foreign && path.find('/') == std::string_view::npos ? '\\' : '/';
}

/// Where the file name begins.
std::size_t NameStart(std::string_view path) {
  const auto delimiter = path.find_last_of(NameDelimiters);
  return delimiter == std::string_view::npos ? 0 : delimiter + 1;
}

/// Where the last extension's point stands, npos if there is none.
std::size_t PointOf(std::string_view path) {
  const auto point = path.rfind('.');
  return point != std::string_view::npos && point >= NameStart(path) ? point : std::string_view::npos;
}

std::vector<std::string> PartsOf(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(PathDelimiters), path.size());
    if (end > 0) parts.emplace_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return parts;
}
}  // namespace

std::string TVantrelFilePath::GetExtension(std::string_view path) {
  const auto point = PointOf(path);
  return point == std::string_view::npos ? std::string() : std::string(path.substr(point + 1));
}

bool TVantrelFilePath::HasExtension(std::string_view path) {
  return !GetExtension(path).empty();
}

std::string TVantrelFilePath::AddExtension(std::string_view path, std::string_view extension) {
  std::string result(path);
  if (!path.empty() && !extension.empty()) result.append(".").append(extension);
  return result;
}

std::string TVantrelFilePath::RemoveExtension(std::string_view path) {
  return std::string(path.substr(0, std::min(PointOf(path), path.size())));
}

std::string TVantrelFilePath::ChangeExtension(std::string_view path, std::string_view extension) {
  return AddExtension(RemoveExtension(path), extension);
}

std::string TVantrelFilePath::ForceExtension(std::string_view path, std::string_view extension) {
  return IsExtensionEqual(path, extension) ? std::string(path) : AddExtension(path, extension);
}

bool TVantrelFilePath::IsExtensionEqual(std::string_view path, std::string_view extension) {
  return SameText(GetExtension(path), extension);
}

std::string TVantrelFilePath::GetFileName(std::string_view path) {
  return std::string(path.substr(NameStart(path)));
}

std::string TVantrelFilePath::GetFileNameWithoutExtension(std::string_view path) {
  return RemoveExtension(GetFileName(path));
}

std::string TVantrelFilePath::GetDirectoryName(std::string_view path) {
  const auto directory = path.substr(0, NameStart(path));
  if (directory.empty() || directory == "/" || !IsPathDelimiter(directory.back())) return std::string(directory);
  const bool isRoot = directory.size() > 1 && NameDelimiters.find(directory[directory.size() - 2]) != std::string::npos;
  return std::string(directory.substr(0, directory.size() - (isRoot ? 0 : 1)));
}

std::string TVantrelFilePath::ChangeFileName(std::string_view path, std::string_view fileName) {
  return Combine(GetDirectoryName(path), fileName);
}

std::string TVantrelFilePath::ChangeDirectoryName(std::string_view path, std::string_view directory) {
  return Combine(directory, GetFileName(path));
}

std::string TVantrelFilePath::ChangeDriveLetter(std::string_view path, char letter) {
  std::string result(path);
  if (BeginsWithDrive(path)) result[0] = letter;
  return result;
}

std::string TVantrelFilePath::GetDriveName(std::string_view path) {
  if (BeginsWithDrive(path)) return std::string(path.substr(0, 2));
  if (!BeginsWithShare(path)) return {};
  const auto server = path.find('\\', 2);
  if (server == std::string_view::npos) return std::string(path);
  return std::string(path.substr(0, path.find('\\', server + 1)));
}

std::string TVantrelFilePath::GetDisplayName(std::string_view path) {
  return IsRoot(path) ? std::string(path) : GetFileName(RemoveTrailingPathDelimiter(path));
}

std::string TVantrelFilePath::Combine(std::string_view path1, std::string_view path2) {
  if (path1.empty() || IsPathRooted(path2)) return std::string(path2);
  if (path2.empty()) return std::string(path1);
  if (path2.front() == '\\') return RemoveTrailingPathDelimiter(path1).append(path2);
  return AddTrailingPathDelimiter(path1).append(path2);
}

std::string TVantrelFilePath::AddTrailingPathDelimiter(std::string_view path) {
  std::string result(path);
  if (path.empty() || !IsPathDelimiter(path.back())) result += DelimiterOf(path);
  return result;
}

std::string TVantrelFilePath::AddTrailingHTTPPathDelimiter(std::string_view path) {
  std::string result(path);
  if (!path.ends_with('/')) result += '/';
  return result;
}

std::string TVantrelFilePath::RemoveLeadingPathDelimiter(std::string_view path) {
  if (!path.empty() && IsPathDelimiter(path.front())) path.remove_prefix(1);
  return std::string(path);
}

std::string TVantrelFilePath::RemoveTrailingPathDelimiter(std::string_view path) {
  if (!path.empty() && IsPathDelimiter(path.back())) path.remove_suffix(1);
  return std::string(path);
}

std::string TVantrelFilePath::GetRelativePath(std::string_view base, std::string_view path) {
  const bool ignoresCase = !GetDriveName(path).empty();
  const auto equal = [&](const std::string& a, const std::string& b) { return ignoresCase ? SameText(a, b) : a == b; };
  if (IsPathRooted(base) != IsPathRooted(path) || !equal(GetDriveName(base), GetDriveName(path))) {
    return std::string(path);
  }
  const auto from = PartsOf(base);
  const auto to = PartsOf(path);
  const auto [down, up] = std::ranges::mismatch(to, from, equal);
  std::string result;
  const auto append = [&](const std::string& part) {
    if (!result.empty()) result += DelimiterOf(path);
    result += part;
  };
  for (auto part = up; part != from.end(); ++part) append("..");
  for (auto part = down; part != to.end(); ++part) append(*part);
  return result.empty() ? "." : result;
}

bool TVantrelFilePath::IsPath(std::string_view text) {
  return text.find_first_of(NameDelimiters) != std::string_view::npos;
}

bool TVantrelFilePath::IsPathRooted(std::string_view path) {
  return path.starts_with('/') || BeginsWithDrive(path) || BeginsWithShare(path);
}

bool TVantrelFilePath::IsRoot(std::string_view path) {
  return path == "/" || (path.size() == 3 && BeginsWithDrive(path) && IsPathDelimiter(path[2]));
}

bool TVantrelFilePath::IsPathEqual(std::string_view path1, std::string_view path2) {
  const auto full1 = RemoveTrailingPathDelimiter(GetFullPath(path1));
  const auto full2 = RemoveTrailingPathDelimiter(GetFullPath(path2));
  return GetDriveName(full1).empty() ? full1 == full2 : SameText(full1, full2);
}

std::string TVantrelFilePath::GetFullPath(std::string_view path) {
  if (path.empty() || IsPathRooted(path)) return std::string(path);
  std::error_code error;
  const auto full = System::NameOf(std::filesystem::absolute(System::PathOf(path), error).lexically_normal());
  if (error) throw EVantrelFileSystemError(System::CodeOf(error));
  if (Utf16Length(full) > LongestFullPath) throw EVantrelFileSystemError(TVantrelErrorCode::PathNotFound);
  return full;
}

std::string TVantrelFilePath::GetLongPath(std::string_view path) {
  return std::string(path);
}

std::string TVantrelFilePath::GetShortPath(std::string_view path) {
  return std::string(path);
}
