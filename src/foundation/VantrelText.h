#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Texts are UTF-8 throughout the program; where the system counts UTF-16 units they go through this one pair of
/// converters, which keeps an unpaired surrogate both ways (as its three-byte form in the UTF-8).
std::u16string Utf8ToUtf16(std::string_view text);
std::string Utf16ToUtf8(std::u16string_view text);
/// As Utf16ToUtf8 from little-endian bytes at any address; `units` counts 16-bit units.
void AppendUtf16LeAsUtf8(const std::uint8_t* bytes, std::size_t units, std::string& target);
/// Number of UTF-16 units that the text takes.
std::size_t Utf16Length(std::string_view text);
/// An ill-formed byte sequence becomes U+FFFD; encoded surrogates stay.
std::string RepairUtf8(std::string_view text);

/// The ANSI code page is Windows-1252. A character that it lacks becomes "?".
std::string Utf8ToAnsi(std::string_view text);
std::string AnsiToUtf8(std::string_view bytes);

/// Case of letters of any script, one character for one character.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
/// Equality without regard to case.
bool SameText(std::string_view a, std::string_view b);
/// Order without regard to case, German letters beside their base letters: below, equal to or above 0.
int CompareText(std::string_view a, std::string_view b);

/// `a`, `separator`, `b` if both are non-empty, else the non-empty one.
std::string Join(std::string_view a, std::string_view b, std::string_view separator);

/// The text, or as many of its characters as `bytes` bytes hold and three dots.
std::string Shortened(std::string_view text, std::size_t bytes);

/// The text in double quotes, its own quotes doubled.
std::string QuotedText(std::string_view text);
/// A list as one text: comma-separated, a field with blanks, commas or quotes (or an empty one alone) in double
/// quotes, quotes doubled.
std::string ToDelimitedText(const std::vector<std::string>& lines);
std::vector<std::string> FromDelimitedText(std::string_view text);
