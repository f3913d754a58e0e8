#include "VantrelXmlText.h"

#include <libxml/tree.h>

#include "VantrelText.h"
#include "VantrelUtf16.h"

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
  auto units = Utf8ToUtf16(text);
  ReplaceUnpaired(units);
  std::erase_if(units, [](char16_t unit) { return !IsSurrogate(unit) && !XmlCanHold(unit); });
  return Utf16ToUtf8(units);
}

bool IsXmlName(const std::string& text) {
  return xmlValidateNCName(reinterpret_cast<const xmlChar*>(text.c_str()), 0) == 0;
}
