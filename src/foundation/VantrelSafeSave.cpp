#include "VantrelSafeSave.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>

#include "VantrelExceptions.h"
#include "VantrelFileLocks.h"
#include "VantrelTempFile.h"

namespace {
using TBytes = std::span<const std::uint8_t>;

constexpr int MaxLinks = 40;
constexpr unsigned PrivateMode = 0600;
constexpr unsigned NewFileMode = 0666;
constexpr unsigned PermissionBits = 07777;
constexpr VantrelFileLocks::TUse ReadsAndWrites{true, true};

void Check(int result) {
  if (result < 0) throw EVantrelFileHandleError();
}

[[noreturn]] void RaiseErrno(int error) {
  throw EVantrelFileHandleError(EVantrelWin32Error::CodeOfErrno(error));
}

/// The file that a chain of symbolic links ends at, whether it exists or not.
std::string Resolve(const std::string& fileName) {
  std::filesystem::path path(fileName);
  std::error_code error;
  for (int link = 0; std::filesystem::is_symlink(path, error); ++link) {
    if (link == MaxLinks) RaiseErrno(ELOOP);
    const auto next = std::filesystem::read_symlink(path, error);
    if (error) RaiseErrno(error.value());
    path = path.parent_path() / next;
  }
  return path.string();
}

void WriteAll(int descriptor, TBytes bytes) {
  while (!bytes.empty()) {
    const auto part = ::write(descriptor, bytes.data(), bytes.size());
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) throw EVantrelFileHandleError();
    if (part == 0) throw EVantrelFileHandleError(TVantrelErrorCode::DiskFull);
    bytes = bytes.subspan(static_cast<std::size_t>(part));
  }
}

/// Some file systems and devices cannot flush, which is no failure.
void Flush(int descriptor) {
  if (::fsync(descriptor) != 0 && errno != EINVAL) throw EVantrelFileHandleError();
}

/// The new file stands already, complete: a folder that cannot be flushed changes nothing about that.
void FlushFolder(const std::string& target) {
  const auto folder = std::filesystem::path(target).parent_path();
  const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

/// Owner and group as far as the system allows, then the mode. The file is private until then, and stays so where
/// the file system knows no modes.
void KeepPermissions(int descriptor, const struct stat& old) {
  struct stat created {};
  Check(::fstat(descriptor, &created));
  if (created.st_uid != old.st_uid && ::fchown(descriptor, old.st_uid, old.st_gid) == 0) created.st_gid = old.st_gid;
  if (created.st_gid != old.st_gid && ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0) errno = 0;
  if (::fchmod(descriptor, old.st_mode & PermissionBits) != 0) errno = 0;
}

/// Takes the space first, so that a full disk is found while the old bytes are whole.
void ReserveSpace(int descriptor, std::int64_t size) {
  struct stat status {};
  Check(::fstat(descriptor, &status));
  if (!S_ISREG(status.st_mode) || size <= status.st_size) return;
  const int error = ::posix_fallocate(descriptor, 0, size);
  if (error != ENOSPC && error != EDQUOT) return;
  if (::ftruncate(descriptor, status.st_size) != 0) errno = 0;
  RaiseErrno(error);
}

void WriteInPlace(int descriptor, TBytes bytes) {
  ReserveSpace(descriptor, std::ssize(bytes));
  WriteAll(descriptor, bytes);
  if (::ftruncate(descriptor, std::ssize(bytes)) != 0 && errno != EINVAL) throw EVantrelFileHandleError();
  Flush(descriptor);
}

std::unique_ptr<TVantrelFileHandle> OpenExisting(const std::string& target, TVantrelFileAccessMode access) {
  try {
    return std::make_unique<TVantrelFileHandle>(target, access, TVantrelFileOpenMode::fomOpenReadWrite);
  } catch (const EVantrelFileHandleError& error) {
    if (error.ErrorCode() != static_cast<std::uint32_t>(TVantrelErrorCode::FileNotFound)) throw;
    return nullptr;
  }
}

/// What `own` holds must be free of others who do not go with `access`, and the file must be open to writing.
void CheckOwn(const TVantrelFileHandle& own, const std::string& target, TVantrelFileAccessMode access) {
  if (VantrelFileLocks::ConflictsWithOthers(own.Descriptor(), ReadsAndWrites, access)) {
    throw EVantrelFileHandleError(TVantrelErrorCode::SharingViolation);
  }
  Check(::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS));
}

/// A descriptor beside the caller's own handle, which keeps the hold until the bytes are written.
int OpenBeside(const std::string& target) {
  const int descriptor = ::open(target.c_str(), O_RDWR | O_CLOEXEC);
  Check(descriptor);
  return descriptor;
}
bool IsRegular(const TVantrelFileHandle& handle) {
  struct stat status {};
  return ::fstat(handle.Descriptor(), &status) == 0 && S_ISREG(status.st_mode);
}

void Fill(TVantrelTempFile& file, TBytes bytes, const TVantrelFileHandle* old) {
  WriteAll(file.Descriptor(), bytes);
  struct stat status {};
  if (old != nullptr && ::fstat(old->Descriptor(), &status) == 0) KeepPermissions(file.Descriptor(), status);
  Flush(file.Descriptor());
}
}  // namespace

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::Write(const std::string& fileName, TBytes bytes,
                                                            TVantrelFileAccessMode access,
                                                            std::unique_ptr<TVantrelFileHandle>* own) {
  const auto target = Resolve(fileName);
  std::unique_ptr<TVantrelFileHandle> none;
  auto& mine = own != nullptr ? *own : none;
  std::unique_ptr<TVantrelFileHandle> saved;
  while (saved == nullptr) {
    if (mine != nullptr && VantrelFileLocks::IsSameFile(mine->Descriptor(), target)) {
      CheckOwn(*mine, target, access);
      saved = Replace(target, bytes, access, mine.get());
      if (saved == nullptr) saved = OverwriteOwn(target, bytes, access, *mine);
    } else {
      auto old = OpenExisting(target, access);
      saved = Replace(target, bytes, access, old.get());
      if (saved == nullptr && old != nullptr) {
        WriteInPlace(old->Descriptor(), bytes);
        saved = std::move(old);
      }
    }
  }
  saved->FFileName = fileName;
  mine.reset();
  ::lseek(saved->Descriptor(), 0, SEEK_SET);
  return saved;
}

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::Replace(const std::string& target, TBytes bytes,
                                                              TVantrelFileAccessMode access,
                                                              const TVantrelFileHandle* old) {
  if (old != nullptr && !IsRegular(*old)) return nullptr;
  TVantrelTempFile::RemoveLeftOvers(target);
  auto file = TVantrelTempFile::Create(target, access, old != nullptr ? PrivateMode : NewFileMode);
  if (!file && old == nullptr) throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
  if (!file) return nullptr;
  Fill(*file, bytes, old);
  int descriptor = -1;
  if (!file->TakePlaceOf(target, old == nullptr, descriptor)) return nullptr;
  FlushFolder(target);
  return HandleOn(target, access, descriptor);
}

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::OverwriteOwn(const std::string& target, TBytes bytes,
                                                                   TVantrelFileAccessMode access,
                                                                   const TVantrelFileHandle& own) {
  auto beside = HandleOn(target, access, OpenBeside(target));
  WriteInPlace(beside->Descriptor(), bytes);
  VantrelFileLocks::Release(own.Descriptor());
  VantrelFileLocks::TakePatiently(beside->Descriptor(), ReadsAndWrites, access);
  return beside;
}

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::HandleOn(const std::string& target, TVantrelFileAccessMode access,
                                                               int descriptor) {
  return std::unique_ptr<TVantrelFileHandle>(
      new TVantrelFileHandle(target, access, TVantrelFileOpenMode::fomOpenReadWrite, descriptor));
}
