#pragma once

#include <filesystem>
#include <string>

#include "VantrelText.h"

/// What the user calls the file: the last part of its path, whatever characters it has, in well-formed UTF-8.
inline std::string ShownFileName(const std::string& path) {
  return RepairUtf8(std::filesystem::path(path).filename().string());
}
