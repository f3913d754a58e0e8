#include <QHeaderView>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "GridFixture.h"

TEST_F(GridTest, WhatAKeyLeadsToStandsWholeInSight) {
  const char* const breaks[] = {"\n", "\r\n", "\u2028", "\r", "\u2029"};
  const auto linesOf = [](int record) { return record % 5 + 1; };
  std::vector<std::vector<TVariant>> cells;
  for (int record = 0; record < 2000; ++record) {
    std::string text = "x";
    for (int line = 1; line < linesOf(record); ++line) text += breaks[record / 5 % 5] + std::string("x");
    cells.push_back({text, 100, 1, "P"});
  }
  TRowsSource many(cells);
  FollowContent();
  Grid.BindSource(&many);
  auto& view = Grid.View();
  const auto expectInSight = [&](const char* what) {
    const int row = view.currentIndex().row(), bottom = view.viewport()->height();
    EXPECT_GE(view.rowViewportPosition(row), 0) << what;
    EXPECT_LE(view.rowViewportPosition(row) + view.rowHeight(row), bottom) << what;
    for (int shown = view.rowAt(0); shown >= 0 && shown <= view.rowAt(bottom - 1); ++shown)
      EXPECT_EQ(view.rowHeight(shown), linesOf(shown) * view.fontMetrics().height() + 8) << what << ' ' << shown;
  };
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"last", [this] { Key(Qt::Key_End, Qt::ControlModifier); }},
      {"page up", [this] { Key(Qt::Key_PageUp); }},
      {"jump", [&] { FocusCell(1003, Name); }},
      {"back", [&] { FocusCell(990, Name); }},
      {"smaller", [this] { Grid.resize(800, 250); }},
      {"narrower", [this] { Grid.resize(300, 250); }},
      {"new rows", [this] { Grid.DataChanged(); }},
      {"first", [this] { Key(Qt::Key_Home, Qt::ControlModifier); }},
      {"page down", [this] { Key(Qt::Key_PageDown); }},
      {"grown", [&] {
         many.Cell(many.Rows[view.rowAt(view.viewport()->height() - 1) - 1].get(), Name) = "x";
         Grid.RecordChanged(view.currentIndex().row());
       }}};
  for (const auto& [what, go] : ways) {
    const int before = view.currentIndex().row();
    const int below = std::max(view.rowAt(view.viewport()->height() - 1), 0);
    go();
    expectInSight(what);
    if (std::string_view(what) != "page down") continue;
    EXPECT_GT(view.currentIndex().row(), before);
    EXPECT_LE(view.currentIndex().row(), below + 1) << "no row is passed over unseen";
  }
  Grid.BindSource(nullptr);
}

TEST_F(GridTest, ATextBreaksWhereItMustAndIsReadWholeByKeys) {
  const std::string word(30, 'W'), tied = "eins\u00A0zwei\u00A0drei\u00A0vier\u00A0" + word;
  std::string lines;
  for (int i = 1; i < 90; ++i) lines += "Zeile\n";
  lines += "Ende";
  FollowContent();
  auto& view = Grid.View();
  const auto ink = [&](int row) {
    // What stands in the lowest line of the cell.
    const QRect cell = view.visualRect(view.model()->index(row, Name));
    const int line = view.fontMetrics().height();
    const QImage image =
        view.viewport()->grab(QRect(cell.left() + 3, cell.bottom() - line - 2, cell.width() - 6, line)).toImage();
    int painted = 0;
    for (int x = 0; x < image.width(); ++x)
      for (int y = 0; y < image.height(); ++y) painted += image.pixel(x, y) != image.pixel(0, 0) ? 1 : 0;
    return painted;
  };
  for (const auto& [text, isCut] :
       {std::pair(std::string("kurz"), false), {word, false}, {tied, false}, {lines, true}}) {
    Source.Rows[1]->Cells = {text, 102, 12, "P"};
    Grid.DataChanged();
    FocusCell(1, Name);
    FocusCell(1, Grade);
    EXPECT_GT(ink(1), 0) << text;
    EXPECT_EQ(view.rowHeight(1) > view.rowHeight(0), text != "kurz") << text;
    EXPECT_LE(view.rowHeight(1), view.viewport()->height() / 2);
    for (const bool readOnly : {false, true}) {
      auto options = Grid.Options();
      options.ReadOnly = readOnly;
      Grid.SetOptions(options);
      FocusCell(1, readOnly ? Absences : Name);
      for (const auto& [key, modifiers] :
           {std::pair(Qt::Key_F2, Qt::NoModifier), {Qt::Key_F2, Qt::ShiftModifier}, {Qt::Key_Return, Qt::NoModifier}}) {
        Key(key, modifiers);
        auto* pane = qobject_cast<QPlainTextEdit*>(QApplication::activePopupWidget());
        ASSERT_EQ(pane != nullptr, isCut && (readOnly || key == Qt::Key_F2)) << text;
        if (pane == nullptr) continue;
        EXPECT_EQ(pane->toPlainText().toStdString(), text);
        EXPECT_TRUE(pane->isReadOnly() && pane->accessibleName() == "Name");
        QTest::keyClick(pane, Qt::Key_Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
      }
      Grid.SetOptions({.ReadOnly = false, .TabMovesCells = true, .RowsFollowContent = true});
    }
  }
}

TEST_F(GridTest, MeasuresOnlyWhatIsOnShow) {
  std::vector<std::vector<TVariant>> cells(5000, {"kurz", 100, 1, "P"});
  std::string words(2000000, 'x');
  std::string lines = words;
  for (std::size_t i = 0; i < words.size(); i += 4) words[i] = ' ', lines[i] = '\n';
  cells.back()[Name] = words;
  cells[4000][Name] = lines;
  TRowsSource many(cells);
  FollowContent();
  std::size_t asked = 0;
  Grid.OnDisplayText = [&](int, const TVariant&) { return ++asked, std::nullopt; };
  Grid.BindSource(&many);
  Grid.grab();
  EXPECT_LT(asked, 500U);
  auto& view = Grid.View();
  const int usual = view.rowHeight(0);
  for (const int record : {4000, 4999}) {
    FocusCell(record, Name);
    Grid.grab();
    EXPECT_GT(view.rowHeight(record), 2 * usual);
    EXPECT_LE(view.rowHeight(record), view.viewport()->height() / 2);
  }
  EXPECT_LT(asked, 2000U);
  EXPECT_EQ(view.rowHeight(2000), usual);
  Grid.BindSource(nullptr);
}
