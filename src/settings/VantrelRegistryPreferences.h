#pragma once

#include "VantrelExceptions.h"
#include "VantrelPreferences.h"

/// The registry is open for reading only.
class EVantrelPreferencesError : public EVantrelException {
  using EVantrelException::EVantrelException;
};

/// Per-user settings and those of the machine.
enum class TVantrelRegistryRoot { HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE };
enum class TVantrelRegistryAccess { Read, Full };

/// A file of settings in the configuration folder, `place` below it: the user's own folder, or those of the machine.
std::string SettingsFileName(TVantrelRegistryRoot root, std::string_view place);
/// The file that holds the registry below this root: "Orvenda Labs/Registry.pref" in the configuration folder.
std::string RegistryFileName(TVantrelRegistryRoot root);

/// The preference store in the registry: typed values in a preference file. Backslash separates the names of a path,
/// and any name is a name. Float, Currency and DateTime are binary data there, Char and Guid texts. Reads never raise;
/// changes raise EVantrelPreferencesError without full access.
class TVantrelRegistryPreferences final : public TVantrelFilePreferences {
 public:
  TVantrelRegistryPreferences(TVantrelRegistryRoot root, TVantrelRegistryAccess access);

 protected:
  TVantrelPreferenceFile& FileToChange() override;

 private:
  TVantrelRegistryAccess FAccess;
};
