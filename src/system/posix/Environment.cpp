#include "Environment.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "SystemFolders.h"

namespace {
/// By kind.
constexpr struct {
  const char* UserVariable;
  const char* BelowHome;
  const char* MachineVariable;
  const char* MachineFolders;
} Rules[] = {{"XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg"},
             {"XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share"},
             {"XDG_STATE_HOME", "/.local/state", "", ""}};

const auto& RulesOf(System::TFolderKind kind) {
  return Rules[static_cast<std::size_t>(kind)];
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

/// Of the user's record.
struct TUser {
  std::string Name;
  std::string HomeFolder;
};

TUser CurrentUser() {
  std::array<char, 4096> buffer;
  passwd record{};
  passwd* found = nullptr;
  ::getpwuid_r(::geteuid(), &record, buffer.data(), buffer.size(), &found);
  return found == nullptr ? TUser{"", "/"} : TUser{found->pw_name, found->pw_dir};
}

std::string HomeFolder() {
  const auto home = Environment("HOME");
  return home.starts_with('/') ? std::string(home) : CurrentUser().HomeFolder;
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

namespace System {

std::string UserName() {
  return CurrentUser().Name;
}

std::string UserFolder(TFolderKind kind) {
  const auto folder = Environment(RulesOf(kind).UserVariable);
  return folder.starts_with('/') ? std::string(folder) : HomeFolder() + RulesOf(kind).BelowHome;
}

std::string MachinePath(TFolderKind kind, std::string_view place) {
  auto folders = Folders(Environment(RulesOf(kind).MachineVariable));
  if (folders.empty()) folders = Folders(RulesOf(kind).MachineFolders);
  for (auto& folder : folders) folder.append("/").append(place);
  const auto found = std::ranges::find_if(folders, Exists);
  return found == folders.end() ? folders.front() : *found;
}

}  // namespace System
