#pragma once

#include <string>
#include <string_view>

/// Single characters in UTF-8, for loops over a text. Surrogates are characters like others here.

/// The character for what is no character.
inline constexpr char32_t ReplacementCharacter = 0xFFFD;

/// Reads the character at `at` and moves behind it. An ill-formed sequence gives ReplacementCharacter and is passed
/// over up to the first byte that cannot belong to it. `at` must be before `end`.
inline char32_t NextUtf8(const char*& at, const char* end) {
  const auto lead = static_cast<unsigned char>(*at++);
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return ReplacementCharacter;

  int tail = 1;
  char32_t code = lead & 0x1F;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  if (lead >= 0xF0) {
    tail = 3;
    code = lead & 0x07;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else if (lead >= 0xE0) {
    tail = 2;
    code = lead & 0x0F;
    if (lead == 0xE0) low = 0xA0;
  }
  for (; tail > 0; --tail) {
    if (at == end) return ReplacementCharacter;
    const auto next = static_cast<unsigned char>(*at);
    if (next < low || next > high) return ReplacementCharacter;
    low = 0x80;
    high = 0xBF;
    code = code << 6 | (next & 0x3F);
    ++at;
  }
  return code;
}

/// Calls `act` with each character of the text.
template <class TAct>
void ForEachUtf8(std::string_view text, TAct act) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) act(NextUtf8(at, end));
}

/// Writes the one to four bytes of `code`; returns the place behind them.
inline char* PutUtf8(char32_t code, char* target) {
  const auto tail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    *target++ = static_cast<char>(code);
    return target;
  }
  if (code < 0x800) {
    *target++ = static_cast<char>(0xC0 | code >> 6);
  } else {
    if (code < 0x10000) {
      *target++ = static_cast<char>(0xE0 | code >> 12);
    } else {
      *target++ = static_cast<char>(0xF0 | code >> 18);
      *target++ = tail(12);
    }
    *target++ = tail(6);
  }
  *target++ = tail(0);
  return target;
}

/// Adds a code point to a text.
inline void AppendUtf8(char32_t code, std::string& target) {
  char buffer[4];
  target.append(buffer, PutUtf8(code, buffer));
}
