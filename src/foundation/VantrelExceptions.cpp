#include "VantrelExceptions.h"

#include "FoundationTexts.h"
#include "VantrelI18n.h"

namespace {
/// Null for a code that says nothing to the user.
const char* TextOfKind(System::TCode code) {
  using enum System::TFailureKind;
  switch (System::KindOf(code)) {
    case DeviceFailed:
      return FoundationTexts::DeviceFailed;
    case DeviceMissing:
      return FoundationTexts::DeviceMissing;
    case TooManyFiles:
      return FoundationTexts::TooManyFiles;
    case FileTooBig:
      return FoundationTexts::FileTooBig;
    case AlreadyThere:
      return FoundationTexts::AlreadyThere;
    case OtherDevice:
      return FoundationTexts::OtherDevice;
    case NotAccepted:
      return FoundationTexts::NotAccepted;
    case Interrupted:
      return FoundationTexts::Interrupted;
    case NotSupported:
      return FoundationTexts::NotSupported;
    case NetworkFailed:
      return FoundationTexts::NetworkFailed;
    case NoProgram:
    case Unknown:
      break;
  }
  return nullptr;
}
}  // namespace

EVantrelWin32Error::EVantrelWin32Error() : EVantrelWin32Error(System::LastCode()) {}

EVantrelWin32Error::EVantrelWin32Error(std::uint32_t code)
    : EVantrelException(FormatText(FoundationTexts::SystemError, code, TextOf(code))), FErrorCode(code) {}

EVantrelWin32Error::EVantrelWin32Error(TVantrelErrorCode code, std::string_view builtIn)
    : EVantrelException(
          FormatText(FoundationTexts::SystemError, static_cast<std::uint32_t>(code), ResourceText(builtIn))),
      FErrorCode(static_cast<std::uint32_t>(code)) {}

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
  const char* text = TextOfKind(code);
  return text == nullptr ? FormatText(FoundationTexts::UnknownError, code) : ResourceText(text);
}
