#pragma once

#include "VantrelPreferences.h"

/// A value or key of the registry that is not there or not of the asked kind, or that may not be written.
class EVantrelPreferencesError : public EVantrelException {
  using EVantrelException::EVantrelException;
};

/// Per-user settings and those of the machine.
enum class TVantrelRegistryRoot { HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE };
enum class TVantrelRegistryAccess { Read, Full };

/// The user's configuration folder after the rules of the desktop: $XDG_CONFIG_HOME, else ".config" in the home folder.
std::string UserConfigFolder();
/// A file in the machine's configuration folders ($XDG_CONFIG_DIRS, else /etc/xdg): in the first that has it, or simply
/// in the first.
std::string MachineConfigFile(const std::string& place);
/// The file that holds the registry below this root: "Orvenda Labs/Registry.pref" in the configuration folder.
std::string RegistryFileName(TVantrelRegistryRoot root);

/// The registry object: typed values in a preference file. Backslash separates the names of a path, and any name is a
/// name. Every failure raises EVantrelPreferencesError.
class TVantrelPreferenceRegistry {
 public:
  TVantrelPreferenceRegistry(TVantrelRegistryRoot root, TVantrelRegistryAccess access);

  TVantrelPreferenceKeys& Keys() { return FKeys; }
  const TVantrelPreferenceKeys& Keys() const { return FKeys; }
  /// Keys() for those who change something.
  TVantrelPreferenceKeys& WritableKeys();

  std::string ReadString(std::string_view name) const { return *Find(name, "String").Value; }
  std::int32_t ReadInteger(std::string_view name) const;
  std::vector<std::uint8_t> ReadBinary(std::string_view name) const;
  void WriteString(std::string_view name, std::string_view value);
  void WriteInteger(std::string_view name, std::int32_t value);
  void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes);

 private:
  TPreferenceEntry Find(std::string_view name, std::string_view type) const;
  void Write(std::string_view name, const TPreferenceEntry& entry);

  TVantrelRegistryAccess FAccess;
  TVantrelPreferenceKeys FKeys;
};

/// The preference store in the registry. Float, Currency and DateTime are binary data there, Char and Guid texts. Reads
/// never raise; what is written reaches the disk with FlushBuffer and at the end.
class TVantrelRegistryPreferences final : public TVantrelAbstractPreferences {
 public:
  TVantrelRegistryPreferences(TVantrelRegistryRoot root, TVantrelRegistryAccess access) : FRegistry(root, access) {}

  /// As TVantrelPreferenceFile::Damage.
  const std::string& Damage() const { return FRegistry.Keys().File().Damage(); }

  void FlushBuffer() override { FRegistry.Keys().File().Flush(); }
  void CloseKey() override { FRegistry.Keys().CloseKey(); }
  bool CreateKey(std::string_view path) override { return FRegistry.WritableKeys().CreateKey(path); }
  bool DeleteKey(std::string_view path) override { return FRegistry.WritableKeys().DeleteKey(path); }
  bool DeleteValue(std::string_view name) override { return FRegistry.WritableKeys().DeleteValue(name); }
  bool OpenKey(std::string_view path, bool canCreate) override;
  bool HasSubKeys() override { return !FRegistry.Keys().KeyNames().empty(); }
  bool KeyExists(std::string_view path) override { return FRegistry.Keys().KeyExists(path); }
  bool ValueExists(std::string_view name) override { return FRegistry.Keys().ValueExists(name); }
  void GetKeyNames(std::vector<std::string>& list) override { list = FRegistry.Keys().KeyNames(); }
  void GetValueNames(std::vector<std::string>& list) override { list = FRegistry.Keys().ValueNames(); }

  std::size_t ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) override;
  bool ReadBoolean(std::string_view name, bool defaultValue) override;
  /// A null character for an empty text.
  char16_t ReadChar(std::string_view name, char16_t defaultValue) override;
  double ReadFloat(std::string_view name, double defaultValue) override;
  TCurrency ReadCurrency(std::string_view name, TCurrency defaultValue) override;
  std::int32_t ReadInteger(std::string_view name, std::int32_t defaultValue) override;
  TDateTime ReadDateTime(std::string_view name, TDateTime defaultValue) override;
  std::string ReadString(std::string_view name, std::string_view defaultValue) override;
  TGuid ReadGuid(std::string_view name, const TGuid& defaultValue) override;
  void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) override;
  void WriteBoolean(std::string_view name, bool value) override;
  void WriteChar(std::string_view name, char16_t value) override;
  void WriteFloat(std::string_view name, double value) override;
  void WriteCurrency(std::string_view name, TCurrency value) override;
  void WriteInteger(std::string_view name, std::int32_t value) override;
  void WriteDateTime(std::string_view name, TDateTime value) override;
  void WriteString(std::string_view name, std::string_view value) override;
  void WriteGuid(std::string_view name, const TGuid& value) override;

 private:
  TVantrelPreferenceRegistry FRegistry;
};
