#include "VantrelFileStreams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "VantrelExceptions.h"
#include "VantrelFileLocks.h"

namespace {
using VantrelFileLocks::THold;

constexpr mode_t NewFileMode = 0666;
// More renames than this between opening and locking are no race but a file system without fixed inode numbers.
constexpr int MaxReopens = 20;

[[noreturn]] void RaiseOpenError(const std::string& fileName, int error) {
  std::error_code ignored;
  const auto folder = std::filesystem::path(fileName).parent_path();
  if (error == ENOENT && !folder.empty() && !std::filesystem::is_directory(folder, ignored)) error = ENOTDIR;
  throw EVantrelFileHandleError(EVantrelWin32Error::CodeOfErrno(error));
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

int OpenDescriptor(const std::string& fileName, TVantrelFileOpenMode openMode) {
  const int flags = OpenFlags(openMode);
  int descriptor = ::open(fileName.c_str(), flags, NewFileMode);
  // The hold needs the right to read, which fomOpenWrite does not ask for.
  if (descriptor < 0 && errno == EACCES && openMode == TVantrelFileOpenMode::fomOpenWrite) {
    descriptor = ::open(fileName.c_str(), (flags & ~O_ACCMODE) | O_WRONLY);
  }
  if (descriptor < 0) RaiseOpenError(fileName, errno);
  return descriptor;
}

std::int64_t Checked(std::int64_t result) {
  if (result < 0) throw EVantrelFileHandleError();
  return result;
}

struct stat StatusOf(int descriptor) {
  struct stat status {};
  Checked(::fstat(descriptor, &status));
  return status;
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

std::unique_ptr<TVantrelFileHandle> OpenWithFallback(const std::string& fileName, TVantrelFileAccessMode fallbackAccess,
                                                     TVantrelFileOpenMode fallbackMode, TVantrelFileAccessMode access,
                                                     TVantrelFileOpenMode openMode) {
  try {
    return std::make_unique<TVantrelFileHandle>(fileName, access, openMode);
  } catch (const EVantrelFileHandleError&) {
    return std::make_unique<TVantrelFileHandle>(fileName, fallbackAccess, fallbackMode);
  }
}
}  // namespace

TVantrelFileHandle::TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : TVantrelFileHandle(std::move(fileName), access, openMode, -1) {
  // From here on the destructor closes the descriptor, whatever is raised.
  for (int attempt = 0; attempt < MaxReopens; ++attempt) {
    FDescriptor = OpenDescriptor(FFileName, openMode);
    if (S_ISDIR(StatusOf(FDescriptor).st_mode)) throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
    const auto hold = VantrelFileLocks::TakePatiently(FDescriptor, VantrelFileLocks::UseOf(openMode), access);
    if (VantrelFileLocks::IsSameFile(FDescriptor, FFileName) || attempt + 1 == MaxReopens) {
      if (hold == THold::Refused) throw EVantrelFileHandleError(TVantrelErrorCode::SharingViolation);
      break;
    }
    ::close(std::exchange(FDescriptor, -1));
  }
  if (openMode == TVantrelFileOpenMode::fomCreate && StatusOf(FDescriptor).st_size > 0) {
    Checked(::ftruncate(FDescriptor, 0));
  }
  ::posix_fadvise(FDescriptor, 0, 0, POSIX_FADV_RANDOM);
}

TVantrelFileHandle::TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode, int descriptor)
    : FFileName(std::move(fileName)), FAccessMode(access), FOpenMode(openMode), FDescriptor(descriptor) {}

TVantrelFileHandle::~TVantrelFileHandle() {
  if (FDescriptor >= 0) ::close(FDescriptor);
}

TVantrelFileStream::TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : FHandle(std::make_unique<TVantrelFileHandle>(fileName, access, openMode)) {}

TVantrelFileStream::TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode fallbackAccess,
                                       TVantrelFileOpenMode fallbackMode, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : FHandle(OpenWithFallback(fileName, fallbackAccess, fallbackMode, access, openMode)) {}

TVantrelFileStream::TVantrelFileStream(std::unique_ptr<TVantrelFileHandle> handle) : FHandle(std::move(handle)) {}

std::int64_t TVantrelFileStream::Read(void* target, std::int64_t count) {
  return Transfer(count, [&](std::int64_t done, std::size_t rest) {
    return ::read(FHandle->Descriptor(), static_cast<std::uint8_t*>(target) + done, rest);
  });
}

std::int64_t TVantrelFileStream::Write(const void* source, std::int64_t count) {
  return Transfer(count, [&](std::int64_t done, std::size_t rest) {
    return ::write(FHandle->Descriptor(), static_cast<const std::uint8_t*>(source) + done, rest);
  });
}

std::int64_t TVantrelFileStream::Position() const {
  return Checked(::lseek(FHandle->Descriptor(), 0, SEEK_CUR));
}

void TVantrelFileStream::SetPosition(std::int64_t position) {
  Checked(::lseek(FHandle->Descriptor(), std::max<std::int64_t>(position, 0), SEEK_SET));
}

std::int64_t TVantrelFileStream::Size() const {
  return StatusOf(FHandle->Descriptor()).st_size;
}

void TVantrelFileStream::SetSize(std::int64_t size) {
  Checked(::ftruncate(FHandle->Descriptor(), std::max<std::int64_t>(size, 0)));
  if (Position() > size) SetPosition(size);
}
