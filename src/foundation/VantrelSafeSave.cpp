#include "VantrelSafeSave.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <deque>
#include <filesystem>
#include <optional>

#include "VantrelExceptions.h"
#include "VantrelFileLocks.h"
#include "VantrelPaths.h"

namespace {
using TBytes = std::span<const std::uint8_t>;
using TSpareFile = std::optional<TVantrelTempFile>;
using TPlace = TVantrelTempFile::TPlace;

constexpr int MaxLinks = 40;
constexpr const char* OtherVersion = ".andere";
constexpr unsigned PrivateMode = 0600;
constexpr VantrelFileLocks::TUse ReadsAndWrites{true, true};

void Check(int result) {
  if (result < 0) throw EVantrelFileHandleError();
}

[[noreturn]] void RaiseErrno(int error) {
  throw EVantrelFileHandleError(EVantrelWin32Error::CodeOfErrno(error));
}

/// Where everybody may lay links, one of somebody else could lead to a file of the user.
void RefuseForeignLink(const std::filesystem::path& folder, const struct stat& link) {
  constexpr mode_t laidByAll = S_ISVTX | S_IWOTH;
  struct stat around {};
  Check(::stat(folder.empty() ? "." : folder.c_str(), &around));
  const bool isForeign = link.st_uid != ::geteuid() && link.st_uid != around.st_uid;
  if ((around.st_mode & laidByAll) == laidByAll && isForeign)
    throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
}

/// The path without links, of folders and at its end, whether the file exists or not.
std::string Resolve(const std::string& fileName) {
  const std::filesystem::path path(fileName);
  std::deque<std::filesystem::path> rest(path.begin(), path.end());
  std::filesystem::path resolved;
  for (int links = 0; !rest.empty();) {
    const auto step = resolved / rest.front();
    rest.pop_front();
    struct stat status {};
    if (::lstat(step.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
      resolved = step;
      continue;
    }
    if (++links > MaxLinks) RaiseErrno(ELOOP);
    RefuseForeignLink(resolved, status);
    std::error_code error;
    const auto next = std::filesystem::read_symlink(step, error);
    if (error) RaiseErrno(error.value());
    rest.insert(rest.begin(), next.begin(), next.end());
  }
  return resolved.string();
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

/// Takes the space first, so that a full disk is found while the old bytes are whole and no others need be kept.
void ReserveSpace(int descriptor, std::int64_t size, TSpareFile& spare) {
  struct stat status {};
  Check(::fstat(descriptor, &status));
  if (!S_ISREG(status.st_mode) || size <= status.st_size) return;
  const int error = ::posix_fallocate(descriptor, 0, size);
  if (error != ENOSPC && error != EDQUOT) return;
  if (::ftruncate(descriptor, status.st_size) == 0 && spare) spare->Drop();
  RaiseErrno(error);
}

/// The first name that is free of the file's name with `ending` and that with 2, 3 and so on behind it.
std::string FreeNameBeside(const std::string& fileName, const std::string& ending) {
  return TVantrelFilePath::FirstFreePath(fileName + ending,
                                         [&](int number) { return fmt::format("{}{}{}", fileName, ending, number); });
}

/// From the first byte on until the last is flushed the spare file is the one that is complete.
void WriteInPlace(int descriptor, TBytes bytes, TSpareFile& spare, const std::string& target) {
  if (spare) spare->KeepAs(FreeNameBeside(target, OtherVersion));
  ReserveSpace(descriptor, std::ssize(bytes), spare);
  WriteAll(descriptor, bytes);
  if (::ftruncate(descriptor, std::ssize(bytes)) != 0 && errno != EINVAL) throw EVantrelFileHandleError();
  Flush(descriptor);
  if (spare) spare->Drop();
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

/// The temporary file with all the bytes and rights. Nothing where the target must be written in place.
TSpareFile NewFile(const std::string& target, TBytes bytes, TVantrelFileAccessMode access,
                   const TVantrelFileHandle* old, const TVantrelFileRights& most) {
  if (old != nullptr && !IsRegular(*old)) return std::nullopt;
  auto file = TVantrelTempFile::Create(target, access, old != nullptr ? PrivateMode : most.ModeOfNew());
  if (!file) return std::nullopt;
  if (old == nullptr) most.Limit(file->Descriptor());
  WriteAll(file->Descriptor(), bytes);
  if (old != nullptr) TVantrelFileRights::Copy(old->Descriptor(), file->Descriptor(), most);
  Flush(file->Descriptor());
  TVantrelTempFile::RemoveLeftOvers(target);
  return file;
}
}  // namespace

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::Write(const std::string& fileName, TBytes bytes,
                                                            TVantrelFileAccessMode access,
                                                            std::unique_ptr<TVantrelFileHandle>* own,
                                                            const TVantrelFileRights& most) {
  const auto target = Resolve(fileName);
  std::unique_ptr<TVantrelFileHandle> none;
  auto& mine = own != nullptr ? *own : none;
  std::unique_ptr<TVantrelFileHandle> saved;
  while (saved == nullptr) {
    const bool isMine = mine != nullptr && VantrelFileLocks::IsSameFile(mine->Descriptor(), target);
    if (isMine) CheckOwn(*mine, target, access);
    auto opened = isMine ? nullptr : OpenExisting(target, access);
    const auto* old = isMine ? mine.get() : opened.get();
    auto file = NewFile(target, bytes, access, old, most);
    const auto place = file ? file->TakePlaceOf(target, old == nullptr) : TPlace::Forbidden;
    if (place == TPlace::CameToBe) continue;
    if (place == TPlace::Taken) {
      saved = HandleOn(target, access, file->Release());
      FlushFolder(target);
    } else if (old == nullptr) {
      throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
    } else if (isMine) {
      saved = OverwriteOwn(target, bytes, access, *mine, file);
    } else {
      most.Limit(opened->Descriptor());
      WriteInPlace(opened->Descriptor(), bytes, file, target);
      saved = std::move(opened);
    }
  }
  saved->FFileName = fileName;
  mine.reset();
  ::lseek(saved->Descriptor(), 0, SEEK_SET);
  return saved;
}

TVantrelFileStamp TVantrelSafeSave::CopyBeside(const std::string& fileName, const std::string& ending) {
  const int descriptor = ::open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  Check(descriptor);
  TVantrelFileStream original(HandleOn(fileName, TVantrelFileAccessMode::famShareDenyNone, descriptor));
  const auto bytes = original.ReadAll();
  const TVantrelFileStamp stamp(original.Handle(), bytes);
  Write(FreeNameBeside(fileName, ending), bytes, TVantrelFileAccessMode::famShareDenyWrite, nullptr, stamp.Rights());
  return stamp;
}

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::OverwriteOwn(const std::string& target, TBytes bytes,
                                                                   TVantrelFileAccessMode access,
                                                                   const TVantrelFileHandle& own, TSpareFile& spare) {
  auto beside = HandleOn(target, access, OpenBeside(target));
  WriteInPlace(beside->Descriptor(), bytes, spare, target);
  VantrelFileLocks::PassOn(own.Descriptor(), beside->Descriptor(), ReadsAndWrites, access);
  return beside;
}

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::HandleOn(const std::string& target, TVantrelFileAccessMode access,
                                                               int descriptor) {
  return std::unique_ptr<TVantrelFileHandle>(
      new TVantrelFileHandle(target, access, TVantrelFileOpenMode::fomOpenReadWrite, descriptor));
}
