#pragma once

#include <string>
#include <string_view>

/// Whether XML can hold the text as it is: well-formed UTF-8 without control characters (but tabs and line breaks),
/// encoded surrogates, U+FFFE and U+FFFF.
bool XmlHolds(std::string_view text);

/// The text as XML can hold it: encoded pairs of surrogates become their character, single ones and other ill-formed
/// UTF-8 become U+FFFD, other characters that XML cannot hold are left out.
std::string XmlText(std::string_view text);

/// Whether the text may be the name of an element, without a colon.
bool IsXmlName(const std::string& text);
