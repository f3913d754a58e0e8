#include "VantrelText.h"

#include <cmath>
#include <limits>

#include "Testing.h"
#include "VantrelNumbers.h"

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
  EXPECT_TRUE(SameText("MÜLLER", "müller") && !SameText("Muller", "Müller") && !SameText("Müller", "Müllers"));
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

using TLimits = std::numeric_limits<double>;

TEST(Numbers, FloatTextIsGeneralWithFifteenDigits) {
  const std::pair<double, const char*> cases[] = {{0, "0"},
                                                  {-0.0, "0"},
                                                  {1, "1"},
                                                  {0.1, "0.1"},
                                                  {-2.5, "-2.5"},
                                                  {1e15, "1E15"},
                                                  {1e25, "1E25"},
                                                  {1e-7, "1E-7"},
                                                  {0.1 + 0.2, "0.3"},
                                                  {0.00001, "0.00001"},
                                                  {0.000123, "0.000123"},
                                                  {0.0000099, "9.9E-6"},
                                                  {1234.0625, "1234.0625"},
                                                  {99.99999999999999, "100"},
                                                  {2.3F, "2.29999995231628"},
                                                  {0.1F, "0.100000001490116"},
                                                  {999999999999999.9, "1E15"},
                                                  {TLimits::infinity(), "INF"},
                                                  {-TLimits::infinity(), "-INF"},
                                                  {TLimits::quiet_NaN(), "NAN"},
                                                  {99999999999999.5, "99999999999999.5"},
                                                  {999999999999999, "999999999999999"},
                                                  {1234567890123456789.0, "1.23456789012346E18"},
                                                  {-1.23456789012345e-300, "-1.23456789012345E-300"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(FloatToText(value), text);
}

TEST(Numbers, EveryWrittenFloatIsReadAgain) {
  for (const double value : {0.0, 1.5, -3.25e-7, 1e300, TLimits::min(), TLimits::denorm_min(), TLimits::infinity()})
    EXPECT_DOUBLE_EQ(TextToFloat(FloatToText(value)), value);
  EXPECT_EQ(TextToFloat(FloatToText(TLimits::lowest())), TLimits::lowest());
  EXPECT_TRUE(std::isnan(TextToFloat(FloatToText(TLimits::quiet_NaN()))));
}

TEST(Numbers, ExactTextsTakeTheFewestDigits) {
  const std::pair<double, const char*> cases[] = {{0.1, "0.1"},
                                                  {100000, "100000"},
                                                  {0.1 + 0.2, "0.30000000000000004"},
                                                  {-2.3F, "-2.299999952316284"},
                                                  {1e22, "1E22"},
                                                  {0x1p53, "9.007199254740992E15"},
                                                  {TLimits::max(), "1.7976931348623157E308"},
                                                  {-TLimits::denorm_min(), "-5E-324"},
                                                  {TLimits::infinity(), "INF"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(FloatToExactText(value), text);
    EXPECT_EQ(TextToFloat(text), value);
  }
}

TEST(Numbers, TheUserReadsShortTextsWithAComma) {
  const std::pair<double, const char*> cases[] = {
      {0.1F, "0,1"}, {0.1 + 0.2, "0,3"}, {-2.5e300, "-2,5E300"}, {TLimits::quiet_NaN(), "NAN"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(GermanFloatText(value), text);
}

TEST(Numbers, FloatsAreReadWithCommaAndBlanks) {
  EXPECT_EQ(TextToFloat(" 2,5 "), 2.5);
  EXPECT_EQ(TextToFloat("+1.5e2"), 150);
  EXPECT_EQ(TextToFloat("1e-400"), 0);
  for (const char* text : {"", " ", "-", "+-1", "1.2.3", "1 2", "0x10", "zwei", "1e999", "-1e999", "1e99999"})
    EXPECT_THROW(TextToFloat(text), EConvertError) << text;
}

TEST(Numbers, IntegersAreReadDecimalAndHexadecimal) {
  const std::pair<const char*, std::int64_t> cases[] = {{"0", 0},     {" -17 ", -17}, {"+5", 5},
                                                        {"$ff", 255}, {"-$10", -16},  {"0xFFFFFFFF", 4294967295}};
  for (const auto& [text, value] : cases) EXPECT_EQ(TextToInteger(text), value) << text;
  EXPECT_EQ(TextToInteger("9223372036854775807"), INT64_MAX);
  for (const char* least : {"-9223372036854775808", "$8000000000000000", "-$8000000000000000"})
    EXPECT_EQ(TextToInteger(least), INT64_MIN) << least;
  for (const char* text : {"", "-", "--1", "+-1", "1.0", "1a", "$", "0x", "$-1", "9223372036854775808"}) {
    EXPECT_THROW(TextToInteger(text), EConvertError) << text;
    EXPECT_EQ(TextToIntegerOr(text, -7), -7) << text;
  }
}