#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>

#include "StudentsViewFixture.h"

TEST_F(StudentsViewTest, GotoAndTheCurrentStudentFollowTheShownRows) {
  PutIntoClass({2, 5, 9}, 4711);
  Open();
  EXPECT_EQ(List().FocusedColumn(), Nachname);
  const struct { int Before, After; } nearest[] = {{0, 2}, {4, 5}, {6, 5}, {7, 9}, {11, 9}, {5, 5}};
  for (const auto& [before, after] : nearest) {
    List().LiftFilter();
    List().FocusRecord(before);
    Filter(4711);
    EXPECT_EQ(List().FocusedRecord(), after) << before;
    EXPECT_THAT(Title(), StartsWith(Student(after).ViewDisplayName()));
  }
  const std::tuple<void (TStudentsView::*)(), int, std::vector<bool>> moves[] = {
      {&TStudentsView::GotoFirst, 2, {false, false, true, true}},
      {&TStudentsView::GotoPrev, 2, {false, false, true, true}},
      {&TStudentsView::GotoNext, 5, {true, true, true, true}},
      {&TStudentsView::GotoNext, 9, {true, true, false, false}},
      {&TStudentsView::GotoNext, 9, {true, true, false, false}},
      {&TStudentsView::GotoPrev, 5, {true, true, true, true}},
      {&TStudentsView::GotoLast, 9, {true, true, false, false}}};
  for (const auto& [go, record, states] : moves) {
    (FView.get()->*go)();
    EXPECT_EQ(List().FocusedRecord(), record);
    EXPECT_THAT(Title(), StartsWith(Student(record).ViewDisplayName()));
    EXPECT_EQ(GotoStates(), states);
  }
  List().LiftFilter();
  EXPECT_EQ(GotoStates(), (std::vector{true, true, true, true}));
  EXPECT_TRUE(FBoxes.Texts.empty());
}

TEST_F(StudentsViewTest, WithNobodyShownNothingCanBeDone) {
  Open();
  List().FocusRecord(3);
  Filter(4712);
  EXPECT_EQ(Title(), "Kein Schüler entspricht dem Filter");
  EXPECT_EQ(GotoStates(), (std::vector{false, false, false, false}));
  EXPECT_FALSE(FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  EXPECT_FALSE(FWindow.findChild<QTabWidget*>()->isEnabled());
  EXPECT_EQ(Grid().RecordCount(), 0);
  EXPECT_EQ(Grid().Columns().size(), 34U);
  EXPECT_EQ(FUi->Achievements().Status().Value().AsText(), "Anzahl: 0");
  FLookups.BeforeLoad();
  QTest::keyClick(&FWindow, Qt::Key_F6);
  EXPECT_FALSE(List().View().hasFocus());
  List().SetFocus();
  QTest::keyClick(&List().View(), Qt::Key_Escape);
  EXPECT_EQ(List().FocusedRecord(), 3);
  EXPECT_THAT(Title(), StartsWith(Student(3).ViewDisplayName()));
  EXPECT_TRUE(FWindow.findChild<QTabWidget*>()->isEnabled());
  EXPECT_EQ(GotoStates(), (std::vector{true, true, true, true}));
}

TEST_F(StudentsViewTest, AFilterIsToldLiftedAndNotKept) {
  PutIntoClass({2, 5, 9}, 4711);
  Open();
  EXPECT_EQ(LiftButton(), nullptr);
  const auto told = [this] {
    QStringList texts;
    for (const auto* label : FWindow.findChildren<QLabel*>())
      if (label->isVisible()) texts << label->text();
    return texts.contains("Filter: Klasse: 9a, 3 von 12");
  };
  for (const bool byKey : {true, false}) {
    Filter(4711);
    EXPECT_TRUE(told());
    ASSERT_NE(LiftButton(), nullptr);
    if (byKey)
      QTest::keyClick(&List().View(), Qt::Key_Escape);
    else
      LiftButton()->click();
    EXPECT_FALSE(told());
    EXPECT_EQ(LiftButton(), nullptr);
    EXPECT_EQ(List().ShownRows().size(), 12U);
  }
  Filter(4711);
  const auto path = FView->StoragePath();
  FView.reset();
  const auto key = FSettings.KeyOf(path);
  auto layout = FSettings.ReadString(key, "Layout", {});
  EXPECT_THAT(layout, Not(HasSubstr("9a")));
  layout.replace(layout.rfind('}'), 1,
                 R"(,"filter":{"active":true,"items":[{"id":"col_Students_Vorname","value":"Uwe","text":"Uwe"}]}})");
  FSettings.WriteString(key, "Layout", layout);
  Open();
  EXPECT_EQ(List().ShownRows().size(), 12U);
  EXPECT_EQ(LiftButton(), nullptr);
}

TEST_F(StudentsViewTest, TheNextStudentKeepsTheSubject) {
  Open();
  FView->GotoLast();
  EXPECT_EQ(Focus(), std::pair(0, +Note1));
  FView->GotoFirst();
  Grid().SetFocus();
  for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right}) QTest::keyClick(&Grid().View(), key);
  ASSERT_EQ(Subject(), 3);
  const auto place = [this] { return std::pair(Subject(), Grid().FocusedColumn()); };
  FView->GotoNext();
  EXPECT_EQ(Focus(), std::pair(0, +Kurs));
  QTest::keyClick(&Grid().View(), '1');
  EXPECT_FALSE(Grid().IsEditing() || FProject->Modified());
  FView->GotoNext();
  EXPECT_EQ(place(), std::pair(3, +Note2));
  EXPECT_THAT(Title(), StartsWith(Student(2).ViewDisplayName() + " - "));
  QTest::keyClick(&Grid().View(), Qt::Key_Down);
  FView->GotoNext();
  EXPECT_EQ(place(), std::pair(4, +Note2));
  QTest::keyClick(&Grid().View(), Qt::Key_F4);
  EXPECT_TRUE(Grid().IsEditing());
  FView->GotoFirst();
  EXPECT_TRUE(Grid().View().hasFocus());
  EXPECT_EQ(place(), std::pair(4, +Note2));
}

TEST_F(StudentsViewTest, WorkInTheFirstCellChoosesItsSubject) {
  Open();
  Grid().SetFocus();
  QTest::keyClick(&Grid().View(), Qt::Key_Alt);
  FView->GotoNext();
  EXPECT_EQ(Grid().FocusedRecord(), 0);
  FView->GotoFirst();
  QTest::keyClick(&Grid().View(), Qt::Key_Delete);
  FView->GotoNext();
  EXPECT_EQ(Subject(), 1);
  EXPECT_EQ(Grid().FocusedRecord(), 4);

  // A course without a subject is like no other.
  QTest::keyClick(&Grid().View(), Qt::Key_Up);
  Course(3).SubjectId.SetNull();
  FProject->CoursesByStudent(Student(2).TessaronId.Value)->GetItem(2)->SubjectId.SetNull();
  FView->GotoNext();
  EXPECT_EQ(Focus(), std::pair(0, +Kurs));
}

TEST_F(StudentsViewTest, AssessmentsTakeTheRoomThatIsLeft) {
  ShowOnly({"Note1", "Beurteilung"});
  Open();
  auto* header = Grid().View().horizontalHeader();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(header->length(), Grid().View().viewport()->width());
    FView->GotoNext();
  }
  header->resizeSection(Beurteilung, 100);
  FView->GotoNext();
  EXPECT_EQ(header->sectionSize(Beurteilung), 100);
  EXPECT_TRUE(Grid().Columns()[0].Frozen && Grid().Columns()[1].Frozen && !Grid().Columns()[2].Frozen);
}

TEST_F(StudentsViewTest, AStudentWithoutANumberShowsNoOthersCourses) {
  Student(1).TessaronId.SetNull();
  Open();
  FView->GotoNext();
  EXPECT_EQ(Title(), "Fachdaten nach Schüler");
  EXPECT_EQ(Grid().RecordCount(), 0);
  EXPECT_EQ(Grid().Columns().size(), 34U);
  EXPECT_FALSE(FWindow.findChild<QTabWidget*>()->isEnabled() || FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  FView->GotoNext();
  EXPECT_THAT(Title(), StartsWith(Student(2).ViewDisplayName()));
}

TEST_F(StudentsViewTest, ACourseWithoutAStudentIsNoObstacle) {
  const auto courses = FProject->CoursesByStudent(Student(1).TessaronId.Value);
  courses->GetItem(2)->Student = nullptr;
  Open();
  EXPECT_EQ(Grid().RecordCount(), 5);
  FView->GotoNext();
  EXPECT_EQ(Grid().RecordCount(), 4);
  EXPECT_TRUE(FBoxes.Texts.empty());
}

TEST_F(StudentsViewTest, AnEntryTakenBackLeavesTheProjectAsItWas) {
  const TempFolder folder;
  Open();
  Grid().SetFocus();
  const std::tuple<bool, bool, bool> cases[] = {{false, false, false}, {true, false, true}, {false, true, true}};
  for (const auto& [modified, saved, expected] : cases) {
    bool told = false;
    FProject->CoursesByStudent(Student(0).TessaronId.Value)->GetItem(0)->Note1Id.SetNull();
    FProject->SetModified(modified);
    FProject->OnModified = [&] { told = FProject->Modified(); };
    QTest::keyClick(&Grid().View(), '1');
    EXPECT_TRUE(told);
    if (saved) FProject->SaveFile(folder / "a.kvrxr");
    QTest::keyClick(Grid().View().indexWidget(Grid().View().currentIndex()), Qt::Key_Escape);
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(FProject->Modified(), expected);
    EXPECT_EQ(told, expected);
    FProject->OnModified = nullptr;
  }
}
