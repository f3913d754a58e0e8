#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

/// With braces and capitals; without braces, in small letters; as the first in single quotes.
enum class TVantrelGuidFormat { gfDefault, gfWithoutBrackets, gfQuoted };

/// A 128-bit GUID, kept as its 16 bytes in file order: the first three fields little-endian.
struct TGuid {
  std::array<std::uint8_t, 16> Bytes{};

  auto operator<=>(const TGuid&) const = default;
};

/// Length of the default text: 32 digits, four hyphens, two braces.
inline constexpr std::size_t GuidTextLength = 38;

/// A new random GUID (version 4).
TGuid NewGuid();
/// gfDefault: upper case in braces; gfWithoutBrackets: lower case, no braces; gfQuoted: the default in single quotes.
std::string GuidToText(const TGuid& guid, TVantrelGuidFormat format = TVantrelGuidFormat::gfDefault);
/// Writes the default text into exactly GuidTextLength characters.
void WriteGuidText(const TGuid& guid, char* target);
/// Reads the default text, letters in either case; raises EConvertError for anything else.
TGuid TextToGuid(std::string_view text);

/// The RFC 4122 namespaces for DNS names and for ISO OIDs.
TGuid GuidNamespaceDns();
TGuid GuidNamespaceOid();
/// Name-based UUID after RFC 4122. `version` is 3 (MD5) or 5 (SHA-1), else EArgumentOutOfRangeException.
TGuid NameBasedGuid(const TGuid& nameSpace, std::string_view name, int version);
