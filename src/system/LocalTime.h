#pragma once

#include <cstdint>
#include <string>

#include "SystemError.h"

/// A point of time as a calendar and a clock tell it; at first the day 0.
struct TDateTimeParts {
  int Year = 1899, Month = 12, Day = 30;
  int Hour = 0, Minute = 0, Second = 0, Millisecond = 0;
};

namespace System {

/// Milliseconds since the beginning of 1970 in UTC.
using TMoment = std::int64_t;

TDateTimeParts PartsOf(TMoment moment, bool utc);
TMoment MomentOf(const TDateTimeParts& parts, bool utc);
TMoment Now();
/// Minutes that the local time is ahead of UTC at this local time.
int LocalOffset(const TDateTimeParts& parts);

enum class TFileTime { Creation, LastAccess, LastWrite };

/// A file system that keeps no time of creation gives that of the last write.
TResult<TMoment> TimeOf(const std::string& name, TFileTime time);
/// Not that of the creation: code 50.
TCode SetTimeOf(const std::string& name, TFileTime time, TMoment moment);

}  // namespace System
