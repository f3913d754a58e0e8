#include "VantrelNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelTextParts.h"

namespace {
constexpr int SignificantDigits = 15;
constexpr double IntegerLimit = 1e15;
constexpr int SmallestDecimalExponent = -5;

enum class TPrecision { FifteenDigits, Exact };

char* Put(std::string_view text, char* out) {
  std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

/// The digits of a value without their trailing zeros, the first of them being worth 10^Exponent.
struct TDigits {
  char Text[FloatTextCapacity];
  std::size_t Count = 0;
  int Exponent = 0;

  TDigits(double positive, TPrecision precision) {
    char buffer[FloatTextCapacity];
    char* const limit = buffer + sizeof buffer;
    constexpr auto form = std::chars_format::scientific;
    const char* const end =
        (precision == TPrecision::Exact ? std::to_chars(buffer, limit, positive, form)
                                        : std::to_chars(buffer, limit, positive, form, SignificantDigits - 1))
            .ptr;
    const char* at = buffer;
    for (; *at != 'e'; ++at)
      if (*at != '.') Text[Count++] = *at;
    at += at[1] == '+' ? 2 : 1;
    std::from_chars(at, end, Exponent);
    while (Count > 1 && Text[Count - 1] == '0') --Count;
  }

  std::string_view Range(std::size_t from, std::size_t to) const { return {Text + from, to - from}; }
};

char* PutScientific(const TDigits& digits, char* out) {
  *out++ = digits.Text[0];
  if (digits.Count > 1) {
    *out++ = '.';
    out = Put(digits.Range(1, digits.Count), out);
  }
  *out++ = 'E';
  return std::to_chars(out, out + 5, digits.Exponent).ptr;
}

char* PutDecimal(const TDigits& digits, char* out) {
  if (digits.Exponent < 0) {
    out = Put(std::string_view("0.0000").substr(0, static_cast<std::size_t>(1 - digits.Exponent)), out);
    return Put(digits.Range(0, digits.Count), out);
  }
  const auto whole = static_cast<std::size_t>(digits.Exponent) + 1;
  out = Put(digits.Range(0, std::min(whole, digits.Count)), out);
  if (digits.Count <= whole) return std::fill_n(out, whole - digits.Count, '0');
  *out++ = '.';
  return Put(digits.Range(whole, digits.Count), out);
}

/// A text beyond the range of a double: the largest double still counts as itself where 15 digits rounded it up, and
/// what is too small is 0.
std::optional<double> OutOfRangeToFloat(std::string_view text) {
  constexpr double largest = std::numeric_limits<double>::max();
  long double value = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc()) return std::nullopt;
  if (std::abs(value) < 1) return 0.0;
  if (std::abs(value) > largest * (1 + 1e-14L)) return std::nullopt;
  return value < 0 ? -largest : largest;
}

std::optional<double> ParsePointFloat(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, value);
  if (at != end || error == std::errc::invalid_argument) return std::nullopt;
  return error == std::errc::result_out_of_range ? OutOfRangeToFloat(text) : value;
}

std::optional<double> ParseFloat(std::string_view text) {
  const std::string_view trimmed = Trimmed(text, IsBlank);
  if (trimmed.find(',') == std::string_view::npos) return ParsePointFloat(trimmed);
  std::string points(trimmed);
  std::replace(points.begin(), points.end(), ',', '.');
  return ParsePointFloat(points);
}

template <class T>
std::optional<T> ParseWhole(std::string_view digits, int base) {
  T value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [at, error] = std::from_chars(digits.data(), end, value, base);
  if (at != end || error != std::errc()) return std::nullopt;
  return value;
}

std::optional<std::int64_t> ParseInteger(std::string_view text) {
  text = Trimmed(text, IsBlank);
  std::string_view digits = text;
  const bool negative = digits.starts_with('-');
  if (negative || digits.starts_with('+')) digits.remove_prefix(1);
  if (digits.empty() || digits.front() == '-') return std::nullopt;
  const std::size_t prefix = digits.front() == '$' ? 1 : digits.starts_with("0x") || digits.starts_with("0X") ? 2 : 0;
  if (prefix == 0) return ParseWhole<std::int64_t>(negative ? text : digits, 10);
  const auto bits = ParseWhole<std::uint64_t>(digits.substr(prefix), 16);
  if (!bits) return std::nullopt;
  return static_cast<std::int64_t>(negative ? 0 - *bits : *bits);
}

std::size_t Write(double value, char* target, TPrecision precision) {
  char* out = target;
  if (std::abs(value) < IntegerLimit && value == std::trunc(value)) {
    return static_cast<std::size_t>(std::to_chars(out, out + FloatTextCapacity, static_cast<std::int64_t>(value)).ptr -
                                    target);
  }
  if (std::isnan(value)) return static_cast<std::size_t>(Put("NAN", out) - target);
  if (value < 0) *out++ = '-';
  if (std::isinf(value)) return static_cast<std::size_t>(Put("INF", out) - target);
  const TDigits digits(std::abs(value), precision);
  const bool decimal = digits.Exponent >= SmallestDecimalExponent && digits.Exponent < SignificantDigits;
  return static_cast<std::size_t>((decimal ? PutDecimal(digits, out) : PutScientific(digits, out)) - target);
}

}  // namespace

std::size_t WriteFloatText(double value, char* target) {
  return Write(value, target, TPrecision::FifteenDigits);
}

std::string FloatToText(double value) {
  char buffer[FloatTextCapacity];
  return {buffer, WriteFloatText(value, buffer)};
}

std::string FloatToExactText(double value) {
  char buffer[FloatTextCapacity];
  return {buffer, Write(value, buffer, TPrecision::Exact)};
}

std::string ShortFloatText(double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!(std::abs(value) <= largest) || static_cast<double>(static_cast<float>(value)) != value)
    return FloatToText(value);
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value), std::chars_format::fixed);
  return std::string(buffer, end.ptr);
}

std::string GermanFloatText(double value) {
  auto text = ShortFloatText(value);
  std::ranges::replace(text, '.', ',');
  return text;
}

double TextToFloat(std::string_view text) {
  const auto value = ParseFloat(text);
  if (!value) throw EConvertError(FormatText(FoundationTexts::NoFloat, text));
  return *value;
}

double TextToFloatOr(std::string_view text, double fallback) {
  return ParseFloat(text).value_or(fallback);
}

std::int64_t TextToInteger(std::string_view text) {
  const auto value = ParseInteger(text);
  if (!value) throw EConvertError(FormatText(FoundationTexts::NoInteger, text));
  return *value;
}

std::int64_t TextToIntegerOr(std::string_view text, std::int64_t fallback) {
  return ParseInteger(text).value_or(fallback);
}
