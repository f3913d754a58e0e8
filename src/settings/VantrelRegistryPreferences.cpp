#include "VantrelRegistryPreferences.h"

#include "Environment.h"
#include "ProductNames.h"
#include "SettingsTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {

constexpr const char* RegistryName = "Registry.pref";

/// As the tag of a value stands for no key, a key of that name is always encoded.
std::string EncodeRegistryTag(std::string_view name) {
  return SameText(name, "Entry") ? "_x0045_ntry" : EncodeKeyTag(name);
}

}  // namespace

std::string SettingsFileName(TVantrelRegistryRoot root, std::string_view place) {
  constexpr auto kind = System::TFolderKind::Configuration;
  return root == TVantrelRegistryRoot::HKEY_CURRENT_USER ? System::UserFolder(kind) + "/" + std::string(place)
                                                         : System::MachinePath(kind, place);
}

std::string RegistryFileName(TVantrelRegistryRoot root) {
  return SettingsFileName(root, ProductNames::Path({ProductNames::Vendor, RegistryName}, '/'));
}

TVantrelRegistryPreferences::TVantrelRegistryPreferences(TVantrelRegistryRoot root, TVantrelRegistryAccess access)
    : TVantrelFilePreferences(RegistryFileName(root), false,
                              {.Separators = "\\", .EncodeKey = EncodeRegistryTag, .Typed = true}),
      FAccess(access) {}

TVantrelPreferenceFile& TVantrelRegistryPreferences::FileToChange() {
  if (FAccess != TVantrelRegistryAccess::Full)
    throw EVantrelPreferencesError(ResourceText(SettingsTexts::NoWriteAccess));
  return TVantrelFilePreferences::FileToChange();
}
