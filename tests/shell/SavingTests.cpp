#include "MainFormFixture.h"

namespace {

using enum TMyTessaronViews;

TEST_F(MainFormTest, WhatTheScreenShowsIsSaved) {
  Start();
  Open("small.kvrx");
  TypeAssessment("offen");
  auto& save = FForm->Commands().SaveFileCommand;
  EXPECT_TRUE(save.Enabled());
  EXPECT_FALSE(CurrentProject->Modified());
  save.Execute();
  EXPECT_FALSE(save.Enabled());
  EXPECT_THAT(FWindow.Note, testing::MatchesRegex("Gespeichert um [0-9][0-9]:[0-9][0-9] Uhr"));
  ASSERT_TRUE(Courses().IsEditing());
  TypeInto(Courses(), 15, "!");
  FForm->ShowView(viewWelcome, false);
  EXPECT_TRUE(save.Enabled());
  EXPECT_THAT(FWindow.Note, testing::MatchesRegex("Nicht gespeichert \\(zuletzt um .*"));
  FForm.reset();
  EXPECT_EQ(AssessmentIn(FFolder / "small.kvrx"), "offen");
}

TEST_F(MainFormTest, SavingUnderANameMakesItAKnownKind) {
  Start();
  Open("small.kvr7");
  SaveAs("");
  EXPECT_EQ(FDialogs.Last.FileName, FFolder / "small.kvr7");
  for (const auto& [chosen, saved] : {std::pair("neu", "neu.kvrx"),
                                      {"punkt.", "punkt.kvrx"},
                                      {"2. Halbjahr.kvrx.", "2. Halbjahr.kvrx"},
                                      {"Klasse 5a 12:30.kvrx", "Klasse 5a 12:30.kvrx"},
                                      {"a\\b.kvr7", "a\\b.kvr7"}}) {
    SaveAs(FFolder / chosen);
    EXPECT_EQ(FWindow.Status, FFolder / saved);
    EXPECT_TRUE(std::filesystem::exists(FFolder / saved));
  }
  EXPECT_THAT(RecentNames(), ElementsAre("small.kvr7"));
  EXPECT_THAT(FBoxes.Texts, IsEmpty());

  SaveAs(FFolder / "klasse.txt");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("klasse.txt")));
  SaveAs("/dev/null/neu.kvrx");
  EXPECT_THAT(FBoxes.Texts.back(), StartsWith("Fehler beim Speichern der Datei.\r\n"));
  EXPECT_EQ(FWindow.Status, FFolder / "a\\b.kvr7");
  EXPECT_EQ(OpeningErrorOf(FFolder / "a\\b.kvr7"), 32u);
}

TEST_F(MainFormTest, AFileThatIsNotTheOpenOneIsOverwrittenAfterAYes) {
  Start();
  Open("small.kvrx");
  SaveAs(FFolder / "small.kvrx");
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
  const auto before = ReadFileText(FFolder / "empty.kvrx");
  for (const char* chosen : {"empty.kvrx", "empty"}) SaveAs(FFolder / chosen);
  EXPECT_THAT(FBoxes.Texts, testing::Each(HasSubstr("„empty.kvrx“ ist bereits vorhanden")));
  EXPECT_EQ(FBoxes.Texts.size(), 2u);
  EXPECT_EQ(ReadFileText(FFolder / "empty.kvrx"), before);
  FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
  SaveAs(FFolder / "empty.kvrx");
  EXPECT_EQ(FWindow.Status, FFolder / "empty.kvrx");
  EXPECT_NE(ReadFileText(FFolder / "empty.kvrx"), before);

  FBoxes.Answer = TVantrelMsgBoxResult::mbrNo;
  FBoxes.Texts.clear();
  WriteFileText(FFolder / "sync", before);
  std::filesystem::rename(FFolder / "sync", FFolder / "empty.kvrx");
  SaveAs(FFolder / "empty.kvrx");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("„empty.kvrx“ ist bereits vorhanden")));
  EXPECT_EQ(ReadFileText(FFolder / "empty.kvrx"), before);
}

TEST_F(MainFormTest, AFileThatAnotherProgramChangedIsAskedAbout) {
  const std::tuple<TVantrelMsgBoxResult, bool, const char*> cases[] = {
      {TVantrelMsgBoxResult::mbrYes, false, "small.kvr7"},
      {TVantrelMsgBoxResult::mbrNo, false, "neu.kvr7"},
      {TVantrelMsgBoxResult::mbrCancel, false, nullptr},
      {TVantrelMsgBoxResult::mbrYes, true, "small.kvr7"}};
  const auto foreign = ReadFileText(FFolder / "empty.kvrx");
  const auto own = ReadFileText(FFolder / "small.kvr7");
  for (const auto& [answer, closes, holds] : cases) {
    SCOPED_TRACE(static_cast<int>(answer));
    WriteFileText(FFolder / "small.kvr7", own);
    Start();
    Open("small.kvr7");
    WriteFileText(FFolder / "sync", foreign);
    std::filesystem::rename(FFolder / "sync", FFolder / "small.kvr7");
    CurrentProject->Description = "Eingabe";
    CurrentProject->SetModified(true);
    FBoxes.Texts.clear();
    FBoxes.Answer = answer;
    FDialogs.FileName = FFolder / "neu.kvr7";
    auto& commands = FForm->Commands();
    (closes ? commands.CloseApplicationCommand : commands.SaveFileCommand).Execute();
    ASSERT_EQ(FBoxes.Texts.size(), closes ? 2u : 1u);
    EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("„small.kvr7“ seit dem Öffnen geändert oder ersetzt"));
    EXPECT_EQ(FBoxes.Texts.back().find("Abbrechen") == std::string::npos, closes);
    EXPECT_EQ(CurrentProject->Modified(), holds == nullptr);
    FForm.reset();
    const bool overwrites = answer == TVantrelMsgBoxResult::mbrYes;
    EXPECT_EQ(ReadFileText(FFolder / (overwrites ? "small.kvr7.andere" : "small.kvr7")), foreign);
    if (holds != nullptr) {
      auto project = ProjectIn(FFolder / holds);
      EXPECT_EQ(project->Description, "Eingabe");
    }
    std::filesystem::remove(FFolder / "small.kvr7.andere");
    EXPECT_EQ(std::filesystem::remove(FFolder / "neu.kvr7"), answer == TVantrelMsgBoxResult::mbrNo);
  }
}

TEST_F(MainFormTest, AtTheEndAChangedFileIsAskedAboutUntilTheEntriesAreSaved) {
  const auto own = ReadFileText(FFolder / "small.kvr7");
  WriteFileText(FFolder / "small (2).kvr7", own);
  for (const char* chosen : {"", "/dev/null/neu.kvr7"}) {
    WriteFileText(FFolder / "small.kvr7", own);
    Start();
    Open("small.kvr7");
    WriteFileText(FFolder / "sync", "foreign");
    std::filesystem::rename(FFolder / "sync", FFolder / "small.kvr7");
    CurrentProject->Description = "Eingabe";
    CurrentProject->SetModified(true);
    FBoxes.Texts.clear();
    FBoxes.FirstAnswers = {TVantrelMsgBoxResult::mbrYes, TVantrelMsgBoxResult::mbrNo};
    FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
    FDialogs.FileName = chosen;
    FForm->Commands().CloseApplicationCommand.Execute();
    EXPECT_EQ(FDialogs.Last.FileName, FFolder / "small (3).kvr7");
    EXPECT_EQ(FBoxes.Texts.size(), *chosen == 0 ? 3u : 4u);
    EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("„small.kvr7“ seit dem Öffnen geändert oder ersetzt"));
    EXPECT_FALSE(CurrentProject->Modified());
    FForm.reset();
    EXPECT_EQ(ReadFileText(FFolder / "small.kvr7.andere"), "foreign");
    auto project = ProjectIn(FFolder / "small.kvr7");
    EXPECT_EQ(project->Description, "Eingabe");
    std::filesystem::remove(FFolder / "small.kvr7.andere");
  }
}

}  // namespace
