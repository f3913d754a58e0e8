#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "SystemError.h"

/// Root of the program's exceptions. Carries the message that the user reads, in UTF-8.
class EVantrelException : public std::exception {
 public:
  explicit EVantrelException(std::string message) : FMessage(std::move(message)) {}

  const std::string& Message() const noexcept { return FMessage; }
  const char* what() const noexcept override { return FMessage.c_str(); }

 private:
  std::string FMessage;
};

/// A failed call to the operating system, with its code and what the user reads about it.
class EVantrelWin32Error : public EVantrelException {
 public:
  /// Takes the last error of the calling thread.
  EVantrelWin32Error();
  explicit EVantrelWin32Error(std::uint32_t code);
  explicit EVantrelWin32Error(TVantrelErrorCode code) : EVantrelWin32Error(static_cast<std::uint32_t>(code)) {}
  /// With a text of the program's own in place of the system's, fetched by ResourceText.
  EVantrelWin32Error(TVantrelErrorCode code, std::string_view builtIn);

  std::uint32_t ErrorCode() const noexcept { return FErrorCode; }

  /// What is wrong and what to do next, in German, for every code.
  static std::string TextOf(std::uint32_t code);

 private:
  std::uint32_t FErrorCode;
};

/// The memory does not suffice for what was asked for: no damage of a file.
class EOutOfMemory : public EVantrelWin32Error {
 public:
  EOutOfMemory() : EVantrelWin32Error(TVantrelErrorCode::NotEnoughMemory) {}
};

/// An operation on a file or folder as a whole failed.
class EVantrelFileSystemError : public EVantrelWin32Error {
  using EVantrelWin32Error::EVantrelWin32Error;
};
/// A file could not be opened, read or written.
class EVantrelFileHandleError : public EVantrelWin32Error {
  using EVantrelWin32Error::EVantrelWin32Error;
};

/// Raises TError with the code of a call to the system that failed.
template <class TError>
void CheckSystem(System::TCode code) {
  if (code != System::Success) throw TError(code);
}

/// What a call to the system gives; raises TError where it failed.
template <class TError, class T>
T CheckSystem(System::TResult<T> result) {
  CheckSystem<TError>(result.Code());
  return std::move(*result);
}

/// A file or address that could not be handed to the program for it, with the system's code.
class EVantrelFileLaunchError : public EVantrelException {
 public:
  EVantrelFileLaunchError(std::uint32_t code, std::string message)
      : EVantrelException(std::move(message)), FErrorCode(code) {}

  std::uint32_t ErrorCode() const noexcept { return FErrorCode; }

 private:
  std::uint32_t FErrorCode;
};

/// Names one direct descendant of EVantrelException.
#define VANTREL_EXCEPTION(name)                 \
  class name : public EVantrelException {       \
    using EVantrelException::EVantrelException; \
  }

/// A second instance of a class of which there is one.
VANTREL_EXCEPTION(EVantrelSingletonError);
VANTREL_EXCEPTION(EVantrelStaticClassError);
VANTREL_EXCEPTION(EVantrelRTTIError);
VANTREL_EXCEPTION(EVantrelStreamWriterError);
VANTREL_EXCEPTION(EVantrelAssignError);
VANTREL_EXCEPTION(EVantrelPersistentError);
VANTREL_EXCEPTION(EVantrelCollectionError);
VANTREL_EXCEPTION(EVantrelMapError);
VANTREL_EXCEPTION(EVantrelWriterError);
VANTREL_EXCEPTION(EVantrelReaderError);
VANTREL_EXCEPTION(EVantrelDateTimeError);
VANTREL_EXCEPTION(EVantrelDataObjectWriterError);
VANTREL_EXCEPTION(EVantrelDataObjectReaderError);
VANTREL_EXCEPTION(EVantrelAesCipherError);
VANTREL_EXCEPTION(EVantrelSocketError);

/// A text that cannot be turned into the number, date or GUID that is asked for; a variant of the wrong kind.
VANTREL_EXCEPTION(EConvertError);
/// An argument outside the values that an operation takes.
VANTREL_EXCEPTION(EArgumentOutOfRangeException);

#undef VANTREL_EXCEPTION
