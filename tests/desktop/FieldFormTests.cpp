#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSizeGrip>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWheelEvent>

#include "DesktopFieldForm.h"
#include "DesktopViewScreen.h"
#include "LookupEdit.h"
#include "Testing.h"
#include "VantrelMemTable.h"

/// A form with a field of each kind, and a text before it that Return leaves.
struct FieldFormTest : testing::Test {
  FieldFormTest() {
    Grades.AddField("ID", TVantrelFieldType::ftInteger);
    Grades.AddField("Token", TVantrelFieldType::ftText, 20);
    Grades.Open();
    AddGrades(1, 4);
    Build(false);
  }

  void AddGrades(int first, int last) {
    for (int id = first; id <= last; ++id) {
      Grades.Append();
      Grades.FieldByName("ID").SetValue(100 + id);
      Grades.FieldByName("Token").SetValue(std::to_string(id));
      Grades.Post();
    }
  }

  void Build(bool ticks) {
    Form = std::make_unique<TDesktopFieldForm>();
    using enum TEditorKind;
    Form->SetFields(
        {.Groups =
             {{"texts",
               "Texte",
               {{"text", "Text", {.ReturnMovesOn = true, .MaxLength = 8}}, {"memo", "Bemerkung", {.Kind = Memo}}}},
              {"values",
               "Werte",
               {{"days", "Tage", {.Kind = Spin, .ValueKind = TValueKind::Integer, .NullText = "(NULL)"}},
                {"mark",
                 "Note",
                 {.Kind = Spin, .ValueKind = TValueKind::Float, .Minimum = 1, .Decimals = 2, .DeleteClears = true},
                 true},
                {"date", "Datum", {.Kind = Date, .ValueKind = TValueKind::Date, .NullText = "-", .DeleteClears = true}},
                {"grade",
                 "Verhalten",
                 {.Kind = Lookup,
                  .ValueKind = TValueKind::Integer,
                  .Lookup = {&Grades, "ID", "Token", {}},
                  .DeleteClears = true}},
                {"moved", "Versetzt", {.Kind = List, .Items = {{"versetzt", "J"}, {"nicht versetzt", "N"}}}}}}},
         .Ticks = ticks});
    Form->OnChange = [this](const std::string& key) { Told.push_back(key + "=" + Form->Value(key).AsTextOrEmpty()); };
    Form->OnLeave = [this](const std::string& key) { Left.push_back(key); };
    Form->show();
    Form->activateWindow();
    QTest::qWait(1);
  }

  QWidget& Editor(const std::string& key) {
    Form->SetFocus(key);
    return *QApplication::focusWidget();
  }
  static QString Shown(const QWidget& editor) {
    const auto* line = qobject_cast<const QLineEdit*>(&editor);
    return (line != nullptr ? line : editor.findChild<QLineEdit*>())->text();
  }
  static std::string Focus() { return QApplication::focusWidget()->accessibleName().toStdString(); }
  /// '\n' is Return, '\b' Backspace.
  static void Type(const char* keys) {
    for (; *keys != '\0'; ++keys) {
      auto* editor = QApplication::focusWidget();
      if (*keys == '\n' || *keys == '\b')
        QTest::keyClick(editor, *keys == '\n' ? Qt::Key_Return : Qt::Key_Backspace);
      else
        QTest::keyClick(editor, *keys);
    }
  }

  TVantrelMemTable Grades;
  std::unique_ptr<TDesktopFieldForm> Form;
  std::vector<std::string> Told, Left;
};

TEST_F(FieldFormTest, EachKindTakesWhatIsTypedAndEscapeTakesItBack) {
  const TVariant null = TVariant::Null();
  const std::tuple<const char*, TVariant, const char*, TVariant> cases[] = {
      {"text", "ab", "cd", "abcd"},
      {"text", "", "123456789", "12345678"},
      {"text", "zwölf Zeichen", "x", "zwölf Zeichen"},
      {"text", "zwölf Zeichen", "\b", "zwölf Zeiche"},
      {"memo", "eins\ncd", "\bx\ny", "x\nyeins\ncd"},
      {"days", null, "12", 12},
      {"days", 3, "x", 3},
      {"days", 7, "\b", null},
      {"mark", null, "2,345", 2.34},
      {"mark", 2.5, "\b\b\b0,5", 2.5},
      {"date", null, "1.2.24", TVariant::DateTime(45323)},
      {"date", TVariant::DateTime(45323), "\b", TVariant::DateTime(45323)},
      {"grade", null, "2", 102},
      {"grade", 103, "x", 103},
      {"grade", 4711, "x\b", 4711},
      {"moved", "J", "n", "N"},
      {"moved", "J", "x\b", "J"}};
  for (const auto& [key, before, typed, after] : cases) {
    Editor(key == std::string_view("days") ? "moved" : "days");
    Form->SetValue(key, before);
    Told.clear();
    auto& editor = Editor(key);
    Type(typed);
    EXPECT_EQ(Form->Value(key), after) << key << typed;
    EXPECT_EQ(Told.empty(), before == after && std::string(typed) != "\b\b\b0,5") << key << typed;
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_EQ(Form->Value(key), before) << key << typed;
    EXPECT_TRUE(Form->IsValid(key));
  }
}

TEST_F(FieldFormTest, UntouchedIsUnchanged) {
  for (const auto& [key, value] : {std::pair("mark", TVariant(0.1F)),
                                   {"date", TVariant::DateTime(45351.75)},
                                   {"grade", TVariant(4711)},
                                   {"moved", TVariant("?")},
                                   {"days", TVariant(-1)}}) {
    Form->SetValue(key, value);
    auto& editor = Editor(key);
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&editor, &wheel);
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(Form->Value(key), value) << key;
    EXPECT_EQ(Form->Value(key).Kind(), value.Kind()) << key;
  }
  EXPECT_TRUE(Told.empty());
}

TEST_F(FieldFormTest, AFieldThatIsEnteredAgainBeginsAnew) {
  const auto typed = [&](const std::string& key, const TVariant& value, const char* first, const char* second) {
    Form->SetValue(key, value);
    for (const char* keys : {first, second}) {
      Form->SetFocus(key);
      Type(keys);
      Form->SetFocus("text");
    }
    return Form->Value(key);
  };
  EXPECT_EQ(typed("grade", 102, "2", "3"), TVariant(103));
  EXPECT_EQ(typed("days", TVariant::Null(), "3,", "4"), TVariant(34));
  auto& days = Editor("days");
  Type("5");
  QTest::keyClick(&days, Qt::Key_Escape);
  EXPECT_EQ(Form->Value("days"), TVariant(34)) << "as it was on this visit";
}

TEST_F(FieldFormTest, AnotherWindowInBetweenCostsNothingTyped) {
  for (const auto reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    Form->SetValue("date", TVariant::Null());
    auto& date = Editor("date");
    Type("1.2");
    for (const auto type : {QEvent::FocusOut, QEvent::FocusIn}) {
      QFocusEvent event(type, reason);
      QApplication::sendEvent(&date, &event);
    }
    Type(".24");
    EXPECT_EQ(Form->Value("date"), TVariant::DateTime(45323)) << reason;
  }
}

TEST_F(FieldFormTest, StepsStayWithinTheLimits) {
  for (const auto& [key, before, pressed, after] :
       {std::tuple("days", TVariant(2147483647), Qt::Key_Up, TVariant(2147483647)),
        {"days", TVariant(0), Qt::Key_Down, TVariant(0)},
        {"mark", TVariant::Null(), Qt::Key_Up, TVariant(1.0)},
        {"mark", TVariant(1.5), Qt::Key_Down, TVariant(1.0)}}) {
    Form->SetValue(key, before);
    QTest::keyClick(&Editor(key), pressed);
    EXPECT_EQ(Form->Value(key), after) << key;
  }
}

TEST_F(FieldFormTest, TheCalendarGivesTheDateThatIsChosen) {
  const auto choose = [this](const std::function<void(QWidget & calendar, QTableView & days)>& how) {
    Form->SetValue("date", TVariant::DateTime(45323));
    auto& date = Editor("date");
    QTest::keyClick(&date, Qt::Key_F4);
    auto& calendar = *QApplication::activePopupWidget();
    how(calendar, *calendar.findChild<QTableView*>());
    return Shown(date);
  };
  EXPECT_EQ(choose([](QWidget&, QTableView& days) {
              QTest::keyClick(&days, Qt::Key_Right);
              QTest::keyClick(&days, Qt::Key_Return);
            }),
            "02.02.2024");
  EXPECT_EQ(choose([](QWidget&, QTableView& days) {
              const auto next = days.currentIndex().siblingAtColumn(days.currentIndex().column() + 1);
              QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, days.visualRect(next).center());
            }),
            "02.02.2024");
  EXPECT_EQ(choose([](QWidget& calendar, QTableView&) { calendar.findChild<QPushButton*>()->click(); }),
            QDate::currentDate().toString("dd.MM.yyyy"));
}

TEST_F(FieldFormTest, KeysLeadThroughTheFields) {
  Form->SetEnabled("memo", false);
  Form->SetVisible("mark", false);
  auto& first = Editor("text");
  QTest::keyClick(&first, Qt::Key_Return);
  EXPECT_EQ(Focus(), "Tage");
  Type("4\n");
  EXPECT_EQ(Focus(), "Tage");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(Focus(), "Datum");
  Type("1.2");
  EXPECT_FALSE(Form->IsValid("date"));
  for (const auto key : {Qt::Key_Tab, Qt::Key_Return}) QTest::keyClick(QApplication::focusWidget(), key);
  EXPECT_EQ(Focus(), "Datum");
  Form->SetFocus("grade");
  EXPECT_TRUE(Form->IsValid("date") && Form->Value("date").IsNull());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focus(), "Datum");
  EXPECT_EQ(Told, std::vector<std::string>{"days=4"});
  EXPECT_EQ(Left, (std::vector<std::string>{"text", "days", "date", "grade"}));
}

TEST_F(FieldFormTest, DeleteEmptiesAFieldWhereItIsTold) {
  const std::tuple<const char*, TVariant, bool> cases[] = {{"days", 12, false},
                                                           {"mark", 2.25, true},
                                                           {"date", TVariant::DateTime(45323), true},
                                                           {"grade", 104, true},
                                                           {"moved", "J", false}};
  for (const auto& [key, value, clears] : cases) {
    Form->SetValue(key, value);
    QTest::keyClick(&Editor(key), Qt::Key_Delete);
    EXPECT_EQ(Form->Value(key).IsNull(), clears) << key;
  }
  EXPECT_EQ(Shown(Editor("date")), "");
  EXPECT_EQ(static_cast<QLineEdit&>(Editor("date")).placeholderText(), "-");
}

TEST_F(FieldFormTest, ALookupOffersWhatPassesTheFilterNow) {
  Grades.SetOnFilterRecord([](const auto& row) { return row[1].AsText() != "3"; });
  Form->SetValue("grade", 103);
  Grades.SetFiltered(true);
  auto& editor = static_cast<TLookupEdit&>(Editor("grade"));
  EXPECT_EQ(Shown(editor), "3");
  EXPECT_FALSE(editor.IsListOpen());
  QTest::mouseClick(&editor, Qt::LeftButton);
  ASSERT_TRUE(editor.IsListOpen());
  EXPECT_EQ(editor.List().topLevelItemCount(), 3);
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_FALSE(editor.IsListOpen());
  QTest::keyClick(&editor, Qt::Key_Down);
  EXPECT_EQ(Told, std::vector<std::string>{"grade=101"});
  Form->SetValue("grade", 102);
  EXPECT_EQ(Shown(editor), "2");
  EXPECT_EQ(Told.size(), 1U);
}

TEST_F(FieldFormTest, WhatIsNoValueIsMarkedUntilItIsOne) {
  const struct {
    const char* Key;
    const char* Typed;
    Qt::Key Leaves;
  } cases[] = {{"grade", "x", Qt::Key_F4}, {"date", "1.2", Qt::Key_Control}, {"mark", "0,5", Qt::Key_Tab}};
  for (const auto& [key, typed, leaves] : cases) {
    auto& editor = Editor(key);
    const auto isMarked = [&] { return dynamic_cast<TValueEditor&>(editor).HasRefused(); };
    Type(typed);
    Form->Check();
    QTest::keyClick(&editor, leaves);
    EXPECT_TRUE(isMarked() && editor.hasFocus()) << key;
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(isMarked()) << key;
    Form->Check();
    EXPECT_FALSE(isMarked()) << key;
  }
  Form->SetValue("days", 99999);
  auto& days = Editor("days");
  Type("1");
  QTest::keyClick(&days, Qt::Key_Escape);
  Type("9");
  EXPECT_EQ(Form->Value("days"), TVariant(9)) << "Escape leaves all of it to be replaced";
  auto& date = Editor("date");
  Type("1,2-24");
  QTest::keyClick(&date, Qt::Key_Tab);
  EXPECT_EQ(Shown(date), "01.02.2024");
  Editor("date");
  QTest::keyClick(&date, Qt::Key_F4);
  auto* none = QApplication::activePopupWidget()->findChildren<QPushButton*>().last();
  none->setFocus();
  QTest::keyClick(none, Qt::Key_Return);
  EXPECT_TRUE(Form->Value("date").IsNull());
}

TEST_F(FieldFormTest, AFieldIsSeenWholeWhenTheKeyboardComes) {
  auto* form = Form.release();
  const std::unique_ptr<QScrollArea> area(Scrolled(form));
  area->resize(form->minimumSizeHint().width() / 2, 120);
  area->show();
  QTest::qWait(1);
  for (const char* key : {"moved", "text", "grade"}) {
    form->SetFocus(key);
    const auto& editor = *area->focusWidget();
    EXPECT_TRUE(area->viewport()->rect().contains(QRect(editor.mapTo(area->viewport(), QPoint()), editor.size())))
        << key;
  }
}

TEST_F(FieldFormTest, ALongDropDownCanBeSizedAndStaysSo) {
  AddGrades(5, 30);
  auto& editor = static_cast<TLookupEdit&>(Editor("grade"));
  editor.OpenList();
  const int high = editor.List().height();
  auto& grip = *editor.List().findChild<QSizeGrip*>();
  ASSERT_TRUE(grip.isVisible());
  const QPoint corner = grip.rect().center();
  QTest::mousePress(&grip, Qt::LeftButton, {}, corner);
  QTest::mouseMove(&grip, corner + QPoint(0, 50));
  QTest::mouseRelease(&grip, Qt::LeftButton, {}, corner);
  EXPECT_EQ(editor.List().height(), high + 50);
  editor.CloseList();
  editor.OpenList();
  EXPECT_EQ(editor.List().height(), high + 50);
  for (const auto& [key, value] : {std::pair(Qt::Key_PageDown, 111),
                                   {Qt::Key_PageDown, 122},
                                   {Qt::Key_PageUp, 111},
                                   {Qt::Key_End, 130},
                                   {Qt::Key_PageDown, 130},
                                   {Qt::Key_Home, 101}}) {
    QTest::keyClick(&editor, key);
    EXPECT_EQ(Form->Value("grade"), TVariant(value));
  }
  QTest::keyClick(&editor, Qt::Key_End);
  Form->SetValue("grade", TVariant::Null());
  EXPECT_FALSE(editor.IsListOpen()) << "another one is shown";
  editor.OpenList();
  EXPECT_EQ(editor.List().indexAt({1, 1}).row(), 0);
}

TEST_F(FieldFormTest, NothingIsCutAndBlocksStandApart) {
  const auto usual = QApplication::font();
  auto large = usual;
  large.setPointSize(24);
  QApplication::setFont(large);
  Build(false);
  QApplication::setFont(usual);
  Form->resize(Form->minimumSizeHint());
  QTest::qWait(1);
  for (const auto* label : Form->findChildren<QLabel*>())
    EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
  for (const auto& [key, text] : {std::pair("date", "30.12.2026"), {"moved", "nicht versetzt"}})
    EXPECT_GT(Editor(key).width(), Editor(key).fontMetrics().horizontalAdvance(text)) << key;

  const auto above = [this](const char* key) { return Editor(key).geometry().top(); };
  const int top = above("days"), step = above("grade") - above("date");
  Form->SetVisible("mark", false);
  QTest::qWait(1);
  EXPECT_GT(above("date") - top, step) << "its block stands apart without it";
  Form->SetVisible("days", false);
  QTest::qWait(1);
  EXPECT_EQ(above("date"), top) << "there is nothing to stand apart from";
}

TEST_F(FieldFormTest, TicksAndGroups) {
  Build(true);
  std::vector<std::string> ticked;
  Form->OnTick = [&](const std::string& key) { ticked.push_back(key); };
  Form->SetTicked("text", true);
  Editor("text");
  for (int i = 0; i < 2; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, {});
  ASSERT_EQ(Focus(), "Bemerkung");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(ticked, std::vector<std::string>{"memo"});
  EXPECT_TRUE(Form->IsTicked("text") && Form->IsTicked("memo"));
  EXPECT_FALSE(Form->IsTicked("days") || Form->IsTicked("unbekannt"));
  Form->SetGroupVisible("values", false);
  EXPECT_FALSE(Form->findChildren<QGroupBox*>()[1]->isVisible());
}
