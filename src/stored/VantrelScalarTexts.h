#pragma once

#include <string_view>

#include "VantrelDataIO.h"

/// The texts of scalar values in the forms that are text. One pair per operation of writer and reader: WriteX puts
/// the text into the buffer and returns it, ParseX reads it back, raising EConvertError for a text that is none,
/// EVantrelDateTimeError for one that is no date.
namespace ScalarTexts {

/// Room for the text of any scalar.
struct TBuffer {
  char Chars[64];
};

#define VANTREL_DECLARE(Type, CppType)                          \
  std::string_view Write##Type(CppType value, TBuffer& buffer); \
  CppType Parse##Type(std::string_view text);
VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

}  // namespace ScalarTexts
