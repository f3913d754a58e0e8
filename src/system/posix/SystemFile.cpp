#include "SystemFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "FileLocks.h"
#include "FileRights.h"

using Posix::Checked;

namespace {
using Posix::FileLocks::THold;

// More renames than this between opening and locking are no race but a file system without fixed inode numbers.
constexpr int MaxReopens = 20;

[[noreturn]] void FailToOpen(const std::string& name, int error) {
  std::error_code ignored;
  const auto folder = std::filesystem::path(name).parent_path();
  if (error == ENOENT && !folder.empty() && !std::filesystem::is_directory(folder, ignored)) error = ENOTDIR;
  Posix::Fail(error);
}

int OpenFlags(TVantrelFileOpenMode openMode) {
  // Never waits for the other end of a pipe. An existing file is emptied only once it is held.
  constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  switch (openMode) {
    case TVantrelFileOpenMode::fomOpenRead:
      return always | O_RDONLY;
    case TVantrelFileOpenMode::fomOpenWrite:
    case TVantrelFileOpenMode::fomOpenReadWrite:
      return always | O_RDWR;
    default:
      return always | O_RDWR | O_CREAT;
  }
}

int OpenDescriptor(const std::string& name, TVantrelFileOpenMode openMode) {
  const int flags = OpenFlags(openMode);
  int descriptor = ::open(name.c_str(), flags, Posix::NewFileMode);
  // The hold needs the right to read, which fomOpenWrite does not ask for.
  if (descriptor < 0 && errno == EACCES && openMode == TVantrelFileOpenMode::fomOpenWrite) {
    descriptor = ::open(name.c_str(), (flags & ~O_ACCMODE) | O_WRONLY);
  }
  if (descriptor < 0) FailToOpen(name, errno);
  return descriptor;
}

struct stat StatusOf(int descriptor) {
  struct stat status {};
  Checked(::fstat(descriptor, &status));
  return status;
}

/// The opened file with its hold, which is that of the file that the name leads to.
System::TFile::TNative OpenHeld(const std::string& name, TVantrelFileAccessMode access, TVantrelFileOpenMode mode) {
  for (int attempt = 1;; ++attempt) {
    System::TFile::TNative file(OpenDescriptor(name, mode));
    if (S_ISDIR(StatusOf(file.Descriptor).st_mode)) Posix::Fail(TVantrelErrorCode::AccessDenied);
    const auto hold = Posix::FileLocks::TakePatiently(file.Descriptor, Posix::FileLocks::UseOf(mode), access);
    if (!Posix::FileLocks::IsSameFile(file.Descriptor, name) && attempt < MaxReopens) continue;
    if (hold == THold::Refused) Posix::Fail(TVantrelErrorCode::SharingViolation);
    return file;
  }
}

/// Repeats `call` for what is left until all is done, it gives 0 or it fails.
template <class TCall>
std::int64_t Transfer(std::int64_t count, TCall call) {
  std::int64_t done = 0;
  while (done < count) {
    const auto part = call(done, static_cast<std::size_t>(count - done));
    if (part < 0 && errno == EINTR) continue;
    if (Checked(part) == 0) break;
    done += part;
  }
  return done;
}

}  // namespace

namespace System {

TFile::TNative::TNative(TNative&& other) noexcept : Descriptor(std::exchange(other.Descriptor, -1)) {}

TFile::TNative::~TNative() {
  if (Descriptor >= 0) ::close(Descriptor);
}

TResult<TFile> TFile::Open(const std::string& name, TVantrelFileAccessMode access, TVantrelFileOpenMode mode) {
  return Posix::Guarded([&] {
    TFile file(OpenHeld(name, access, mode));
    const int descriptor = file.Native().Descriptor;
    if (mode == TVantrelFileOpenMode::fomCreate && StatusOf(descriptor).st_size > 0)
      Checked(::ftruncate(descriptor, 0));
    ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_RANDOM);
    return file;
  });
}

TResult<TFile> TFile::OpenUnheld(const std::string& name) {
  return Posix::Guarded(
      [&] { return TFile(TNative(Checked(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)))); });
}

TFile::TFile(TNative native) : FNative(std::make_unique<TNative>(std::move(native))) {}
TFile::TFile(TFile&& other) noexcept = default;
TFile& TFile::operator=(TFile&& other) noexcept = default;
TFile::~TFile() = default;

TResult<std::int64_t> TFile::Read(void* target, std::int64_t count) {
  return Posix::Guarded([&] {
    return Transfer(count, [&](std::int64_t done, std::size_t rest) {
      return ::read(FNative->Descriptor, static_cast<std::uint8_t*>(target) + done, rest);
    });
  });
}

TResult<std::int64_t> TFile::Write(const void* source, std::int64_t count) {
  return Posix::Guarded([&] {
    return Transfer(count, [&](std::int64_t done, std::size_t rest) {
      return ::write(FNative->Descriptor, static_cast<const std::uint8_t*>(source) + done, rest);
    });
  });
}

TResult<std::int64_t> TFile::ReadAt(std::int64_t position, void* target, std::int64_t count) const {
  return Posix::Guarded([&] {
    return Transfer(count, [&](std::int64_t done, std::size_t rest) {
      return ::pread(FNative->Descriptor, static_cast<std::uint8_t*>(target) + done, rest, position + done);
    });
  });
}

TResult<std::int64_t> TFile::Position() const {
  return Posix::Guarded([&] { return std::int64_t{Checked(::lseek(FNative->Descriptor, 0, SEEK_CUR))}; });
}

TCode TFile::SetPosition(std::int64_t position) {
  const auto wanted = std::max<std::int64_t>(position, 0);
  return ::lseek(FNative->Descriptor, wanted, SEEK_SET) < 0 ? LastCode() : Success;
}

TResult<std::int64_t> TFile::Size() const {
  return Posix::Guarded([&] { return std::int64_t{StatusOf(FNative->Descriptor).st_size}; });
}

TCode TFile::SetSize(std::int64_t size) {
  return ::ftruncate(FNative->Descriptor, std::max<std::int64_t>(size, 0)) != 0 ? LastCode() : Success;
}

TCode TFile::Flush() {
  return ::fsync(FNative->Descriptor) != 0 && errno != EINVAL ? LastCode() : Success;
}

TFileState TFile::State() const {
  TFileState state;
  struct stat status {};
  if (::fstat(FNative->Descriptor, &status) != 0) return state;
  const auto mark = [](auto value) { return static_cast<std::uint64_t>(value); };
  state.FIsKnown = true;
  state.FMarks = {mark(status.st_dev), mark(status.st_ino), mark(status.st_size), mark(status.st_mtim.tv_sec),
                  mark(status.st_mtim.tv_nsec)};
  return state;
}

TFileRights TFile::Rights() const {
  return Posix::FileRights::Of(FNative->Descriptor);
}

}  // namespace System
