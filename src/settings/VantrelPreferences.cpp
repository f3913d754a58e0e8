#include "VantrelPreferences.h"

#include <algorithm>

#include "VantrelIO.h"
#include "VantrelNumbers.h"
#include "VantrelScalarTexts.h"
#include "VantrelText.h"

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
  const bool fromRoot = path.empty() || FSeparators.find(path.front()) != std::string_view::npos;
  TPreferencePath result = fromRoot ? TPreferencePath() : FPath;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(FSeparators), path.size());
    if (end > 0) result.push_back(FEncode(path.substr(0, end)));
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

void TVantrelFilePreferences::WriteChar(std::string_view name, char16_t value) {
  WriteString(name, Utf16ToUtf8({&value, 1}));
}

void TVantrelFilePreferences::WriteGuid(std::string_view name, const TGuid& value) {
  WriteString(name, GuidToText(value));
}

std::size_t DecodeInto(std::span<std::uint8_t> buffer, std::string_view base64) {
  const auto bytes = DecodeBase64(base64);
  const auto count = std::min(bytes.size(), buffer.size());
  std::copy_n(bytes.begin(), count, buffer.begin());
  return count;
}

TVantrelXMLPreferences::TVantrelXMLPreferences(std::string fileName, bool ignoreExisting)
    : TVantrelFilePreferences(std::move(fileName), ignoreExisting, "\\/", EncodeKeyTag) {}

std::size_t TVantrelXMLPreferences::ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) {
  const auto entry = Find(name);
  return entry ? DecodeInto(buffer, entry->Content) : 0;
}

template <class T>
T TVantrelXMLPreferences::Read(std::string_view name, const T& defaultValue, T (*parse)(std::string_view)) {
  const auto text = ReadString(name, {});
  return text.empty() ? defaultValue : parse(text);
}

char16_t TVantrelXMLPreferences::ReadChar(std::string_view name, char16_t defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseChar);
}

double TVantrelXMLPreferences::ReadFloat(std::string_view name, double defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseDouble);
}

TCurrency TVantrelXMLPreferences::ReadCurrency(std::string_view name, TCurrency defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseCurrency);
}

std::int32_t TVantrelXMLPreferences::ReadInteger(std::string_view name, std::int32_t defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseLongInt);
}

TDateTime TVantrelXMLPreferences::ReadDateTime(std::string_view name, TDateTime defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseDateTime);
}

std::string TVantrelXMLPreferences::ReadString(std::string_view name, std::string_view defaultValue) {
  const auto entry = Find(name);
  return entry && entry->Value && !entry->Value->empty() ? *entry->Value : std::string(defaultValue);
}

TGuid TVantrelXMLPreferences::ReadGuid(std::string_view name, const TGuid& defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseGuid);
}

void TVantrelXMLPreferences::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  Write(name, {.Content = EncodeBase64(bytes.data(), bytes.size())});
}

void TVantrelXMLPreferences::WriteString(std::string_view name, std::string_view value) {
  Write(name, {.Value = std::string(value)});
}

void TVantrelXMLPreferences::WriteFloat(std::string_view name, double value) {
  WriteString(name, FloatToExactText(value));
}

void TVantrelXMLPreferences::WriteCurrency(std::string_view name, TCurrency value) {
  WriteFloat(name, static_cast<double>(value.Value) / 10000);
}

void TVantrelXMLPreferences::WriteInteger(std::string_view name, std::int32_t value) {
  WriteString(name, std::to_string(value));
}

void TVantrelXMLPreferences::WriteDateTime(std::string_view name, TDateTime value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteDateTime(value, buffer));
}
