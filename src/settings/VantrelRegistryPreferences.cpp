#include "VantrelRegistryPreferences.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

#include "SettingsTexts.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"
#include "VantrelScalarTexts.h"
#include "VantrelText.h"

namespace {

constexpr const char* RegistryPlace = "Orvenda Labs/Registry.pref";
constexpr const char* MachineFolder = "/etc/xdg/";

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

std::string HomeFolder() {
  const auto home = Environment("HOME");
  if (home.starts_with('/')) return std::string(home);
  const passwd* user = ::getpwuid(::geteuid());
  return user == nullptr ? "/" : user->pw_dir;
}

/// As the tag of a value stands for no key, a key of that name is always encoded.
std::string EncodeRegistryTag(std::string_view name) {
  return SameText(name, "Entry") ? "_x0045_ntry" : EncodeKeyTag(name);
}

template <class T>
using TBytesOf = std::array<std::uint8_t, sizeof(T)>;

/// The one place that answers a failed read with the default.
template <class T, class TRead>
T ReadOr(T defaultValue, TRead read) {
  try {
    return read();
  } catch (const EVantrelException&) {
    return defaultValue;
  }
}

template <class T>
T ReadBytes(const TVantrelPreferenceRegistry& registry, std::string_view name, T defaultValue) {
  return ReadOr(defaultValue, [&] {
    const auto bytes = registry.ReadBinary(name);
    TBytesOf<T> value;
    if (bytes.size() != value.size()) return defaultValue;
    std::ranges::copy(bytes, value.begin());
    return std::bit_cast<T>(value);
  });
}

template <class T>
void WriteBytes(TVantrelPreferenceRegistry& registry, std::string_view name, T value) {
  registry.WriteBinary(name, std::bit_cast<TBytesOf<T>>(value));
}

}  // namespace

std::string UserConfigFolder() {
  const auto folder = Environment("XDG_CONFIG_HOME");
  return folder.starts_with('/') ? std::string(folder) : HomeFolder() + "/.config";
}

std::string MachineConfigFile(const std::string& place) {
  std::string first;
  for (auto rest = Environment("XDG_CONFIG_DIRS"); !rest.empty();) {
    const auto folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    if (!folder.starts_with('/')) continue;
    auto file = std::string(folder) + "/" + place;
    if (TVantrelFileSystem::Exists(file)) return file;
    if (first.empty()) first = std::move(file);
  }
  return first.empty() ? MachineFolder + place : first;
}

std::string RegistryFileName(TVantrelRegistryRoot root) {
  return root == TVantrelRegistryRoot::HKEY_CURRENT_USER ? UserConfigFolder() + "/" + RegistryPlace
                                                         : MachineConfigFile(RegistryPlace);
}

TVantrelPreferenceRegistry::TVantrelPreferenceRegistry(TVantrelRegistryRoot root, TVantrelRegistryAccess access)
    : FAccess(access),
      FKeys(std::make_shared<TVantrelPreferenceFile>(RegistryFileName(root), false), "\\", EncodeRegistryTag) {}

TVantrelPreferenceKeys& TVantrelPreferenceRegistry::WritableKeys() {
  if (FAccess != TVantrelRegistryAccess::Full)
    throw EVantrelPreferencesError(ResourceText(SettingsTexts::NoWriteAccess));
  return FKeys;
}

TPreferenceEntry TVantrelPreferenceRegistry::Find(std::string_view name, std::string_view type) const {
  auto entry = FKeys.File().Read(FKeys.Path(), name);
  // Written by hand, a text needs no type.
  if (entry && entry->Type.empty()) entry->Type = "String";
  if (!entry || entry->Type != type || (!entry->Value && type != "Binary"))
    throw EVantrelPreferencesError(FormatText(SettingsTexts::NoValue, name));
  return *entry;
}

std::int32_t TVantrelPreferenceRegistry::ReadInteger(std::string_view name) const {
  return ScalarTexts::ParseLongInt(*Find(name, "Integer").Value);
}

std::vector<std::uint8_t> TVantrelPreferenceRegistry::ReadBinary(std::string_view name) const {
  return DecodeBase64(Find(name, "Binary").Content);
}

void TVantrelPreferenceRegistry::Write(std::string_view name, const TPreferenceEntry& entry) {
  WritableKeys().File().Write(FKeys.Path(), name, entry);
}

void TVantrelPreferenceRegistry::WriteString(std::string_view name, std::string_view value) {
  Write(name, {.Value = std::string(value), .Type = "String"});
}

void TVantrelPreferenceRegistry::WriteInteger(std::string_view name, std::int32_t value) {
  Write(name, {.Value = std::to_string(value), .Type = "Integer"});
}

void TVantrelPreferenceRegistry::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  Write(name, {.Content = EncodeBase64(bytes.data(), bytes.size()), .Type = "Binary"});
}

bool TVantrelRegistryPreferences::OpenKey(std::string_view path, bool canCreate) {
  if (FRegistry.Keys().OpenKey(path, false)) return true;
  return canCreate && FRegistry.WritableKeys().OpenKey(path, true);
}

std::size_t TVantrelRegistryPreferences::ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) {
  return ReadOr(std::size_t{0}, [&] {
    const auto bytes = FRegistry.ReadBinary(name);
    const auto count = std::min(bytes.size(), buffer.size());
    std::copy_n(bytes.begin(), count, buffer.begin());
    return count;
  });
}

bool TVantrelRegistryPreferences::ReadBoolean(std::string_view name, bool defaultValue) {
  return ReadInteger(name, defaultValue ? 1 : 0) != 0;
}

char16_t TVantrelRegistryPreferences::ReadChar(std::string_view name, char16_t defaultValue) {
  return ReadOr(defaultValue, [&] { return ScalarTexts::ParseChar(FRegistry.ReadString(name)); });
}

double TVantrelRegistryPreferences::ReadFloat(std::string_view name, double defaultValue) {
  return ReadBytes(FRegistry, name, defaultValue);
}

TCurrency TVantrelRegistryPreferences::ReadCurrency(std::string_view name, TCurrency defaultValue) {
  return ReadBytes(FRegistry, name, defaultValue);
}

std::int32_t TVantrelRegistryPreferences::ReadInteger(std::string_view name, std::int32_t defaultValue) {
  return ReadOr(defaultValue, [&] { return FRegistry.ReadInteger(name); });
}

TDateTime TVantrelRegistryPreferences::ReadDateTime(std::string_view name, TDateTime defaultValue) {
  return ReadBytes(FRegistry, name, defaultValue);
}

std::string TVantrelRegistryPreferences::ReadString(std::string_view name, std::string_view defaultValue) {
  return ReadOr(std::string(defaultValue), [&] { return FRegistry.ReadString(name); });
}

TGuid TVantrelRegistryPreferences::ReadGuid(std::string_view name, const TGuid& defaultValue) {
  return ReadOr(defaultValue, [&] { return TextToGuid(FRegistry.ReadString(name)); });
}

void TVantrelRegistryPreferences::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  FRegistry.WriteBinary(name, bytes);
}

void TVantrelRegistryPreferences::WriteBoolean(std::string_view name, bool value) {
  FRegistry.WriteInteger(name, value ? 1 : 0);
}

void TVantrelRegistryPreferences::WriteChar(std::string_view name, char16_t value) {
  FRegistry.WriteString(name, Utf16ToUtf8({&value, 1}));
}

void TVantrelRegistryPreferences::WriteFloat(std::string_view name, double value) {
  WriteBytes(FRegistry, name, value);
}

void TVantrelRegistryPreferences::WriteCurrency(std::string_view name, TCurrency value) {
  WriteBytes(FRegistry, name, value);
}

void TVantrelRegistryPreferences::WriteInteger(std::string_view name, std::int32_t value) {
  FRegistry.WriteInteger(name, value);
}

void TVantrelRegistryPreferences::WriteDateTime(std::string_view name, TDateTime value) {
  WriteBytes(FRegistry, name, value);
}

void TVantrelRegistryPreferences::WriteString(std::string_view name, std::string_view value) {
  FRegistry.WriteString(name, value);
}

void TVantrelRegistryPreferences::WriteGuid(std::string_view name, const TGuid& value) {
  FRegistry.WriteString(name, GuidToText(value));
}
