#include "VantrelTypes.h"

#include <fmt/format.h>

#include <cmath>
#include <concepts>

#include "ClasslibTexts.h"
#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelHashes.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace {
using enum TVantrelValueType;

constexpr double CurrencyScale = 10000;

template <auto ReadOp, auto WriteOp>
struct TStoredBy {
  static constexpr auto Read = ReadOp;
  static constexpr auto Write = WriteOp;
};

/// The operations of reader and writer for each type.
template <TVantrelValueType Kind>
struct TStored;
template <>
struct TStored<vtypeBoolean> : TStoredBy<&TVantrelReader::ReadBoolean, &TVantrelWriter::WriteBoolean> {};
template <>
struct TStored<vtypeChar> : TStoredBy<&TVantrelReader::ReadChar, &TVantrelWriter::WriteChar> {};
template <>
struct TStored<vtypeSmallInt> : TStoredBy<&TVantrelReader::ReadSmallInt, &TVantrelWriter::WriteSmallInt> {};
template <>
struct TStored<vtypeShortInt> : TStoredBy<&TVantrelReader::ReadShortInt, &TVantrelWriter::WriteShortInt> {};
template <>
struct TStored<vtypeLongInt> : TStoredBy<&TVantrelReader::ReadLongInt, &TVantrelWriter::WriteLongInt> {};
template <>
struct TStored<vtypeInt64> : TStoredBy<&TVantrelReader::ReadInt64, &TVantrelWriter::WriteInt64> {};
template <>
struct TStored<vtypeByte> : TStoredBy<&TVantrelReader::ReadByte, &TVantrelWriter::WriteByte> {};
template <>
struct TStored<vtypeWord> : TStoredBy<&TVantrelReader::ReadWord, &TVantrelWriter::WriteWord> {};
template <>
struct TStored<vtypeLongWord> : TStoredBy<&TVantrelReader::ReadLongWord, &TVantrelWriter::WriteLongWord> {};
template <>
struct TStored<vtypeSingle> : TStoredBy<&TVantrelReader::ReadSingle, &TVantrelWriter::WriteSingle> {};
template <>
struct TStored<vtypeDouble> : TStoredBy<&TVantrelReader::ReadDouble, &TVantrelWriter::WriteDouble> {};
template <>
struct TStored<vtypeExtended> : TStoredBy<&TVantrelReader::ReadExtended, &TVantrelWriter::WriteExtended> {};
template <>
struct TStored<vtypeCurrency> : TStoredBy<&TVantrelReader::ReadInt64, &TVantrelWriter::WriteInt64> {};
template <>
struct TStored<vtypeDateTime> : TStoredBy<&TVantrelReader::ReadDouble, &TVantrelWriter::WriteDouble> {};
template <>
struct TStored<vtypeString> : TStoredBy<static_cast<std::string (TVantrelReader::*)()>(&TVantrelReader::ReadString),
                                        &TVantrelWriter::WriteString> {};
template <>
struct TStored<vtypeUtf8String> : TStoredBy<&TVantrelReader::ReadUtf8String, &TVantrelWriter::WriteUtf8String> {};
template <>
struct TStored<vtypeGuid> : TStoredBy<&TVantrelReader::ReadGuid, &TVantrelWriter::WriteGuid> {};

std::int32_t HashOfFloat(double value) {
  if (!std::isfinite(value)) return 0;
  constexpr double twoTo32 = 4294967296.0;
  double whole = 0;
  const double fraction = std::modf(value, &whole);
  const auto low = static_cast<std::int64_t>(std::fmod(whole, twoTo32));
  return static_cast<std::int32_t>(low ^ static_cast<std::int64_t>(fraction * twoTo32));
}

template <class T>
std::int32_t HashOf(const T& value) {
  if constexpr (std::floating_point<T>)
    return HashOfFloat(static_cast<double>(value));
  else if constexpr (std::same_as<T, TCurrency>)
    return HashOfValue(value.Value);
  else if constexpr (std::integral<T> && !std::same_as<T, std::int64_t>)
    return static_cast<std::int32_t>(value);
  else
    return HashOfValue(value);
}

template <std::integral T>
T IntegerOf(std::string_view text) {
  const std::int64_t value = TextToInteger(text);
  if (!std::in_range<T>(value)) throw EConvertError(FormatText(FoundationTexts::NoInteger, text));
  return static_cast<T>(value);
}

/// A number beyond the range of the type is no value of it.
template <std::floating_point T>
T FloatOf(std::string_view text) {
  const double value = TextToFloat(text);
  const auto result = static_cast<T>(value);
  if (std::isinf(result) && !std::isinf(value)) throw EConvertError(FormatText(FoundationTexts::NoFloat, text));
  return result;
}

TCurrency CurrencyOf(std::string_view text) {
  constexpr double twoTo63 = 9223372036854775808.0;
  const double scaled = std::round(TextToFloat(text) * CurrencyScale);
  if (!(std::abs(scaled) < twoTo63)) throw EConvertError(FormatText(FoundationTexts::NoFloat, text));
  return {static_cast<std::int64_t>(scaled)};
}

template <class TSame>
const TSame* SameClass(const TSame&, const TVantrelObject* other) {
  return other != nullptr && typeid(*other) == typeid(TSame) ? static_cast<const TSame*>(other) : nullptr;
}

std::int32_t HashOfAddress(const void* address) {
  return HashOfValue(reinterpret_cast<std::int64_t>(address));
}
}  // namespace

std::int32_t HashOfValue(std::string_view value) {
  return ElfHash(value);
}

std::int32_t HashOfValue(const TGuid& value) {
  char text[GuidTextLength];
  WriteGuidText(value, text);
  return ElfHash({text, sizeof text});
}

std::int32_t HashOfValue(std::int32_t value) {
  return value;
}

std::int32_t HashOfValue(std::int64_t value) {
  return static_cast<std::int32_t>(value ^ (value >> 32));
}

void TVantrelType::Read(TVantrelObjectReader&) {
  throw EVantrelPersistentError(ResourceText(ClasslibTexts::NotStorable));
}

void TVantrelType::Write(TVantrelObjectWriter&) const {
  throw EVantrelPersistentError(ResourceText(ClasslibTexts::NotStorable));
}

template <class T, TVantrelValueType Kind>
void TVantrelValue<T, Kind>::Assign(const TVantrelObject& source) {
  if (const TVantrelValue* const same = SameClass(*this, &source))
    FValue = same->FValue;
  else
    TVantrelSimpleType::Assign(source);
}

template <class T, TVantrelValueType Kind>
int TVantrelValue<T, Kind>::Compare(const TVantrelObject& other) const {
  const TVantrelValue* const same = SameClass(*this, &other);
  if (same == nullptr) return 0;
  return static_cast<int>(same->FValue < FValue) - static_cast<int>(FValue < same->FValue);
}

template <class T, TVantrelValueType Kind>
bool TVantrelValue<T, Kind>::Equals(const TVantrelObject* other) const {
  const TVantrelValue* const same = SameClass(*this, other);
  return same != nullptr && FValue == same->FValue;
}

template <class T, TVantrelValueType Kind>
std::int32_t TVantrelValue<T, Kind>::GetHashCode() const {
  return HashOf(FValue);
}

template <class T, TVantrelValueType Kind>
std::string TVantrelValue<T, Kind>::AsString() const {
  if constexpr (Kind == vtypeBoolean)
    return FValue ? "J" : "N";
  else if constexpr (Kind == vtypeChar)
    return Utf16ToUtf8({&FValue, 1});
  else if constexpr (Kind == vtypeDateTime)
    return DateTimeToText(FValue);
  else if constexpr (Kind == vtypeCurrency)
    return FloatToText(static_cast<double>(FValue.Value) / CurrencyScale);
  else if constexpr (Kind == vtypeGuid)
    return GuidToText(FValue);
  else if constexpr (std::floating_point<T>)
    return FloatToText(static_cast<double>(FValue));
  else if constexpr (std::integral<T>)
    return std::to_string(FValue);
  else
    return FValue;
}

template <class T, TVantrelValueType Kind>
void TVantrelValue<T, Kind>::SetAsString(std::string_view text) {
  if constexpr (Kind == vtypeBoolean) {
    FValue = SameText(text, "J");
  } else if constexpr (Kind == vtypeChar) {
    const std::u16string units = Utf8ToUtf16(text);
    if (units.size() == 1) FValue = units.front();
  } else if constexpr (Kind == vtypeDateTime) {
    FValue = TextToDateTime(text);
  } else if constexpr (Kind == vtypeCurrency) {
    FValue = CurrencyOf(text);
  } else if constexpr (Kind == vtypeGuid) {
    FValue = TextToGuid(text);
  } else if constexpr (std::floating_point<T>) {
    FValue = FloatOf<T>(text);
  } else if constexpr (std::integral<T>) {
    FValue = IntegerOf<T>(text);
  } else {
    FValue = text;
  }
}

template <class T, TVantrelValueType Kind>
void TVantrelValue<T, Kind>::Read(TVantrelObjectReader& reader) {
  if constexpr (Kind == vtypeCurrency)
    FValue.Value = (reader.*TStored<Kind>::Read)();
  else
    FValue = (reader.*TStored<Kind>::Read)();
}

template <class T, TVantrelValueType Kind>
void TVantrelValue<T, Kind>::Write(TVantrelObjectWriter& writer) const {
  if constexpr (Kind == vtypeCurrency)
    (writer.*TStored<Kind>::Write)(FValue.Value);
  else
    (writer.*TStored<Kind>::Write)(FValue);
}

template class TVantrelValue<bool, vtypeBoolean>;
template class TVantrelValue<char16_t, vtypeChar>;
template class TVantrelValue<std::int16_t, vtypeSmallInt>;
template class TVantrelValue<std::int8_t, vtypeShortInt>;
template class TVantrelValue<std::int32_t, vtypeLongInt>;
template class TVantrelValue<std::int64_t, vtypeInt64>;
template class TVantrelValue<std::uint8_t, vtypeByte>;
template class TVantrelValue<std::uint16_t, vtypeWord>;
template class TVantrelValue<std::uint32_t, vtypeLongWord>;
template class TVantrelValue<float, vtypeSingle>;
template class TVantrelValue<double, vtypeDouble>;
template class TVantrelValue<long double, vtypeExtended>;
template class TVantrelValue<TCurrency, vtypeCurrency>;
template class TVantrelValue<TDateTime, vtypeDateTime>;
template class TVantrelValue<std::string, vtypeString>;
template class TVantrelValue<std::string, vtypeUtf8String>;
template class TVantrelValue<TGuid, vtypeGuid>;

TVantrelObject* TVantrelReference::Extract() {
  return FOwner ? std::exchange(FValue, nullptr) : FValue;
}

bool TVantrelReference::Equals(const TVantrelObject* other) const {
  const TVantrelReference* const same = SameClass(*this, other);
  return same != nullptr && FValue != nullptr && FValue->Equals(same->FValue);
}

std::int32_t TVantrelReference::GetHashCode() const {
  return FValue == nullptr ? 0 : FValue->GetHashCode();
}

TVantrelMemoryStream* TVantrelBinary::Extract() {
  return std::exchange(FValue, nullptr);
}

bool TVantrelBinary::Equals(const TVantrelObject* other) const {
  const TVantrelBinary* const same = SameClass(*this, other);
  return same != nullptr && FValue != nullptr && FValue == same->FValue;
}

std::int32_t TVantrelBinary::GetHashCode() const {
  return HashOfAddress(FValue);
}

void TVantrelBinary::Read(TVantrelObjectReader& reader) {
  auto stream = reader.ReadBinary();
  if (FValue != nullptr) {
    FValue->Bytes() = std::move(stream->Bytes());
    FValue->SetPosition(0);
    return;
  }
  FValue = stream.release();
  FOwner = true;
}

void TVantrelBinary::Write(TVantrelObjectWriter& writer) const {
  TVantrelMemoryStream empty;
  writer.WriteBinary(FValue == nullptr ? empty : *FValue);
}

bool TVantrelGraphicType::Equals(const TVantrelObject* other) const {
  return other != nullptr && other == FGraphic.get() && typeid(*other) == GraphicClass();
}

std::int32_t TVantrelGraphicType::GetHashCode() const {
  return HashOfAddress(FGraphic.get());
}

void TVantrelGraphicType::Read(TVantrelObjectReader& reader) {
  const auto stream = reader.ReadBinary();
  auto graphic = stream->Size() > 0 ? CreateGraphic() : nullptr;
  if (graphic != nullptr) graphic->LoadFromStream(*stream, stream->Size());
  FGraphic = std::move(graphic);
}

void TVantrelGraphicType::Write(TVantrelObjectWriter& writer) const {
  TVantrelMemoryStream stream;
  if (FGraphic != nullptr) FGraphic->SaveToStream(stream);
  writer.WriteBinary(stream);
}
