#include "VantrelFileSystem.h"

#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelPaths.h"

namespace {
namespace fs = std::filesystem;

constexpr unsigned NewDirectoryMode = 0777;

void Check(const std::error_code& error) {
  if (error) throw EVantrelFileSystemError(System::CodeOf(error));
}

void RaiseIf(bool fails, std::errc error) {
  if (fails) Check(std::make_error_code(error));
}

/// A link that leads nowhere answers for itself.
struct stat StatusOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 && ::lstat(path.c_str(), &status) != 0) throw EVantrelFileSystemError();
  return status;
}

bool IsLink(const std::string& path) {
  std::error_code error;
  return fs::is_symlink(path, error);
}

template <class TIterator>
std::vector<std::string> MatchingFiles(const std::string& directory, const std::string& mask) {
  std::vector<std::string> files;
  std::error_code error;
  for (TIterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unreadable;
    const bool matches = ::fnmatch(mask.c_str(), entry->path().filename().c_str(), FNM_NOESCAPE) == 0;
    if (matches && !entry->is_directory(unreadable)) files.push_back(entry->path().string());
  }
  Check(error);
  std::ranges::sort(files);
  return files;
}

/// The path without links and dots, as far as it exists.
fs::path Canonical(const std::string& path) {
  std::error_code error;
  const auto absolute = fs::absolute(path, error);
  Check(error);
  auto canonical = fs::weakly_canonical(absolute, error);
  Check(error);
  return canonical;
}

/// A copy that fails is taken back.
void MoveToOtherDisk(const std::string& source, const std::string& target) {
  RaiseIf(TVantrelFileSystem::Exists(target), std::errc::file_exists);
  std::error_code failure;
  fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::copy_symlinks, failure);
  std::error_code ignored;
  if (failure) fs::remove_all(target, ignored);
  Check(failure);
  fs::last_write_time(target, fs::last_write_time(source, ignored), ignored);
  fs::remove_all(source, failure);
  Check(failure);
}

void Move(const std::string& source, const std::string& target) {
  if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return;
  std::error_code failure(errno, std::generic_category());
  if (failure == std::errc::cross_device_link) return MoveToOtherDisk(source, target);
  if (failure == std::errc::invalid_argument || failure == std::errc::function_not_supported) {
    RaiseIf(TVantrelFileSystem::Exists(target), std::errc::file_exists);
    fs::rename(source, target, failure);
  }
  Check(failure);
}
}  // namespace

bool TVantrelFileSystem::Exists(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

bool TVantrelFileSystem::IsDirectory(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool TVantrelFileSystem::IsFileInDirectory(const std::string& path, const std::string& directory) {
  const auto relative = Canonical(path).lexically_relative(Canonical(directory));
  return relative != "." && *relative.begin() != "..";
}

bool TVantrelFileSystem::SameFile(const std::string& path1, const std::string& path2) {
  std::error_code error;
  const bool same = fs::equivalent(path1, path2, error);
  Check(error);
  return same;
}

TVantrelFileMode TVantrelFileSystem::GetFileMode(const std::string& path) {
  if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) return TVantrelFileMode::fmodeUnknown;
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? TVantrelFileMode::fmodeReadWrite
                                                                    : TVantrelFileMode::fmodeReadOnly;
}

std::int64_t TVantrelFileSystem::GetSize(const std::string& path) {
  return StatusOf(path).st_size;
}

TVantrelFileAttributes TVantrelFileSystem::GetAttributes(const std::string& path) {
  using enum TVantrelFileAttribute;
  const auto status = StatusOf(path);
  TVantrelFileAttributes attributes;
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) attributes.insert(fattrReadOnly);
  if (fs::path(path).filename().string().starts_with('.')) attributes.insert(fattrHidden);
  if (S_ISDIR(status.st_mode)) attributes.insert(fattrDirectory);
  if (IsLink(path)) attributes.insert(fattrReparsePoint);
  if (attributes.empty()) attributes.insert(fattrNormal);
  return attributes;
}

void TVantrelFileSystem::SetAttributes(const std::string& path, const TVantrelFileAttributes& attributes) {
  constexpr auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code error;
  if (attributes.contains(TVantrelFileAttribute::fattrReadOnly)) {
    fs::permissions(path, writing, fs::perm_options::remove, error);
  } else {
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
  }
  Check(error);
}

void TVantrelFileSystem::CopyFile(const std::string& source, const std::string& target, bool failIfExists) {
  std::error_code error;
  fs::copy_file(source, target, failIfExists ? fs::copy_options::none : fs::copy_options::overwrite_existing, error);
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
  if (::unlink(path.c_str()) != 0) throw EVantrelFileSystemError();
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
  CreateDirectory(fs::path(path).parent_path().string());
  if (::mkdir(path.c_str(), NewDirectoryMode) == 0) return;
  const auto code = System::LastCode();
  if (errno != EEXIST || !IsDirectory(path)) throw EVantrelFileSystemError(code);
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
  for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
    fs::remove_all(entry->path(), error);
    Check(error);
  }
  Check(error);
}

void TVantrelFileSystem::DeleteDirectory(const std::string& path, bool recursive) {
  RaiseIf(!IsDirectory(path), Exists(path) ? std::errc::not_a_directory : std::errc::no_such_file_or_directory);
  if (IsLink(path)) return DeleteFile(path);
  if (recursive) ClearDirectory(path);
  if (::rmdir(path.c_str()) != 0) throw EVantrelFileSystemError();
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
  return path.string();
}

void TVantrelFileSystem::SetCurrentDirectory(const std::string& path) {
  std::error_code error;
  fs::current_path(path, error);
  Check(error);
}
