#include <QHeaderView>
#include <QListWidget>

#include "ColumnChooser.h"
#include "GridFixture.h"

TEST_F(GridTest, SortsByWhatIsReadAndKeepsTheFocus) {
  FocusCell(2, Name);
  std::vector<int> headers;
  Grid.OnHeaderClick = [&](int ordinal) { headers.push_back(ordinal); };
  Grid.ClickHeader(Name, false);
  EXPECT_EQ(Records(), (std::vector{1, 0, 2}));
  Grid.ClickHeader(Name, false);
  EXPECT_EQ(Records(), (std::vector{2, 0, 1}));
  Grid.ClickHeader(Grade, false);
  EXPECT_EQ(Records(), (std::vector{0, 2, 1}));
  Grid.ClickHeader(Result, false);
  Grid.ClickHeader(Absences, true);
  EXPECT_EQ(Records(), (std::vector{2, 0, 1}));
  EXPECT_EQ(Grid.Columns()[Absences].SortIndex, 1);
  EXPECT_EQ(Grid.Columns()[Grade].SortOrder, TGridSortOrder::None);
  EXPECT_EQ(Grid.FocusedRecord(), 2);
  EXPECT_EQ(headers, (std::vector<int>{Name, Name, Grade, Result, Absences}));
  Grid.BestFitAll();
  EXPECT_GE(Grid.View().columnWidth(Absences), Grid.fontMetrics().horizontalAdvance("Fehltage") + 24);
}

TEST_F(GridTest, FilterHidesRowsAndTellsSo) {
  std::vector<std::pair<int, int>> moves;
  FocusCell(1, Name);
  Grid.OnFocusChanged = [&](int from, int to) { moves.emplace_back(from, to); };
  Grid.AddFilter(Result, "P", "nur bestanden");
  EXPECT_EQ(Records().size(), 3U);
  Grid.SetFilterActive(true);
  EXPECT_EQ(Records(), (std::vector{0, 2}));
  EXPECT_EQ(moves, (std::vector<std::pair<int, int>>{{1, 2}}));
  EXPECT_EQ(Grid.RecordCount(), 3);
  EXPECT_NE(Grid.FilterText().find("nur bestanden"), std::string::npos);
  Grid.GotoPrev();
  EXPECT_EQ(Grid.FocusedRecord(), 0);
  Grid.ClearFilter();
  EXPECT_EQ(Records().size(), 3U);
}

TEST_F(GridTest, GroupsOpenAndCloseByKey) {
  Grid.GroupColumn(Result, 0);
  EXPECT_EQ(Records(), (std::vector{-1, 0, 2, -1, 1}));
  EXPECT_EQ(Grid.ShownRows()[0].GroupText, "Ergebnis: Bestanden (P) (2)");
  Grid.FocusRecord(2);
  EXPECT_EQ(Grid.FocusedGroupRecords(), (std::vector{0, 2}));
  Grid.GotoNext();
  EXPECT_EQ(Grid.FocusedRecord(), 1);
  Key(Qt::Key_Up);
  EXPECT_EQ(Grid.FocusedRecord(), -1);
  Key(Qt::Key_Left);
  EXPECT_EQ(Grid.View().model()->rowCount(), 4);
  Type("2");
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_EQ(Records().size(), 5U);
  Key(Qt::Key_Right);
  EXPECT_EQ(Grid.View().model()->rowCount(), 5);
}

TEST_F(GridTest, LayoutComesBackAndDoubtfulOnesDoNoHarm) {
  Grid.SetColumnWidth(Name, 177);
  Grid.ShowColumn(Absences, false);
  Grid.ClickHeader(Name, false);
  Grid.ClickHeader(Name, false);
  Grid.GroupColumn(Result, 0);
  Grid.View().horizontalHeader()->moveSection(1, 0);
  Grid.AddFilter(Absences, 3, "Drei");
  Grid.AddFilter(Name, TVariant::DateTime(2.5), "Datum");
  Grid.AddFilter(Name, TVariant::Null(), "Nichts");
  Grid.SetFilterActive(true);
  Grid.SetFilterActive(false);
  const std::string layout = Grid.Layout();

  Grid.ClearColumns();
  AddColumns();
  EXPECT_EQ(Grid.Columns()[Name].Width, 100);
  for (const char* doubtful :
       {"", "x", "{\"columns\":7}", "{\"columns\":[7,{\"id\":\"name\",\"sort\":99,\"width\":-1}]}"})
    Grid.RestoreLayout(doubtful);
  Grid.RestoreLayout(layout);
  EXPECT_EQ(Grid.Layout(), layout);
  EXPECT_EQ(Grid.View().columnWidth(Name), 177);
  EXPECT_EQ(Grid.ShownColumns(), (std::vector<int>{Grade, Name, Result}));
  EXPECT_EQ(Records(), (std::vector{-1, 2, 0, -1, 1}));
}

TEST_F(GridTest, ASourceMayGoWithinTheBracket) {
  auto other = std::make_unique<TRowsSource>(std::vector<std::vector<TVariant>>{{"Neu", 103, 1, "N"}});
  Grid.BindSource(other.get());
  EXPECT_EQ(Grid.FocusedRecord(), -1);
  Grid.GotoFirst();
  EXPECT_EQ(Grid.FocusedColumn(), Grade);
  Grid.BeginUpdate();
  other.reset();
  QTest::qWait(1);
  Grid.BindSource(&Source);
  Grid.EndUpdate();
  EXPECT_EQ(Grid.View().model()->rowCount(), 3);
}

TEST_F(GridTest, ChooserShowsAndHides) {
  auto name = Grid.Columns()[Name];
  Grid.ClearColumns();
  name.InChooser = false;
  Grid.AddColumn(name);
  AddColumns();
  TColumnChooser chooser(Grid, nullptr);
  ASSERT_EQ(chooser.List().count(), 4);
  FocusCell(0, 2);
  chooser.List().item(1)->setCheckState(Qt::Unchecked);
  EXPECT_FALSE(Grid.Columns()[2].Visible);
  EXPECT_TRUE(Grid.View().isColumnHidden(2));
  EXPECT_EQ(Grid.FocusedColumn(), 3);
}

/// A read-only list over the table of grades.
class ListTest : public GridTest {
 protected:
  ListTest() {
    Grid.ClearColumns();
    Grid.SetOptions({.MultiSelect = true});
    Grid.BindTable(&Grades);
    Grid.AddColumn({.Id = "col_Token", .Caption = "Kürzel", .Field = "Token"});
    Grades.First();
  }
  ~ListTest() override { Grid.BindTable(nullptr); }
};

TEST_F(ListTest, FocusAndTableGoTogether) {
  EXPECT_EQ(Grid.FocusedRecord(), 0);
  Grades.Last();
  EXPECT_EQ(Grid.FocusedRecord(), 4);
  Key(Qt::Key_Up);
  EXPECT_EQ(Grades.RecNo(), 4);
  Grades.Sort("Token", true);
  EXPECT_EQ(Shown(0, 0), "tf");
  EXPECT_EQ(Grid.FocusedRecord(), Grades.RecNo() - 1);
}

TEST_F(ListTest, SearchesWhatIsTyped) {
  Type("15");
  EXPECT_EQ(Grid.FocusedRecord(), 2);
  EXPECT_EQ(Grid.View().SearchText(), "15");
  Type("x");
  EXPECT_EQ(Grid.View().SearchText(), "15");
  Key(Qt::Key_Escape);
  Type("T");
  EXPECT_EQ(Grid.FocusedRecord(), 4);
  Key(Qt::Key_Down);
  EXPECT_TRUE(Grid.View().SearchText().isEmpty());
}
