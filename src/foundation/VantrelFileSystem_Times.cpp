#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <ctime>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

namespace {
using enum TVantrelFileTimeInfo;

constexpr int FirstTmYear = 1900;
constexpr int NanosecondsPerMillisecond = 1'000'000;

TDateTime ToDateTime(std::int64_t seconds, std::int64_t nanoseconds, bool utc) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm fields{};
  utc ? ::gmtime_r(&time, &fields) : ::localtime_r(&time, &fields);
  return EncodeDateTime({fields.tm_year + FirstTmYear, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
                         std::min(fields.tm_sec, 59), static_cast<int>(nanoseconds / NanosecondsPerMillisecond)});
}

timespec ToSystemTime(TDateTime value, bool utc) {
  const auto parts = DecodeDateTime(value);
  std::tm fields{};
  fields.tm_year = parts.Year - FirstTmYear;
  fields.tm_mon = parts.Month - 1;
  fields.tm_mday = parts.Day;
  fields.tm_hour = parts.Hour;
  fields.tm_min = parts.Minute;
  fields.tm_sec = parts.Second;
  fields.tm_isdst = -1;
  return {utc ? ::timegm(&fields) : ::mktime(&fields), parts.Millisecond * NanosecondsPerMillisecond};
}
}  // namespace

TDateTime TVantrelFileSystem::GetTime(const std::string& path, TVantrelFileTimeInfo info, bool utc) {
  struct statx status {};
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
    throw EVantrelFileSystemError();
  }
  // A file system that keeps no time of creation gives that of the last write.
  const bool hasCreation = (status.stx_mask & STATX_BTIME) != 0;
  const auto& time = info == ftimeLastAccess                ? status.stx_atime
                     : info == ftimeCreation && hasCreation ? status.stx_btime
                                                            : status.stx_mtime;
  return ToDateTime(time.tv_sec, time.tv_nsec, utc);
}

void TVantrelFileSystem::SetTime(const std::string& path, TVantrelFileTimeInfo info, TDateTime time, bool utc) {
  if (info == ftimeCreation) {
    throw EVantrelFileSystemError(TVantrelErrorCode::NotSupported, FoundationTexts::NoCreationTime);
  }
  constexpr timespec unchanged{0, UTIME_OMIT};
  std::array<timespec, 2> times{unchanged, unchanged};
  times.at(info == ftimeLastAccess ? 0 : 1) = ToSystemTime(time, utc);
  if (::utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0) throw EVantrelFileSystemError();
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
