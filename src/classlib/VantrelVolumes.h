#pragma once

#include "VantrelFileSystem.h"
#include "Volumes.h"

/// The file system with its disks and volumes. Failures raise EVantrelFileSystemError with the system's error, and with
/// code 50 and a text of its own where a drive letter or a volume that can be renamed is needed: this system has
/// neither.
class TVantrelVolumes : public TVantrelFileSystem {
 public:
  /// True if the disk that the path lies on answers.
  static bool PingDisk(const std::string& path);
  static TVantrelDiskInfo GetDiskInfo(const std::string& path);
  static TVantrelDriveType GetDriveType(const std::string& path);
  /// True if the path lies on a network share.
  static bool IsRemote(const std::string& path);
  /// The places at which disks are mounted.
  static std::vector<std::string> GetDrives();
  static TVantrelVolumeInfo GetVolumeInfo(const std::string& path);
  static std::string GetVolumeLabel(const std::string& path);
  [[noreturn]] static void SetVolumeLabel(const std::string& path, const std::string& label);

  /// True for a path that begins with a drive letter, whether such a drive exists or not.
  static bool HasDriveLetter(const std::string& path);
  [[noreturn]] static char GetDriveLetter(const std::string& path);
  [[noreturn]] static std::vector<std::string> GetLogicalDriveList();
  [[noreturn]] static std::string QueryDosDevice(const std::string& drive);
};

/// The disk that a path lies on.
class TVantrelDriveInfo {
 public:
  explicit TVantrelDriveInfo(std::string path) : FPath(std::move(path)) {}

  bool IsReady() const { return TVantrelVolumes::PingDisk(FPath); }
  TVantrelDriveType DriveType() const { return TVantrelVolumes::GetDriveType(FPath); }
  TVantrelDiskInfo DiskInfo() const { return TVantrelVolumes::GetDiskInfo(FPath); }
  TVantrelVolumeInfo VolumeInfo() const { return TVantrelVolumes::GetVolumeInfo(FPath); }

 private:
  std::string FPath;
};
