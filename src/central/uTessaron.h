#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the installation of the central system says about itself, machine-wide. Set by ReadInstallation; a machine
/// without one leaves the defaults.
///
/// Version of the installed central product, for instance "10.2.1": the stamp of a new document.
inline std::string ProductVersion = "10.x";
/// Version of this program as it was installed.
inline std::string MyTessaronVersion;
/// How this program was set up; the words are the installer's.
using TProductSetupType = std::string;
inline TProductSetupType ProductSetupType;
inline std::string BinFolder;
inline std::string ScriptFolder;
inline std::string DocumentFolder;
inline std::string ReportFolder;
inline std::string TemplateFolder;
inline std::string ImportFolder;
inline std::string DatabaseFolder;

/// Folders of data: of all users, of this user, and those that the paths file may place elsewhere. Set by MakePaths.
inline std::string CommonDataFolder;
inline std::string UserDataFolder;
inline std::string EnvironmentFolder;
inline std::string OptionsFolder;

/// The well-known files: bare names until MakePaths gives them their folders.
inline std::string PathsFileName = "Tessaron.paths";
inline std::string TessaronOptFileName = "Tessaron.opt";
inline std::string OptionsFileName = "MyTessaron.opt";
inline std::string EnvironmentFileName = "Tessaron.evm";
inline std::string LogFileName = "Tessaron.log";
inline std::string DictionaryFileName = "de_DE_frami.dic";
inline std::string AffixFileName = "de_DE_frami.aff";
inline std::string UserDictionaryFileName = "User.dic";
inline std::string UserAffixFileName = "User.aff";

/// The program was started with the switch "Debug".
inline bool DebugFlag = false;

/// True if an argument is the name, with or without "-", "--" or "/" in front, without regard to case.
bool FindCommandSwitch(const std::vector<std::string>& arguments, std::string_view name);

/// Reads the values above from the machine's registry. Gives what the user has to know where that could not be read,
/// else nothing. Never raises.
std::string ReadInstallation();
/// Makes the folders and the full names of the files. Without a full path of the bin folder there is no paths file.
/// Raises EVantrelException if there is one that cannot be read; all paths are made then as if there were none.
void MakePaths();
