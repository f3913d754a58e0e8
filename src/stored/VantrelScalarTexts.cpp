#include "VantrelScalarTexts.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace ScalarTexts {
namespace {

template <class T>
std::string_view WriteDecimal(T value, TBuffer& buffer) {
  const auto end = std::to_chars(std::begin(buffer.Chars), std::end(buffer.Chars), value).ptr;
  return {buffer.Chars, static_cast<std::size_t>(end - buffer.Chars)};
}

template <class T>
T ParseInRange(std::string_view text) {
  const std::int64_t value = TextToInteger(text);
  if (value < static_cast<std::int64_t>(std::numeric_limits<T>::min()) ||
      value > static_cast<std::int64_t>(std::numeric_limits<T>::max()))
    throw EConvertError(FormatText(FoundationTexts::NoInteger, text));
  return static_cast<T>(value);
}

std::string_view Keep(std::string_view text, TBuffer& buffer) {
  std::memcpy(buffer.Chars, text.data(), text.size());
  return {buffer.Chars, text.size()};
}

}  // namespace

std::string_view WriteBoolean(bool value, TBuffer&) {
  return value ? "1" : "0";
}
bool ParseBoolean(std::string_view text) {
  return TextToInteger(text) != 0;
}

#define VANTREL_INTEGER(Type, CppType)                           \
  std::string_view Write##Type(CppType value, TBuffer& buffer) { \
    return WriteDecimal(value, buffer);                          \
  }                                                              \
  CppType Parse##Type(std::string_view text) {                   \
    return ParseInRange<CppType>(text);                          \
  }
VANTREL_INTEGER(Byte, std::uint8_t)
VANTREL_INTEGER(ShortInt, std::int8_t)
VANTREL_INTEGER(SmallInt, std::int16_t)
VANTREL_INTEGER(Word, std::uint16_t)
VANTREL_INTEGER(LongInt, std::int32_t)
VANTREL_INTEGER(VCLColor, std::int32_t)
VANTREL_INTEGER(LongWord, std::uint32_t)
VANTREL_INTEGER(Int64, std::int64_t)
#undef VANTREL_INTEGER

std::string_view WriteTimeSpan(TVantrelTimeSpan value, TBuffer& buffer) {
  return WriteInt64(value.Ticks, buffer);
}
TVantrelTimeSpan ParseTimeSpan(std::string_view text) {
  return {ParseInt64(text)};
}

std::string_view WriteChar(char16_t value, TBuffer& buffer) {
  return Keep(Utf16ToUtf8({&value, 1}), buffer);
}
char16_t ParseChar(std::string_view text) {
  const auto units = Utf8ToUtf16(text.substr(0, 4));
  return units.empty() ? u'\0' : units.front();
}

std::string_view WriteDouble(double value, TBuffer& buffer) {
  return {buffer.Chars, WriteFloatText(value, buffer.Chars)};
}
double ParseDouble(std::string_view text) {
  return TextToFloat(text);
}

std::string_view WriteSingle(float value, TBuffer& buffer) {
  return WriteDouble(value, buffer);
}
float ParseSingle(std::string_view text) {
  return static_cast<float>(TextToFloat(text));
}

std::string_view WriteExtended(long double value, TBuffer& buffer) {
  return WriteDouble(static_cast<double>(value), buffer);
}
long double ParseExtended(std::string_view text) {
  return TextToFloat(text);
}

namespace {
std::int64_t RoundToInt64(double value) {
  constexpr double limit = 9.2e18;
  if (!(std::abs(value) < limit)) throw EConvertError(FormatText(FoundationTexts::NoInteger, value));
  return std::llrint(value);
}
}  // namespace

std::string_view WriteComp(std::int64_t value, TBuffer& buffer) {
  return WriteDouble(static_cast<double>(value), buffer);
}
std::int64_t ParseComp(std::string_view text) {
  return RoundToInt64(TextToFloat(text));
}

std::string_view WriteCurrency(TCurrency value, TBuffer& buffer) {
  return WriteDouble(static_cast<double>(value.Value) / 10000, buffer);
}
TCurrency ParseCurrency(std::string_view text) {
  return {RoundToInt64(TextToFloat(text) * 10000)};
}

std::string_view WriteDate(TDateTime value, TBuffer& buffer) {
  return Keep(DateToText(value), buffer);
}
TDateTime ParseDate(std::string_view text) {
  return TextToDateTime(text);
}
std::string_view WriteTime(TDateTime value, TBuffer& buffer) {
  return Keep(TimeToText(value), buffer);
}
TDateTime ParseTime(std::string_view text) {
  return TextToDateTime(text);
}
std::string_view WriteDateTime(TDateTime value, TBuffer& buffer) {
  return Keep(DateTimeToText(value), buffer);
}
TDateTime ParseDateTime(std::string_view text) {
  return TextToDateTime(text);
}

std::string_view WriteGuid(TGuid value, TBuffer& buffer) {
  WriteGuidText(value, buffer.Chars);
  return {buffer.Chars, GuidTextLength};
}
TGuid ParseGuid(std::string_view text) {
  return TextToGuid(text);
}

}  // namespace ScalarTexts
