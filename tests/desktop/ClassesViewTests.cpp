#include "ListViewFixture.h"
#include "fClassesView.h"

namespace {

struct ClassesViewTest : ListViewTest {
  void Open() { Show<TClassesView>(); }
  std::vector<std::string> Captions() {
    return Collected(Grid().ShownColumns(), [this](int ordinal) { return Grid().Columns()[ordinal].Caption; });
  }
  std::string Cell(int record, const std::string& caption) {
    const auto& columns = Grid().Columns();
    const auto column = std::ranges::find(columns, caption, &TGridColumn::Caption);
    return column == columns.end() ? "-" : Grid().DisplayText(record, static_cast<int>(column - columns.begin()));
  }
};

TEST_F(ClassesViewTest, ShowsARowPerStudentAndAColumnPerSubject) {
  auto& courses = FProject->Courses();
  for (int i = 0; i < courses.Count(); ++i)
    if (courses.GetItem(i)->SubjectToken == "Bio") courses.GetItem(i)->SubjectToken = "Fr";
  Open();
  EXPECT_EQ(ClassesView, FView.get());
  EXPECT_THAT(ListTexts(1), ElementsAre("Q1", "2b", "5a", "12LK", "10c"));
  EXPECT_EQ(Title(), "Q1");
  EXPECT_EQ(FUi->List().Status().Value().AsText(), "Anzahl: 5");
  EXPECT_EQ(FUi->Achievements().Status().Value().AsText(), "Anzahl: 4");
  // Two subjects of one token have a column each.
  EXPECT_THAT(Captions(),
              ElementsAre("ID", "Vorname", "Nachname", "Geburtsdatum", "En", "Fr", "Ma", "Fr", "De", "Beurteilung"));
  const auto students = FProject->CoursesByClass(104);
  const auto& course = *students->GetItem(0);
  EXPECT_EQ(Cell(0, "Nachname"), course.Student->Nachname);
  EXPECT_EQ(Cell(0, course.SubjectToken), FProject->Noten().Find(course.Endnote1Id.AsInt())->Token);
  EXPECT_EQ(Cell(0, "Beurteilung"), course.Beurteilung);
  EXPECT_EQ(GotoStates(), (std::vector{false, false, true, true}));
  EXPECT_TRUE(FFrame.ExportToExcelCommand.Enabled());
  Grid().SetFocus();
  for (const QChar letter : QString::fromStdString(Cell(2, "Nachname")))
    QTest::sendKeyEvent(QTest::Press, &Grid().View(), Qt::Key_unknown, letter, {});
  EXPECT_EQ(Grid().FocusedRecord(), 2);
  EXPECT_FALSE(FFrame.EditZeugnisbeurteilungenCommand.Enabled() || TypeInto(Grid(), 4, "1"));
  EXPECT_EQ(Collected(Grid().Columns(), &TGridColumn::Frozen),
            (std::vector{true, true, true, false, false, false, false, false, false, false}));
  FView->GotoLast();
  EXPECT_EQ(Grid().FocusedRecord(), 3);
  EXPECT_EQ(GotoStates(), (std::vector{true, true, false, false}));
  List().FocusRecord(3);
  EXPECT_EQ(Title(), "12LK");
  EXPECT_EQ(GotoStates(), (std::vector{false, false, false, false}));
  EXPECT_FALSE(FProject->Modified());
  EXPECT_TRUE(FBoxes.Texts.empty());
}

TEST_F(ClassesViewTest, WithoutCoursesTheColumnsStay) {
  for (int i = 0; i < FProject->Courses().Count(); ++i) {
    auto& course = *FProject->Courses().GetItem(i);
    if (course.Student->ClassId.AsInt() != 100) course.Student = nullptr;
  }
  Open();
  EXPECT_THAT(Captions(), ElementsAre("ID", "Vorname", "Nachname", "Geburtsdatum", "Beurteilung"));
  EXPECT_EQ(Grid().RecordCount(), 0);
  List().FocusRecord(2);
  EXPECT_EQ(Captions().size(), 10U);
  EXPECT_EQ(Grid().RecordCount(), 3);
  FView->GotoNext();
  List().FocusRecord(4);
  EXPECT_EQ(Captions().size(), 10U);
  EXPECT_EQ(Grid().RecordCount(), 0);
  // A class that has gone leaves what was shown, and the list goes on.
  auto& classes = FProject->Classes();
  classes.Remove(classes.Find(101));
  List().FocusRecord(3);
  EXPECT_EQ(Title(), "Fachdaten nach Klassen");
  List().FocusRecord(2);
  EXPECT_EQ(Grid().RecordCount(), 3);
}

}  // namespace
