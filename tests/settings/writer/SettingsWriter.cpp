// Changes the user's settings and options as the program does at its end: SettingsWriter FOLDER VALUE, where the user's
// configuration folder and that of the options is FOLDER. Exits with 3 where it has to tell of something not saved.
#include <cstdlib>

#include "mStorage.h"
#include "uOptions.h"

int main(int argc, char** argv) {
  if (argc != 3) return 1;
  const std::string folder = argv[1];
  ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  const auto options = CreateVantrel<TMyTessaronOptions>(folder + "/MyTessaron.opt", folder);
  const auto module = CreateVantrel<TStorageModule>(4);
  if (!options->Load().empty() || !module->Storage().Damage().empty()) return 2;
  module->Storage().WriteString("AppForm", "Value", argv[2]);
  module->Storage().WriteString("AppForm", "Long", std::string(20000, 'x'));
  options->RechtschreibungZahl = false;
  return (options->Save() + module->Storage().TryFlush()).empty() ? 0 : 3;
}
