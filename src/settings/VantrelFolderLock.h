#pragma once

#include <chrono>
#include <string>

#include "SystemFolders.h"

/// Keeps all programs but one from changing the files of a folder, from construction to destruction; the others wait
/// for a while. Where the file system has no locks there is none.
class TVantrelFolderLock {
 public:
  /// How long it waits for others.
  static constexpr std::chrono::milliseconds Patience{5000};

  /// Locks the folder that the file lies in, and makes it where it is missing. Raises EVantrelFileHandleError with code
  /// 32 where another program does not let it go in time, EVantrelFileSystemError where it cannot be made.
  explicit TVantrelFolderLock(const std::string& fileName, std::chrono::milliseconds patience = Patience);

 private:
  System::TFolderLock FLock;
};
