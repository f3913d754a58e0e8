#include "VantrelVolumes.h"

#include "ClasslibTexts.h"
#include "VantrelExceptions.h"
#include "VantrelPaths.h"

namespace {
using EError = EVantrelFileSystemError;

[[noreturn]] void RaiseNoDriveLetters() {
  throw EError(TVantrelErrorCode::NotSupported, ClasslibTexts::NoDriveLetters);
}
}  // namespace

bool TVantrelVolumes::PingDisk(const std::string& path) {
  return static_cast<bool>(System::DiskInfoOf(path));
}

TVantrelDiskInfo TVantrelVolumes::GetDiskInfo(const std::string& path) {
  return CheckSystem<EError>(System::DiskInfoOf(path));
}

TVantrelDriveType TVantrelVolumes::GetDriveType(const std::string& path) {
  return CheckSystem<EError>(System::DriveTypeOf(path));
}

bool TVantrelVolumes::IsRemote(const std::string& path) {
  return GetDriveType(path) == TVantrelDriveType::dtypeRemote;
}

std::vector<std::string> TVantrelVolumes::GetDrives() {
  return CheckSystem<EError>(System::Drives());
}

TVantrelVolumeInfo TVantrelVolumes::GetVolumeInfo(const std::string& path) {
  return CheckSystem<EError>(System::VolumeInfoOf(path));
}

std::string TVantrelVolumes::GetVolumeLabel(const std::string& path) {
  return GetVolumeInfo(path).Label;
}

void TVantrelVolumes::SetVolumeLabel(const std::string&, const std::string&) {
  throw EError(TVantrelErrorCode::NotSupported, ClasslibTexts::NoVolumeLabels);
}

bool TVantrelVolumes::HasDriveLetter(const std::string& path) {
  return TVantrelFilePath::GetDriveName(path).ends_with(':');
}

char TVantrelVolumes::GetDriveLetter(const std::string&) {
  RaiseNoDriveLetters();
}
std::vector<std::string> TVantrelVolumes::GetLogicalDriveList() {
  RaiseNoDriveLetters();
}
std::string TVantrelVolumes::QueryDosDevice(const std::string&) {
  RaiseNoDriveLetters();
}
