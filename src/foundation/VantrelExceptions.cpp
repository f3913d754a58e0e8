#include "VantrelExceptions.h"

#include <cerrno>
#include <cstring>

#include "FoundationTexts.h"
#include "VantrelI18n.h"

namespace {
constexpr std::uint32_t ForeignErrnoBase = 10000;
}

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
  return code >= ForeignErrnoBase ? std::strerror(static_cast<int>(code - ForeignErrnoBase)) : std::string();
}
