#pragma once

#include <algorithm>
#include <concepts>
#include <string_view>

// Parts of texts. What is given lies in the text that was given.

/// What a file begins with that says that its text is UTF-8.
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// A blank or a control character.
constexpr bool IsBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ';
}

/// The text without the characters at its two ends of which `isTrimmed` says so.
template <std::predicate<char> TIsTrimmed>
constexpr std::string_view Trimmed(std::string_view text, TIsTrimmed isTrimmed) {
  while (!text.empty() && isTrimmed(text.front())) text.remove_prefix(1);
  while (!text.empty() && isTrimmed(text.back())) text.remove_suffix(1);
  return text;
}

/// The text without any of these characters at its two ends.
constexpr std::string_view Trimmed(std::string_view text, std::string_view characters) {
  return Trimmed(text, [characters](char c) { return characters.find(c) != std::string_view::npos; });
}

/// Takes the first line off the text. The line comes without its end, which is a line feed with or without a carriage
/// return before it.
constexpr std::string_view TakeLine(std::string_view& text) {
  const auto end = std::min(text.find('\n'), text.size());
  auto line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}
