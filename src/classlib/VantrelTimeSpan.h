#pragma once

#include <cstdint>
#include <string>

/// tsfMinSec: hh:mm:ss. tsfMinSecMSec: hh:mm:ss:zz. tsfInterval: the latter only where there are milliseconds.
enum class TVantrelTimeSpanFormat : std::uint8_t { tsfInterval, tsfMinSec, tsfMinSecMSec };

/// A span of time as text, led by "d." from one day on and by "-" below zero. The milliseconds have two digits at
/// least.
std::string TimeSpanToText(std::int64_t milliseconds, TVantrelTimeSpanFormat format);
