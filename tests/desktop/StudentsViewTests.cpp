#include <QSignalSpy>
#include <QTabWidget>
#include <algorithm>

#include "StudentsViewFixture.h"

using enum TStudentsPage;

TEST_F(StudentsViewTest, ShowsTheFirstStudentAtOnce) {
  Open();
  EXPECT_EQ(StudentsView, FView.get());
  EXPECT_EQ(FUi->Students().Status().Value().AsText(), "Anzahl: 12");
  EXPECT_EQ(FUi->Achievements().Status().Value().AsText(), "Anzahl: 5");
  EXPECT_EQ(Title(), Student(0).ViewDisplayName() + " - " + Course(0).SubjectName);
  const auto* pages = FWindow.findChild<QTabWidget*>();
  EXPECT_TRUE(pages->isTabVisible(0) && pages->isTabVisible(1) && pages->isTabVisible(2));
  QTest::keyClick(&Grid().View(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(pages->currentIndex(), 1);
  EXPECT_EQ(Grid().Columns().size(), 34U);
  EXPECT_EQ(Grid().Columns()[Note1].Caption, FProject->Options().Columns().Find("Note1")->Customname());
  EXPECT_EQ(List().DisplayText(0, 1), FProject->Classes().Find(Student(0).ClassId.Value)->Token);
}

TEST_F(StudentsViewTest, AGradeReachesTheCourseBeforeTheCellIsLeft) {
  Open();
  const auto token = FirstToken();
  ASSERT_TRUE(TypeInto(Grid(), Note1, token));
  EXPECT_EQ(Course(0).Note1Id.Value, FLookups.OfOpen().Grades.ValueAt(0, 0));
  EXPECT_TRUE(FProject->Modified());
  EXPECT_EQ(Grid().DisplayText(0, Note1), token);
  QTest::keyClick(Grid().View().indexWidget(Grid().View().currentIndex()), Qt::Key_Delete);
  EXPECT_TRUE(Course(0).Note1Id.IsNull());

  FProject->Options().Columns().Find("Note1")->Editable = false;
  Open();
  EXPECT_FALSE(TypeInto(Grid(), Note1, token));
  EXPECT_FALSE(TypeInto(Grid(), Kurs, "Kurs"));
}

TEST_F(StudentsViewTest, WithoutAVisibleGradeColumnAnEditWaitsForTheNextStudent) {
  ShowOnly({"Beurteilung", "Zusatznote7"});
  Open();
  auto& course = Course(0);
  ASSERT_TRUE(TypeInto(Grid(), Beurteilung, "fleissig"));
  EXPECT_FALSE(FProject->Modified());
  FView->GotoNext();
  EXPECT_EQ(course.Beurteilung, "fleissig");
}

TEST_F(StudentsViewTest, EnterGoesDownInGradeColumnsOnly) {
  Open();
  for (int ordinal = 0; ordinal < 34; ++ordinal) {
    const bool isGrade = (ordinal >= 8 && ordinal <= 14) || (ordinal >= 20 && ordinal <= 29);
    EXPECT_EQ(Grid().OnKeyDown(ordinal, TGridKey::Enter), isGrade ? TGridKeyAction::MoveDown : TGridKeyAction::Pass);
  }
  for (int key = 0; key < 6; ++key) QTest::keyClick(&Grid().View(), Qt::Key_Return);
  EXPECT_EQ(Focus(), std::pair(4, +Note1));
}

TEST_F(StudentsViewTest, GradeListsOfferTheTypesOfClassAndPage) {
  auto& schoolClass = *FProject->Classes().Find(Student(0).ClassId.Value);
  schoolClass.SetGradeType(TGradeTypes::gtPoints);
  Open();
  EXPECT_THAT(OfferedTypes(), ElementsAre(1, 2));
  Turn(CertificateDataSheet);
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 2));
  EXPECT_FALSE(FFrame.ExportToExcelCommand.Enabled() || FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  Turn(AchievementSheet);
  EXPECT_THAT(OfferedTypes(), ElementsAre(1, 2));
  EXPECT_TRUE(FFrame.ExportToExcelCommand.Enabled() && FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  Student(0).ClassId.SetAsInt(4711);
  FView->GotoNext();
  FView->GotoFirst();
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 1, 2));
  FView.reset();
  EXPECT_FALSE(FLookups.OfOpen().Grades.Filtered());
}

TEST_F(StudentsViewTest, TheFirstStudentsLayoutStaysForTheLifeOfTheView) {
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtFill);
  Student(1).ClassId.SetAsInt(4711);
  Open();
  const auto fill =
      ElementsAre("col_student_course_token", "col_student_course_position", "col_student_course_beurteilung");
  EXPECT_THAT(ShownIds(), fill);
  Grid().SetColumnWidth(Beurteilung, 333);
  Grid().SetColumnSort(Beurteilung, TGridSortOrder::Descending, 0);
  Grid().GroupColumn(1, 0);
  Grid().AddFilter(0, "nobody", "nobody");
  Grid().SetFilterActive(true);
  FView->GotoNext();
  EXPECT_THAT(ShownIds(), fill);
  const auto& column = Grid().Columns()[Beurteilung];
  EXPECT_EQ(column.Width, 333);
  EXPECT_EQ(column.SortOrder, TGridSortOrder::Descending);
  EXPECT_EQ(Grid().Columns()[1].GroupIndex, -1);
  EXPECT_EQ(Grid().ShownRows().size(), 5U);
  Open();
  EXPECT_EQ(Grid().Columns()[Beurteilung].Width, 100);
}

TEST_F(StudentsViewTest, AFieldWithoutAColumnIsHiddenAndNotOffered) {
  auto& columns = FProject->Options().Columns();
  columns.Remove(columns.Find("Position"));
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtFill);
  Open();
  const auto& position = Grid().Columns()[2];
  EXPECT_FALSE(position.Visible || position.InChooser);
}

TEST_F(StudentsViewTest, LivesWithoutItsLookupModule) {
  Open();
  const auto token = FirstToken();
  TypeInto(Grid(), Note1, token);
  auto other = CreateVantrel<TMyTessaronProject>();
  FLookups.BeforeLoad();
  for (const bool foreign : {false, true}) {
    if (foreign) FLookups.AfterLoad(*other);
    EXPECT_EQ(LookupModule == nullptr, !foreign);
    EXPECT_EQ(Grid().DisplayText(0, Note1), token);
    FView->GotoNext();
    EXPECT_TRUE(TypeInto(Grid(), Note1, token));
    FView->GotoFirst();
    Open();
  }
  FLookups.BeforeLoad();
  EXPECT_EQ(Grid().DisplayText(0, Note1), token);
}

TEST_F(StudentsViewTest, AssessmentComesBackFromItsDialog) {
  Open();
  FView->EditZeugnisbeurteilungen();
  EXPECT_FALSE(FProject->Modified());
  FAssessment = "sehr gut";
  QSignalSpy changed(Grid().View().model(), &QAbstractItemModel::dataChanged);
  QSignalSpy rebuilt(Grid().View().model(), &QAbstractItemModel::modelReset);
  FView->EditZeugnisbeurteilungen();
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.front().front().toModelIndex().row(), Grid().View().currentIndex().row());
  EXPECT_EQ(rebuilt.count(), 0);
  EXPECT_EQ(Course(0).Beurteilung, "sehr gut");
  EXPECT_TRUE(FProject->Modified());
}
