#include "SystemError.h"

#include <cerrno>

#include "Posix.h"

namespace {
constexpr System::TCode OwnNumbers = 10000;
}

System::TCode System::LastCode() {
  return Posix::CodeOf(errno);
}

System::TCode System::CodeOf(const std::error_code& error) {
  return error ? Posix::CodeOf(error.value()) : Success;
}

System::TFailureKind System::KindOf(TCode code) {
  using enum TFailureKind;
  switch (code < OwnNumbers ? 0 : static_cast<int>(code - OwnNumbers)) {
    case EIO:
    case EUCLEAN:
      return DeviceFailed;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
      return DeviceMissing;
    case EMFILE:
    case ENFILE:
      return TooManyFiles;
    case EFBIG:
    case EOVERFLOW:
      return FileTooBig;
    case EEXIST:
    case ENOTEMPTY:
      return AlreadyThere;
    case EXDEV:
      return OtherDevice;
    case EINVAL:
    case EILSEQ:
      return NotAccepted;
    case EINTR:
    case ECANCELED:
      return Interrupted;
    case ENOEXEC:
      return NoProgram;
    case ENOSYS:
    case EOPNOTSUPP:
      return NotSupported;
    case ESTALE:
    case ETIMEDOUT:
    case ENOTCONN:
    case ECONNREFUSED:
    case ECONNRESET:
    case ECONNABORTED:
    case EHOSTDOWN:
    case EHOSTUNREACH:
    case ENETDOWN:
    case ENETUNREACH:
    case EREMOTEIO:
      return NetworkFailed;
    default:
      return Unknown;
  }
}

System::TCode Posix::CodeOf(int error) {
  const auto code = [](TVantrelErrorCode known) { return static_cast<System::TCode>(known); };
  switch (error) {
    case ENOENT:
      return code(TVantrelErrorCode::FileNotFound);
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return code(TVantrelErrorCode::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return code(TVantrelErrorCode::AccessDenied);
    case ENOMEM:
      return code(TVantrelErrorCode::NotEnoughMemory);
    case EAGAIN:
    case ETXTBSY:
    case EBUSY:
      return code(TVantrelErrorCode::SharingViolation);
    case ENOSPC:
    case EDQUOT:
      return code(TVantrelErrorCode::DiskFull);
    default:
      return OwnNumbers + static_cast<System::TCode>(error);
  }
}

void Posix::Fail() {
  Fail(errno);
}

void Posix::Fail(int error) {
  throw System::TFailure(CodeOf(error));
}

void Posix::Fail(TVantrelErrorCode code) {
  throw System::TFailure(code);
}
