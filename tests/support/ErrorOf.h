#pragma once

#include <cstdint>
#include <string>

#include "VantrelExceptions.h"
#include "VantrelFileStreams.h"

/// Runs `call` and returns the message of the EError that it raises, or "" where it raises nothing. Other exceptions
/// go on.
template <class EError, class TCall>
std::string ErrorOf(TCall call) {
  try {
    call();
  } catch (const EError& error) {
    return error.what();
  }
  return {};
}

/// Runs `call` and returns the code of the file error that it raises, 0 for none.
template <class TCall>
std::uint32_t FileErrorOf(TCall call) {
  try {
    call();
  } catch (const EVantrelFileHandleError& error) {
    return error.ErrorCode();
  }
  return 0;
}

/// The code with which one more opening of the file is refused, 0 where it is let.
inline std::uint32_t OpeningErrorOf(const std::string& name,
                                    TVantrelFileOpenMode mode = TVantrelFileOpenMode::fomOpenReadWrite) {
  return FileErrorOf([&] { const TVantrelFileStream stream(name, TVantrelFileAccessMode::famShareDenyNone, mode); });
}
