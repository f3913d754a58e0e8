#include <cmath>

#include "DateEdit.h"
#include "GridFixture.h"

using TTexts = std::vector<std::string>;

TEST_F(GridTest, TypesGradesDownAColumn) {
  Type("2");
  EXPECT_TRUE(Grid.IsEditing());
  EXPECT_EQ(Source.Written, TTexts{"103"});
  Key(Qt::Key_Return);
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_EQ(Grid.FocusedRecord(), 1);
  Type("t\r1\r");
  EXPECT_EQ(Shown(0, Grade) + Shown(1, Grade) + Shown(2, Grade), "2tf1");
  EXPECT_EQ(Source.Written, (TTexts{"103", "104"}));
  EXPECT_EQ(Focus(), TCell(2, Grade));
}

TEST_F(GridTest, TypeAheadTakesTheExactTokenAndRefines) {
  Type("1");
  EXPECT_EQ(Lookup()->Value().AsInteger(), 101);
  Type("5");
  EXPECT_EQ(Lookup()->Value().AsInteger(), 102);
  EXPECT_EQ(Lookup()->List().currentItem()->text(0), "15");
  Type("7");
  EXPECT_EQ(Lookup()->text(), "157");
  EXPECT_TRUE(IsRefused());
  EXPECT_TRUE(Grid.Value(0, Grade).IsNull());
  for (const auto key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Right}) {
    Key(key);
    ASSERT_TRUE(Grid.IsEditing() && IsRefused());
  }
  Key(Qt::Key_Backspace);
  EXPECT_FALSE(IsRefused());
  EXPECT_EQ(Shown(0, Grade), "15");
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
  for (const int kept : {+Name, +Absences}) {
    FocusCell(1, kept);
    Key(Qt::Key_Delete);
  }
  EXPECT_EQ(Shown(1, Name) + Shown(1, Absences), "adam12");
  FocusCell(1, Result);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Shown(1, Result), "");
}

TEST_F(GridTest, ARefusedLetterTakenBackLeavesWhatWasThere) {
  Source.Rows[1]->Cells[Result] = "X";
  const std::tuple<int, int, Qt::Key, const char*> cases[] = {{1, Grade, Qt::Key_F2, "15"},
                                                              {1, Result, Qt::Key_F2, "X"},
                                                              {0, Grade, Qt::Key_F2, ""},
                                                              {1, Grade, Qt::Key_Down, "2"}};
  for (const auto& [record, ordinal, before, text] : cases) {
    FocusCell(record, ordinal);
    Key(Qt::Key_F2);
    Key(before);
    Type("y");
    EXPECT_TRUE(IsRefused());
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Lookup()->text(), text);
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(record, ordinal), text);
  }
  EXPECT_EQ(Source.Written, (TTexts{"103", "102", "103"}));
}

TEST_F(GridTest, NumbersAreFoundByTheirValue) {
  FillGrades({"15", "01", "00", "12", "1-", "09", "2,5", "10", "A", "a", "E1", "e"});
  const std::pair<const char*, const char*> cases[] = {{"1", "01"},  {"9", "09"},   {"12", "12"},   {"15", "15"},
                                                       {"0", "00"},  {"001", "01"}, {"2.5", "2,5"}, {"1-", "1-"},
                                                       {"2", "2,5"}, {"a", "a"},    {"E", "e"}};
  for (const auto& [typed, token] : cases) {
    Type(0, Grade, std::string(typed) + '\r');
    EXPECT_EQ(Shown(0, Grade), token) << typed;
  }
}

TEST_F(GridTest, WhatIsNotOnOfferIsShownAndCanBeCleared) {
  Grades.SetOnFilterRecord([](const auto& row) { return row[1].AsText() != "15"; });
  Grades.SetFiltered(true);
  Source.Rows[1]->Cells[Result] = "X";
  Source.Rows[2]->Cells[Grade] = 4711;
  const int token = AddColumn({.Id = "token",
                               .Caption = {},
                               .Editor = {.Kind = TEditorKind::Lookup,
                                          .Lookup = {&Grades, "Token", "Token", "Description"},
                                          .DeleteClears = true}},
                              "Z");
  const std::tuple<int, int, const char*> cells[] = {
      {1, Grade, "15"}, {1, Result, "X"}, {2, Grade, ""}, {0, token, "Z"}};
  for (const auto& [record, ordinal, text] : cells) {
    EXPECT_EQ(Shown(record, ordinal), text);
    const auto before = Grid.Value(record, ordinal);
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
      FocusCell(record, ordinal);
      Key(Qt::Key_F2);
      EXPECT_EQ(Lookup()->text(), text);
      EXPECT_EQ(Lookup()->List().topLevelItemCount(), ordinal == Result ? 3 : 4);
      Key(Qt::Key_Return);
      EXPECT_EQ(Grid.Value(record, ordinal), before);
      EXPECT_EQ(Shown(record, ordinal), text);
      FocusCell(record, ordinal);
      Key(Qt::Key_F2);
      Key(key);
      Key(Qt::Key_Return);
      EXPECT_TRUE(Grid.Value(record, ordinal).IsNull()) << text;
      Source.Rows[static_cast<std::size_t>(record)]->Cells[static_cast<std::size_t>(ordinal)] = before;
    }
  }
}

TEST_F(GridTest, EscapeTellsWhatItTookBack) {
  std::string told;
  Grid.OnEditStarted = [&] { told += "start "; };
  Grid.OnEditReverted = [&] { told += Grid.Value(1, Grade) == TVariant(102) ? "reverted " : "early "; };
  FocusCell(1, Grade);
  Key(Qt::Key_F2);
  for (const char* keys : {"\033", "2\033", "2x\033", "2\r"}) Type(keys);
  EXPECT_EQ(told, "start start reverted start reverted start ");
}

TEST_F(GridTest, WhatWasSavedIsWhatAnEditGoesBackTo) {
  const std::tuple<const char*, const char*, int, int, bool> cases[] = {
      {"2", "x", 103, 103, true}, {"2", "", 103, 103, false}, {"x", "", 101, 101, true}, {"2x", "", 101, 101, true}};
  for (const auto& [before, after, saved, left, refused] : cases) {
    Source.Rows[1]->Cells[Grade] = 101;
    Type(1, Grade, before);
    Grid.PostEdit();
    EXPECT_EQ(Grid.Value(1, Grade), TVariant(saved)) << before;
    Type(after);
    Grid.PostEdit();
    EXPECT_EQ(IsRefused(), refused) << before << after;
    Key(Qt::Key_Escape);
    EXPECT_EQ(Grid.Value(1, Grade), TVariant(left)) << before << after;
  }
}

TEST_F(GridTest, RowsThatAreBuiltAnewPostWhatIsTyped) {
  Grid.OnEditChanged = nullptr;
  const std::function<void()> changes[] = {[&] { Grid.LiftFilter(); }, [&] { Grid.ClickHeader(Name, false); },
                                           [&] { Grid.GroupColumn(Result, 0); }, [&] { Grid.DataChanged(); }};
  for (const auto& change : changes) {
    Source.Rows[0]->Cells[Absences] = 5;
    Grid.FilterByUser(Result, "P", "P");
    Type(0, Absences, "7");
    ASSERT_EQ(Grid.Value(0, Absences), TVariant(5));
    change();
    EXPECT_EQ(Grid.Value(0, Absences), TVariant(7));
    EXPECT_FALSE(Grid.IsEditing());
  }
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
  Type(0, Name, "x");
  EXPECT_EQ(asked, 0);
  Type(0, Absences, "7");
  EXPECT_TRUE(Grid.IsEditing());
  EXPECT_EQ(Source.Written, TTexts{"7"});
}

TEST_F(GridTest, WithoutHandlerTheValuePostsWhenTheEditorCloses) {
  Grid.OnEditChanged = nullptr;
  Type(0, Absences, "42x");
  EXPECT_TRUE(Source.Written.empty());
  Key(Qt::Key_Tab);
  EXPECT_EQ(Source.Written, TTexts{"42"});
  EXPECT_EQ(Grid.FocusedColumn(), Result);
  Type("nicht be\r");
  EXPECT_EQ(Source.Rows[0]->Cells[Result].AsText(), "F");
  EXPECT_EQ(Focus(), TCell(1, Name));
}

TEST_F(GridTest, NumbersHoldTheirLimitsAndMayBeEmpty) {
  Type(1, Absences, "100");
  EXPECT_TRUE(IsRefused());
  EXPECT_EQ(Shown(1, Absences), "10");
  Type("\b\b");
  EXPECT_TRUE(Grid.Value(1, Absences).IsNull());
  Key(Qt::Key_Up);
  Key(Qt::Key_Up);
  EXPECT_EQ(Shown(1, Absences), "1");
  QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Keyboard(), &wheel);
  EXPECT_EQ(Shown(1, Absences), "1");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(1, Absences), "12");
}

TEST_F(GridTest, NumbersAreTakenAsTypedOrRefused) {
  const int factor = AddColumn({.Id = "faktor",
                                .Caption = {},
                                .Editor = {.Kind = TEditorKind::Spin, .ValueKind = TValueKind::Float, .Decimals = 4}},
                               0.1F);
  const int tens = AddColumn(
      {.Id = "tens", .Caption = {}, .Editor = {.ValueKind = TValueKind::Integer, .Minimum = 10, .Maximum = 99}}, 12);
  const std::tuple<int, const char*, bool, const char*> cases[] = {
      {factor, "1,5", false, "1,5"}, {factor, "2.3", false, "2,3"},
      {factor, ",5", false, "0,5"},  {factor, "0,12345", true, "0,1234"},
      {factor, "1,,", true, "1"},    {factor, "1,,5", false, "1,5"},
      {factor, "-1", false, "1"},    {Absences, "1,5", true, "1"},
      {Absences, "4x", true, "4"},   {Absences, "4x2", false, "42"},
      {tens, "5", false, "12"},      {tens, "57", false, "57"},
      {tens, "578", true, "57"}};
  for (const auto& [ordinal, typed, refused, shown] : cases) {
    const auto before = Grid.Value(1, ordinal);
    Type(1, ordinal, typed);
    EXPECT_EQ(IsRefused(), refused) << typed;
    Key(Qt::Key_Tab);
    EXPECT_EQ(Shown(1, ordinal), shown) << typed;
    Source.Rows[1]->Cells[static_cast<std::size_t>(ordinal)] = before;
  }
}

TEST_F(GridTest, ShownNumbersAreShortenedAndNeverRounded) {
  const int factor =
      AddColumn({.Id = "faktor", .Caption = {}, .Editor = {.ValueKind = TValueKind::Float, .Decimals = 1}}, 0.1F);
  Source.Rows[1]->Cells[Absences] = 1234567;
  const std::tuple<int, TVariant, const char*, int, const char*> cases[] = {
      {factor, static_cast<double>(0.1F), "0,1", 1, "0"},
      {factor, 2.12345678901234, "2,12345678901234", 1, "2,1234567890123"},
      {factor, 2.0 / 3, "0,666666666666667", 0, "0,666666666666667"},
      {Absences, 1234567, "1234567", 5, "12"},
      {Absences, 1234567, "1234567", 2, "1234567"},
      {Absences, -3, "-3", 2, ""}};
  for (const auto& [ordinal, stored, shown, backspaces, left] : cases) {
    auto& cell = Source.Rows[1]->Cells[static_cast<std::size_t>(ordinal)];
    cell = stored;
    FocusCell(1, ordinal);
    EXPECT_EQ(Shown(1, ordinal), shown);
    Key(Qt::Key_F2);
    Type("x");
    EXPECT_TRUE(IsRefused()) << shown;
    Type(std::string(static_cast<std::size_t>(backspaces), '\b') + '\t');
    EXPECT_EQ(Shown(1, ordinal), left);
    EXPECT_TRUE(backspaces > 0 || cell.AsFloat() == stored.AsFloat());
  }
}

TEST_F(GridTest, F2AppendsAndTypingReplaces) {
  const int text = AddColumn({"text", "Text"}, "ab");
  FocusCell(0, Absences);
  Key(Qt::Key_F2);
  Type("2\t");
  Type(1, Absences, "2\t");
  FocusCell(0, text);
  Key(Qt::Key_F2);
  Type("c");
  EXPECT_EQ(Shown(0, Absences) + Shown(1, Absences) + Shown(0, text), "522abc");
  Key(Qt::Key_Escape);
  FollowContent();
  Key(Qt::Key_F2);
  Type("d");
  EXPECT_EQ(Shown(0, text), "abd");
}

TEST(CellEditorTest, DatesAreTypedSteppedAndEmptied) {
  TDateEdit edit({}, nullptr);
  const std::pair<const char*, const char*> cases[] = {
      {"1.2.2024", "01.02.2024"}, {"1.2.24", "01.02.2024"}, {"31.2.2024", ""}, {"", ""}, {"x", ""}};
  for (const auto& [typed, date] : cases) {
    edit.clear();
    QTest::keyClicks(&edit, typed);
    EXPECT_EQ(edit.Value().AsTextOrEmpty(), date) << typed;
  }
  edit.SetValue(TVariant::DateTime(45351.75));
  EXPECT_EQ(edit.Value().AsFloat(), 45351.75);
  QTest::keyClicks(&edit, "\b\b");
  EXPECT_FALSE(edit.HasRefused() || edit.KeepsOpen());
  QTest::keyClicks(&edit, "1x");
  EXPECT_TRUE(edit.HasRefused() && edit.KeepsOpen());
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
  EXPECT_EQ(Source.Written, TTexts());
  Source.Cell(Source.Rows[0].get(), Absences) = TVariant::DateTime(1e300);
  Source.Cell(Source.Rows[1].get(), Absences) = std::nan("");
  EXPECT_EQ(Shown(0, Absences), "ungültiges Datum");
  Grid.OnDisplayText = [](int, const TVariant&) -> std::optional<std::string> {
    throw std::runtime_error("unreadable");
  };
  EXPECT_EQ(Shown(0, Result), "ungültiger Wert");
  Grid.OnDisplayText = nullptr;
  Grid.ClickHeader(Absences, false);
  EXPECT_EQ(Records(), (std::vector{1, 2, 0}));
}
