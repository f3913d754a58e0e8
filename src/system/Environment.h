#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the system knows of the user and of the folders for him.
namespace System {

/// The name of the user; empty if nobody knows.
std::string UserName();

/// What a folder is for: settings, data, or what a run leaves for the next.
enum class TFolderKind : std::uint8_t { Configuration, Data, State };

/// The user's folder of that kind by the rules of the desktop, without a delimiter at its end: $XDG_CONFIG_HOME, else
/// ".config" in the home folder; $XDG_DATA_HOME, else ".local/share" there;
/// $XDG_STATE_HOME, else ".local/state" there.
std::string UserFolder(TFolderKind kind);
/// A file or folder in the folders of that kind that all users share ($XDG_CONFIG_DIRS, else /etc/xdg; $XDG_DATA_DIRS,
/// else /usr/local/share and /usr/share): in the first that has it, or simply in the first. Relative folders do not
/// count.
std::string MachinePath(TFolderKind kind, std::string_view place);

}  // namespace System
