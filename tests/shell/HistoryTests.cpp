#include "MainFormFixture.h"

namespace {

using testing::HasSubstr;

TEST_F(MainFormTest, WhatWasEnteredIsTakenBackWhereItStands) {
  Start({FFolder / "small.kvrx"});
  auto& undo = FForm->Commands().UndoCommand;
  auto& redo = FForm->Commands().RedoCommand;
  EXPECT_FALSE(undo.Enabled() || redo.Enabled());
  TypeAssessment("Sie rechnet sicher.");
  auto& course = *CurrentProject->CoursesByStudent(CurrentProject->Students().GetItem(0)->TessaronId.Value)->GetItem(0);
  const auto before = course.Beurteilung;
  FForm->ShowView(TMyTessaronViews::viewWelcome, false);
  EXPECT_EQ(course.Beurteilung, "Sie rechnet sicher.");
  EXPECT_EQ(FWindow.Note, "Nicht gespeichert");
  EXPECT_THAT(undo.Hint(), HasSubstr(course.SubjectName + " zurücknehmen"));

  undo.Execute();
  EXPECT_EQ(course.Beurteilung, before);
  EXPECT_THAT(FWindow.Note, HasSubstr("Zurückgenommen: "));
  EXPECT_FALSE(CurrentProject->Modified() || undo.Enabled());
  ASSERT_NE(StudentsView, nullptr);
  EXPECT_EQ(Courses().FocusedColumn(), 15);
  redo.Execute();
  EXPECT_EQ(course.Beurteilung, "Sie rechnet sicher.");
  EXPECT_FALSE(redo.Enabled());
  EXPECT_EQ(Courses().DisplayText(Courses().FocusedRecord(), 15), "Sie rechnet sicher.");

  // Another file has another history.
  FForm->Commands().SaveFileCommand.Execute();
  undo.Execute();
  EXPECT_THAT(FWindow.Note, HasSubstr("Zurückgenommen: "));
  EXPECT_TRUE(CurrentProject->Modified());
  FBoxes.Answer = TVantrelMsgBoxResult::mbrNo;
  Open("empty.kvrx");
  EXPECT_FALSE(undo.Enabled() || redo.Enabled());
}

/// Entries that were never saved are offered at the next opening, until they are taken or refused.
TEST_F(MainFormTest, WhatWasNotSavedIsOfferedAgain) {
  FRecoveryFolder = FFolder / "state";
  const auto open = [&](TVantrelMsgBoxResult answer, const char* name) {
    FBoxes.Texts.clear();
    FBoxes.Answer = answer;
    Start({FFolder / name});
    FDialogs.FireTimers();
    return CurrentProject->CoursesByStudent(CurrentProject->Students().GetItem(0)->TessaronId.Value)
        ->GetItem(0)
        ->Beurteilung;
  };
  const auto before = open(TVantrelMsgBoxResult::mbrNo, "small.kvrx");
  EXPECT_TRUE(FBoxes.Texts.empty());
  TypeAssessment("Nie gespeichert");
  FForm.reset();
  std::filesystem::rename(FFolder / "small.kvrx", FFolder / "umbenannt.kvrx");

  EXPECT_EQ(open(TVantrelMsgBoxResult::mbrCancel, "umbenannt.kvrx"), before);
  EXPECT_THAT(FBoxes.Texts, testing::ElementsAre(HasSubstr("nicht gespeichert wurden: 1 (begonnen heute, ")));
  EXPECT_EQ(open(TVantrelMsgBoxResult::mbrYes, "umbenannt.kvrx"), "Nie gespeichert");
  EXPECT_TRUE(CurrentProject->Modified() && FForm->Commands().UndoCommand.Enabled());
  // Once more lost, and then refused.
  EXPECT_EQ(open(TVantrelMsgBoxResult::mbrNo, "umbenannt.kvrx"), before);
  EXPECT_EQ(FBoxes.Texts.size(), 1U);
  EXPECT_EQ(open(TVantrelMsgBoxResult::mbrYes, "umbenannt.kvrx"), before);
  EXPECT_TRUE(FBoxes.Texts.empty());
  // What is saved, or taken back, leaves nothing.
  TypeAssessment("Gespeichert");
  FForm->Commands().SaveFileCommand.Execute();
  EXPECT_EQ(open(TVantrelMsgBoxResult::mbrYes, "umbenannt.kvrx"), "Gespeichert");
  EXPECT_TRUE(FBoxes.Texts.empty());
}

}  // namespace
