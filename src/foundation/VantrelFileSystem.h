#pragma once

#include <string>

/// Operations on files and folders. Failures raise EVantrelFileSystemError with the system's code.
class TVantrelFileSystem {
 public:
  TVantrelFileSystem() = delete;

  /// False for an empty path; a directory counts too.
  static bool Exists(const std::string& path);
  /// Creates the folder with its parents. A root, an empty path and a drive name (ending in a colon) are left alone; an
  /// existing folder is no error.
  static void CreateDirectory(const std::string& path);
};
