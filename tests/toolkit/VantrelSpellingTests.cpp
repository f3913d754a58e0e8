#include "VantrelSpelling.h"

#include "Testing.h"
#include "VantrelText.h"

namespace {

using TWords = std::vector<std::string>;

struct SpellingTest : testing::Test {
  SpellingTest() {
    FChecker.MainDictionary.Path = "/usr/share/hunspell/de_DE_frami.dic";
    FChecker.MainDictionary.AffixPath = "/usr/share/hunspell/de_DE_frami.aff";
    FChecker.Active = FChecker.MainDictionary.Load();
    IgnoreAllKinds(true);
  }
  void IgnoreAllKinds(bool ignore) {
    FChecker.IgnoreUpperCase = FChecker.IgnoreNumbers = FChecker.IgnoreEMails = FChecker.IgnoreUrls = ignore;
  }
  /// The mistakes as they stand in the text.
  TWords Mistakes(const std::string& text) const {
    const auto units = Utf8ToUtf16(text);
    TWords mistakes;
    for (const auto& word : FChecker.Mistakes(units))
      mistakes.push_back(Utf16ToUtf8(std::u16string_view(units).substr(word.Start, word.Length)));
    return mistakes;
  }

  TempFolder FFolder;
  TVantrelSpellChecker FChecker;
};

TEST_F(SpellingTest, MarksWhatIsWrongAndNothingElse) {
  ASSERT_TRUE(FChecker.CanCheck());
  const std::pair<const char*, TWords> cases[] = {
      {"Sören arbeitet fleisig mit", {"fleisig"}},
      {"Sören arbeitet fleißig mit. „Das ist gut“, sagt er (oft).", {}},
      {"Der Deutsch- und Englischunterricht, die Vor- und -nachteile", {}},
      {"Der Deutsxh- und Englischunterrichd", {"Deutsxh", "Englischunterrichd"}},
      {"Schüler*innen, Lehrer:innen, Schüler_innen, SchülerInnen, eine Schüler*in", {}},
      {"Schüler*innenvertretung, Lehrer:innenzimmers, Schüler*innenqwrtz, Schüler*inka",
       {"Schüler*innenqwrtz", "inka"}},
      {"Schühler*innen arbeiten*gut", {"Schühler*innen"}},
      {"usw., bzw. und z. B. oder z.B. d. h.", {}},
      {"usw und so", {"usw"}},
      {"Wie geht’s und so 'ne Sache, Paul's und Paul’s, Klaus' Heft", {}},
      {"Wie gehtz’s und 'fleisig' und 'Heft'", {"gehtz’s", "fleisig"}},
      {"an irina.qwrtz@schule.de, auf www.qwrtz.de/asdf und https://qwrtz.de! oder qwrtz.com", {}},
      {"in der 3b und 10qx, 17 %, 2. Platz, 3-mal", {}},
      {"ADHS und QWRTZ", {}},
      {"u\u0308ber die Stra\u00ADße mit Kovačević, GROẞ, 😀 — 日本", {}},
      {"in Nordrhein-Westfalen und der Mathe-Not-Qwrtz", {"Mathe-Not-Qwrtz"}},
      {"a\u00A0fleisig\u2028gans\nfleisig", {"fleisig", "gans", "fleisig"}},
      {"", {}},
  };
  for (const auto& [text, mistakes] : cases) EXPECT_EQ(Mistakes(text), mistakes) << text;
}

TEST_F(SpellingTest, EachKindIsIgnoredByItsOwnSwitch) {
  const std::string text = "QWRTZ 10qx irina@qwrtz.xyz www.qwrtz.qq";
  IgnoreAllKinds(false);
  EXPECT_THAT(Mistakes(text), ElementsAre("QWRTZ", "10qx", "irina", "qwrtz", "xyz", "www", "qwrtz", "qq"));
  FChecker.IgnoreUpperCase = true;
  EXPECT_THAT(Mistakes("QWRTZ QWRTZ-Förderung 10qx"), ElementsAre("10qx"));
  FChecker.IgnoreNumbers = true;
  EXPECT_THAT(Mistakes("QWRTZ 10qx"), IsEmpty());
  FChecker.IgnoreEMails = true;
  EXPECT_THAT(Mistakes(text), ElementsAre("www", "qwrtz", "qq"));
  FChecker.IgnoreUrls = true;
  EXPECT_THAT(Mistakes(text), IsEmpty());
  FChecker.Active = false;
  EXPECT_THAT(Mistakes("fleisig"), IsEmpty());
}

TEST_F(SpellingTest, NamesAndIgnoredWordsAreRight) {
  EXPECT_THAT(Mistakes("Qwrtz Qwrtzs Jkl-Qwrtz Xyzzq"), ElementsAre("Qwrtz", "Qwrtzs", "Jkl-Qwrtz", "Xyzzq"));
  FChecker.KnowNames({"von der Qwrtz", "Jkl"});
  EXPECT_THAT(Mistakes("Qwrtz Qwrtzs Jkl-Qwrtz Qwrtz’s Xyzzq"), ElementsAre("Xyzzq"));
  FChecker.IgnoreAll("Xyzzq");
  EXPECT_THAT(Mistakes("Xyzzq"), IsEmpty());
}

TEST_F(SpellingTest, WithoutDictionaryNothingIsMarked) {
  TVantrelSpellChecker checker;
  checker.Active = true;
  checker.MainDictionary.Path = FFolder / "fehlt.dic";
  EXPECT_FALSE(checker.MainDictionary.Load());
  checker.MainDictionary.Path = FFolder / "fremd.dic";
  checker.MainDictionary.AffixPath = FFolder / "fremd.aff";
  const std::tuple<const char*, const char*, bool> files[] = {{"SET UTF-8\n", "1\nwort\n", true},
                                                              {"SET KOI8-R\n", "1\nwort\n", false},
                                                              {"", "", false},
                                                              {"SET UTF-8\n", "1\n", false},
                                                              {"SET UTF-8\n", "kein\nWörterbuch\n", false}};
  for (const auto& [rules, words, loads] : files) {
    WriteFileText(FFolder / "fremd.aff", rules);
    WriteFileText(FFolder / "fremd.dic", words);
    EXPECT_EQ(checker.MainDictionary.Load(), loads) << words;
  }
  EXPECT_THAT(checker.Mistakes(u"xyzzq"), IsEmpty());
  EXPECT_THAT(checker.Suggest("xyzzq"), IsEmpty());
}

TEST_F(SpellingTest, UserWordsAreReadAndAppendedInTheirOwnForm) {
  const auto path = FFolder / "User.dic";
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"", "Grünkraut", "Grünkraut\n"},
      {"qwrtz\r\n", "Grünkraut", "qwrtz\r\nGrünkraut\r\n"},
      {"\xEF\xBB\xBFqwrtz\nasdfx/N", "Grünkraut", "qwrtz\nasdfx/N\nGrünkraut\n"},
      {"1\nqw\xFCrtz\n", "Gr\u00FCnkraut", "2\nqw\xFCrtz\nGr\xFCnkraut\n"},
      {"qw\xFCrtz\n", "Kovač", "qwürtz\nKovač\n"}};
  for (const auto& [before, word, after] : cases) {
    WriteFileText(path, before);
    TVantrelUserDictionary words;
    words.Path = path;
    EXPECT_TRUE(words.Load());
    EXPECT_FALSE(words.Knows(word));
    words.Add(word);
    words.Add(word);
    EXPECT_EQ(ReadFileText(path), after);
    ASSERT_TRUE(words.Load());
    for (const auto& known : {std::string(word), before[0] == '\0' ? std::string(word) : std::string("qwrtz")})
      EXPECT_EQ(words.Knows(known), known == word || std::string_view(before).find("qwrtz") != std::string_view::npos);
    EXPECT_FALSE(words.Knows("1"));
  }
  FChecker.UserDictionary.Path = path;
  WriteFileText(path, "qwrtz\nAsdfx\n");
  ASSERT_TRUE(FChecker.UserDictionary.Load());
  EXPECT_THAT(Mistakes("qwrtz Qwrtz Asdfx asdfx"), ElementsAre("asdfx"));
  FChecker.AddToUserDictionary("asdfx");
  EXPECT_THAT(Mistakes("asdfx"), IsEmpty());
}

TEST_F(SpellingTest, UserWordsGoBesideTheUsersDataWhereTheFolderForbidsIt) {
  TVantrelUserDictionary words;
  words.Path = FFolder / "fehlt/User.dic";
  EXPECT_FALSE(words.Load());
  EXPECT_NE(FileErrorOf([&] { words.Add("qwrtz"); }), 0u);
  EXPECT_TRUE(words.Knows("qwrtz"));
  words.OwnPath = FFolder / "eigene/daten/User.dic";
  words.Add("asdfx");
  EXPECT_EQ(ReadFileText(words.OwnPath), "asdfx\n");
  ASSERT_TRUE(words.Load());
  EXPECT_TRUE(words.Knows("asdfx"));
}

}  // namespace
