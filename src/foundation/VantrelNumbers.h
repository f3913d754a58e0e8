#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Number texts of files, free of the process locale.

/// General form with "." and at most 15 significant digits, no trailing zeros: 0.1f gives 0.100000001490116; large
/// and small values in the form 1.5E25 and 1E-7.
std::string FloatToText(double value);
/// In the same form, with as many digits as it takes to read the very same value back, at most 17.
std::string FloatToExactText(double value);
/// As FloatToText, into a buffer of at least FloatTextCapacity characters; returns the length.
inline constexpr std::size_t FloatTextCapacity = 32;
std::size_t WriteFloatText(double value, char* target);
/// As FloatToText, but where the value has no more than 32 bits it is the shortest text that reads as the same 32 bits:
/// 0.1f gives 0.1.
std::string ShortFloatText(double value);
/// As ShortFloatText, with the decimal comma that the user reads.
std::string GermanFloatText(double value);
/// Surrounding blanks are passed over; "," counts as "."; raises EConvertError for anything that is no number.
double TextToFloat(std::string_view text);
/// As TextToFloat, with `fallback` in place of the exception.
double TextToFloatOr(std::string_view text, double fallback);
/// Decimal, or hexadecimal behind "$" or "0x"; surrounding blanks are passed over; raises EConvertError for anything
/// that is no integer or does not fit.
std::int64_t TextToInteger(std::string_view text);
/// As TextToInteger, with `fallback` in place of the exception.
std::int64_t TextToIntegerOr(std::string_view text, std::int64_t fallback);
