#include "ElidedLabel.h"
#include "ListViewFixture.h"
#include "fSubjectsView.h"

namespace {

enum { Kurs, GradeType, Class = 6, Note1 = 14, Beurteilung = 21, VergesseneHA = 36, GradeTypeText = 40 };
const TVariant All = -1, Noten = 0, Punkte = 1, Texte = 2;

/// The subjects view on its real screen. Only Note1 of the grades is to be entered.
struct SubjectsViewTest : ListViewTest {
  void SetUp() override {
    ListViewTest::SetUp();
    auto& columns = FProject->Options().Columns();
    for (int i = 0; i < columns.Count(); ++i) {
      auto& column = *columns.GetItem(i);
      if (column.Fieldname.find("ote") != std::string::npos) column.Editable = column.Fieldname == "Note1";
    }
    columns.Find("VergesseneHA")->Visible = columns.Find("VergesseneHA")->Editable = true;
  }
  void TearDown() override {
    ListViewTest::TearDown();
    EXPECT_EQ(SubjectsView, nullptr);
  }

  void Open() { Show<TSubjectsView>(); }
  void Press(const TVariant& gradeType) { FView->UpdateFilter(gradeType, TVariant::Null()); }
  /// '\r' is Return.
  void Keys(const std::string& keys) {
    for (const char key : keys) QTest::keyClick(Keyboard(), key);
  }
  QWidget* Keyboard() {
    auto* editor = Grid().IsEditing() ? Grid().View().indexWidget(Grid().View().currentIndex()) : nullptr;
    return editor == nullptr ? &Grid().View() : editor;
  }
  TCourse& Course(int record) {
    return *FProject->CoursesBySubject(List().Value(List().FocusedRecord(), 0))->GetItem(record);
  }
  std::string Note() { return FUi->Achievements().Note().Value().AsText(); }
  std::string GradeOf(const TCourse& course) {
    const auto* grade = FProject->Noten().Find(course.Note1Id.AsInt());
    return grade == nullptr ? "" : grade->Token;
  }
};

TEST_F(SubjectsViewTest, NothingCanBeTypedUntilAGradeTypeIsChosen) {
  Open();
  EXPECT_EQ(SubjectsView, FView.get());
  EXPECT_THAT(ListTexts(1), ElementsAre("Fr", "En", "Ma", "De", "Bio"));
  EXPECT_EQ(FUi->List().Status().Value().AsText(), "Anzahl: 5");
  EXPECT_EQ(FUi->Achievements().Status().Value().AsText(), "Anzahl: 12");
  EXPECT_EQ(Title(), Course(0).SubjectName);
  EXPECT_EQ(Grid().Columns().size(), 41U);
  EXPECT_EQ(GotoStates(), (std::vector{false, false, true, true}));
  Grid().SetFocus();
  EXPECT_EQ(Grid().FocusedRecord(), -1);
  Keys("1");
  EXPECT_EQ(Title(), Course(0).RequireStudent().ViewDisplayName() + " - " + Course(0).SubjectName);
  EXPECT_EQ(Grid().FocusedColumn(), Note1);
  EXPECT_THAT(Note(), StartsWith("Zum Bearbeiten oben eine Beurteilungsart wählen."));
  EXPECT_FALSE(Grid().IsEditing() || FProject->Modified());
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 1, 2));
}
TEST_F(SubjectsViewTest, AGradeTypeFiltersUnlocksAndTakesTheKeyboard) {
  Open();
  Press(Noten);
  EXPECT_TRUE(Grid().View().hasFocus());
  EXPECT_EQ(Grid().FocusedRecord(), -1);
  EXPECT_THAT(Records(), ElementsAre(1, 4, 8, 10, 11));
  EXPECT_EQ(FUi->Achievements().Status().Value().AsText(), "Anzahl: 12");
  Keys("1\r2\r");
  EXPECT_EQ(GradeOf(Course(1)) + GradeOf(Course(4)), "12");
  EXPECT_EQ(Focus(), std::pair(8, +Note1));
  EXPECT_EQ(Grid().OnKeyDown(Beurteilung, TGridKey::Enter), TGridKeyAction::Pass);
  EXPECT_TRUE(FProject->Modified());
  EXPECT_THAT(OfferedTypes(), ElementsAre(0, 2));
  Press(Noten);
  EXPECT_EQ(Grid().FocusedRecord(), 8);

  const std::tuple<TVariant, std::vector<int>, std::vector<std::int32_t>> presses[] = {
      {Punkte, {0, 2, 3, 5, 7}, {1, 2}},
      {Texte, {6, 9}, {2}},
      {All, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, {0, 1, 2}},
      {5, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, {2}}};
  for (const auto& [type, records, offered] : presses) {
    Press(type);
    EXPECT_EQ(Records(), records);
    QTest::keyClick(&Grid().View(), Qt::Key_Home);
    EXPECT_EQ(OfferedTypes(), offered);
    EXPECT_EQ(Grid().OnEditing(Note1), type != All);
  }
  FView->UpdateFilter(All, "12LK");
  EXPECT_EQ(Records().size(), 12U);
  FView->UpdateFilter(Punkte, "12LK");
  EXPECT_THAT(Records(), ElementsAre(0));
}

TEST_F(SubjectsViewTest, WhereTheFirstKeyBegins) {
  const auto start = [this](const TVariant& type, const char* keys) {
    Press(type);
    Keys(keys);
    return Focus();
  };
  FProject->Options().Columns().Find("Zusatznote1")->Editable = true;
  Open();
  EXPECT_EQ(start(Texte, "n"), std::pair(6, +Note1));
  TypeInto(Grid(), 26, "t");
  Keys("\r");
  FView->GotoNext();
  EXPECT_EQ(Title(), Course(0).SubjectName);
  EXPECT_EQ(start(Noten, "2").second, 26);
  EXPECT_TRUE(Grid().IsEditing());
  FView->GotoFirst();
  QTest::keyClick(&Grid().View(), Qt::Key_Down);
  EXPECT_EQ(Grid().FocusedRecord(), 1);
  // The focused row goes with its type, and nobody gets an entry that was meant for it.
  EXPECT_EQ(start(Punkte, "").first, -1);
}

TEST_F(SubjectsViewTest, FilterAndLayoutStayOverSubjectsAndTheUsersOwnFilterOverTypes) {
  Open();
  Press(Noten);
  EXPECT_EQ(LiftButton(), nullptr);
  EXPECT_TRUE(std::ranges::any_of(FWindow.findChildren<QLabel*>(), [](QLabel* label) {
    const auto* line = dynamic_cast<TElidedLabel*>(label);
    return line != nullptr && line->isVisible() && line->ShownText() == "Gefiltert nach Noten, 5 von 12";
  }));
  Grid().FilterByUser(Class, "10c", "Klasse: 10c");
  EXPECT_THAT(Records(), ElementsAre(1, 8));
  Press(Punkte);
  EXPECT_THAT(Records(), IsEmpty());
  Press(Noten);
  ASSERT_NE(LiftButton(), nullptr);
  LiftButton()->click();
  EXPECT_THAT(Records(), ElementsAre(1, 4, 8, 10, 11));
  Grid().ShowColumn(Class, false);
  Grid().SetColumnSort(Note1, TGridSortOrder::Descending, 0);
  FView->GotoNext();
  EXPECT_EQ(Records().size(), 5U);
  EXPECT_EQ(Grid().FocusedRecord(), -1);
  EXPECT_FALSE(Grid().Columns()[Class].Visible);
  EXPECT_EQ(Grid().Columns()[Note1].SortOrder, TGridSortOrder::Descending);
  List().ClickHeader(1, false);
  Open();
  EXPECT_THAT(ListTexts(1), ElementsAre("Bio", "De", "En", "Fr", "Ma"));
  EXPECT_EQ(Title(), Course(0).SubjectName);
  EXPECT_EQ(Course(0).SubjectToken, "Bio");
  EXPECT_FALSE(Grid().OnEditing(Note1));
}

TEST_F(SubjectsViewTest, AStudentOfAnUnknownClassIsShownAndFailsEveryFilter) {
  Open();
  Course(0).RequireStudent().ClassId.SetAsInt(4711);
  Open();
  for (const int ordinal : {+GradeType, +Class, +GradeTypeText}) {
    EXPECT_TRUE(Grid().Value(0, ordinal).IsNull());
    EXPECT_EQ(Grid().DisplayText(0, ordinal), "");
  }
  Grid().FocusRecord(0);
  for (const auto& type : {Noten, Punkte, Texte}) {
    Press(type);
    EXPECT_THAT(Records(), testing::Not(testing::Contains(0)));
  }
}

TEST_F(SubjectsViewTest, OpenEditsArePostedFirst) {
  ShowOnly({"Beurteilung", "VergesseneHA"});
  Open();
  const std::function<void()> changes[] = {[&] { Press(Noten); }, [&] { FView->UpdateContent(); },
                                           [&] { FView->ExportToExcel(); }};
  for (const auto& change : changes) {
    Press(Texte);
    Grid().FocusRecord(6);
    Course(6).Beurteilung = "";
    ASSERT_TRUE(TypeInto(Grid(), Beurteilung, "ok"));
    EXPECT_EQ(Course(6).Beurteilung, "");
    change();
    EXPECT_EQ(Course(6).Beurteilung, "ok");
  }
  Grid().FocusRecord(9);
  TypeInto(Grid(), VergesseneHA, "abc12");
  FView->PostEdits();
  EXPECT_EQ(Course(9).VergesseneHA.Value, TVariant(12));
}

TEST_F(SubjectsViewTest, WhatGoesWrongAtTheBeginningIsTold) {
  const auto id = std::exchange(FProject->Courses().GetItem(3)->SubjectId.Value, "abc");
  Open();
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("abc")));
  // The list goes on.
  FProject->Courses().GetItem(3)->SubjectId.Value = id;
  List().FocusRecord(0);
  EXPECT_EQ(Title(), Course(0).SubjectName);
  EXPECT_GT(Grid().RecordCount(), 0);
}

TEST_F(SubjectsViewTest, TheListCountsOpenGradesAndF8GoesThroughThem) {
  const auto go = [this] {
    FView->GotoOpenGrade();
    return List().DisplayText(List().FocusedRecord(), 1) + " " + std::to_string(Grid().FocusedRecord());
  };
  Open();
  EXPECT_THAT(ListTexts(3), ElementsAre("5", "4", "4", "4", "5"));
  go();
  EXPECT_THAT(FBoxes.Texts, ElementsAre("Zum Bearbeiten oben eine Beurteilungsart wählen."));
  Press(Noten);
  EXPECT_THAT(ListTexts(3), ElementsAre("2", "1", "2", "2", "2"));
  EXPECT_EQ(go(), "Fr 1");
  Grid().ShowColumn(Note1, false);
  EXPECT_EQ(go(), "Fr 1");
  EXPECT_EQ(go(), "Fr 11");
  EXPECT_TRUE(Grid().View().hasFocus() && Grid().Columns()[Note1].Visible);
  Keys("1\r");
  EXPECT_THAT(ListTexts(3), ElementsAre("1", "1", "2", "2", "2"));
  // Changes from elsewhere: one by one, and several that are told at their end.
  auto &open = Course(1), &typed = Course(11);
  const auto here = open.SubjectId.Value, other = List().Value(List().ShownRows()[1].Record, 0);
  FProject->ChangeField(typed, "Note1ID", TVariant::Null());
  EXPECT_THAT(ListTexts(3), ElementsAre("2", "1", "2", "2", "2"));
  {
    const TJoinedChanges joined(*FProject);
    FProject->ChangeField(typed, "Note1ID", 1);
    FProject->ChangeField(open, "SubjectId", other);
    EXPECT_THAT(ListTexts(3), ElementsAre("2", "1", "2", "2", "2"));
  }
  EXPECT_THAT(ListTexts(3), ElementsAre("", "2", "2", "2", "2"));
  FProject->ChangeField(open, "SubjectId", here);
  EXPECT_THAT(ListTexts(3), ElementsAre("1", "1", "2", "2", "2"));
  EXPECT_EQ(go().substr(0, 3), "En ");
  FView->GotoLast();
  EXPECT_EQ(go().substr(0, 4), "Bio ");
  EXPECT_EQ(go().substr(0, 4), "Bio ");
  EXPECT_EQ(go(), "Fr 1");
  for (int i = 0; i < FProject->Courses().Count(); ++i) FProject->Courses().GetItem(i)->Note1Id.SetAsInt(1);
  FProject->Courses().GetItem(0)->Note1Id.SetNull();
  FProject->Courses().GetItem(0)->Student = nullptr;
  Press(Noten);
  go();
  EXPECT_EQ(FBoxes.Texts.back(), "Alle Noten dieser Beurteilungsart sind eingegeben.");
  EXPECT_THAT(ListTexts(3), testing::Each(""));
  FProject->Options().Columns().Find("Note1")->Editable = false;
  go();
  EXPECT_EQ(FBoxes.Texts.back(), "In dieser Datei sind keine Noten zum Eingeben freigegeben.");
}

TEST_F(SubjectsViewTest, F8FollowsTheRowsOnShow) {
  auto* f8 = &FCommands.Add({.Caption = "Offen", .Shortcut = "F8", .OnExecute = [this] { FView->GotoOpenGrade(); }});
  FWindow.SetRibbon({"Datei", {}, {}, "", {{"Start", "Start", {{"Noten", "Noten", {{f8}}}}}}});
  const auto go = [this] {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
    return Grid().FocusedRecord();
  };
  struct {
    const char* What;
    std::function<void()> Arrange;
    std::vector<int> Way;
    std::string Told = {};
  } const cases[] = {
      {"sorted", [&] { Grid().ClickHeader(Note1, false); }, {1, 4, 8, 10, 11}},
      {"by value", [&] { Grid().FilterByUser(Note1, TVariant::Null(), "leer"); }, {1, 4, 8, 10, 11}},
      {"by class", [&] { Grid().FilterByUser(Class, "10c", "10c"); }, {1, 8, 8}, "Ihr Filter verbirgt offene Noten"},
      {"grouped",
       [&] {
         Grid().GroupColumn(Class, 0);
         Grid().View().SetGroupClosed(0, true);
         EXPECT_EQ(Grid().FocusedRecord(), -1);
       },
       {4, 10, 11, 1, 8}}};
  Open();
  const int count = Grid().RecordCount();
  for (const auto& [what, arrange, way, told] : cases) {
    FView->GotoFirst();
    FView->UpdateContent();
    for (int record = 0; record < count; ++record) Course(record).Note1Id.SetNull();
    Press(Noten);
    arrange();
    for (const int record : way) {
      EXPECT_EQ(go(), record) << what;
      EXPECT_EQ(Grid().FocusedColumn(), Note1);
      if (told.empty() || FBoxes.Texts.empty()) Keys("1");
    }
    EXPECT_THAT(FBoxes.Texts,
                told.empty() ? testing::Matcher<std::vector<std::string>>(IsEmpty()) : ElementsAre(StartsWith(told)))
        << what;
    FBoxes.Texts.clear();
    EXPECT_EQ(Grid().ShownRows().size(), static_cast<std::size_t>(Grid().View().model()->rowCount())) << what;
  }
  for (int i = 0; i < FProject->Classes().Count(); ++i)
    FProject->Classes().GetItem(i)->SetGradeType(TGradeTypes::gtFill);
  Press(Punkte);
  go();
  EXPECT_THAT(FBoxes.Texts, ElementsAre("In dieser Datei hat kein Schüler diese Beurteilungsart."));
}

TEST_F(SubjectsViewTest, WhatIsTypedKeepsItsRowInStatusAndExport) {
  Open();
  Press(Noten);
  for (const int record : {1, 4, 8, 10, 11}) Course(record).Note1Id.SetNull();
  Grid().FilterByUser(Note1, TVariant::Null(), "leer");
  Keys("1\r");
  EXPECT_THAT(Records(), ElementsAre(1, 4, 8, 10, 11));
  EXPECT_THAT(Note(), HasSubstr("1 von 5 eingegeben"));
  Keys("2");
  ASSERT_NE(LiftButton(), nullptr);
  LiftButton()->click();
  EXPECT_EQ(GradeOf(Course(4)), "2");
}

TEST_F(SubjectsViewTest, OnlyWhatIsEnteredTellsWhereTheWorkGoesOn) {
  FProject->Options().Columns().Find("Note2")->Editable = true;
  Open();
  Grid().FocusRecord(1);
  Grid().FocusColumn(Note1 + 1);
  for (const auto key : {Qt::Key_Delete, Qt::Key_Return}) QTest::keyClick(&Grid().View(), key);
  const auto begins = [this] {
    FView->UpdateContent();
    Press(Noten);
    QTest::keyClick(&Grid().View(), Qt::Key_Down);
    return Grid().FocusedColumn();
  };
  EXPECT_EQ(begins(), +Note1);
  Course(Grid().FocusedRecord()).Note2Id.SetAsInt(1);
  Grid().FocusColumn(Note1 + 1);
  QTest::keyClick(&Grid().View(), Qt::Key_Delete);
  EXPECT_EQ(begins(), Note1 + 1);
}

TEST_F(SubjectsViewTest, TheFocusedGradeColumnIsSummedUp) {
  Open();
  Press(Noten);
  EXPECT_EQ(Note(), "");
  for (int i = 0; i < FProject->Noten().Count(); ++i) {
    auto& grade = *FProject->Noten().GetItem(i);
    grade.GradeValue = static_cast<float>(grade.Token.back() - '0');
    grade.SetGradeType(grade.Token == "nb"       ? TGradeTypes::gtFill
                       : grade.Token.size() == 1 ? TGradeTypes::gtValue
                                                 : TGradeTypes::gtPoints);
  }
  for (const auto& [record, token] : {std::pair(1, "2"), {4, "1"}, {8, "2"}, {10, "nb"}}) {
    Grid().FocusRecord(record);
    TypeInto(Grid(), Note1, token);
    Keys("\r");
  }
  const auto caption = Grid().Columns()[Note1].Caption;
  EXPECT_EQ(Note(), "Durchschnitt 1,67   " + caption + ": 4 von 5 eingegeben   1: 1, 2: 2, nb: 1");
  Grid().FocusColumn(Kurs);
  EXPECT_EQ(Note(), "");
  Grid().FocusColumn(Note1);
  Press(All);
  EXPECT_THAT(Note(), HasSubstr(caption + ": "));
  EXPECT_THAT(Note(), testing::Not(HasSubstr("Durchschnitt")));
}

TEST_F(SubjectsViewTest, AssessmentComesBackFromItsDialogUnderAnyFilter) {
  Open();
  Grid().FocusRecord(2);
  FAssessment = "sehr gut";
  FView->EditZeugnisbeurteilungen();
  EXPECT_EQ(Course(2).Beurteilung, "sehr gut");
  EXPECT_EQ(FAssessedStudent, Course(2).Student->ViewDisplayName());
}

}  // namespace
