#pragma once

#include <cstdlib>

#include "TempFolder.h"

/// Configuration folders of its own for one test: the user's is Folder, the machine's are two below it that are
/// missing.
class PrivateConfig {
 public:
  PrivateConfig() {
    ::setenv("XDG_CONFIG_HOME", Folder.Path().c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", ("relative:" + (Folder / "machine1") + ":" + (Folder / "machine2")).c_str(), 1);
  }
  ~PrivateConfig() {
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("XDG_CONFIG_DIRS");
  }

  TempFolder Folder;
};
