#include "CentralTexts.h"
#include "CliFixture.h"
#include "CliTexts.h"
#include "FoundationTexts.h"
#include "ProjectTexts.h"
#include "SettingsTexts.h"
#include "StoredTexts.h"
#include "ToolkitTexts.h"
#include "VantrelFileStreams.h"
#include "VantrelI18n.h"
#include "VantrelResources.h"

namespace {
using TTextsTest = CliFixture;

/// Puts a sign before every text of a dictionary.
void Mark(const std::string& fileName) {
  auto text = ReadFileText(fileName);
  for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) {
    const auto equals = text.find('=', at);
    if (equals != std::string::npos) text.insert(equals + 1, "*");
  }
  WriteFileText(fileName, text);
}

TEST_F(TTextsTest, EveryTextComesBackTranslated) {
  const auto dictionary = FFolder / "texte.ini";
  ASSERT_EQ(Run({"texts", dictionary}), 0);
  Mark(dictionary);
  I18nManager().LoadStrings(dictionary);
  TVantrelFileStream program(CLI_PROGRAM, TVantrelFileAccessMode::famShareDenyWrite, TVantrelFileOpenMode::fomOpenRead);
  const auto table = TVantrelResourceReader(program).ReadStringTable();
  EXPECT_EQ(Out(), fmt::format("„{}“ enthält nun alle {} Texte des Programms.\n", dictionary, table.Count()));
  for (const auto& [identifier, text] : table) {
    const auto stored = TVantrelI18nManager::UnEscapeString(TVantrelI18nManager::EscapeString(text));
    EXPECT_EQ(ResourceText(text), "*" + stored) << identifier;
  }
  // One text of each folder, one of an array and one of a table among them.
  for (const char* text :
       {FoundationTexts::AccessDenied, FoundationTexts::VariantKinds[2], ToolkitTexts::MsgBoxError,
        StoredTexts::NoClassName, SettingsTexts::NoWriteAccess, CentralTexts::AdminOnly, ProjectTexts::OrdinalNotFound,
        "Anzahl: {}", "Keine Projektdatei geladen.", "&Ja", ProjectTexts::Captions[0].Caption})
    EXPECT_TRUE(ResourceText(text).starts_with('*')) << text;
  EXPECT_EQ(ResourceText("Heftführung"), "Heftführung");
  EXPECT_EQ(Run({"info", FFolder / "fehlt.kvrx"}), 2);
  EXPECT_EQ(Err(), "*Die Datei \"" + (FFolder / "fehlt.kvrx") + "\" existiert nicht. Prüfen Sie Namen und Ordner.\n");
  I18nManager().ClearStrings();
}

TEST_F(TTextsTest, ADictionaryIsCompletedAndKeepsTheRest) {
  const auto file = FFolder / "texte.ini";
  const auto before = "; von mir\r\n[Anderes]\na=\xff\n[dictionary]\n; Titel\nDEADBEEF=C:\\\\neu\nBEEF0000=\n" +
                      fmt::format("{:x}=Oui", TVantrelI18nManager::GetStringHash("&Ja"));
  const std::string after = "\r\n[Ende]\nb=2";
  for (const auto& rest : {after, std::string()}) {
    WriteFileText(file, before + rest);
    // Another name of the bytes that a save in place would change.
    std::filesystem::create_hard_link(file, file + ".alt");
    EXPECT_EQ(Run({"texts", file}), 0);
    EXPECT_EQ(ReadFileText(file + ".alt"), before + rest);
    std::filesystem::remove(file + ".alt");
    const auto completed = ReadFileText(file);
    EXPECT_TRUE(completed.starts_with(before + "\r\n") && completed.ends_with(rest));
    EXPECT_EQ(Run({"texts", file}), 0);
    EXPECT_EQ(ReadFileText(file), completed);
    TVantrelI18nManager dictionary;
    dictionary.LoadStrings(file);
    EXPECT_EQ(dictionary.Translate("&Ja"), "Oui");
    const auto key = TVantrelI18nManager::GetStringHash(CliTexts::NoDifference);
    EXPECT_THAT(completed, HasSubstr(fmt::format("\r\n{:08X}={}\r\n", key, CliTexts::NoDifference)));
  }
}
}  // namespace
