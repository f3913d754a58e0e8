#pragma once

#include "VantrelFileLauncher.h"

/// Opens files and addresses with the program that the desktop associates with them. A file with start parameters is
/// taken for a program and started with them, split at blanks, parts with blanks in double quotes. The show mode has no
/// counterpart here; of the operations there is only "open".
class TVantrelXdgOpener final : public TVantrelOpener {
 public:
  std::uint32_t Open(const TVantrelLaunch& launch, std::function<void()>* wait) override;
};
