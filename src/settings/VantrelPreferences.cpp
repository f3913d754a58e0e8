#include "VantrelPreferences.h"

#include <algorithm>
#include <array>
#include <bit>

#include "VantrelExceptions.h"
#include "VantrelIO.h"
#include "VantrelNumbers.h"
#include "VantrelScalarTexts.h"
#include "VantrelText.h"

namespace {
constexpr std::string_view StringType = "String";
constexpr std::string_view IntegerType = "Integer";
constexpr std::string_view BinaryType = "Binary";

template <class T>
using TBytesOf = std::array<std::uint8_t, sizeof(T)>;
}  // namespace

void TVantrelAbstractPreferences::ReadFont(std::string_view name, TVantrelFont& font) {
  constexpr std::size_t fields = 4;
  const auto parts = FromDelimitedText(ReadString(name, {}));
  if (parts.size() != fields) return;
  const auto number = [&](std::size_t at) { return static_cast<std::int32_t>(TextToIntegerOr(parts[at], 0)); };
  font = {parts[0], number(3), number(1), static_cast<std::uint8_t>(number(2))};
}

void TVantrelAbstractPreferences::WriteFont(std::string_view name, const TVantrelFont& font) {
  WriteString(name, ToDelimitedText({font.Name, std::to_string(font.Size), std::to_string(font.Styles),
                                     std::to_string(font.Color)}));
}

void TVantrelFilePreferences::CloseKey() {
  FCurrentKey.clear();
  FPath.clear();
}

TPreferencePath TVantrelFilePreferences::Resolve(std::string_view path) const {
  const bool fromRoot = path.empty() || FForm.Separators.find(path.front()) != std::string_view::npos;
  TPreferencePath result = fromRoot ? TPreferencePath() : FPath;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(FForm.Separators), path.size());
    if (end > 0) result.push_back(FForm.EncodeKey(path.substr(0, end)));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return result;
}

bool TVantrelFilePreferences::OpenKey(std::string_view path, bool canCreate) {
  auto resolved = Resolve(path);
  if (!FFile.KeyExists(resolved) && !(canCreate && FileToChange().CreateKey(resolved))) return false;
  FPath = std::move(resolved);
  FCurrentKey = path;
  return true;
}

bool TVantrelFilePreferences::DeleteKey(std::string_view path) {
  const bool deleted = FileToChange().DeleteKey(Resolve(path));
  if (!FFile.KeyExists(FPath)) CloseKey();
  return deleted;
}

void TVantrelFilePreferences::GetKeyNames(std::vector<std::string>& list) {
  list = FFile.KeyTags(FPath);
  for (auto& name : list) name = DecodeKeyTag(name);
}

/// The one place that answers a missing value, and in the registry's way one that is not as asked for, with the
/// default.
template <class T, class TParse>
T TVantrelFilePreferences::Read(std::string_view name, std::string_view type, T defaultValue, TParse parse) const {
  const auto entry = FFile.Read(FPath, name);
  if (!entry) return defaultValue;
  // Written by hand, a text needs no type.
  if (FForm.Typed && type != (entry->Type.empty() ? StringType : entry->Type)) return defaultValue;
  const bool isBinary = type == BinaryType;
  if (!isBinary && (!entry->Value || (!FForm.Typed && entry->Value->empty()))) return defaultValue;
  try {
    return parse(isBinary ? entry->Content : *entry->Value);
  } catch (const EVantrelException&) {
    if (!FForm.Typed) throw;
    return defaultValue;
  }
}

template <class T>
T TVantrelFilePreferences::ReadNumber(std::string_view name, T defaultValue, T (*parse)(std::string_view)) const {
  if (!FForm.Typed) return Read(name, StringType, defaultValue, parse);
  return Read(name, BinaryType, defaultValue, [&](std::string_view base64) {
    const auto bytes = DecodeBase64(base64);
    TBytesOf<T> value;
    if (bytes.size() != value.size()) return defaultValue;
    std::ranges::copy(bytes, value.begin());
    return std::bit_cast<T>(value);
  });
}

std::size_t TVantrelFilePreferences::ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) {
  return Read(name, BinaryType, std::size_t{0}, [&](std::string_view base64) {
    const auto bytes = DecodeBase64(base64);
    const auto count = std::min(bytes.size(), buffer.size());
    std::copy_n(bytes.begin(), count, buffer.begin());
    return count;
  });
}

char16_t TVantrelFilePreferences::ReadChar(std::string_view name, char16_t defaultValue) {
  return Read(name, StringType, defaultValue, ScalarTexts::ParseChar);
}

double TVantrelFilePreferences::ReadFloat(std::string_view name, double defaultValue) {
  return ReadNumber(name, defaultValue, ScalarTexts::ParseDouble);
}

TCurrency TVantrelFilePreferences::ReadCurrency(std::string_view name, TCurrency defaultValue) {
  return ReadNumber(name, defaultValue, ScalarTexts::ParseCurrency);
}

std::int32_t TVantrelFilePreferences::ReadInteger(std::string_view name, std::int32_t defaultValue) {
  return Read(name, IntegerType, defaultValue, ScalarTexts::ParseLongInt);
}

TDateTime TVantrelFilePreferences::ReadDateTime(std::string_view name, TDateTime defaultValue) {
  return ReadNumber(name, defaultValue, ScalarTexts::ParseDateTime);
}

std::string TVantrelFilePreferences::ReadString(std::string_view name, std::string_view defaultValue) {
  return Read(name, StringType, std::string(defaultValue), [](std::string_view text) { return std::string(text); });
}

TGuid TVantrelFilePreferences::ReadGuid(std::string_view name, const TGuid& defaultValue) {
  return Read(name, StringType, defaultValue, ScalarTexts::ParseGuid);
}

void TVantrelFilePreferences::Write(std::string_view name, std::string_view type, TPreferenceEntry entry) {
  if (FForm.Typed) entry.Type = type;
  FileToChange().Write(FPath, name, entry);
}

template <class T, class TMakeText>
void TVantrelFilePreferences::WriteNumber(std::string_view name, T value, TMakeText makeText) {
  if (FForm.Typed)
    WriteBinary(name, std::bit_cast<TBytesOf<T>>(value));
  else
    WriteString(name, makeText());
}

void TVantrelFilePreferences::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  Write(name, BinaryType, {.Content = EncodeBase64(bytes.data(), bytes.size())});
}

void TVantrelFilePreferences::WriteChar(std::string_view name, char16_t value) {
  WriteString(name, Utf16ToUtf8({&value, 1}));
}

void TVantrelFilePreferences::WriteFloat(std::string_view name, double value) {
  WriteNumber(name, value, [value] { return FloatToExactText(value); });
}

void TVantrelFilePreferences::WriteCurrency(std::string_view name, TCurrency value) {
  WriteNumber(name, value, [value] { return FloatToExactText(static_cast<double>(value.Value) / 10000); });
}

void TVantrelFilePreferences::WriteInteger(std::string_view name, std::int32_t value) {
  Write(name, IntegerType, {.Value = std::to_string(value)});
}

void TVantrelFilePreferences::WriteDateTime(std::string_view name, TDateTime value) {
  WriteNumber(name, value, [value] {
    ScalarTexts::TBuffer buffer;
    return std::string(ScalarTexts::WriteDateTime(value, buffer));
  });
}

void TVantrelFilePreferences::WriteString(std::string_view name, std::string_view value) {
  Write(name, StringType, {.Value = std::string(value)});
}

void TVantrelFilePreferences::WriteGuid(std::string_view name, const TGuid& value) {
  WriteString(name, GuidToText(value));
}

TVantrelXMLPreferences::TVantrelXMLPreferences(std::string fileName, bool ignoreExisting)
    : TVantrelFilePreferences(std::move(fileName), ignoreExisting,
                              {.Separators = "\\/", .EncodeKey = EncodeKeyTag, .Typed = false}) {}
