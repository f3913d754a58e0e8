#pragma once

#include "VantrelPreferences.h"

/// The registry is open for reading only.
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

/// The preference store in the registry: typed values in a preference file. Backslash separates the names of a path,
/// and any name is a name. Float, Currency and DateTime are binary data there, Char and Guid texts. Reads never raise;
/// changes raise EVantrelPreferencesError without full access.
class TVantrelRegistryPreferences final : public TVantrelFilePreferences {
 public:
  TVantrelRegistryPreferences(TVantrelRegistryRoot root, TVantrelRegistryAccess access);

  std::size_t ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) override;
  /// A null character for an empty text.
  char16_t ReadChar(std::string_view name, char16_t defaultValue) override;
  double ReadFloat(std::string_view name, double defaultValue) override;
  TCurrency ReadCurrency(std::string_view name, TCurrency defaultValue) override;
  std::int32_t ReadInteger(std::string_view name, std::int32_t defaultValue) override;
  TDateTime ReadDateTime(std::string_view name, TDateTime defaultValue) override;
  std::string ReadString(std::string_view name, std::string_view defaultValue) override;
  TGuid ReadGuid(std::string_view name, const TGuid& defaultValue) override;
  void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) override;
  void WriteFloat(std::string_view name, double value) override;
  void WriteCurrency(std::string_view name, TCurrency value) override;
  void WriteInteger(std::string_view name, std::int32_t value) override;
  void WriteDateTime(std::string_view name, TDateTime value) override;
  void WriteString(std::string_view name, std::string_view value) override;

 protected:
  TVantrelPreferenceFile& FileToChange() override;

 private:
  template <class T, class TParse>
  T Read(std::string_view name, std::string_view type, T defaultValue, TParse parse) const;
  template <class T>
  T ReadBytes(std::string_view name, T defaultValue) const;
  template <class T>
  void WriteBytes(std::string_view name, T value);

  TVantrelRegistryAccess FAccess;
};
