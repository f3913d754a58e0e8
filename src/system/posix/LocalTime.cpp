#include "LocalTime.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

namespace {
constexpr int FirstTmYear = 1900;
constexpr std::int64_t Second = 1000;
constexpr int NanosecondsPerMillisecond = 1'000'000;

std::int64_t MillisecondOf(System::TMoment moment) {
  return (moment % Second + Second) % Second;
}

std::tm FieldsOf(const TDateTimeParts& parts) {
  std::tm fields{};
  fields.tm_year = parts.Year - FirstTmYear;
  fields.tm_mon = parts.Month - 1;
  fields.tm_mday = parts.Day;
  fields.tm_hour = parts.Hour;
  fields.tm_min = parts.Minute;
  fields.tm_sec = parts.Second;
  fields.tm_isdst = -1;
  return fields;
}
}  // namespace

namespace System {

TDateTimeParts PartsOf(TMoment moment, bool utc) {
  const std::time_t seconds = (moment - MillisecondOf(moment)) / Second;
  std::tm fields{};
  utc ? ::gmtime_r(&seconds, &fields) : ::localtime_r(&seconds, &fields);
  return {fields.tm_year + FirstTmYear,
          fields.tm_mon + 1,
          fields.tm_mday,
          fields.tm_hour,
          fields.tm_min,
          std::min(fields.tm_sec, 59),
          static_cast<int>(MillisecondOf(moment))};
}

TMoment MomentOf(const TDateTimeParts& parts, bool utc) {
  auto fields = FieldsOf(parts);
  return (utc ? ::timegm(&fields) : ::mktime(&fields)) * Second + parts.Millisecond;
}

TMoment Now() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::floor<std::chrono::milliseconds>(now).count();
}

int LocalOffset(const TDateTimeParts& parts) {
  auto fields = FieldsOf(parts);
  std::mktime(&fields);
  return static_cast<int>(fields.tm_gmtoff / 60);
}

TResult<TMoment> TimeOf(const std::string& name, TFileTime time) {
  struct statx status {};
  if (::statx(AT_FDCWD, name.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) return TFailure(LastCode());
  const bool hasCreation = (status.stx_mask & STATX_BTIME) != 0;
  const auto& told = time == TFileTime::LastAccess                ? status.stx_atime
                     : time == TFileTime::Creation && hasCreation ? status.stx_btime
                                                                  : status.stx_mtime;
  return told.tv_sec * Second + told.tv_nsec / NanosecondsPerMillisecond;
}

TCode SetTimeOf(const std::string& name, TFileTime time, TMoment moment) {
  if (time == TFileTime::Creation) return static_cast<TCode>(TVantrelErrorCode::NotSupported);
  constexpr timespec unchanged{0, UTIME_OMIT};
  std::array<timespec, 2> times{unchanged, unchanged};
  const auto millisecond = MillisecondOf(moment);
  times.at(time == TFileTime::LastAccess ? 0 : 1) = {(moment - millisecond) / Second,
                                                     millisecond * NanosecondsPerMillisecond};
  return ::utimensat(AT_FDCWD, name.c_str(), times.data(), 0) == 0 ? Success : LastCode();
}

}  // namespace System
