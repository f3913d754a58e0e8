#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "VantrelUtf8.h"

/// Single units of UTF-16, for loops over a text. Two surrogates, a high one and a low one behind it, are one
/// character.

constexpr bool IsHighSurrogate(char32_t unit) {
  return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
  return (unit & 0xFFFFFC00) == 0xDC00;
}
constexpr bool IsSurrogate(char32_t unit) {
  return IsHighSurrogate(unit) || IsLowSurrogate(unit);
}

/// As many units of the text as `most`, or one less where that would part a pair.
constexpr std::size_t WholeUnits(std::u16string_view units, std::size_t most) {
  const std::size_t count = std::min(units.size(), most);
  const bool partsPair = count > 0 && count < units.size() && IsHighSurrogate(units[count - 1]);
  return partsPair ? count - 1 : count;
}

/// Puts ReplacementCharacter in the place of every surrogate that has no other half.
inline void ReplaceUnpaired(std::u16string& units) {
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (IsHighSurrogate(units[i]) && i + 1 < units.size() && IsLowSurrogate(units[i + 1]))
      ++i;
    else if (IsSurrogate(units[i]))
      units[i] = ReplacementCharacter;
  }
}
