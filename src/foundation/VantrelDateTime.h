#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "LocalTime.h"

/// Days since 1899-12-30; the fraction is the time of day, counted away from zero for days before.
using TDateTime = double;

/// The days from 0 on.
enum class TVantrelDayOfWeek : std::uint8_t { Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };
// clang-format off
/// The months and the days of a month by their usual numbers.
enum class TVantrelMonth : std::uint8_t {
  January = 1, February, March, April, May, June, July, August, September, October, November, December
};
enum class TVantrelDayOfMonth : std::uint8_t {
  Day1 = 1, Day2, Day3, Day4, Day5, Day6, Day7, Day8, Day9, Day10, Day11, Day12, Day13, Day14, Day15, Day16,
  Day17, Day18, Day19, Day20, Day21, Day22, Day23, Day24, Day25, Day26, Day27, Day28, Day29, Day30, Day31
};
// clang-format on
/// A week of a month, by its number or as the last one.
enum class TVantrelWeekOfMonth : std::uint8_t { Week1 = 1, Week2, Week3, Week4, Week5, LastWeek };

/// Raises EVantrelDateTimeError where the parts are no date between the years 1 and 9999 or no time of a day.
TDateTime EncodeDateTime(const TDateTimeParts& parts);
/// Whether the value is a date-time between the years 1 and 9999.
bool IsDateTime(TDateTime value);
/// Rounds to the millisecond. A value outside the years 1 to 9999 (or no number) raises EVantrelDateTimeError.
TDateTimeParts DecodeDateTime(TDateTime value);

/// The present local time, to the millisecond.
TDateTime CurrentDateTime();
/// Raises as DecodeDateTime.
TVantrelDayOfWeek DayOfWeek(TDateTime value);

/// yyyy-mm-dd
std::string DateToText(TDateTime value);
/// hh:mm:ss.zzzZ; the Z is a fixed letter, the value stays local.
std::string TimeToText(TDateTime value);
/// yyyy-mm-ddThh:mm:ss.zzzZ, likewise local.
std::string DateTimeToText(TDateTime value);
/// hh:mm:ss
std::string TimeToShortText(TDateTime value);
/// hh:mm:ss.zzz+hh:mm and yyyy-mm-ddThh:mm:ss.zzz+hh:mm, with the offset from UTC that the system's time zone has at
/// that local time.
std::string TimeToOffsetText(TDateTime value);
std::string DateTimeToOffsetText(TDateTime value);
/// Reads the three forms above by fixed positions, shorter texts too; all parts 0 gives 0. Raises EVantrelDateTimeError
/// for a text that has no numbers where they must stand or is no date.
TDateTime TextToDateTime(std::string_view text);

/// dd.mm.yyyy, as the user reads it; a value that is no date-time gives "ungültiges Datum".
std::string DateToGermanText(TDateTime value);
/// dd.mm.yyyy hh:nn:ss, likewise.
std::string DateTimeToGermanText(TDateTime value);
