#include "VantrelSpellWords.h"

#include <algorithm>
#include <array>

#include "VantrelText.h"

namespace {

using TText = std::u16string_view;

constexpr char16_t SoftHyphen = 0x00AD;

bool IsBetween(char16_t unit, char16_t first, char16_t last) {
  return unit >= first && unit <= last;
}

bool IsDigit(char16_t unit) {
  return IsBetween(unit, u'0', u'9');
}

bool IsLetter(char16_t unit) {
  if (unit < 0x80) return IsBetween(unit | 0x20, u'a', u'z');
  if (unit < 0xC0) return unit == 0xAA || unit == 0xB5 || unit == 0xBA;
  const bool isSign = unit == 0xD7 || unit == 0xF7 || IsBetween(unit, 0x2000, 0x2BFF) ||
                      IsBetween(unit, 0x3000, 0x303F) || IsBetween(unit, 0xD800, 0xF8FF) || unit >= 0xFE00;
  return !isSign;
}

bool IsWordUnit(char16_t unit) {
  return IsLetter(unit) || IsDigit(unit) || unit == SoftHyphen;
}

bool IsApostrophe(char16_t unit) {
  return unit == u'\'' || unit == 0x2019 || unit == 0x02BC;
}

bool IsHyphen(char16_t unit) {
  return unit == u'-' || unit == 0x2010 || unit == 0x2011;
}

bool IsSpace(char16_t unit) {
  return unit <= u' ' || unit == 0x00A0 || IsBetween(unit, 0x2000, 0x200B) || IsBetween(unit, 0x2028, 0x202F) ||
         unit == 0x3000;
}

/// The ending that a sign between two genders stands before; its length with the sign, 0 where there is none. A
/// compound can go on behind the plural.
std::size_t GenderEnding(TText rest) {
  if (rest.empty() || (rest[0] != u'*' && rest[0] != u':' && rest[0] != u'_')) return 0;
  constexpr TText plural = u"innen", singular = u"in";
  const auto ending = rest.substr(1);
  if (ending.starts_with(plural)) return plural.size() + 1;
  const bool ends = ending.size() == singular.size() || (ending.size() > singular.size() && !IsWordUnit(ending[2]));
  return ending.starts_with(singular) && ends ? singular.size() + 1 : 0;
}

/// Letter and combining mark, one behind the other, and the letter that they make.
constexpr std::array<std::pair<char16_t, TText>, 7> Compositions{{{0x0300, u"AÀEÈIÌOÒUÙaàeèiìoòuù"},
                                                                  {0x0301, u"AÁEÉIÍOÓUÚYÝaáeéiíoóuúyý"},
                                                                  {0x0302, u"AÂEÊIÎOÔUÛaâeêiîoôuû"},
                                                                  {0x0303, u"AÃNÑOÕaãnñoõ"},
                                                                  {0x0308, u"AÄEËIÏOÖUÜaäeëiïoöuüyÿ"},
                                                                  {0x030A, u"AÅaå"},
                                                                  {0x0327, u"CÇcç"}}};

/// The letter with the mark; 0 where there is no such letter.
char16_t Composed(char16_t letter, char16_t mark) {
  const auto entry = std::ranges::find(Compositions, mark, &std::pair<char16_t, TText>::first);
  if (entry == Compositions.end()) return 0;
  const auto& pairs = entry->second;
  for (std::size_t i = 0; i < pairs.size(); i += 2)
    if (pairs[i] == letter) return pairs[i + 1];
  return 0;
}

std::string FormOf(TText word) {
  std::u16string form;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const auto unit = word[i];
    if (unit == SoftHyphen || (GenderEnding(word.substr(i)) > 0 && i > 0)) continue;
    if (const char16_t letter = form.empty() ? u'\0' : Composed(form.back(), unit); letter != 0)
      form.back() = letter;
    else if (IsApostrophe(unit))
      form += u'\'';
    else
      form += IsHyphen(unit) ? u'-' : unit;
  }
  return Utf16ToUtf8(form);
}

bool IsEMail(TText chunk) {
  const auto at = chunk.find(u'@');
  return at != TText::npos && at > 0 && IsWordUnit(chunk[at - 1]) && chunk.find(u'.', at) != TText::npos;
}

/// A host whose last label is one that certificates may name.
bool IsHost(TText chunk) {
  const TText host = chunk.substr(0, chunk.find(u'/'));
  const auto point = host.rfind(u'.');
  if (point == TText::npos || point == 0) return false;
  constexpr std::array<TText, 9> domains{u"de", u"com", u"org", u"net", u"eu", u"info", u"at", u"ch", u"edu"};
  return std::ranges::find(domains, host.substr(point + 1)) != domains.end() &&
         std::ranges::all_of(host, [](char16_t unit) { return IsWordUnit(unit) || unit == u'-' || unit == u'.'; });
}

bool IsUrl(TText chunk) {
  while (!chunk.empty() && !IsWordUnit(chunk.front())) chunk.remove_prefix(1);
  while (!chunk.empty() && !IsWordUnit(chunk.back()) && chunk.back() != u'/') chunk.remove_suffix(1);
  return chunk.find(u"://") != TText::npos || chunk.starts_with(u"www.") || IsHost(chunk);
}

/// Where the word ends that begins at `start`: signs within a word belong to it where a letter follows.
std::size_t EndOfWord(TText text, std::size_t start) {
  std::size_t end = start;
  while (end < text.size()) {
    if (IsWordUnit(text[end])) {
      ++end;
    } else if (const auto ending = GenderEnding(text.substr(end)); ending > 0 && end > start) {
      end += ending;
    } else {
      const bool joins = end > start && (IsApostrophe(text[end]) || IsHyphen(text[end])) && end + 1 < text.size() &&
                         IsWordUnit(text[end + 1]);
      if (!joins) return end;
      ++end;
    }
  }
  return end;
}

TSpellWord WordAt(TText text, std::size_t start, std::size_t end) {
  const auto follows = [&](auto test) { return end < text.size() && test(text[end]); };
  return {.Start = start,
          .Length = end - start,
          .Form = FormOf(text.substr(start, end - start)),
          .IsDotted = follows([](char16_t unit) { return unit == u'.'; }),
          .HasApostropheBefore = start > 0 && IsApostrophe(text[start - 1]),
          .HasHyphenBefore = start > 0 && IsHyphen(text[start - 1]),
          .HasHyphenBehind = follows(IsHyphen)};
}

}  // namespace

std::vector<TSpellWord> SpellWords(std::u16string_view text, TSpellAddresses ignored) {
  std::vector<TSpellWord> words;
  for (std::size_t i = 0; i < text.size();) {
    const auto chunkEnd = static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(), IsSpace) - text.begin());
    const auto chunk = text.substr(i, chunkEnd - i);
    if ((ignored.EMails && IsEMail(chunk)) || (ignored.Urls && IsUrl(chunk))) i = chunkEnd;
    while (i < chunkEnd) {
      const auto end = EndOfWord(text.substr(0, chunkEnd), i);
      if (end > i) words.push_back(WordAt(text, i, end));
      i = std::max(end, i + 1);
    }
    i = std::max(chunkEnd + 1, i);
  }
  return words;
}
