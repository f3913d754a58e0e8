#include <gmock/gmock.h>

#include "FakeViews.h"
#include "SampleProject.h"

namespace {

using testing::ElementsAre;
using enum TStudentsPage;

constexpr int Note1 = 8, Beurteilung = 15, Zusatznote9 = 28;

class StudentsViewTest : public SampleProjectTest {
 protected:
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FLookups = CreateLookupModule(*FProject);
    FFrame.EditAssessment = [this](const std::string&, const std::string&) { return FAssessment; };
    FFrame.ExportGrid = [](TVantrelGrid&) {};
    for (const char* name : {"Note1", "Note2", "Beurteilung"}) {
      auto* column = FProject->Options().Columns().Find(name);
      if (column == nullptr) column = FProject->Options().Columns().AddColumn(name, name, true, true, true, 0);
      column->Visible = column->Editable = true;
    }
  }
  void TearDown() override {
    FView.reset();
    EXPECT_EQ(StudentsView, nullptr);
    SampleProjectTest::TearDown();
  }

  TVantrelCommand& Command() { return FCommands.Add({}); }
  void Open() {
    FView.reset();
    FView = CreateVantrel<TStudentsView>(FFrame, std::make_unique<FakeStudentsUi>());
  }
  FakeStudentsUi& Ui() { return *FakeStudentsUi::Last; }
  FakeGrid& Grid() { return Ui().Courses; }
  TStudent& Student(int index) { return *FProject->Students().GetItem(index); }
  TCourse& Course(int row) {
    return *FProject->CoursesByStudent(Ui().List.Value(Ui().List.FocusedRecord(), 0))->GetItem(row);
  }
  std::vector<std::int32_t> OfferedTypes() {
    std::vector<std::int32_t> types;
    for (int i = 0; i < FLookups->Grades.RecordCount(); ++i)
      types.push_back(FLookups->Grades.ValueAt(i, 4).AsInteger());
    std::ranges::sort(types);
    types.erase(std::unique(types.begin(), types.end()), types.end());
    return types;
  }

  FakeBoxes FBoxes;
  FakeSettings FSettings;
  TVantrelCommands FCommands;
  std::optional<std::string> FAssessment;
  TViewFrame FFrame{FSettings, "10.2", Command(), Command(), Command(), Command(), Command(), Command(), {}, {}};
  TVantrelPtr<TLookupModule> FLookups;
  TVantrelPtr<TStudentsView> FView;
};

TEST_F(StudentsViewTest, ShowsTheFirstStudentAtOnce) {
  Open();
  EXPECT_EQ(StudentsView, FView.get());
  EXPECT_EQ(Ui().ListCount.Text(), "Anzahl: 12");
  EXPECT_EQ(Ui().CourseCount.Text(), "Anzahl: 5");
  EXPECT_EQ(Ui().VisiblePages, 1);
  EXPECT_EQ(Grid().Columns().size(), 34U);
  EXPECT_EQ(Grid().Column("col_student_course_note1").Caption,
            FProject->Options().Columns().Find("Note1")->Customname());
  EXPECT_EQ(Ui().Title.Text(), Student(0).ViewDisplayName() + " - " + Course(0).SubjectName);
  EXPECT_EQ(Ui().List.DisplayText(0, 1), FProject->Classes().Find(Student(0).ClassId.Value)->Token);
  EXPECT_EQ(Grid().Updates(), 0);
}

TEST_F(StudentsViewTest, GotoCommandsFollowThePlaceInTheList) {
  Open();
  const auto states = [&] {
    return std::vector{FFrame.GotoFirstCommand.Enabled(), FFrame.GotoPrevCommand.Enabled(),
                       FFrame.GotoNextCommand.Enabled(), FFrame.GotoLastCommand.Enabled()};
  };
  EXPECT_THAT(states(), ElementsAre(false, false, true, true));
  FView->GotoNext();
  EXPECT_THAT(states(), ElementsAre(true, true, true, true));
  EXPECT_EQ(Ui().Title.Text(), Student(1).ViewDisplayName() + " - " + Course(0).SubjectName);
  FView->GotoLast();
  EXPECT_THAT(states(), ElementsAre(true, true, false, false));
  EXPECT_THAT(Ui().List.Selected, ElementsAre(11));
}

TEST_F(StudentsViewTest, AGradeReachesTheCourseBeforeTheCellIsLeft) {
  Open();
  const auto grade = FProject->Noten().GetItem(3)->TessaronId;
  ASSERT_TRUE(Grid().Type(Note1, grade));
  EXPECT_EQ(Course(0).Note1Id.AsInt(), grade);
  EXPECT_TRUE(FProject->Modified());
  EXPECT_EQ(Grid().DisplayText(0, Note1), FProject->Noten().GetItem(3)->Token);
  Grid().Type(Note1, TVariant::Null());
  EXPECT_TRUE(Course(0).Note1Id.IsNull());

  FProject->Options().Columns().Find("Note1")->Editable = false;
  Open();
  EXPECT_FALSE(Grid().Type(Note1, grade));
  EXPECT_FALSE(Grid().Type(0, "Kurs"));
}

TEST_F(StudentsViewTest, WithoutAVisibleGradeColumnAnEditWaitsForTheNextStudent) {
  for (int i = 0; i < FProject->Options().Columns().Count(); ++i) {
    auto* column = FProject->Options().Columns().GetItem(i);
    column->Visible = column->Fieldname == "Beurteilung" || column->Fieldname == "Zusatznote7";
  }
  Open();
  auto& course = Course(0);
  ASSERT_TRUE(Grid().Type(Beurteilung, "fleißig"));
  EXPECT_FALSE(FProject->Modified());
  FView->GotoNext();
  EXPECT_EQ(course.Beurteilung, "fleißig");
}

TEST_F(StudentsViewTest, EnterGoesDownInGradeColumnsOnly) {
  Open();
  for (int ordinal = 0; ordinal < 34; ++ordinal) {
    const bool isGrade = (ordinal >= 8 && ordinal <= 14) || (ordinal >= 20 && ordinal <= 29);
    EXPECT_EQ(Grid().Press(ordinal, TGridKey::Enter), isGrade ? TGridKeyAction::MoveDown : TGridKeyAction::Pass);
  }
  EXPECT_EQ(Grid().FocusedRecord(), 4);
  EXPECT_EQ(Grid().Press(Note1, TGridKey::Tab), TGridKeyAction::Pass);
}

TEST_F(StudentsViewTest, GradeListsOfferTheTypesOfClassAndPage) {
  auto& schoolClass = *FProject->Classes().Find(Student(0).ClassId.Value);
  schoolClass.SetGradeType(TGradeTypes::gtPoints);
  Open();
  EXPECT_THAT(OfferedTypes(), ElementsAre(1, 2));
  Ui().Turn(CertificateDataSheet);
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 2));
  EXPECT_FALSE(FFrame.ExportToExcelCommand.Enabled() || FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  Ui().Turn(AchievementSheet);
  EXPECT_THAT(OfferedTypes(), ElementsAre(1, 2));
  EXPECT_TRUE(FFrame.ExportToExcelCommand.Enabled() && FFrame.EditZeugnisbeurteilungenCommand.Enabled());
  Student(0).ClassId.SetAsInt(4711);
  FView->GotoNext();
  FView->GotoFirst();
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 1, 2));
  FView.reset();
  EXPECT_FALSE(FLookups->Grades.Filtered());
}

TEST_F(StudentsViewTest, TheFirstStudentsLayoutStaysForTheLifeOfTheView) {
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtFill);
  Student(1).ClassId.SetAsInt(4711);
  Open();
  const auto fill =
      ElementsAre("col_student_course_token", "col_student_course_position", "col_student_course_beurteilung");
  EXPECT_THAT(Grid().ShownIds(), fill);
  Grid().SetColumnWidth(Beurteilung, 333);
  Grid().SetColumnSort(Beurteilung, TGridSortOrder::Descending, 0);
  Grid().GroupColumn(1, 0);
  Grid().Filter = "something";
  FView->GotoNext();
  EXPECT_THAT(Grid().ShownIds(), fill);
  const auto& column = Grid().Columns()[Beurteilung];
  EXPECT_EQ(column.Width, 333);
  EXPECT_EQ(column.SortOrder, TGridSortOrder::Descending);
  EXPECT_EQ(Grid().Columns()[1].GroupIndex, -1);
  EXPECT_EQ(Grid().Filter, "");
  Open();
  EXPECT_EQ(Grid().Columns()[Beurteilung].Width, 100);
}

TEST_F(StudentsViewTest, AFieldWithoutAColumnIsHiddenAndNotOffered) {
  auto& columns = FProject->Options().Columns();
  columns.Remove(columns.Find("Position"));
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtFill);
  Open();
  const auto& position = Grid().Column("col_student_course_position");
  EXPECT_FALSE(position.Visible || position.InChooser);
}

TEST_F(StudentsViewTest, LivesWithoutItsLookupModule) {
  Open();
  const auto& grade = *FProject->Noten().GetItem(3);
  Grid().Type(Note1, grade.TessaronId);
  auto other = CreateVantrel<TMyTessaronProject>();
  FLookups.reset();
  for (const bool foreign : {false, true}) {
    if (foreign) FLookups = CreateLookupModule(*other);
    EXPECT_EQ(Grid().DisplayText(0, Note1), grade.Token);
    FView->GotoNext();
    EXPECT_TRUE(Grid().Type(Note1, grade.TessaronId));
    FView->GotoFirst();
    Open();
  }
  FLookups = nullptr;
  EXPECT_EQ(Grid().DisplayText(0, Note1), grade.Token);
}

TEST_F(StudentsViewTest, AssessmentComesBackFromItsDialog) {
  Open();
  FView->EditZeugnisbeurteilungen();
  EXPECT_FALSE(FProject->Modified());
  FAssessment = "sehr gut";
  FView->EditZeugnisbeurteilungen();
  EXPECT_EQ(Course(0).Beurteilung, "sehr gut");
  EXPECT_TRUE(FProject->Modified());
  EXPECT_EQ(Grid().Repaints, 1);
}

}  // namespace
