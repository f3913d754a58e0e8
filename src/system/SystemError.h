#pragma once

#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

/// Codes of the system errors that the program tells apart, whatever the platform calls them.
enum class TVantrelErrorCode : std::uint32_t {
  FileNotFound = 2,
  PathNotFound = 3,
  AccessDenied = 5,
  NotEnoughMemory = 8,
  SharingViolation = 32,
  NotSupported = 50,
  DiskFull = 112,
};

/// What the program asks of the operating system. Nothing here raises an exception of the program: what fails gives its
/// code. Names are UTF-8.
namespace System {

/// The code of a failure: a TVantrelErrorCode, or behind 10000 the system's own number of what has none.
using TCode = std::uint32_t;

inline constexpr TCode Success = 0;

struct TFailure {
  explicit TFailure(TCode code) : Code(code) {}
  explicit TFailure(TVantrelErrorCode code) : Code(static_cast<TCode>(code)) {}

  TCode Code;
};

/// A value, or the code of why there is none.
template <class T>
class [[nodiscard]] TResult {
 public:
  TResult(T value) : FValue(std::move(value)) {}
  TResult(TFailure failure) : FCode(failure.Code) {}

  explicit operator bool() const { return FValue.has_value(); }
  T& operator*() { return *FValue; }
  T* operator->() { return &*FValue; }
  /// Success where there is a value.
  TCode Code() const { return FCode; }

 private:
  std::optional<T> FValue;
  TCode FCode = Success;
};

/// What kind of failure a code without a told meaning is.
enum class TFailureKind {
  Unknown,
  DeviceFailed,
  DeviceMissing,
  TooManyFiles,
  FileTooBig,
  AlreadyThere,
  OtherDevice,
  NotAccepted,
  Interrupted,
  NoProgram,
  NotSupported,
  NetworkFailed,
};

/// The code of the last failed call to the system on this thread.
TCode LastCode();
/// The code of a failure that the standard library tells; Success for none.
TCode CodeOf(const std::error_code& error);
TFailureKind KindOf(TCode code);

}  // namespace System
