#include "uTessaron.h"

#include <algorithm>
#include <map>

#include "Environment.h"
#include "ProductNames.h"
#include "SystemFolders.h"
#include "VantrelFileStreams.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"
#include "VantrelRegistryPreferences.h"
#include "VantrelText.h"
#include "VantrelXml.h"

namespace {

constexpr struct {
  std::string& Value;
  std::string_view Product;
  const char* Name;
  const char* Default;
} InstallationTable[] = {{ProductVersion, ProductNames::Central, "ProductVersion", "10.x"},
                         {MyTessaronVersion, ProductNames::Own, "ProductVersion", ""},
                         {ProductSetupType, ProductNames::Own, "ProductSetupType", ""},
                         {BinFolder, ProductNames::Central, "BinFolder", ""},
                         {ScriptFolder, ProductNames::Central, "ScriptFolder", ""},
                         {DocumentFolder, ProductNames::Central, "DocumentFolder", ""},
                         {ReportFolder, ProductNames::Central, "ReportFolder", ""},
                         {TemplateFolder, ProductNames::Central, "TemplateFolder", ""},
                         {ImportFolder, ProductNames::Central, "ImportFolder", ""},
                         {DatabaseFolder, ProductNames::Central, "DatabaseFolder", ""}};

const struct {
  std::string& Path;
  const std::string& Folder;
  const std::string Name = Path;
} FileTable[] = {{PathsFileName, BinFolder},
                 {TessaronOptFileName, OptionsFolder},
                 {OptionsFileName, OptionsFolder},
                 {EnvironmentFileName, EnvironmentFolder},
                 {DictionaryFileName, EnvironmentFolder},
                 {AffixFileName, EnvironmentFolder},
                 {UserDictionaryFileName, EnvironmentFolder},
                 {UserAffixFileName, EnvironmentFolder}};

/// Name and value of each first entry of the paths file.
std::map<std::string, std::string> ReadPathsFile() {
  TVantrelFileStream stream(PathsFileName, TVantrelFileAccessMode::famShareDenyWrite,
                            TVantrelFileOpenMode::fomOpenRead);
  TXmlTree tree(stream.ReadAll());
  std::map<std::string, std::string> entries;
  for (const auto* node = tree.FirstChild(tree.Root()); node != nullptr; node = tree.Next(*node))
    if (TXmlTree::NameOf(*node) == "Entry")
      entries.emplace(tree.AttributeOf(*node, "Name").value_or(""), tree.AttributeOf(*node, "Value").value_or(""));
  return entries;
}

void MakeFilePaths() {
  for (const auto& file : FileTable) file.Path = TVantrelFilePath::Combine(file.Folder, file.Name);
}
}  // namespace

bool FindCommandSwitch(const std::vector<std::string>& arguments, std::string_view name) {
  return std::ranges::any_of(arguments, [name](std::string_view argument) {
    for (const std::string_view sign : {"--", "-", "/"}) {
      if (!argument.starts_with(sign)) continue;
      argument.remove_prefix(sign.size());
      break;
    }
    return SameText(argument, name);
  });
}

std::string ReadInstallation() {
  TVantrelRegistryPreferences registry(TVantrelRegistryRoot::HKEY_LOCAL_MACHINE, TVantrelRegistryAccess::Read);
  for (const auto& row : InstallationTable) {
    registry.CloseKey();
    const auto key = ProductNames::Path({"Software", ProductNames::Vendor, row.Product}, '\\');
    row.Value = registry.OpenKey(key, false) ? registry.ReadString(row.Name, row.Default) : row.Default;
  }
  return registry.Damage();
}

void MakePaths() {
  const auto place = ProductNames::Path({ProductNames::Vendor, ProductNames::Central}, '/');
  CommonDataFolder = System::MachinePath(System::TFolderKind::Data, place);
  UserDataFolder = TVantrelFilePath::Combine(System::UserFolder(System::TFolderKind::Data), place);
  EnvironmentFolder = OptionsFolder = CommonDataFolder;
  MakeFilePaths();
  // A name that depends on the current folder leads to a file that anybody may have laid there.
  if (!System::PathOf(PathsFileName).is_absolute() || !TVantrelFileSystem::Exists(PathsFileName)) return;
  auto entries = ReadPathsFile();
  if (const auto folder = entries["TessaronEnvironmentFolder"]; !folder.empty()) EnvironmentFolder = folder;
  if (const auto folder = entries["TessaronOptionsFolder"]; !folder.empty()) OptionsFolder = folder;
  MakeFilePaths();
}
