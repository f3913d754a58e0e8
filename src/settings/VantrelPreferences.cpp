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

void TVantrelPreferenceKeys::CloseKey() {
  FCurrentKey.clear();
  FPath.clear();
}

TPreferencePath TVantrelPreferenceKeys::Resolve(std::string_view path) const {
  const bool fromRoot = path.empty() || FSeparators.find(path.front()) != std::string_view::npos;
  TPreferencePath result = fromRoot ? TPreferencePath() : FPath;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(FSeparators), path.size());
    if (end > 0) result.push_back(FEncode(path.substr(0, end)));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return result;
}

bool TVantrelPreferenceKeys::OpenKey(std::string_view path, bool canCreate) {
  auto resolved = Resolve(path);
  if (canCreate ? !FFile->CreateKey(resolved) : !FFile->KeyExists(resolved)) return false;
  FPath = std::move(resolved);
  FCurrentKey = path;
  return true;
}

bool TVantrelPreferenceKeys::DeleteKey(std::string_view path) {
  const bool deleted = FFile->DeleteKey(Resolve(path));
  if (!FFile->KeyExists(FPath)) CloseKey();
  return deleted;
}

std::vector<std::string> TVantrelPreferenceKeys::KeyNames() const {
  auto names = FFile->KeyTags(FPath);
  for (auto& name : names) name = DecodeKeyTag(name);
  return names;
}

TVantrelXMLPreferences::TVantrelXMLPreferences(std::string fileName, bool ignoreExisting)
    : FKeys(std::make_shared<TVantrelPreferenceFile>(std::move(fileName), ignoreExisting), "\\/", EncodeKeyTag) {}

bool TVantrelXMLPreferences::HasSubKeys() {
  return !FKeys.KeyNames().empty() || !FKeys.ValueNames().empty();
}

std::string TVantrelXMLPreferences::Text(std::string_view name) const {
  const auto entry = FKeys.File().Read(FKeys.Path(), name);
  return entry ? entry->Value.value_or("") : "";
}

std::size_t TVantrelXMLPreferences::ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) {
  const auto entry = FKeys.File().Read(FKeys.Path(), name);
  if (!entry) return 0;
  const auto bytes = DecodeBase64(entry->Content);
  const auto count = std::min(bytes.size(), buffer.size());
  std::copy_n(bytes.begin(), count, buffer.begin());
  return count;
}

template <class T>
T TVantrelXMLPreferences::Read(std::string_view name, const T& defaultValue, T (*parse)(std::string_view)) const {
  const auto text = Text(name);
  return text.empty() ? defaultValue : parse(text);
}

bool TVantrelXMLPreferences::ReadBoolean(std::string_view name, bool defaultValue) {
  return ReadInteger(name, defaultValue ? 1 : 0) != 0;
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
  const auto text = Text(name);
  return text.empty() ? std::string(defaultValue) : text;
}

TGuid TVantrelXMLPreferences::ReadGuid(std::string_view name, const TGuid& defaultValue) {
  return Read(name, defaultValue, ScalarTexts::ParseGuid);
}

void TVantrelXMLPreferences::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  FKeys.File().Write(FKeys.Path(), name, {.Content = EncodeBase64(bytes.data(), bytes.size())});
}

void TVantrelXMLPreferences::WriteString(std::string_view name, std::string_view value) {
  FKeys.File().Write(FKeys.Path(), name, {.Value = std::string(value)});
}

void TVantrelXMLPreferences::WriteBoolean(std::string_view name, bool value) {
  WriteInteger(name, value ? 1 : 0);
}

void TVantrelXMLPreferences::WriteChar(std::string_view name, char16_t value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteChar(value, buffer));
}

void TVantrelXMLPreferences::WriteFloat(std::string_view name, double value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteDouble(value, buffer));
}

void TVantrelXMLPreferences::WriteCurrency(std::string_view name, TCurrency value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteCurrency(value, buffer));
}

void TVantrelXMLPreferences::WriteInteger(std::string_view name, std::int32_t value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteLongInt(value, buffer));
}

void TVantrelXMLPreferences::WriteDateTime(std::string_view name, TDateTime value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteDateTime(value, buffer));
}

void TVantrelXMLPreferences::WriteGuid(std::string_view name, const TGuid& value) {
  ScalarTexts::TBuffer buffer;
  WriteString(name, ScalarTexts::WriteGuid(value, buffer));
}
