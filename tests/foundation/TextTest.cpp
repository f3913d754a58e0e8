#include "VantrelText.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {
using namespace std::string_literals;

TEST(Text, ShortensBetweenCharacters) {
  const std::tuple<const char*, std::size_t, const char*> cases[] = {
      {"Käse", 5, "Käse"}, {"Käse", 2, "K..."}, {"Käse", 3, "Kä..."}, {"", 0, ""}, {"Ä", 1, "..."}};
  for (const auto& [text, bytes, shortened] : cases) EXPECT_EQ(Shortened(text, bytes), shortened);
}

TEST(Text, Utf16GoesBothWays) {
  const std::pair<std::string, std::u16string> cases[] = {{"", u""},
                                                          {"Mathematik, Klasse 10", u"Mathematik, Klasse 10"},
                                                          {"Schülerübersicht", u"Schülerübersicht"},
                                                          {"€ 3", u"€ 3"},
                                                          {"a\xF0\x9F\x98\x80z", u"a\xD83D\xDE00z"},
                                                          {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
                                                          {"x\xED\xA0\xBD", u"x\xD83D"},
                                                          {"\xED\xB8\x80y", u"\xDE00y"},
                                                          {"a\0b"s, u"a\0b"s}};
  for (const auto& [utf8, utf16] : cases) {
    EXPECT_EQ(Utf8ToUtf16(utf8), utf16) << utf8;
    EXPECT_EQ(Utf16ToUtf8(utf16), utf8) << utf8;
    EXPECT_EQ(Utf16Length(utf8), utf16.size()) << utf8;
    EXPECT_EQ(RepairUtf8(utf8), utf8) << utf8;
  }
}

TEST(Text, IllFormedUtf8BecomesReplacementCharacters) {
  const std::pair<std::string, std::string> cases[] = {{"\x80", "\uFFFD"},
                                                       {"a\xC3", "a\uFFFD"},
                                                       {"\xE2\x82", "\uFFFD"},
                                                       {"\xF0\x9F\x98", "\uFFFD"},
                                                       {"\xC0\xAF", "\uFFFD\uFFFD"},
                                                       {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
                                                       {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
                                                       {"\xFF\xFE", "\uFFFD\uFFFD"},
                                                       {"\xE2\x28\xA1", "\uFFFD(\uFFFD"}};
  for (const auto& [bytes, repaired] : cases) {
    EXPECT_EQ(RepairUtf8(bytes), repaired);
    EXPECT_EQ(Utf16ToUtf8(Utf8ToUtf16(bytes)), repaired);
    EXPECT_EQ(Utf16Length(bytes), Utf8ToUtf16(repaired).size());
  }
}

TEST(Text, AnsiIsWindows1252) {
  EXPECT_EQ(Utf8ToAnsi("Größe 5 € – Ÿ"), "Gr\xF6\xDF"s + "e 5 \x80 \x96 \x9F");
  EXPECT_EQ(AnsiToUtf8("\x80\x9F\xA0\xFC"), "€Ÿ\u00A0ü");
  EXPECT_EQ(Utf8ToAnsi("Łódź \u0141"), "?\xF3"s + "d? ?");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(Utf8ToAnsi(AnsiToUtf8(one)), one) << byte;
  }
}

TEST(Text, CaseIsChangedInEveryScript) {
  EXPECT_EQ(UpperCase("straße äöü éł жя"), "STRAßE ÄÖÜ ÉŁ ЖЯ");
  EXPECT_EQ(LowerCase("STRASSE ÄÖÜ ÉŁ ЖЯ"), "strasse äöü éł жя");
  EXPECT_TRUE(SameText("MÜLLER", "müller"));
  EXPECT_FALSE(SameText("Muller", "Müller"));
  EXPECT_FALSE(SameText("Müller", "Müllers"));
}

TEST(Text, GermanLettersStandBesideTheirBaseLetters) {
  const std::vector<std::string> ordered = {"",      "10",     "Adam",   "Ädam",     "adamo", "Gross", "GROß",
                                            "Grost", "Muller", "Müller", "mullerin", "Öz",    "Źak",   "zal"};
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) {
      const int order = CompareText(ordered[i], ordered[j]);
      EXPECT_EQ((order > 0) - (order < 0), (i > j) - (i < j)) << ordered[i] << " and " << ordered[j];
    }
  }
  EXPECT_EQ(CompareText("ÄPFEL", "äpfel"), 0);
}

TEST(Text, DelimitedTextGoesBothWays) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, ""},
      {{""}, "\"\""},
      {{"", ""}, ","},
      {{"a", "", "b"}, "a,,b"},
      {{"mit Blank", "k,omma", "Zitat \"x\"", "zeile\r\n"},
       "\"mit Blank\",\"k,omma\",\"Zitat \"\"x\"\"\",\"zeile\r\n\""}};
  for (const auto& [lines, text] : cases) {
    EXPECT_EQ(ToDelimitedText(lines), text);
    EXPECT_EQ(FromDelimitedText(text), lines) << text;
  }
}
}  // namespace
