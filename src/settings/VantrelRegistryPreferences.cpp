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

constexpr std::string_view StringType = "String";
constexpr std::string_view IntegerType = "Integer";
constexpr std::string_view BinaryType = "Binary";

template <class T>
using TBytesOf = std::array<std::uint8_t, sizeof(T)>;

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

TVantrelRegistryPreferences::TVantrelRegistryPreferences(TVantrelRegistryRoot root, TVantrelRegistryAccess access)
    : TVantrelFilePreferences(RegistryFileName(root), false, "\\", EncodeRegistryTag), FAccess(access) {}

TVantrelPreferenceFile& TVantrelRegistryPreferences::FileToChange() {
  if (FAccess != TVantrelRegistryAccess::Full)
    throw EVantrelPreferencesError(ResourceText(SettingsTexts::NoWriteAccess));
  return TVantrelFilePreferences::FileToChange();
}

/// The one place that answers a missing value, one of the wrong type, and a failed conversion with the default.
template <class T, class TParse>
T TVantrelRegistryPreferences::Read(std::string_view name, std::string_view type, T defaultValue, TParse parse) const {
  const auto entry = Find(name);
  if (!entry) return defaultValue;
  // Written by hand, a text needs no type.
  if (type != (entry->Type.empty() ? StringType : entry->Type)) return defaultValue;
  if (!entry->Value && type != BinaryType) return defaultValue;
  try {
    return parse(type == BinaryType ? entry->Content : *entry->Value);
  } catch (const EVantrelException&) {
    return defaultValue;
  }
}

template <class T>
T TVantrelRegistryPreferences::ReadBytes(std::string_view name, T defaultValue) const {
  return Read(name, BinaryType, defaultValue, [&](std::string_view base64) {
    const auto bytes = DecodeBase64(base64);
    TBytesOf<T> value;
    if (bytes.size() != value.size()) return defaultValue;
    std::ranges::copy(bytes, value.begin());
    return std::bit_cast<T>(value);
  });
}

template <class T>
void TVantrelRegistryPreferences::WriteBytes(std::string_view name, T value) {
  WriteBinary(name, std::bit_cast<TBytesOf<T>>(value));
}

std::size_t TVantrelRegistryPreferences::ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) {
  return Read(name, BinaryType, std::size_t{0}, [&](std::string_view text) { return DecodeInto(buffer, text); });
}

char16_t TVantrelRegistryPreferences::ReadChar(std::string_view name, char16_t defaultValue) {
  return Read(name, StringType, defaultValue, ScalarTexts::ParseChar);
}

double TVantrelRegistryPreferences::ReadFloat(std::string_view name, double defaultValue) {
  return ReadBytes(name, defaultValue);
}

TCurrency TVantrelRegistryPreferences::ReadCurrency(std::string_view name, TCurrency defaultValue) {
  return ReadBytes(name, defaultValue);
}

std::int32_t TVantrelRegistryPreferences::ReadInteger(std::string_view name, std::int32_t defaultValue) {
  return Read(name, IntegerType, defaultValue, ScalarTexts::ParseLongInt);
}

TDateTime TVantrelRegistryPreferences::ReadDateTime(std::string_view name, TDateTime defaultValue) {
  return ReadBytes(name, defaultValue);
}

std::string TVantrelRegistryPreferences::ReadString(std::string_view name, std::string_view defaultValue) {
  return Read(name, StringType, std::string(defaultValue), [](std::string_view text) { return std::string(text); });
}

TGuid TVantrelRegistryPreferences::ReadGuid(std::string_view name, const TGuid& defaultValue) {
  return Read(name, StringType, defaultValue, ScalarTexts::ParseGuid);
}

void TVantrelRegistryPreferences::WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) {
  Write(name, {.Content = EncodeBase64(bytes.data(), bytes.size()), .Type = std::string(BinaryType)});
}

void TVantrelRegistryPreferences::WriteFloat(std::string_view name, double value) {
  WriteBytes(name, value);
}

void TVantrelRegistryPreferences::WriteCurrency(std::string_view name, TCurrency value) {
  WriteBytes(name, value);
}

void TVantrelRegistryPreferences::WriteInteger(std::string_view name, std::int32_t value) {
  Write(name, {.Value = std::to_string(value), .Type = std::string(IntegerType)});
}

void TVantrelRegistryPreferences::WriteDateTime(std::string_view name, TDateTime value) {
  WriteBytes(name, value);
}

void TVantrelRegistryPreferences::WriteString(std::string_view name, std::string_view value) {
  Write(name, {.Value = std::string(value), .Type = std::string(StringType)});
}
