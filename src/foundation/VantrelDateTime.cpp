#include "VantrelDateTime.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"

namespace {
using std::chrono::days;
using std::chrono::sys_days;

constexpr std::int64_t MillisecondsPerDay = 86'400'000;
constexpr sys_days Epoch = std::chrono::year(1899) / 12 / 30;
constexpr int FirstDay = (sys_days(std::chrono::year(1) / 1 / 1) - Epoch).count();
constexpr int LastDay = (sys_days(std::chrono::year(9999) / 12 / 31) - Epoch).count();

std::int64_t MillisecondsOf(TDateTime value) {
  return std::llrint(value * static_cast<double>(MillisecondsPerDay));
}

int DayOf(std::int64_t milliseconds) {
  return static_cast<int>(milliseconds / MillisecondsPerDay);
}

bool IsWithin(int value, int first, int last) {
  return value >= first && value <= last;
}

std::chrono::year_month_day DateOf(const TDateTimeParts& parts) {
  return {std::chrono::year(parts.Year), std::chrono::month(static_cast<unsigned>(parts.Month)),
          std::chrono::day(static_cast<unsigned>(parts.Day))};
}

/// A text of fixed parts, put together in place.
class TPartsText {
 public:
  TPartsText& Put(char c) {
    FText[FLength++] = c;
    return *this;
  }
  TPartsText& Two(int value) {
    return Put(static_cast<char>('0' + value / 10)).Put(static_cast<char>('0' + value % 10));
  }
  TPartsText& Three(int value) { return Put(static_cast<char>('0' + value / 100)).Two(value % 100); }
  TPartsText& Date(const TDateTimeParts& parts) {
    return Two(parts.Year / 100).Two(parts.Year % 100).Put('-').Two(parts.Month).Put('-').Two(parts.Day);
  }
  TPartsText& Time(const TDateTimeParts& parts) {
    return Two(parts.Hour).Put(':').Two(parts.Minute).Put(':').Two(parts.Second);
  }
  TPartsText& ExactTime(const TDateTimeParts& parts) { return Time(parts).Put('.').Three(parts.Millisecond); }
  TPartsText& Offset(int minutes) {
    Put(minutes < 0 ? '-' : '+');
    return Two(std::abs(minutes) / 60).Put(':').Two(std::abs(minutes) % 60);
  }
  TPartsText& GermanDate(const TDateTimeParts& parts) {
    return Two(parts.Day).Put('.').Two(parts.Month).Put('.').Two(parts.Year / 100).Two(parts.Year % 100);
  }
  std::string Text() const { return {FText, FLength}; }

 private:
  char FText[32];
  std::size_t FLength = 0;
};

/// Characters `first` to `first` + `count` - 1, counted from 1, as far as there are any.
std::string_view Slice(std::string_view text, std::size_t first, std::size_t count) {
  return first > text.size() ? std::string_view() : text.substr(first - 1, count);
}

bool ReadDigits(std::string_view text, int& value) {
  if (text.empty() || text.size() > 9) return false;
  value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  return true;
}

int RequiredNumber(std::string_view text, std::size_t first, std::size_t count) {
  int value = 0;
  if (ReadDigits(Slice(text, first, count), value)) return value;
  throw EVantrelDateTimeError(FormatText(FoundationTexts::NoDate, text));
}

int NumberOrZero(std::string_view text) {
  int value = 0;
  return ReadDigits(text, value) ? value : 0;
}

/// The fraction behind the point, without the time zone that follows it.
std::string_view FractionOf(std::string_view text) {
  std::string_view fraction = text.substr(20);
  for (const char mark : {'Z', '+', '-'}) {
    if (const auto at = fraction.find(mark); at != std::string_view::npos) return fraction.substr(0, at);
  }
  return fraction;
}

TDateTimeParts ReadParts(std::string_view text) {
  TDateTimeParts parts;
  parts.Year = RequiredNumber(text, 1, 4);
  parts.Month = text.size() >= 5 ? RequiredNumber(text, 6, 2) : 1;
  parts.Day = text.size() >= 8 ? RequiredNumber(text, 9, 2) : 1;
  if (text.size() > 11) {
    parts.Hour = RequiredNumber(text, 12, 2);
    parts.Minute = RequiredNumber(text, 15, 2);
  }
  if (text.size() >= 19) parts.Second = NumberOrZero(Slice(text, 18, 2));
  if (text.size() >= 21 && text[19] == '.') parts.Millisecond = NumberOrZero(FractionOf(text));
  return parts;
}
}  // namespace

TDateTime EncodeDateTime(const TDateTimeParts& parts) {
  const std::chrono::year_month_day date = DateOf(parts);
  if (!IsWithin(parts.Year, 1, 9999) || !IsWithin(parts.Month, 1, 12) || !IsWithin(parts.Day, 1, 31) || !date.ok() ||
      !IsWithin(parts.Hour, 0, 23) || !IsWithin(parts.Minute, 0, 59) || !IsWithin(parts.Second, 0, 59) ||
      !IsWithin(parts.Millisecond, 0, 999)) {
    throw EVantrelDateTimeError(FormatText(
        FoundationTexts::NoDate, fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{:03}", parts.Year, parts.Month,
                                             parts.Day, parts.Hour, parts.Minute, parts.Second, parts.Millisecond)));
  }
  const double day = (sys_days(date) - Epoch).count();
  const int milliseconds = ((parts.Hour * 60 + parts.Minute) * 60 + parts.Second) * 1000 + parts.Millisecond;
  const double time = milliseconds / static_cast<double>(MillisecondsPerDay);
  return day < 0 ? day - time : day + time;
}

bool IsDateTime(TDateTime value) {
  return value > FirstDay - 1 && value < LastDay + 1 && IsWithin(DayOf(MillisecondsOf(value)), FirstDay, LastDay);
}

TDateTimeParts DecodeDateTime(TDateTime value) {
  if (!IsDateTime(value)) throw EVantrelDateTimeError(FormatText(FoundationTexts::NoDate, FloatToText(value)));
  const std::int64_t total = MillisecondsOf(value);
  const std::chrono::year_month_day date{Epoch + days(DayOf(total))};
  int rest = static_cast<int>(std::abs(total % MillisecondsPerDay));

  TDateTimeParts parts;
  parts.Year = static_cast<int>(date.year());
  parts.Month = static_cast<int>(static_cast<unsigned>(date.month()));
  parts.Day = static_cast<int>(static_cast<unsigned>(date.day()));
  parts.Millisecond = rest % 1000;
  rest /= 1000;
  parts.Second = rest % 60;
  rest /= 60;
  parts.Minute = rest % 60;
  parts.Hour = rest / 60;
  return parts;
}

TDateTime CurrentDateTime() {
  return EncodeDateTime(System::PartsOf(System::Now(), false));
}

TVantrelDayOfWeek DayOfWeek(TDateTime value) {
  const TDateTimeParts parts = DecodeDateTime(value);
  return static_cast<TVantrelDayOfWeek>(std::chrono::weekday(sys_days(DateOf(parts))).c_encoding());
}

std::string DateToText(TDateTime value) {
  return TPartsText().Date(DecodeDateTime(value)).Text();
}

std::string TimeToText(TDateTime value) {
  return TPartsText().ExactTime(DecodeDateTime(value)).Put('Z').Text();
}

std::string DateTimeToText(TDateTime value) {
  const TDateTimeParts parts = DecodeDateTime(value);
  return TPartsText().Date(parts).Put('T').ExactTime(parts).Put('Z').Text();
}

std::string TimeToShortText(TDateTime value) {
  return TPartsText().Time(DecodeDateTime(value)).Text();
}

std::string TimeToOffsetText(TDateTime value) {
  const TDateTimeParts parts = DecodeDateTime(value);
  return TPartsText().ExactTime(parts).Offset(System::LocalOffset(parts)).Text();
}

std::string DateTimeToOffsetText(TDateTime value) {
  const TDateTimeParts parts = DecodeDateTime(value);
  return TPartsText().Date(parts).Put('T').ExactTime(parts).Offset(System::LocalOffset(parts)).Text();
}

TDateTime TextToDateTime(std::string_view text) {
  const TDateTimeParts parts = ReadParts(text);
  if ((parts.Year | parts.Month | parts.Day | parts.Hour | parts.Minute | parts.Second | parts.Millisecond) == 0) {
    return 0;
  }
  try {
    return EncodeDateTime(parts);
  } catch (const EVantrelDateTimeError&) {
    throw EVantrelDateTimeError(FormatText(FoundationTexts::NoDate, text));
  }
}

std::string DateToGermanText(TDateTime value) {
  if (!IsDateTime(value)) return ResourceText(FoundationTexts::ShownNoDate);
  return TPartsText().GermanDate(DecodeDateTime(value)).Text();
}

std::string DateTimeToGermanText(TDateTime value) {
  if (!IsDateTime(value)) return ResourceText(FoundationTexts::ShownNoDate);
  const TDateTimeParts parts = DecodeDateTime(value);
  return TPartsText().GermanDate(parts).Put(' ').Time(parts).Text();
}
