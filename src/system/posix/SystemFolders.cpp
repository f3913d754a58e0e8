#include "SystemFolders.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <fnmatch.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "Posix.h"

namespace {
constexpr unsigned NewFolderMode = 0777;
constexpr auto AllMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;

System::TCode CodeAfter(int result) {
  return result == 0 ? System::Success : System::LastCode();
}
}  // namespace

namespace System {

std::filesystem::path PathOf(std::string_view name) {
  return name;
}

std::string NameOf(const std::filesystem::path& path) {
  return path.string();
}

std::string FolderOf(const std::string& name) {
  return NameOf(PathOf(name).parent_path());
}

std::string LastNameOf(const std::string& name) {
  return NameOf(PathOf(name).filename());
}

bool Exists(const std::string& name) {
  struct stat status {};
  return ::lstat(name.c_str(), &status) == 0;
}

TResult<bool> CompareFiles(const std::string& name1, const std::string& name2) {
  struct stat first {};
  struct stat second {};
  if (::stat(name1.c_str(), &first) != 0 || ::stat(name2.c_str(), &second) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return false;
    return TFailure(LastCode());
  }
  return Posix::FileOf(first) == Posix::FileOf(second);
}

bool IsSameFile(const std::string& name1, const std::string& name2) {
  auto same = CompareFiles(name1, name2);
  return same && *same;
}

bool MayBeSameFile(const std::string& name1, const std::string& name2) {
  auto same = CompareFiles(name1, name2);
  return !same || *same;
}

std::string FirstFreeName(std::string name, const std::function<std::string(int number)>& numbered) {
  for (int number = 2; Exists(name); ++number) name = numbered(number);
  return name;
}

std::string FreeNameBeside(const std::string& name, const std::string& ending) {
  return FirstFreeName(name + ending, [&](int number) { return fmt::format("{}{}{}", name, ending, number); });
}

bool Matches(const std::string& fileName, const std::string& mask) {
  return ::fnmatch(mask.c_str(), fileName.c_str(), FNM_NOESCAPE) == 0;
}

TResult<TFileInfo> InfoOf(const std::string& name) {
  struct stat status {};
  if (::stat(name.c_str(), &status) != 0 && ::lstat(name.c_str(), &status) != 0) return TFailure(LastCode());
  return TFileInfo{status.st_size, S_ISDIR(status.st_mode), (status.st_mode & AllMayWrite) == 0};
}

TCode CheckRight(const std::string& name, TRight right) {
  const int rights = right == TRight::Read ? R_OK : right == TRight::Write ? W_OK : W_OK | X_OK;
  return CodeAfter(::faccessat(AT_FDCWD, name.c_str(), rights, AT_EACCESS));
}

TCode MakeFile(const std::string& name) {
  const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, Posix::PrivateMode);
  if (descriptor < 0) return LastCode();
  ::close(descriptor);
  return Success;
}

TCode RemoveFile(const std::string& name) {
  return CodeAfter(::unlink(name.c_str()));
}

TCode MoveFile(const std::string& from, const std::string& to) {
  return CodeAfter(Posix::RenameToFree(from, to));
}

TCode MakeFolder(const std::string& name) {
  const auto code = CodeAfter(::mkdir(name.c_str(), NewFolderMode));
  struct stat status {};
  const bool isThere = KindOf(code) == TFailureKind::AlreadyThere && ::stat(name.c_str(), &status) == 0;
  return isThere && S_ISDIR(status.st_mode) ? Success : code;
}

TCode RemoveFolder(const std::string& name) {
  return CodeAfter(::rmdir(name.c_str()));
}

struct TFolderLock::TNative : TFile::TNative {
  using TFile::TNative::TNative;
};

TResult<TFolderLock> TFolderLock::Take(const std::string& folder, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds step{10};
  auto native = std::make_unique<TNative>(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (native->Descriptor < 0) return TFailure(LastCode());
  for (; ::flock(native->Descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; patience -= step) {
    if (patience < step) return TFailure(TVantrelErrorCode::SharingViolation);
    std::this_thread::sleep_for(step);
  }
  return TFolderLock(std::move(native));
}

TFolderLock::TFolderLock(std::unique_ptr<TNative> native) : FNative(std::move(native)) {}
TFolderLock::TFolderLock(TFolderLock&& other) noexcept = default;
TFolderLock::~TFolderLock() = default;

}  // namespace System

int Posix::RenameToFree(const std::string& from, const std::string& to) {
  const int result = ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  const bool refusesTheFlag = result != 0 && (errno == EINVAL || errno == ENOSYS);
  if (!refusesTheFlag) return result;
  if (!System::Exists(to)) return ::rename(from.c_str(), to.c_str());
  errno = EEXIST;
  return -1;
}
