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

std::string RegistryFileName(TVantrelRegistryRoot root) {
  const auto place = ProductNames::Path({ProductNames::Vendor, RegistryName}, '/');
  return root == TVantrelRegistryRoot::HKEY_CURRENT_USER
             ? System::UserFolder(System::TFolderKind::Configuration) + "/" + place
             : System::MachinePath(System::TFolderKind::Configuration, place);
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
