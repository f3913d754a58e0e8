#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QStyleOption>
#include <QTabBar>
#include <QTimer>

#include "DesktopLook.h"
#include "DesktopMainWindow.h"
#include "DesktopStudentsView.h"
#include "GridDelegate.h"
#include "GridFixture.h"
#include "MemoEdit.h"
#include "QtText.h"
#include "Ribbon.h"

namespace {

TEST_F(GridTest, TabAndEnterGoRoundTheCells) {
  const struct {
    TCell From;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    TCell To;
  } moves[] = {{{0, Name}, Qt::Key_Tab, {}, {0, Grade}},
               {{0, Result}, Qt::Key_Tab, {}, {1, Grade}},
               {{1, Name}, Qt::Key_Backtab, Qt::ShiftModifier, {0, Result}},
               {{1, Grade}, Qt::Key_Backtab, Qt::ShiftModifier, {0, Result}},
               {{0, Absences}, Qt::Key_Return, {}, {0, Result}},
               {{0, Result}, Qt::Key_Enter, {}, {1, Name}},
               {{1, Grade}, Qt::Key_Return, {}, {2, Grade}},
               {{2, Grade}, Qt::Key_Return, {}, {2, Grade}},
               {{1, Grade}, Qt::Key_Right, {}, {1, Absences}}};
  for (const bool editing : {false, true}) {
    for (const auto& move : moves) {
      if (editing && move.From.second == Name) continue;
      FocusCell(move.From.first, move.From.second);
      if (editing) Key(Qt::Key_F4);
      EXPECT_EQ(Grid.IsEditing(), editing);
      Key(move.Key, move.Modifiers);
      EXPECT_EQ(Focus(), move.To) << move.Key << editing;
      EXPECT_FALSE(Grid.IsEditing());
    }
  }
  EXPECT_TRUE(Source.Written.empty());
}

TEST_F(GridTest, WhatIsTypedBehindTheLastRowOverwritesNobody) {
  Type(2, Grade, "2\r11");
  EXPECT_FALSE(Grid.IsEditing());
  EXPECT_EQ(Shown(2, Grade), "2");
  Type("\r1");
  EXPECT_EQ(Shown(2, Grade), "2");
  Key(Qt::Key_Left);
  Key(Qt::Key_Right);
  Type("1\r");
  EXPECT_EQ(Shown(2, Grade), "1");
  QTest::mouseClick(Grid.View().viewport(), Qt::LeftButton, {},
                    Grid.View().visualRect(Grid.View().currentIndex()).center());
  Type("t");
  EXPECT_EQ(Shown(2, Grade), "tf");
}

TEST_F(GridTest, TheMenuKeyOffersWhatCanBeDoneWithTheCell) {
  QStringList offered;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (const auto* action : menu->actions()) offered << action->text();
    menu->setActiveAction(menu->actions().at(1));
    QTest::keyClick(menu, Qt::Key_Return);
  });
  FocusCell(0, Name);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(Grid.View().viewport(), &event);
  EXPECT_TRUE(offered.contains("Alle Spaltenbreiten anpassen"));
  EXPECT_EQ(Grid.Columns()[Name].SortOrder, TGridSortOrder::Descending);
}

TEST_F(GridTest, TextsOfSeveralLinesKeepThem) {
  FollowContent();
  const int ordinal = AddColumn({"text", "Beurteilung"}, "eins\r\nzwei");
  FocusCell(1, ordinal);
  Key(Qt::Key_F2);
  ASSERT_NE(dynamic_cast<TMemoEdit*>(Keyboard()), nullptr);
  Key(Qt::Key_End, Qt::ControlModifier);
  Key(Qt::Key_Return, Qt::ShiftModifier);
  Type("drei");
  EXPECT_GT(Keyboard()->height(), 2 * Keyboard()->fontMetrics().height());
  Key(Qt::Key_Up);
  Key(Qt::Key_Up);
  EXPECT_TRUE(Grid.IsEditing());
  EXPECT_EQ(Source.Rows[1]->Cells.back(), TVariant("eins\r\nzwei\r\ndrei"));
  Key(Qt::Key_Up);
  EXPECT_EQ(Grid.FocusedRecord(), 0);
  EXPECT_EQ(Source.Rows[1]->Cells.back(), TVariant("eins\r\nzwei\r\ndrei"));
  EXPECT_GT(Grid.View().rowHeight(1), Grid.View().rowHeight(0));
  Key(Qt::Key_F2);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Source.Rows[0]->Cells.back(), TVariant("eins\r\nzwei"));
}

TEST_F(GridTest, TextsKeepEveryCharacterThatTheUserLeftAlone) {
  FollowContent();
  const int ordinal = AddColumn({"text", "Beurteilung"}, TVariant::Null());
  const std::pair<const char*, const char*> cases[] = {
      {"a\u00A0b\u2028c\nd\r\ne\rf", "a\u00A0b\u2028c\nd\r\ne\rf\nx"}, {"a\u00A0b", "a\u00A0b\r\nx"}, {"", "\r\nx"}};
  for (const auto& [before, after] : cases) {
    auto& cell = Source.Rows[0]->Cells.back();
    cell = before;
    FocusCell(0, ordinal);
    Key(Qt::Key_F2);
    EXPECT_EQ(dynamic_cast<TMemoEdit*>(Keyboard())->Value(), TVariant(before));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Type("x\r");
    EXPECT_EQ(cell, TVariant(after));
  }
}

TEST_F(GridTest, RowsHaveRoomForWrappedTextsAtEveryWidth) {
  FollowContent();
  Grid.resize(800, 600);
  const int ordinal = AddColumn({"text", "Beurteilung"}, "Arbeitet selbstständig, sorgfältig und stets hilfsbereit");
  Source.Rows[1]->Cells[static_cast<std::size_t>(ordinal)] = "Arda Maximilian";
  Source.Rows[2]->Cells[static_cast<std::size_t>(ordinal)] = "Ella Mia Willkommen";
  for (int width = 60; width < 260; ++width) {
    Grid.SetColumnWidth(ordinal, width);
    for (int row = 0; row < 3; ++row) {
      const QRect cell = Grid.View().visualRect(Grid.View().model()->index(row, ordinal));
      const QRect area = TGridDelegate::TextArea(cell);
      const auto text = Grid.View().fontMetrics().boundingRect(area.adjusted(0, 0, 0, 9999), Qt::TextWordWrap,
                                                               FromUtf8(Shown(row, ordinal)));
      ASSERT_LE(text.height(), cell.height()) << width;
    }
  }
  // Lines end between words.
  const auto metrics = Grid.View().fontMetrics();
  Source.Rows[1]->Cells[static_cast<std::size_t>(ordinal)] = "hilfsbereit hilfsbereit hilfsbereit";
  Grid.SetColumnWidth(ordinal, metrics.horizontalAdvance("hilfsbereit hilfsberei"));
  EXPECT_EQ(Grid.View().rowHeight(1), 3 * metrics.height() + 8);
}

TEST_F(GridTest, TheDropDownFollowsTheWindowAndMarksTheRowUnderTheMouse) {
  FocusCell(0, Grade);
  Key(Qt::Key_F4);
  const auto& list = Lookup()->List();
  const auto isBelow = [&] {
    return list.geometry().topLeft() == Keyboard()->mapToGlobal(QPoint(0, Keyboard()->height()));
  };
  EXPECT_TRUE(isBelow());
  const int wide = list.width();
  Grid.move(Grid.pos() + QPoint(40, 30));
  EXPECT_TRUE(isBelow());
  EXPECT_EQ(list.width(), wide);
  Grid.View().move(Grid.View().pos() + QPoint(0, 25));
  EXPECT_TRUE(isBelow());
  const QPoint third = list.visualItemRect(list.topLevelItem(2)).center();
  const auto ground = [&] { return list.viewport()->grab().toImage().pixelColor(third.x(), third.y() - 6); };
  const QColor before = ground();
  QMouseEvent move(QEvent::MouseMove, third, list.viewport()->mapToGlobal(third), Qt::NoButton, {}, {});
  QApplication::sendEvent(list.viewport(), &move);
  EXPECT_NE(ground(), before);
  EXPECT_TRUE(Source.Written.empty());
}

TEST_F(GridTest, ALookupIsAListToAScreenReader) {
  FocusCell(1, Grade);
  Key(Qt::Key_F4);
  auto* access = QAccessible::queryAccessibleInterface(Keyboard());
  ASSERT_NE(access, nullptr);
  EXPECT_EQ(access->role(), QAccessible::ComboBox);
  EXPECT_FALSE(access->state().readOnly);
  EXPECT_TRUE(access->state().expanded);
  EXPECT_EQ(access->text(QAccessible::Value), "15");
}

TEST(DesktopLookTest, SelectedTextIsReadableOnEveryPalette) {
  const QPalette before = QApplication::palette();
  for (const auto& [ground, text] :
       {std::pair(QColor(61, 174, 233), QColor(Qt::white)), std::pair(QColor(40, 90, 120), QColor(Qt::black)),
        std::pair(QColor(48, 140, 198), QColor(252, 252, 252))}) {
    QPalette palette = before;
    palette.setColor(QPalette::Highlight, ground);
    palette.setColor(QPalette::HighlightedText, text);
    QApplication::setPalette(palette);
    FollowPalette(palette);
    const QPalette now = QApplication::palette();
    EXPECT_EQ(now.color(QPalette::HighlightedText), text);
    EXPECT_GE(Contrast(now.color(QPalette::Highlight), text), MinimumContrast);
  }
  for (const auto& [base, text] : {std::pair("#ffffff", "#000000"), std::pair("#1b1e20", "#fcfcfc")}) {
    QStyleOptionViewItem option;
    option.palette.setColor(QPalette::Base, base);
    option.palette.setColor(QPalette::Text, text);
    const QColor line(static_cast<QRgb>(QApplication::style()->styleHint(QStyle::SH_Table_GridLineColor, &option)));
    EXPECT_GE(Contrast(line, base), 1.4);
    EXPECT_LE(Contrast(line, base), 2.2);

    const bool isDark = QColor(base).lightness() < 128;
    option.palette.setColor(QPalette::Window, isDark ? "#2a2e32" : "#efefef");
    option.palette.setColor(QPalette::WindowText, text);
    option.palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    QApplication::setPalette(option.palette);
    FollowPalette(option.palette);
    const QPalette now = QApplication::palette();
    const QColor placeholder = now.color(QPalette::PlaceholderText);
    EXPECT_GE(Contrast(Blend(base, placeholder, placeholder.alphaF()), base), MinimumContrast);
    QWidget window;
    window.resize(100, 200);
    const std::vector<QWidget*> edged{new QPlainTextEdit(&window), new QLineEdit(&window), new QSpinBox(&window),
                                      new QComboBox(&window), new QGroupBox("Titel", &window)};
    for (int i = 0; i < 5; ++i) edged[static_cast<std::size_t>(i)]->setGeometry(0, i * 40, 100, 38);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.setFocus();
    const auto edgeOf = [&](int place) {
      // The edge at the bottom, where no title stands in it.
      const QImage image = window.grab().toImage();
      double best = 1;
      for (int y = place * 40 + 35; y < place * 40 + 38; ++y)
        best = std::max(best, Contrast(image.pixelColor(50, y), now.color(QPalette::Window)));
      return best;
    };
    for (int i = 0; i < 5 && isDark; ++i) EXPECT_GE(edgeOf(i), 2.5) << i;
    edged.front()->setFocus();
    EXPECT_EQ(window.grab().toImage().pixel(50, 1), now.color(QPalette::Highlight).rgb())
        << "the text with the keyboard";
  }
  QApplication::setPalette(before);
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
}

TEST(DesktopWindowTest, F6GoesRoundTheRegionsAndTheListTakesWhatTheWindowHasToSpare) {
  TDesktopMainWindow window;
  TVantrelCommands commands;
  TRibbonDescription ribbon;
  ribbon.Tabs = {{"tab", "Start", {}}};
  window.SetRibbon(ribbon);
  window.SetStatusNote("Gespeichert um 19:42 Uhr");
  window.setMinimumSize(0, 0);
  window.resize(1800, 900);
  window.show();
  TDesktopStudentsView view(window);
  view.Students().Grid().AddColumn({"name", "Name"});
  view.Achievements().Grid().AddColumn({"fach", "Fach"});
  view.SetVisible(true);
  QTest::qWait(1);
  auto* list = &dynamic_cast<TDesktopGrid&>(view.Students().Grid()).View();
  auto* grid = &dynamic_cast<TDesktopGrid&>(view.Achievements().Grid()).View();
  EXPECT_EQ(list->parentWidget()->width(), 300);
  list->setFocus();
  auto* bar = window.statusBar()->findChild<QLabel*>();
  for (QWidget* region : std::initializer_list<QWidget*>{grid, bar, &window.Ribbon().Tabs(), list}) {
    QTest::keyClick(&window, Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), region);
  }
  QTest::keyClick(&window, Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), &window.Ribbon().Tabs());
  list->setFocus();
  QTimer::singleShot(0, [] {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
  });
  QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
  for (int i = 0; i < 5; ++i) view.Students().Grid().AddColumn({"mehr", "Mehr"});
  window.resize(1400, 900);
  QTest::qWait(1);
  EXPECT_GT(list->parentWidget()->width(), 400);
}

}  // namespace
