#pragma once

#include <cstdint>
#include <string>

#include "VantrelExceptions.h"

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
