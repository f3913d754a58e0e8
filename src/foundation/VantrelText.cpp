#include "VantrelText.h"

#include <array>
#include <bit>
#include <cstring>

#include "VantrelUtf16.h"

static_assert(std::endian::native == std::endian::little, "UTF-16 is read and written in the order of the machine");

namespace {
constexpr std::uint64_t NonAsciiBytes = 0x8080808080808080;
constexpr std::uint64_t NonAsciiUnits = 0xFF80FF80FF80FF80;

std::uint64_t LoadWord(const void* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

char16_t LoadUnit(const std::uint8_t* bytes) {
  return static_cast<char16_t>(bytes[0] | bytes[1] << 8);
}

/// Copies the leading ASCII units as bytes; returns how many there were.
std::size_t NarrowAscii(const std::uint8_t* bytes, std::size_t units, char* target) {
  std::size_t done = 0;
  for (; done + 8 <= units; done += 8) {
    if (((LoadWord(bytes + 2 * done) | LoadWord(bytes + 2 * done + 8)) & NonAsciiUnits) != 0) break;
    for (std::size_t i = 0; i < 8; ++i) target[done + i] = static_cast<char>(bytes[2 * (done + i)]);
  }
  for (; done < units && LoadUnit(bytes + 2 * done) < 0x80; ++done) target[done] = static_cast<char>(bytes[2 * done]);
  return done;
}

/// The characters 0x80 to 0x9F of Windows-1252; the five gaps stand for themselves.
constexpr std::array<char16_t, 32> AnsiUpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ToAnsi(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (std::size_t i = 0; i < AnsiUpperControls.size(); ++i) {
    if (AnsiUpperControls[i] == code) return static_cast<char>(0x80 + i);
  }
  return '?';
}
}  // namespace

std::u16string Utf8ToUtf16(std::string_view text) {
  std::u16string result(text.size(), u'\0');
  char16_t* out = result.data();
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    if (end - at >= 8 && (LoadWord(at) & NonAsciiBytes) == 0) {
      for (int i = 0; i < 8; ++i) out[i] = static_cast<char16_t>(at[i]);
      at += 8;
      out += 8;
      continue;
    }
    const char32_t code = NextUtf8(at, end);
    if (code < 0x10000) {
      *out++ = static_cast<char16_t>(code);
    } else {
      *out++ = static_cast<char16_t>(0xD7C0 + (code >> 10));
      *out++ = static_cast<char16_t>(0xDC00 | (code & 0x3FF));
    }
  }
  result.resize(static_cast<std::size_t>(out - result.data()));
  return result;
}

void AppendUtf16LeAsUtf8(const std::uint8_t* bytes, std::size_t units, std::string& target) {
  const std::size_t start = target.size();
  target.resize(start + units);
  std::size_t i = NarrowAscii(bytes, units, target.data() + start);
  if (i == units) return;

  target.resize(start + i + (units - i) * 3);
  char* out = target.data() + start + i;
  while (i < units) {
    char32_t code = LoadUnit(bytes + 2 * i++);
    if (IsHighSurrogate(code) && i < units && IsLowSurrogate(LoadUnit(bytes + 2 * i))) {
      code = ((code - 0xD7C0) << 10) | (LoadUnit(bytes + 2 * i++) & 0x3FF);
    }
    out = PutUtf8(code, out);
  }
  target.resize(static_cast<std::size_t>(out - target.data()));
}

std::string Utf16ToUtf8(std::u16string_view text) {
  std::string result;
  AppendUtf16LeAsUtf8(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), result);
  return result;
}

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  ForEachUtf8(text, [&](char32_t code) { length += code < 0x10000 ? 1 : 2; });
  return length;
}

std::string RepairUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  ForEachUtf8(text, [&](char32_t code) { AppendUtf8(code, result); });
  return result;
}

std::string Utf8ToAnsi(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  ForEachUtf8(text, [&](char32_t code) { result.push_back(ToAnsi(code)); });
  return result;
}

std::string AnsiToUtf8(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    AppendUtf8(code >= 0x80 && code < 0xA0 ? AnsiUpperControls[code - 0x80] : code, result);
  }
  return result;
}
