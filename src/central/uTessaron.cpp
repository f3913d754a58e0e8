#include "uTessaron.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "VantrelFileStreams.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"
#include "VantrelRegistryPreferences.h"
#include "VantrelText.h"
#include "VantrelXml.h"

namespace {
constexpr std::string_view CentralKey = "Software\\Orvenda Labs\\Tessaron 10";
constexpr std::string_view OwnKey = "Software\\Orvenda Labs\\Tessaron 10 - MyTessaron";
constexpr std::string_view DataFolderName = "Orvenda Labs/Tessaron 10";

constexpr struct {
  std::string& Value;
  std::string_view Key;
  const char* Name;
  const char* Default;
} InstallationTable[] = {
    {ProductVersion, CentralKey, "ProductVersion", "10.x"}, {MyTessaronVersion, OwnKey, "ProductVersion", ""},
    {ProductSetupType, OwnKey, "ProductSetupType", ""},     {BinFolder, CentralKey, "BinFolder", ""},
    {ScriptFolder, CentralKey, "ScriptFolder", ""},         {DocumentFolder, CentralKey, "DocumentFolder", ""},
    {ReportFolder, CentralKey, "ReportFolder", ""},         {TemplateFolder, CentralKey, "TemplateFolder", ""},
    {ImportFolder, CentralKey, "ImportFolder", ""},         {DatabaseFolder, CentralKey, "DatabaseFolder", ""}};

constexpr struct {
  std::string& Path;
  const std::string& Folder;
  const char* Name;
} FileTable[] = {{TessaronOptFileName, OptionsFolder, "Tessaron.opt"},
                 {OptionsFileName, OptionsFolder, "MyTessaron.opt"},
                 {EnvironmentFileName, EnvironmentFolder, "Tessaron.evm"},
                 {DictionaryFileName, EnvironmentFolder, "de_DE_frami.dic"},
                 {AffixFileName, EnvironmentFolder, "de_DE_frami.aff"},
                 {UserDictionaryFileName, EnvironmentFolder, "User.dic"},
                 {UserAffixFileName, EnvironmentFolder, "User.aff"}};

std::string SystemVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// Data of all users lie where the desktop's rules put them: in the first of $XDG_DATA_DIRS, by default
// /usr/local/share and /usr/share, that has the folder of the product, or simply in the first.
std::string FindCommonDataFolder() {
  std::string folders = SystemVariable("XDG_DATA_DIRS");
  if (folders.empty()) folders = "/usr/local/share:/usr/share";
  std::string first;
  for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
    end = folders.find(':', start);
    const std::string base = folders.substr(start, end - start);
    if (!TVantrelFilePath::IsPathRooted(base)) continue;
    const std::string folder = TVantrelFilePath::Combine(base, DataFolderName);
    if (TVantrelFileSystem::IsDirectory(folder)) return folder;
    if (first.empty()) first = folder;
  }
  return first;
}

std::string FindUserDataFolder() {
  std::string base = SystemVariable("XDG_DATA_HOME");
  if (!TVantrelFilePath::IsPathRooted(base)) base = TVantrelFilePath::Combine(SystemVariable("HOME"), ".local/share");
  return TVantrelFilePath::Combine(base, DataFolderName);
}

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

void ReadInstallation() {
  TVantrelRegistryPreferences registry(TVantrelRegistryRoot::HKEY_LOCAL_MACHINE, TVantrelRegistryAccess::Read);
  for (const auto& row : InstallationTable) {
    registry.CloseKey();
    row.Value = registry.OpenKey(row.Key, false) ? registry.ReadString(row.Name, row.Default) : row.Default;
  }
}

void MakePaths() {
  CommonDataFolder = FindCommonDataFolder();
  UserDataFolder = FindUserDataFolder();
  EnvironmentFolder = OptionsFolder = CommonDataFolder;
  PathsFileName = TVantrelFilePath::Combine(BinFolder, "Tessaron.paths");
  MakeFilePaths();
  // A name that depends on the current folder leads to a file that anybody may have laid there.
  if (!std::filesystem::path(PathsFileName).is_absolute() || !TVantrelFileSystem::Exists(PathsFileName)) return;
  auto entries = ReadPathsFile();
  if (const auto folder = entries["TessaronEnvironmentFolder"]; !folder.empty()) EnvironmentFolder = folder;
  if (const auto folder = entries["TessaronOptionsFolder"]; !folder.empty()) OptionsFolder = folder;
  MakeFilePaths();
}
