#include "VantrelTimeSpan.h"

#include <fmt/format.h>

std::string TimeSpanToText(std::int64_t milliseconds, TVantrelTimeSpanFormat format) {
  const bool negative = milliseconds < 0;
  std::uint64_t rest = static_cast<std::uint64_t>(milliseconds);
  if (negative) rest = 0 - rest;
  const auto take = [&rest](unsigned count) {
    const std::uint64_t part = rest % count;
    rest /= count;
    return part;
  };
  const auto fraction = take(1000);
  const auto second = take(60);
  const auto minute = take(60);
  const auto hour = take(24);

  std::string text = negative ? "-" : "";
  if (rest > 0) text += fmt::format("{}.", rest);
  text += fmt::format("{:02}:{:02}:{:02}", hour, minute, second);
  const bool shown =
      format == TVantrelTimeSpanFormat::tsfInterval ? fraction > 0 : format == TVantrelTimeSpanFormat::tsfMinSecMSec;
  return shown ? text + fmt::format(":{:02}", fraction) : text;
}
