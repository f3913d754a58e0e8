#include <algorithm>

#include "Letters.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"
#include "VantrelUtf8.h"

namespace {
char32_t Upper(char32_t code) {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 0x20 : code;
  return System::UpperLetter(code);
}

char32_t Lower(char32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 0x20 : code;
  return System::LowerLetter(code);
}

template <class TMap>
std::string MapCharacters(std::string_view text, TMap map) {
  std::string result;
  result.reserve(text.size());
  ForEachUtf8(text, [&](char32_t code) { AppendUtf8(map(code), result); });
  return result;
}

/// Base letters of U+00E0 to U+00FF and of U+0100 to U+017F.
constexpr std::string_view Latin1Bases = "aaaaaaaceeeeiiiidnooooo\xF7ouuuuyty";
constexpr std::string_view LatinExtendedBases =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuu"
    "uuwwyyyzzzzzzs";
static_assert(Latin1Bases.size() == 0x20 && LatinExtendedBases.size() == 0x80);

constexpr char32_t SharpS = 0xDF;

/// The letter in whose place a small letter is sorted.
char32_t BaseLetter(char32_t code) {
  if (code == SharpS) return 's';
  if (code >= 0xE0 && code <= 0xFF) return static_cast<unsigned char>(Latin1Bases[code - 0xE0]);
  if (code >= 0x100 && code <= 0x17F) return static_cast<unsigned char>(LatinExtendedBases[code - 0x100]);
  return code;
}

/// Walks a text letter by letter, in the base form (a sharp s counts twice) or only without case.
class TLetterWalk {
 public:
  TLetterWalk(std::string_view text, bool baseForm)
      : FAt(text.data()), FEnd(text.data() + text.size()), FBaseForm(baseForm) {}

  bool Next(char32_t& letter) {
    if (FSecondS) {
      FSecondS = false;
      letter = 's';
      return true;
    }
    if (FAt == FEnd) return false;
    letter = Lower(NextUtf8(FAt, FEnd));
    if (FBaseForm) {
      FSecondS = letter == SharpS;
      letter = BaseLetter(letter);
    }
    return true;
  }

 private:
  const char* FAt;
  const char* FEnd;
  bool FBaseForm;
  bool FSecondS = false;
};

int CompareLetters(std::string_view a, std::string_view b, bool baseForm) {
  TLetterWalk walkA(a, baseForm);
  TLetterWalk walkB(b, baseForm);
  for (;;) {
    char32_t letterA = 0;
    char32_t letterB = 0;
    const bool moreA = walkA.Next(letterA);
    const bool moreB = walkB.Next(letterB);
    if (!moreA || !moreB) return static_cast<int>(moreA) - static_cast<int>(moreB);
    if (letterA != letterB) return letterA < letterB ? -1 : 1;
  }
}

/// Takes the quoted field that `text` begins with; without a closing quote it goes to the end.
std::string TakeQuoted(std::string_view& text) {
  std::string field;
  std::size_t i = 1;
  for (; i < text.size(); ++i) {
    if (text[i] == '"' && (++i == text.size() || text[i] != '"')) break;
    field += text[i];
  }
  text.remove_prefix(std::min(i, text.size()));
  return field;
}

std::string TakePlain(std::string_view& text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return IsBlank(c) || c == ','; });
  std::string field(text.begin(), end);
  text.remove_prefix(field.size());
  return field;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}
}  // namespace

std::string UpperCase(std::string_view text) {
  return MapCharacters(text, Upper);
}

std::string LowerCase(std::string_view text) {
  return MapCharacters(text, Lower);
}

bool SameText(std::string_view a, std::string_view b) {
  return a == b || CompareLetters(a, b, false) == 0;
}

int CompareText(std::string_view a, std::string_view b) {
  const int order = CompareLetters(a, b, true);
  return order != 0 ? order : CompareLetters(a, b, false);
}

std::string Join(std::string_view a, std::string_view b, std::string_view separator) {
  std::string result(a);
  if (!a.empty() && !b.empty()) result += separator;
  return result += b;
}

std::string Shortened(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return std::string(text);
  while (bytes > 0 && (text[bytes] & 0xC0) == 0x80) --bytes;
  return std::string(text.substr(0, bytes)) + "...";
}

std::string QuotedText(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"') result += c;
    result += c;
  }
  return result += '"';
}

std::string ToDelimitedText(const std::vector<std::string>& lines) {
  if (lines.size() == 1 && lines[0].empty()) return "\"\"";
  std::string result;
  for (const std::string& line : lines) {
    if (&line != lines.data()) result += ',';
    const bool plain =
        std::none_of(line.begin(), line.end(), [](char c) { return IsBlank(c) || c == ',' || c == '"'; });
    result += plain ? line : QuotedText(line);
  }
  return result;
}

std::vector<std::string> FromDelimitedText(std::string_view text) {
  std::vector<std::string> lines;
  SkipBlanks(text);
  while (!text.empty()) {
    lines.push_back(text.front() == '"' ? TakeQuoted(text) : TakePlain(text));
    SkipBlanks(text);
    if (text.empty() || text.front() != ',') continue;
    text.remove_prefix(1);
    SkipBlanks(text);
    if (text.empty()) lines.emplace_back();
  }
  return lines;
}
