#include "FoundationTexts.h"
#include "LocalTime.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

namespace {
using EError = EVantrelFileSystemError;
using enum TVantrelFileTimeInfo;

System::TFileTime TimeFor(TVantrelFileTimeInfo info) {
  using enum System::TFileTime;
  return info == ftimeCreation ? Creation : info == ftimeLastAccess ? LastAccess : LastWrite;
}
}  // namespace

TDateTime TVantrelFileSystem::GetTime(const std::string& path, TVantrelFileTimeInfo info, bool utc) {
  return EncodeDateTime(System::PartsOf(CheckSystem<EError>(System::TimeOf(path, TimeFor(info))), utc));
}

void TVantrelFileSystem::SetTime(const std::string& path, TVantrelFileTimeInfo info, TDateTime time, bool utc) {
  if (info == ftimeCreation) throw EError(TVantrelErrorCode::NotSupported, FoundationTexts::NoCreationTime);
  CheckSystem<EError>(System::SetTimeOf(path, TimeFor(info), System::MomentOf(DecodeDateTime(time), utc)));
}

TDateTime TVantrelFileSystem::GetCreationTime(const std::string& path) {
  return GetTime(path, ftimeCreation);
}
TDateTime TVantrelFileSystem::GetCreationTimeUtc(const std::string& path) {
  return GetTime(path, ftimeCreation, true);
}
TDateTime TVantrelFileSystem::GetLastAccessTime(const std::string& path) {
  return GetTime(path, ftimeLastAccess);
}
TDateTime TVantrelFileSystem::GetLastAccessTimeUtc(const std::string& path) {
  return GetTime(path, ftimeLastAccess, true);
}
TDateTime TVantrelFileSystem::GetLastWriteTime(const std::string& path) {
  return GetTime(path, ftimeLastWrite);
}
TDateTime TVantrelFileSystem::GetLastWriteTimeUtc(const std::string& path) {
  return GetTime(path, ftimeLastWrite, true);
}

void TVantrelFileSystem::SetCreationTime(const std::string& path, TDateTime time) {
  SetTime(path, ftimeCreation, time);
}
void TVantrelFileSystem::SetCreationTimeUtc(const std::string& path, TDateTime time) {
  SetTime(path, ftimeCreation, time, true);
}
void TVantrelFileSystem::SetLastAccessTime(const std::string& path, TDateTime time) {
  SetTime(path, ftimeLastAccess, time);
}
void TVantrelFileSystem::SetLastAccessTimeUtc(const std::string& path, TDateTime time) {
  SetTime(path, ftimeLastAccess, time, true);
}
void TVantrelFileSystem::SetLastWriteTime(const std::string& path, TDateTime time) {
  SetTime(path, ftimeLastWrite, time);
}
void TVantrelFileSystem::SetLastWriteTimeUtc(const std::string& path, TDateTime time) {
  SetTime(path, ftimeLastWrite, time, true);
}
