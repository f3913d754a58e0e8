#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Days since 1899-12-30; the fraction is the time of day, counted away from zero for days before.
using TDateTime = double;

struct TDateTimeParts {
  int Year = 1899, Month = 12, Day = 30;
  int Hour = 0, Minute = 0, Second = 0, Millisecond = 0;
};

/// Raises EVantrelDateTimeError where the parts are no date between the years 1 and 9999 or no time of a day.
TDateTime EncodeDateTime(const TDateTimeParts& parts);
/// Rounds to the millisecond. A value outside the years 1 to 9999 (or no number) raises EVantrelDateTimeError.
TDateTimeParts DecodeDateTime(TDateTime value);

/// yyyy-mm-dd
std::string DateToText(TDateTime value);
/// hh:mm:ss.zzzZ; the Z is a fixed letter, the value stays local.
std::string TimeToText(TDateTime value);
/// yyyy-mm-ddThh:mm:ss.zzzZ, likewise local.
std::string DateTimeToText(TDateTime value);
/// Reads the three forms above by fixed positions, shorter texts too; all parts 0 gives 0. Raises EConvertError for
/// a text that has no numbers where they must stand or is no date.
TDateTime TextToDateTime(std::string_view text);

/// dd.mm.yyyy, as the user reads it.
std::string DateToGermanText(TDateTime value);
/// dd.mm.yyyy hh:nn:ss
std::string DateTimeToGermanText(TDateTime value);
