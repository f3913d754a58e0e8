#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "SystemError.h"

/// What kind of disk a path lies on.
enum class TVantrelDriveType : std::uint8_t {
  dtypeUnknown,
  dtypeNoRootDir,
  dtypeRemovable,
  dtypeFixed,
  dtypeRemote,
  dtypeCDRom,
  dtypeRamDisk
};
/// What the file system of a volume does.
enum class TVantrelFileSystemFlag : std::uint8_t { fsystemCaseSensitive, fsystemUnicode, fsystemReadOnly };

/// Space on the disk that a path lies on, in bytes.
struct TVantrelDiskInfo {
  std::int64_t TotalSize = 0;
  std::int64_t FreeSize = 0;
  /// Free for this user.
  std::int64_t AvailableSize = 0;
};

/// The volume that a path lies on.
struct TVantrelVolumeInfo {
  std::string Label;
  std::string FileSystemName;
  std::uint64_t SerialNumber = 0;
  int MaximumNameLength = 0;
  std::set<TVantrelFileSystemFlag> Flags;
};

namespace System {

/// What room there is on the disk that holds the file or folder.
TResult<TVantrelDiskInfo> DiskInfoOf(const std::string& path);
/// dtypeNoRootDir where the disk does not answer.
TResult<TVantrelDriveType> DriveTypeOf(const std::string& path);
/// Likewise how the disk is named and made.
TResult<TVantrelVolumeInfo> VolumeInfoOf(const std::string& path);
/// The places at which disks are mounted.
TResult<std::vector<std::string>> Drives();

}  // namespace System
