#pragma once

#include <string>

#include "SystemFolders.h"
#include "VantrelText.h"

/// What the user calls the file: the last part of its path, whatever characters it has, in well-formed UTF-8.
inline std::string ShownFileName(const std::string& path) {
  return RepairUtf8(System::LastNameOf(path));
}
