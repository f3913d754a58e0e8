#pragma once

#include <string>

/// What the program does with files and directories as a whole. Failures raise EVantrelFileSystemError.
class TVantrelFileSystem {
 public:
  TVantrelFileSystem() = delete;

  /// True for a file, a directory or a symbolic link, wherever that leads; false for an empty path.
  static bool Exists(const std::string& path);
  /// Makes the directory and its missing parents. A root, a drive name and a directory that exists are left alone.
  static void CreateDirectory(const std::string& path);
};
