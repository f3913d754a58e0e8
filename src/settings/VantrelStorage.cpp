#include "VantrelStorage.h"

#include <algorithm>

#include "SettingsTexts.h"
#include "SystemFolders.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelTextParts.h"

std::string TrimSeparators(std::string_view path) {
  return std::string(Trimmed(path, "\\/"));
}

void TVantrelStorage::SetActive(bool active) {
  if (active == Active()) return;
  FStorage.reset();
  FStorageKeyPrefix =
      FLocation == TVantrelStorageLocation::cslRegistry ? "Software\\" + FStoragePath + "\\" : std::string();
  if (active) FStorage = OpenStore();
}

void TVantrelStorage::Reopen() {
  if (!Active()) return;
  SetActive(false);
  SetActive(true);
}

void TVantrelStorage::SetLocation(TVantrelStorageLocation location) {
  FLocation = location;
  Reopen();
}

void TVantrelStorage::SetStorageType(TVantrelStorageType type) {
  FStorageType = type;
  Reopen();
}

void TVantrelStorage::SetCustomXMLFile(std::string fileName) {
  FCustomXMLFile = std::move(fileName);
  Reopen();
}

void TVantrelStorage::SetStoragePath(std::string_view path) {
  FStoragePath = TrimSeparators(path);
  Reopen();
}

TVantrelRegistryRoot TVantrelStorage::Root() const {
  return FStorageType == TVantrelStorageType::cstUser ? TVantrelRegistryRoot::HKEY_CURRENT_USER
                                                      : TVantrelRegistryRoot::HKEY_LOCAL_MACHINE;
}

std::string TVantrelStorage::FileName() const {
  if (FLocation == TVantrelStorageLocation::cslRegistry) return RegistryFileName(Root());
  if (!FCustomXMLFile.empty()) return FCustomXMLFile;
  std::string place = FStoragePath + ".pref";
  std::ranges::replace(place, '\\', '/');
  return SettingsFileName(Root(), place);
}

std::unique_ptr<TVantrelAbstractPreferences> TVantrelStorage::OpenStore() {
  if (FLocation == TVantrelStorageLocation::cslRegistry) {
    auto store = std::make_unique<TVantrelRegistryPreferences>(Root(), TVantrelRegistryAccess::Full);
    FDamage = store->Damage();
    return store;
  }
  const auto fileName = FileName();
  TVantrelFileSystem::CreateDirectory(System::FolderOf(fileName));
  auto store = std::make_unique<TVantrelXMLPreferences>(fileName, false);
  FDamage = store->Damage();
  return store;
}

std::string TVantrelStorage::TryFlush() {
  try {
    if (Active()) FStorage->FlushBuffer();
    return {};
  } catch (const std::exception& error) {
    return FormatText(SettingsTexts::SettingsNotSaved, FileName(), error.what());
  }
}

std::string TVantrelStorage::KeyOf(std::string_view completePath) const {
  if (completePath.starts_with(FStorageKeyPrefix)) completePath.remove_prefix(FStorageKeyPrefix.size());
  return std::string(completePath);
}

std::string TVantrelStorage::ReadString(std::string_view key, std::string_view name, std::string_view defaultValue) {
  return Read(key, std::string(defaultValue), [&](auto& store) { return store.ReadString(name, defaultValue); });
}

void TVantrelStorage::WriteString(std::string_view key, std::string_view name, std::string_view value) {
  Write(key, [&](auto& store) { store.WriteString(name, value); });
}

std::size_t TVantrelStorage::ReadBinary(std::string_view key, std::string_view name, std::span<std::uint8_t> buffer) {
  return Read(key, std::size_t{0}, [&](auto& store) { return store.ReadBinary(name, buffer); });
}

void TVantrelStorage::WriteBinary(std::string_view key, std::string_view name, std::span<const std::uint8_t> bytes) {
  Write(key, [&](auto& store) { store.WriteBinary(name, bytes); });
}

void TVantrelStorage::ReadFont(std::string_view key, std::string_view name, TVantrelFont& font) {
  Read(key, true, [&](auto& store) {
    store.ReadFont(name, font);
    return true;
  });
}

void TVantrelStorage::WriteFont(std::string_view key, std::string_view name, const TVantrelFont& font) {
  Write(key, [&](auto& store) { store.WriteFont(name, font); });
}
