#pragma once

#include <string>

/// What the build says of the program itself.
struct TProgramInfo {
  int Major = 0, Minor = 0, Release = 0, Build = 0;
  std::string Copyright;  ///< may be empty
  std::string Manual;     ///< a file or an address

  /// Such as "10.2.0.0".
  std::string VersionText() const;
};

/// The same for the whole run.
const TProgramInfo& ProgramInfo();
