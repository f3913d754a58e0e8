#include "VantrelFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "VantrelFileSystem.h"

namespace {
/// By kind.
constexpr struct {
  const char* UserVariable;
  const char* BelowHome;
  const char* MachineVariable;
  const char* MachineFolders;
} Rules[] = {{"XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg"},
             {"XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share"}};

const auto& RulesOf(TVantrelFolderKind kind) {
  return Rules[static_cast<std::size_t>(kind)];
}

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

/// The absolute ones among folders with colons between them.
std::vector<std::string> Folders(std::string_view list) {
  std::vector<std::string> folders;
  while (!list.empty()) {
    const auto folder = list.substr(0, list.find(':'));
    list.remove_prefix(std::min(folder.size() + 1, list.size()));
    if (folder.starts_with('/')) folders.emplace_back(folder);
  }
  return folders;
}
}  // namespace

std::string UserFolder(TVantrelFolderKind kind) {
  const auto folder = Environment(RulesOf(kind).UserVariable);
  return folder.starts_with('/') ? std::string(folder) : HomeFolder() + RulesOf(kind).BelowHome;
}

std::string MachinePath(TVantrelFolderKind kind, std::string_view place) {
  auto folders = Folders(Environment(RulesOf(kind).MachineVariable));
  if (folders.empty()) folders = Folders(RulesOf(kind).MachineFolders);
  for (auto& folder : folders) folder.append("/").append(place);
  const auto found = std::ranges::find_if(folders, TVantrelFileSystem::Exists);
  return found == folders.end() ? folders.front() : *found;
}
