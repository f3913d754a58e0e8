#include "VantrelXmlText.h"

#include <libxml/tree.h>

#include "VantrelText.h"
#include "VantrelUtf8.h"

namespace {
bool XmlCanHold(char32_t c) {
  return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}
}  // namespace

bool XmlHolds(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    if (static_cast<signed char>(*at) >= ' ') {
      ++at;
      continue;
    }
    const char* const begin = at;
    const char32_t code = NextUtf8(at, end);
    if (!XmlCanHold(code)) return false;
    if (code == ReplacementCharacter && std::string_view(begin, at) != "\uFFFD") return false;
  }
  return true;
}

std::string XmlText(std::string_view text) {
  const auto units = Utf8ToUtf16(text);
  std::u16string kept;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool isSurrogate = (units[i] & 0xF800) == 0xD800;
    const bool isPair = i + 1 < units.size() && (units[i] & 0xFC00) == 0xD800 && (units[i + 1] & 0xFC00) == 0xDC00;
    if (isPair)
      kept.append(units, i++, 2);
    else if (isSurrogate)
      kept.push_back(ReplacementCharacter);
    else if (XmlCanHold(units[i]))
      kept.push_back(units[i]);
  }
  return Utf16ToUtf8(kept);
}

bool IsXmlName(const std::string& text) {
  return xmlValidateNCName(reinterpret_cast<const xmlChar*>(text.c_str()), 0) == 0;
}
