#include <QHeaderView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "ColumnChooser.h"
#include "GridFixture.h"
#include "uCXUtils.h"

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
  auto* header = Grid.View().horizontalHeader();
  for (const auto& [column, modifiers] : {std::pair(Result, Qt::NoModifier), {Absences, Qt::ShiftModifier}}) {
    const QPoint place(header->sectionViewportPosition(column) + 20, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, modifiers, place);
  }
  EXPECT_EQ(Records(), (std::vector{2, 0, 1}));
  EXPECT_EQ(Grid.Columns()[Absences].SortIndex, 1);
  EXPECT_EQ(Grid.Columns()[Grade].SortOrder, TGridSortOrder::None);
  EXPECT_EQ(Grid.FocusedRecord(), 2);
  EXPECT_EQ(headers, (std::vector<int>{Name, Name, Grade, Result, Absences}));
  Grid.BestFitAll();
  Grid.ClickHeader(Result, false);
  for (const auto& [column, caption] : {std::pair(Absences, "Fehltage"), {Result, "Ergebnis"}})
    EXPECT_GE(Grid.View().columnWidth(column), Grid.fontMetrics().horizontalAdvance(caption) + 24) << "and the arrow";
}

TEST_F(GridTest, AChangedRecordIsShownAnewInItsPlace) {
  FollowContent();
  Grid.ClickHeader(Name, false);
  const auto& view = Grid.View();
  const int usual = view.rowHeight(2);
  Source.Rows[1]->Cells[Name] = "Zz\nadam";
  Grid.RecordChanged(1);
  EXPECT_EQ(view.model()->index(0, Name).data().toString(), "Zz\nadam");
  EXPECT_GT(view.rowHeight(0), usual);
  EXPECT_EQ(view.rowHeight(1), usual);
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

  // A closed group opens for the record that is to have the focus, and ends with its grouping.
  Grid.GroupColumn(Name, 1);
  for (int row = Grid.View().model()->rowCount(); --row >= 0;) Grid.View().SetGroupClosed(row, true);
  EXPECT_EQ(Grid.View().model()->rowCount(), 2);
  EXPECT_EQ(Records(), (std::vector{-1, -1, 0, -1, 2, -1, -1, 1}));
  Grid.FocusRecord(2);
  EXPECT_EQ(Grid.FocusedRecord(), 2);
  EXPECT_EQ(Grid.View().model()->rowCount(), 5);
  for (const int index : {-1, 0}) {
    Grid.GroupColumn(Name, -1);
    Grid.GroupColumn(Result, index);
  }
  EXPECT_EQ(Grid.View().model()->rowCount(), 5);
}

TEST_F(GridTest, LayoutComesBackAndDoubtfulOnesDoNoHarm) {
  Grid.SetColumnWidth(Name, 177);
  Grid.ShowColumn(Absences, false);
  Grid.ClickHeader(Name, false);
  Grid.ClickHeader(Name, false);
  Grid.GroupColumn(Result, 0);
  Grid.View().horizontalHeader()->moveSection(1, 0);
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

TEST_F(GridTest, FrozenColumnsStayWhileTheOthersScroll) {
  auto columns = Grid.Columns();
  Grid.ClearColumns();
  for (auto column : columns) {
    column.Width = 150;
    column.Frozen = column.Id == "name";
    Grid.AddColumn(column);
  }
  Grid.resize(400, 300);
  Grid.GotoFirst();
  auto& view = Grid.View();
  auto* header = view.horizontalHeader();
  const auto indexOf = [&](int ordinal) { return view.model()->index(1, ordinal); };
  const auto left = [&] { return Grid.grab(QRect(0, 0, 150, 200)).toImage(); };
  Grid.FocusColumn(Grade);
  view.horizontalScrollBar()->setValue(0);
  const QImage before = left();
  Grid.FocusColumn(Result);
  view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum());
  const int scrolled = view.horizontalScrollBar()->value();
  ASSERT_GT(scrolled, 150);
  EXPECT_EQ(left(), before);
  EXPECT_EQ(view.visualRect(indexOf(Name)).left(), 0);
  EXPECT_EQ(view.indexAt(view.visualRect(indexOf(Name)).center()), indexOf(Name));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(indexOf(Name)).center());
  EXPECT_EQ(std::pair(Grid.FocusedRecord(), Grid.FocusedColumn()), std::pair(1, +Name));
  EXPECT_EQ(view.horizontalScrollBar()->value(), scrolled);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
  EXPECT_EQ(Grid.Columns()[Name].SortOrder, TGridSortOrder::Ascending);
  Grid.FocusColumn(Grade);
  EXPECT_GE(view.visualRect(indexOf(Grade)).left(), 150);
  Grid.resize(290, 300);
  view.horizontalScrollBar()->setValue(200);
  EXPECT_LT(view.visualRect(indexOf(Name)).left(), 0);
}

TEST_F(GridTest, AColumnTakesTheRestUntilItIsGivenAWidth) {
  const auto room = [this] { return Grid.View().viewport()->width(); };
  const auto* header = Grid.View().horizontalHeader();
  auto column = Grid.Columns()[Name];
  column.Id = "text";
  column.TakesRest = true;
  const int ordinal = AddColumn(column, "");
  for (const int width : {800, 1000, 700}) {
    Grid.resize(width, 300);
    EXPECT_EQ(header->length(), room()) << width;
  }
  Grid.ShowColumn(Grade, false);
  EXPECT_EQ(header->length(), room());
  EXPECT_EQ(Grid.Columns()[static_cast<std::size_t>(ordinal)].Width, 100);
  // Rows that follow their content bring a scroll bar when they have been measured.
  Source.Cell(Source.Rows[0].get(), ordinal) = std::string(7, '\n') + "x";
  FollowContent();
  for (const int height : {300, 120}) {
    Grid.resize(700, height);
    Grid.DataChanged();
    EXPECT_EQ(Grid.View().horizontalScrollBar()->maximum(), 0) << height;
  }
  Source.Cell(Source.Rows[0].get(), ordinal) = "";
  Grid.DataChanged();
  Grid.resize(250, 300);
  EXPECT_EQ(header->sectionSize(ordinal), 100);
  Grid.resize(800, 300);
  const QPoint edge(header->sectionViewportPosition(Absences) + header->sectionSize(Absences) - 1, 5);
  QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
  QTest::mouseMove(header->viewport(), edge + QPoint(30, 0));
  QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(30, 0));
  EXPECT_EQ(Grid.Columns()[Absences].Width, 130);
  EXPECT_EQ(header->length(), room());
  Grid.View().horizontalHeader()->resizeSection(ordinal, 222);
  Grid.resize(900, 300);
  EXPECT_EQ(header->sectionSize(ordinal), 222);
  EXPECT_EQ(Grid.Columns()[static_cast<std::size_t>(ordinal)].Width, 222);
}

TEST_F(ListTest, FocusAndTableGoTogether) {
  EXPECT_EQ(Grid.FocusedRecord(), 0);
  Grades.SetRecNo(Grades.RecordCount());
  EXPECT_EQ(Grid.FocusedRecord(), 4);
  Key(Qt::Key_Up);
  EXPECT_EQ(Grades.RecNo(), 4);
  Grades.Sort("Token", true);
  EXPECT_EQ(Shown(0, 0), "tf");
  EXPECT_EQ(Grid.FocusedRecord(), Grades.RecNo() - 1);

  Filter(0, "15", "15");
  const int shown = Records().front();
  for (int record = 1; record <= Grades.RecordCount(); ++record) {
    Grades.SetRecNo(record);
    EXPECT_EQ(Grades.RecNo(), shown + 1);
    EXPECT_EQ(Grid.FocusedRecord(), shown);
  }
  EXPECT_FALSE(Grid.CanGotoPrev() || Grid.CanGotoNext());
}

TEST_F(ListTest, SelectionKeepsTheOrderOfTheClicks) {
  const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
    auto& view = Grid.View();
    const QPoint place = view.visualRect(view.model()->index(row, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, place);
  };
  const auto selected = [this] {
    std::vector<std::string> tokens;
    for (int i = 0; i < Grid.SelectedCount(); ++i)
      tokens.push_back(TCXUtils::GetSelectedRecord(Grid, i, "Token").AsText());
    return tokens;
  };
  using TTokens = std::vector<std::string>;
  click(3, {});
  click(1, Qt::ControlModifier);
  click(4, Qt::ControlModifier);
  EXPECT_EQ(selected(), (TTokens{"2", "1", "tf"}));
  Grid.ClickHeader(0, false);
  Grid.ClickHeader(0, false);
  EXPECT_EQ(selected(), (TTokens{"2", "1", "tf"}));
  Grid.SetColumnSort(0, TGridSortOrder::None, -1);
  Grades.Sort("Token", true);
  EXPECT_EQ(selected(), (TTokens{"2", "1", "tf"}));
  EXPECT_EQ(Grid.View().selectionModel()->selectedRows().size(), 3);
  Grades.Sort("ID");
  Filter(0, "2", "2");
  EXPECT_EQ(selected(), TTokens{"2"});
  Grid.SetFilterActive(false);
  EXPECT_EQ(selected(), TTokens{"2"});
  click(3, {});
  click(1, Qt::ShiftModifier);
  EXPECT_EQ(selected(), (TTokens{"1", "15", "2"}));
  click(2, Qt::ShiftModifier);
  click(0, Qt::ControlModifier);
  EXPECT_EQ(selected(), (TTokens{"15", "2", "1-"}));
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(selected(), (TTokens{"1-", "1", "15", "2", "tf"}));
  click(4, {});
  click(1, Qt::ControlModifier);
  Grid.DeleteSelection();
  EXPECT_EQ(Grades.RecordCount(), 3);
  EXPECT_EQ(Grades.RecordOf(Grades.RecordId(2)), 2);
  EXPECT_EQ(Shown(0, 0) + Shown(1, 0) + Shown(2, 0), "1-152");
  EXPECT_EQ(selected(), TTokens{"15"});
  click(0, {});
  Grades.Append();
  Grades.FieldByName("Token").SetValue("neu");
  Grades.Post();
  EXPECT_EQ(selected(), TTokens{"neu"});
}

TEST_F(ListTest, SortsByTheClickedColumnAlone) {
  Grid.AddColumn({.Id = "col_ID", .Caption = "Nr.", .Field = "ID"});
  const auto arrows = [this] {
    return std::vector{Grid.Columns()[0].SortOrder != TGridSortOrder::None,
                       Grid.Columns()[1].SortOrder != TGridSortOrder::None};
  };
  EXPECT_FALSE(MenuOf(Grid).contains("Sortierung aufheben"));
  Grid.ClickHeader(0, true);
  Grid.ClickHeader(1, true);
  EXPECT_EQ(arrows(), (std::vector{true, true}));
  const auto layout = Grid.Layout();
  EXPECT_TRUE(MenuOf(Grid).contains("Sortierung aufheben"));
  Grid.SetOptions({.SortedByView = true});
  EXPECT_FALSE(MenuOf(Grid).contains("Sortierung aufheben"));
  Grid.ClickHeader(1, true);
  EXPECT_EQ(arrows(), (std::vector{false, true}));
  Grid.RestoreLayout(layout);
  EXPECT_EQ(arrows(), (std::vector{true, false}));
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

TEST_F(ListTest, AListShowsItsLeadingColumnsUntilOneIsChosen) {
  for (const char* field : {"ID", "Description"}) Grid.AddColumn({.Id = field, .Caption = field, .Field = field});
  auto& bar = *Grid.View().horizontalScrollBar();
  Grid.BindTable(nullptr);
  Grid.FocusColumn(1);
  Grid.resize(150, 300);
  Grid.BindTable(&Grades);
  Key(Qt::Key_Down);
  Grid.resize(160, 300);
  EXPECT_EQ(bar.value(), 0);
  for (const int width : {160, 170}) {
    Grid.resize(width, 300);
    Key(Qt::Key_Right);
    EXPECT_GT(bar.value(), 0);
  }
}
