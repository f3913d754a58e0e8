#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <deque>
#include <filesystem>
#include <optional>

#include "FileLocks.h"
#include "FileRights.h"
#include "SystemFolders.h"
#include "TempFile.h"

namespace System {
namespace {
using Posix::Checked;
using Posix::Fail;
using Posix::TTempFile;
namespace FileLocks = Posix::FileLocks;
namespace FileRights = Posix::FileRights;
using TBytes = std::span<const std::uint8_t>;
using TSpareFile = std::optional<TTempFile>;
using TPlace = TTempFile::TPlace;

constexpr int MaxLinks = 40;
/// How often the target may come to be, and go again, while it is replaced.
constexpr int MaxAttempts = 20;
constexpr FileLocks::TUse ReadsAndWrites{true, true};

/// Where everybody may lay links, one of somebody else could lead to a file of the user.
void RefuseForeignLink(const std::filesystem::path& folder, const struct stat& link) {
  constexpr mode_t laidByAll = S_ISVTX | S_IWOTH;
  struct stat around {};
  Checked(::stat(folder.empty() ? "." : folder.c_str(), &around));
  const bool isForeign = link.st_uid != ::geteuid() && link.st_uid != around.st_uid;
  if ((around.st_mode & laidByAll) == laidByAll && isForeign) Fail(TVantrelErrorCode::AccessDenied);
}

/// The path without links, of folders and at its end, whether the file exists or not.
std::string Resolve(const std::string& name) {
  const std::filesystem::path path(name);
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
    if (++links > MaxLinks) Fail(ELOOP);
    RefuseForeignLink(resolved, status);
    std::error_code error;
    const auto next = std::filesystem::read_symlink(step, error);
    if (error) Fail(error.value());
    rest.insert(rest.begin(), next.begin(), next.end());
  }
  return resolved.string();
}

void WriteAll(int descriptor, TBytes bytes) {
  while (!bytes.empty()) {
    const auto part = ::write(descriptor, bytes.data(), bytes.size());
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) Fail();
    if (part == 0) Fail(TVantrelErrorCode::DiskFull);
    bytes = bytes.subspan(static_cast<std::size_t>(part));
  }
}

/// Some file systems and devices cannot flush, which is no failure.
void Flush(int descriptor) {
  if (::fsync(descriptor) != 0 && errno != EINVAL) Fail();
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
  Checked(::fstat(descriptor, &status));
  if (!S_ISREG(status.st_mode) || size <= status.st_size) return;
  const int error = ::posix_fallocate(descriptor, 0, size);
  if (error != ENOSPC && error != EDQUOT) return;
  if (::ftruncate(descriptor, status.st_size) == 0 && spare) spare->Drop();
  Fail(error);
}

/// From the first byte on until the last is flushed the spare file is the one that is complete.
void WriteInPlace(int descriptor, TBytes bytes, TSpareFile& spare, const std::string& target) {
  if (spare) {
    spare->KeepBeside(target, UnfinishedSave);
    FlushFolder(target);
  }
  ReserveSpace(descriptor, std::ssize(bytes), spare);
  WriteAll(descriptor, bytes);
  if (::ftruncate(descriptor, std::ssize(bytes)) != 0 && errno != EINVAL) Fail();
  Flush(descriptor);
  if (spare) spare->Drop();
}

/// Nothing where the file is missing.
std::optional<TFile> OpenExisting(const std::string& target, TVantrelFileAccessMode access) {
  auto file = TFile::Open(target, access, TVantrelFileOpenMode::fomOpenReadWrite);
  if (file) return std::move(*file);
  if (file.Code() == static_cast<TCode>(TVantrelErrorCode::FileNotFound)) return std::nullopt;
  throw TFailure(file.Code());
}

/// What `own` holds must be free of others who do not go with `access`, and the file must be open to writing.
void CheckOwn(const TFile& own, const std::string& target, TVantrelFileAccessMode access) {
  if (FileLocks::ConflictsWithOthers(own.Native().Descriptor, ReadsAndWrites, access)) {
    Fail(TVantrelErrorCode::SharingViolation);
  }
  Checked(::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS));
}

auto FileOf(int descriptor) {
  struct stat status {};
  Checked(::fstat(descriptor, &status));
  return Posix::FileOf(status);
}

bool IsRegular(const TFile& file) {
  struct stat status {};
  return ::fstat(file.Native().Descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// The temporary file with all the bytes and rights. Nothing where the target must be written in place.
TSpareFile NewFile(const std::string& target, TBytes bytes, TVantrelFileAccessMode access, const TFile* old,
                   const TFileRights& most) {
  if (old != nullptr && !IsRegular(*old)) return std::nullopt;
  auto file = TTempFile::Create(target, access, old != nullptr ? Posix::PrivateMode : FileRights::ModeOfNew(most));
  if (!file) return std::nullopt;
  if (old == nullptr) FileRights::Limit(file->Descriptor(), most);
  WriteAll(file->Descriptor(), bytes);
  if (old != nullptr) FileRights::Copy(old->Native().Descriptor, file->Descriptor(), most);
  Flush(file->Descriptor());
  TTempFile::RemoveLeftOvers(target);
  return file;
}

/// In place, with the hold passing from `own` to the new file once the bytes are written.
TFile OverwriteOwn(const std::string& target, TBytes bytes, TVantrelFileAccessMode access, const TFile& own,
                   TSpareFile& spare) {
  TFile beside(
      TFile::TNative(Checked(::open(target.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY))));
  // What another program has laid there meanwhile is not the caller's.
  if (FileOf(own.Native().Descriptor) != FileOf(beside.Native().Descriptor)) Fail(TVantrelErrorCode::SharingViolation);
  WriteInPlace(beside.Native().Descriptor, bytes, spare, target);
  FileLocks::PassOn(own.Native().Descriptor, beside.Native().Descriptor, ReadsAndWrites, access);
  return beside;
}

/// Nothing where the target came to be meanwhile.
std::optional<TFile> TryToReplace(const std::string& target, TBytes bytes, TVantrelFileAccessMode access,
                                  const TFile* own, const TFileRights& most) {
  const bool isMine = own != nullptr && FileLocks::IsSameFile(own->Native().Descriptor, target);
  if (isMine) CheckOwn(*own, target, access);
  auto opened = isMine ? std::nullopt : OpenExisting(target, access);
  const auto* old = isMine ? own : opened ? &*opened : nullptr;
  auto file = NewFile(target, bytes, access, old, most);
  const auto place = file ? file->TakePlaceOf(target, old == nullptr) : TPlace::Forbidden;
  if (place == TPlace::CameToBe) return std::nullopt;
  if (place == TPlace::Taken) {
    auto saved = file->Release();
    FlushFolder(target);
    return saved;
  }
  if (old == nullptr) Fail(TVantrelErrorCode::AccessDenied);
  if (isMine) return OverwriteOwn(target, bytes, access, *own, file);
  FileRights::Limit(opened->Native().Descriptor, most);
  WriteInPlace(opened->Native().Descriptor, bytes, file, target);
  return opened;
}
}  // namespace

TResult<TFile> Replace(const std::string& name, TBytes bytes, TVantrelFileAccessMode access, const TFile* own,
                       const TFileRights& most) {
  return Posix::Guarded([&] {
    for (int attempt = 0; attempt < MaxAttempts; ++attempt) {
      const auto target = Resolve(name);
      auto saved = TryToReplace(target, bytes, access, own, most);
      if (!saved) continue;
      saved->SetPosition(0);
      return std::move(*saved);
    }
    Fail(TVantrelErrorCode::SharingViolation);
  });
}

}  // namespace System
