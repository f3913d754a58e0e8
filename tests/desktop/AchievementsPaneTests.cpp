#include <QSignalSpy>
#include <optional>

#include "HostedPanel.h"
#include "StudentsViewFixture.h"
#include "uStudentsList.h"

namespace {

const TVariant& StudentOf(const TCourse& course) {
  return course.Student->TessaronId.Value;
}

TEST_F(StudentsViewTest, ThePaneServesTheCoursesOfOneSubjectToo) {
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtPoints);
  Student(1).ClassId.SetAsInt(4711);
  bool mayEdit = false;
  {
    std::optional<TAchievementsPane> pane;
    std::optional<THostedPanel> host;
    TDesktopGridPane ui("", TPaneButton::Fit);
    host.emplace(FWindow, &ui.Panel()).SetVisible(true);
    pane.emplace(ui, FLookups.OfOpen(),
                 TAchievementsSettings{.Grid = TCourseGrid::Subjects,
                                       .MovesByCells = false,
                                       .SortsByCase = true,
                                       .FitsColumns = true,
                                       .KeptBy = StudentOf,
                                       .GradesFollowRow = true});
    pane->MayEdit = [&] { return mayEdit; };
    pane->AcceptedGradeTypes = [&]() -> std::vector<TGradeTypes> {
      const auto* course = pane->FocusedCourse();
      const auto* own = course == nullptr ? nullptr : FProject->Classes().Find(course->Student->ClassId.Value);
      return own == nullptr ? std::vector<TGradeTypes>() : std::vector{own->GradeType(), TGradeTypes::gtFill};
    };
    auto& grid = ui.DesktopGrid();
    EXPECT_FALSE(grid.Options().TabMovesCells || grid.Options().RowIndicator || !grid.Options().CaseSensitive);
    const auto show = [&](int subject) {
      pane->Show(std::make_unique<TSubjectCoursesSource>(FProject->CoursesBySubject(subject)), false);
      pane->FocusWork();
    };
    show(1);
    EXPECT_EQ(ui.Status().Value().AsText(), "Anzahl: 12");
    const auto focus = [&](const TStudent& student) {
      for (grid.GotoFirst(); pane->FocusedCourse()->Student != &student && grid.CanGotoNext();) grid.GotoNext();
    };
    focus(Student(0));
    EXPECT_THAT(OfferedTypes(), ElementsAre(1, 2));
    focus(Student(1));
    EXPECT_THAT(OfferedTypes(), ElementsAre(0, 1, 2));

    const int note = TCourseColumns::Of(TCourseGrid::Subjects).OrdinalOf("note1");
    EXPECT_FALSE(TypeInto(grid, note, FirstToken()));
    mayEdit = true;
    focus(Student(1));
    QSignalSpy changed(grid.View().model(), &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(TypeInto(grid, note, FirstToken()));
    EXPECT_EQ(pane->FocusedCourse()->Note1Id.Value, FLookups.OfOpen().Grades.ValueAt(0, 0));
    pane->PostEdit();
    QTest::keyClick(grid.View().indexWidget(grid.View().currentIndex()), Qt::Key_Tab);
    changed.clear();
    grid.FocusColumn(note);
    QTest::keyClick(&grid.View(), Qt::Key_Delete);
    EXPECT_TRUE(pane->FocusedCourse()->Note1Id.IsNull());
    EXPECT_EQ(changed.count(), 1);
    changed.clear();
    auto* course = FProject->CoursesBySubject(1)->GetItem(7);
    FProject->ChangeField(*course, "Beurteilung", "sehr gut");
    FProject->ChangeField(Student(0), "Abschluss1", "HS");
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.front().front().toModelIndex().row(), 7);

    show(2);
    EXPECT_EQ(pane->FocusedCourse()->Student, &Student(1));
    EXPECT_EQ(grid.FocusedColumn(), note);
    grid.SetColumnWidth(note, 300);
    ui.OnFit = [&] { pane->Fit(); };
    ui.OnFit();
    EXPECT_LT(grid.Columns()[note].Width, 300);
  }
  EXPECT_FALSE(FLookups.OfOpen().Grades.Filtered());
  FLookups.OfOpen().Grades.SetFiltered(false);
}

TEST_F(StudentsViewTest, AChangeFromElsewhereReachesTheOpenEditor) {
  const std::tuple<bool, Qt::Key, const char*, const char*> cases[] = {{false, Qt::Key_Escape, "neu", "neu"},
                                                                       {false, Qt::Key_Tab, "neu", "neu"},
                                                                       {true, Qt::Key_Escape, "altx", "neu"},
                                                                       {true, Qt::Key_Tab, "altx", "altx"}};
  for (const auto& [types, end, shown, stored] : cases) {
    Open();
    auto& course = Course(0);
    course.Beurteilung = "alt";
    Grid().FocusColumn(Beurteilung);
    QTest::keyClick(&Grid().View(), Qt::Key_F2);
    auto* editor = Grid().View().indexWidget(Grid().View().currentIndex());
    ASSERT_NE(editor, nullptr);
    if (types) QTest::keyClick(editor, 'x');
    FProject->ChangeField(course, "Beurteilung", "neu");
    EXPECT_EQ(editor->property("plainText").toString().toStdString(), shown);
    QTest::keyClick(editor, end);
    EXPECT_EQ(course.Beurteilung, stored);
  }
}

TEST_F(StudentsViewTest, TheListTellsWhomItsLayoutHasPutFirst) {
  Open();
  List().SortBy(Nachname, TGridSortOrder::Ascending, false);
  const auto layout = List().Layout();
  FView.reset();
  std::unique_ptr<QWidget> panel;
  std::optional<TListPane> kept;
  TDesktopGridPane ui("", TPaneButton::None);
  panel.reset(&ui.Panel());
  auto& pane = kept.emplace(ui, StudentsList());
  pane.Fill([](auto& table) { CurrentProject->Students().Populate(table); });
  const auto first = pane.FocusedValue();
  std::vector<TVariant> told;
  pane.OnChange = [&](TListChange change) {
    if (change == TListChange::Record) told.push_back(pane.FocusedValue());
  };
  pane.RestoreLayout(layout);
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told.front(), first);
}

}  // namespace
