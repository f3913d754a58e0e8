#include "VantrelExceptions.h"

#include <cerrno>

#include "FoundationTexts.h"
#include "VantrelI18n.h"

namespace {
constexpr std::uint32_t ForeignErrnoBase = 10000;

const char* TextOfErrno(int error) {
  switch (error) {
    case EIO:
    case EUCLEAN:
      return FoundationTexts::DeviceFailed;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
      return FoundationTexts::DeviceMissing;
    case EMFILE:
    case ENFILE:
      return FoundationTexts::TooManyFiles;
    case EFBIG:
    case EOVERFLOW:
      return FoundationTexts::FileTooBig;
    case EEXIST:
    case ENOTEMPTY:
      return FoundationTexts::AlreadyThere;
    case EXDEV:
      return FoundationTexts::OtherDevice;
    case EINVAL:
    case EILSEQ:
      return FoundationTexts::NotAccepted;
    case EINTR:
    case ECANCELED:
      return FoundationTexts::Interrupted;
    case ENOSYS:
    case EOPNOTSUPP:
      return FoundationTexts::NotSupported;
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
      return FoundationTexts::NetworkFailed;
    default:
      return nullptr;
  }
}
}  // namespace

EVantrelWin32Error::EVantrelWin32Error() : EVantrelWin32Error(CodeOfErrno(errno)) {}

EVantrelWin32Error::EVantrelWin32Error(std::uint32_t code)
    : EVantrelException(FormatText(FoundationTexts::SystemError, code, TextOf(code))), FErrorCode(code) {}

EVantrelWin32Error::EVantrelWin32Error(TVantrelErrorCode code, std::string_view builtIn)
    : EVantrelException(
          FormatText(FoundationTexts::SystemError, static_cast<std::uint32_t>(code), ResourceText(builtIn))),
      FErrorCode(static_cast<std::uint32_t>(code)) {}

std::uint32_t EVantrelWin32Error::CodeOfErrno(int error) noexcept {
  const auto code = [](TVantrelErrorCode known) { return static_cast<std::uint32_t>(known); };
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
      return ForeignErrnoBase + static_cast<std::uint32_t>(error);
  }
}

std::string EVantrelWin32Error::TextOf(std::uint32_t code) {
  switch (static_cast<TVantrelErrorCode>(code)) {
    case TVantrelErrorCode::FileNotFound:
      return ResourceText(FoundationTexts::FileNotFound);
    case TVantrelErrorCode::PathNotFound:
      return ResourceText(FoundationTexts::PathNotFound);
    case TVantrelErrorCode::AccessDenied:
      return ResourceText(FoundationTexts::AccessDenied);
    case TVantrelErrorCode::NotEnoughMemory:
      return ResourceText(FoundationTexts::NotEnoughMemory);
    case TVantrelErrorCode::SharingViolation:
      return ResourceText(FoundationTexts::SharingViolation);
    case TVantrelErrorCode::NotSupported:
      return ResourceText(FoundationTexts::NotSupported);
    case TVantrelErrorCode::DiskFull:
      return ResourceText(FoundationTexts::DiskFull);
  }
  const char* text = code < ForeignErrnoBase ? nullptr : TextOfErrno(static_cast<int>(code - ForeignErrnoBase));
  return text == nullptr ? FormatText(FoundationTexts::UnknownError, code) : ResourceText(text);
}
