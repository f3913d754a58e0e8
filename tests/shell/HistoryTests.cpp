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

}  // namespace
