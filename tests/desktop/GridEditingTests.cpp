#include <cmath>

#include "GridFixture.h"

using TTexts = std::vector<std::string>;

TEST_F(GridTest, TypesGradesDownAColumn) {
  Type("2");
  EXPECT_TRUE(Grid.IsEditing());
  EXPECT_EQ(Source.Written, TTexts{"103"});
  Key(Qt::Key_Return);
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_EQ(Grid.FocusedRecord(), 1);
  Type("t");
  Key(Qt::Key_Return);
  Type("1");
  Key(Qt::Key_Return);
  EXPECT_EQ(Shown(0, Grade) + Shown(1, Grade) + Shown(2, Grade), "2tf1");
  EXPECT_EQ(Source.Written, (TTexts{"103", "104"}));
  EXPECT_EQ(Grid.FocusedRecord(), 2);
  EXPECT_EQ(Grid.FocusedColumn(), Grade);
}

TEST_F(GridTest, TypeAheadTakesTheExactTokenAndRefines) {
  Type("1");
  EXPECT_EQ(Lookup()->Value().AsInteger(), 101);
  Type("5");
  EXPECT_EQ(Lookup()->Value().AsInteger(), 102);
  EXPECT_EQ(Lookup()->List().currentItem()->text(0), "15");
  Type("7");
  EXPECT_EQ(Lookup()->text(), "15");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Lookup()->text(), "1");
  Type("-");
  EXPECT_EQ(Shown(0, Grade), "1-");
  Key(Qt::Key_Down);
  EXPECT_EQ(Shown(0, Grade), "1");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_TRUE(Grid.Value(0, Grade).IsNull());
}

TEST_F(GridTest, DeleteClearsWithAndWithoutEditor) {
  FocusCell(1, Grade);
  Key(Qt::Key_F2);
  EXPECT_TRUE(Lookup()->IsListOpen());
  Key(Qt::Key_Delete);
  EXPECT_TRUE(Grid.Value(1, Grade).IsNull());
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(1, Grade), "15");
  Key(Qt::Key_Delete);
  EXPECT_TRUE(Grid.Value(1, Grade).IsNull());
  FocusCell(1, Name);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Shown(1, Name), "adam");
}

TEST_F(GridTest, VetoAndFixedColumnsOpenNoEditor) {
  int asked = 0;
  Grid.OnEditing = [&](int ordinal) { return ++asked, ordinal != Grade; };
  Type("2");
  Key(Qt::Key_F2);
  Key(Qt::Key_Delete);
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_TRUE(Grid.View().IsTinted(Grade));
  asked = 0;
  FocusCell(0, Name);
  Type("x");
  EXPECT_EQ(asked, 0);
  FocusCell(0, Absences);
  Type("7");
  EXPECT_TRUE(Grid.IsEditing());
  EXPECT_EQ(Source.Written, TTexts{"7"});
}

TEST_F(GridTest, LookupOffersWhatPassesTheFilterButShowsAll) {
  Grades.SetOnFilterRecord([](const auto& row) { return row[1].AsText() != "15"; });
  Grades.SetFiltered(true);
  EXPECT_EQ(Shown(1, Grade), "15");
  FocusCell(1, Grade);
  Key(Qt::Key_F2);
  EXPECT_EQ(Lookup()->List().topLevelItemCount(), 4);
  Key(Qt::Key_Return);
  EXPECT_TRUE(Source.Written.empty());
  EXPECT_EQ(Shown(1, Grade), "15");
}

TEST_F(GridTest, WithoutHandlerTheValuePostsWhenTheEditorCloses) {
  Grid.OnEditChanged = nullptr;
  FocusCell(0, Absences);
  Type("42x");
  EXPECT_TRUE(Source.Written.empty());
  Key(Qt::Key_Tab);
  EXPECT_EQ(Source.Written, TTexts{"42"});
  EXPECT_EQ(Grid.FocusedColumn(), Result);
  Type("nicht be");
  Key(Qt::Key_Return);
  EXPECT_EQ(Source.Rows[0]->Cells[Result].AsText(), "F");
  EXPECT_EQ(Grid.FocusedRecord(), 1);
  EXPECT_EQ(Grid.FocusedColumn(), Name);
}

TEST_F(GridTest, NumbersHoldTheirLimitsAndMayBeEmpty) {
  FocusCell(1, Absences);
  Type("100");
  EXPECT_EQ(Shown(1, Absences), "10");
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Backspace);
  EXPECT_TRUE(Grid.Value(1, Absences).IsNull());
  Key(Qt::Key_Up);
  Key(Qt::Key_Up);
  EXPECT_EQ(Shown(1, Absences), "1");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(1, Absences), "12");
}

TEST(CellEditorTest, DatesAreTypedSteppedAndEmptied) {
  TDateEdit edit(nullptr);
  const struct {
    const char* Typed;
    const char* Date;
  } cases[] = {{"1.2.2024", "01.02.2024"}, {"1.2.24", "01.02.2024"}, {"31.2.2024", ""}, {"", ""}, {"x", ""}};
  for (const auto& [typed, date] : cases) {
    edit.clear();
    QTest::keyClicks(&edit, typed);
    EXPECT_EQ(edit.Value().AsTextOrEmpty(), date) << typed;
  }
  edit.SetValue(TVariant::DateTime(45351));
  QTest::keyClick(&edit, Qt::Key_Up);
  EXPECT_EQ(edit.Value().AsText(), "01.03.2024");
}

TEST_F(GridTest, ShowsWhatCannotBeReadAndKeepsIt) {
  Source.Failing = Grade;
  Grid.ClickHeader(Grade, false);
  EXPECT_EQ(Shown(0, Grade), "ungültiger Wert");
  Grid.grab();
  FocusCell(1, Grade);
  for (const auto key : {Qt::Key_F2, Qt::Key_F4, Qt::Key_1, Qt::Key_Delete}) {
    Key(key);
    EXPECT_FALSE(Grid.IsEditing()) << key;
  }
  EXPECT_EQ(Source.Written, std::vector<std::string>());
  Source.Cell(Source.Rows[0].get(), Absences) = TVariant::DateTime(1e300);
  Source.Cell(Source.Rows[1].get(), Absences) = std::nan("");
  EXPECT_EQ(Shown(0, Absences), "ungültiges Datum");
  Grid.ClickHeader(Absences, false);
  EXPECT_EQ(Records(), (std::vector{1, 2, 0}));
}
