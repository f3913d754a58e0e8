#include "VantrelFileSystem.h"

#include <algorithm>
#include <filesystem>

#include "FoundationTexts.h"
#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelPaths.h"

namespace {
namespace fs = std::filesystem;
using System::PathOf;
using EError = EVantrelFileSystemError;

void Check(const std::error_code& error) {
  CheckSystem<EError>(System::CodeOf(error));
}

void RaiseIf(bool fails, std::errc error) {
  if (fails) Check(std::make_error_code(error));
}

bool IsLink(const std::string& path) {
  std::error_code error;
  return fs::is_symlink(PathOf(path), error);
}

template <class TIterator>
std::vector<std::string> MatchingFiles(const std::string& directory, const std::string& mask) {
  std::vector<std::string> files;
  std::error_code error;
  for (TIterator entry(PathOf(directory), error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unreadable;
    if (System::Matches(System::NameOf(entry->path().filename()), mask) && !entry->is_directory(unreadable))
      files.push_back(System::NameOf(entry->path()));
  }
  Check(error);
  std::ranges::sort(files);
  return files;
}

/// The path without links and dots, as far as it exists.
fs::path Canonical(const std::string& path) {
  std::error_code error;
  const auto absolute = fs::absolute(PathOf(path), error);
  Check(error);
  auto canonical = fs::weakly_canonical(absolute, error);
  Check(error);
  return canonical;
}

/// A copy that fails is taken back.
void MoveToOtherDisk(const std::string& source, const std::string& target) {
  RaiseIf(TVantrelFileSystem::Exists(target), std::errc::file_exists);
  std::error_code failure;
  fs::copy(PathOf(source), PathOf(target), fs::copy_options::recursive | fs::copy_options::copy_symlinks, failure);
  std::error_code ignored;
  if (failure) fs::remove_all(PathOf(target), ignored);
  Check(failure);
  fs::last_write_time(PathOf(target), fs::last_write_time(PathOf(source), ignored), ignored);
  fs::remove_all(PathOf(source), failure);
  Check(failure);
}

void Move(const std::string& source, const std::string& target) {
  const auto code = System::MoveFile(source, target);
  if (System::KindOf(code) == System::TFailureKind::OtherDevice) return MoveToOtherDisk(source, target);
  CheckSystem<EError>(code);
}
}  // namespace

bool TVantrelFileSystem::Exists(const std::string& path) {
  return System::Exists(path);
}

bool TVantrelFileSystem::IsDirectory(const std::string& path) {
  std::error_code error;
  return fs::is_directory(PathOf(path), error);
}

bool TVantrelFileSystem::IsFileInDirectory(const std::string& path, const std::string& directory) {
  const auto relative = Canonical(path).lexically_relative(Canonical(directory));
  return relative != "." && *relative.begin() != "..";
}

bool TVantrelFileSystem::SameFile(const std::string& path1, const std::string& path2) {
  RaiseIf(!Exists(path1) && !Exists(path2), std::errc::no_such_file_or_directory);
  return CheckSystem<EError>(System::CompareFiles(path1, path2));
}

TVantrelFileMode TVantrelFileSystem::GetFileMode(const std::string& path) {
  if (System::CheckRight(path, System::TRight::Read) != System::Success) return TVantrelFileMode::fmodeUnknown;
  return System::CheckRight(path, System::TRight::Write) == System::Success ? TVantrelFileMode::fmodeReadWrite
                                                                            : TVantrelFileMode::fmodeReadOnly;
}

std::int64_t TVantrelFileSystem::GetSize(const std::string& path) {
  return CheckSystem<EError>(System::InfoOf(path)).Size;
}

TVantrelFileAttributes TVantrelFileSystem::GetAttributes(const std::string& path) {
  using enum TVantrelFileAttribute;
  const auto info = CheckSystem<EError>(System::InfoOf(path));
  TVantrelFileAttributes attributes;
  if (info.IsReadOnly) attributes.insert(fattrReadOnly);
  if (System::LastNameOf(path).starts_with('.')) attributes.insert(fattrHidden);
  if (info.IsFolder) attributes.insert(fattrDirectory);
  if (IsLink(path)) attributes.insert(fattrReparsePoint);
  if (attributes.empty()) attributes.insert(fattrNormal);
  return attributes;
}

void TVantrelFileSystem::SetAttributes(const std::string& path, const TVantrelFileAttributes& attributes) {
  constexpr auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code error;
  if (attributes.contains(TVantrelFileAttribute::fattrReadOnly)) {
    fs::permissions(PathOf(path), writing, fs::perm_options::remove, error);
  } else {
    fs::permissions(PathOf(path), fs::perms::owner_write, fs::perm_options::add, error);
  }
  Check(error);
}

void TVantrelFileSystem::CopyFile(const std::string& source, const std::string& target, bool failIfExists) {
  std::error_code error;
  fs::copy_file(PathOf(source), PathOf(target),
                failIfExists ? fs::copy_options::none : fs::copy_options::overwrite_existing, error);
  Check(error);
}

void TVantrelFileSystem::CopyFileEx(const std::string& source, const std::string& target, bool failIfExists) {
  CopyFile(source, target, failIfExists);
  SetLastWriteTimeUtc(target, GetLastWriteTimeUtc(source));
}

void TVantrelFileSystem::MoveFile(const std::string& source, const std::string& target) {
  RaiseIf(IsDirectory(source), std::errc::is_a_directory);
  Move(source, target);
}

void TVantrelFileSystem::MoveDirectory(const std::string& source, const std::string& target) {
  RaiseIf(Exists(source) && !IsDirectory(source), std::errc::not_a_directory);
  Move(source, target);
}

void TVantrelFileSystem::DeleteFile(const std::string& path) {
  CheckSystem<EError>(System::RemoveFile(path));
}

void TVantrelFileSystem::DeleteFileAfterReboot(const std::string&) {
  throw EVantrelFileSystemError(TVantrelErrorCode::NotSupported, FoundationTexts::NoDeletionAtReboot);
}

std::string TVantrelFileSystem::MakeFileNameUnique(const std::string& path) {
  return TVantrelFilePath::GetUniqueFileName(path);
}

void TVantrelFileSystem::CreateDirectory(const std::string& path) {
  const bool isDrive = path.ends_with(':') && path.find('/') == std::string::npos;
  if (path.empty() || isDrive || TVantrelFilePath::IsRoot(path) || IsDirectory(path)) return;
  CreateDirectory(System::FolderOf(path));
  CheckSystem<EError>(System::MakeFolder(path));
}

bool TVantrelFileSystem::ForceDirectory(const std::string& path) {
  try {
    CreateDirectory(path);
  } catch (const EVantrelFileSystemError&) {
    return false;
  }
  return IsDirectory(path);
}

void TVantrelFileSystem::ClearDirectory(const std::string& path) {
  std::error_code error;
  for (fs::directory_iterator entry(PathOf(path), error), end; !error && entry != end; entry.increment(error)) {
    fs::remove_all(entry->path(), error);
    Check(error);
  }
  Check(error);
}

void TVantrelFileSystem::DeleteDirectory(const std::string& path, bool recursive) {
  RaiseIf(!IsDirectory(path), Exists(path) ? std::errc::not_a_directory : std::errc::no_such_file_or_directory);
  if (IsLink(path)) return DeleteFile(path);
  if (recursive) ClearDirectory(path);
  CheckSystem<EError>(System::RemoveFolder(path));
}

std::vector<std::string> TVantrelFileSystem::GetFiles(const std::string& directory, const std::string& mask,
                                                      bool recursive) {
  return recursive ? MatchingFiles<fs::recursive_directory_iterator>(directory, mask)
                   : MatchingFiles<fs::directory_iterator>(directory, mask);
}

std::string TVantrelFileSystem::GetCurrentDirectory() {
  std::error_code error;
  const auto path = fs::current_path(error);
  Check(error);
  return System::NameOf(path);
}

void TVantrelFileSystem::SetCurrentDirectory(const std::string& path) {
  std::error_code error;
  fs::current_path(PathOf(path), error);
  Check(error);
}
