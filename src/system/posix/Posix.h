#pragma once

#include <sys/stat.h>

#include <utility>

#include "SystemError.h"
#include "SystemFile.h"

struct System::TFile::TNative {
  explicit TNative(int descriptor) : Descriptor(descriptor) {}
  TNative(const TNative&) = delete;
  TNative& operator=(const TNative&) = delete;
  TNative(TNative&& other) noexcept;
  ~TNative();

  int Descriptor;
};

/// Inside this folder a failed call is thrown as a System::TFailure.
namespace Posix {

/// The code for a value of errno.
System::TCode CodeOf(int error);

[[noreturn]] void Fail();
[[noreturn]] void Fail(int error);
[[noreturn]] void Fail(TVantrelErrorCode code);

/// Fails where the call gave a negative value; gives it otherwise.
template <class TValue>
TValue Checked(TValue result) {
  if (result < 0) Fail();
  return result;
}

/// The rights of a file that is the user's alone, and of a new one, from which the system takes what his mask says.
inline constexpr unsigned PrivateMode = 0600, NewFileMode = 0666;

/// What tells a file from all others.
inline std::pair<dev_t, ino_t> FileOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

/// As rename, and fails with EEXIST where something has the name `to`.
int RenameToFree(const std::string& from, const std::string& to);

/// What `call` gives, or the code of its failure.
template <class TCall>
auto Guarded(TCall call) -> System::TResult<decltype(call())> {
  try {
    return call();
  } catch (const System::TFailure& failure) {
    return failure;
  }
}

}  // namespace Posix
