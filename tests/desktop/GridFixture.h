#pragma once

#include <QAbstractItemModelTester>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <stdexcept>

#include "Collected.h"
#include "DesktopGrid.h"
#include "LookupEdit.h"
#include "Testing.h"
#include "VantrelMemTable.h"

/// Rows of variants; what was written is kept in order.
struct TRowsSource : TVantrelGridSource {
  struct TRow : TVantrelObject {
    std::vector<TVariant> Cells;
  };
  explicit TRowsSource(const std::vector<std::vector<TVariant>>& rows) {
    for (const auto& cells : rows) {
      Rows.push_back(std::make_unique<TRow>());
      Rows.back()->Cells = cells;
    }
  }
  int GetRecordCount() override { return static_cast<int>(Rows.size()); }
  TVantrelObject* GetRecordHandle(int index) override { return Rows[static_cast<std::size_t>(index)].get(); }
  void GetValue(TVantrelObject* record, int ordinal, TVariant& value) override {
    if (ordinal == Failing) throw std::runtime_error("unreadable");
    value = Cell(record, ordinal);
  }
  void SetValue(TVantrelObject* record, int ordinal, const TVariant& value) override {
    Cell(record, ordinal) = value;
    Written.push_back(value.AsTextOrEmpty());
  }
  TVariant& Cell(TVantrelObject* record, int ordinal) {
    return static_cast<TRow*>(record)->Cells[static_cast<std::size_t>(ordinal)];
  }

  std::vector<std::unique_ptr<TRow>> Rows;
  std::vector<std::string> Written;
  int Failing = -1;
};

/// What the menu of the focused cell offers, opened by its key and left again.
inline QStringList MenuOf(TDesktopGrid& grid) {
  QStringList offered;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (const auto* action : menu->actions())
      if (action->isEnabled()) offered << action->text();
    menu->close();
  });
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(grid.View().viewport(), &event);
  return offered;
}

/// Three students with name, grade, absences and result; the grades 1, 1-, 2, 15 and tf by id.
struct GridTest : testing::Test {
  enum { Name, Grade, Absences, Result };

  GridTest() {
    Grades.AddField("ID", TVantrelFieldType::ftInteger);
    Grades.AddField("Token", TVantrelFieldType::ftText, 20);
    Grades.AddField("Description", TVantrelFieldType::ftText, 300);
    FillGrades({"1-", "1", "15", "2", "tf"});
    Grid.SetOptions({.ReadOnly = false, .TabMovesCells = true, .EnterMovesToNextCell = true, .WrapAtRowEnd = true});
    AddColumns();
    Grid.BindSource(&Source);
    Grid.OnKeyDown = [](int ordinal, TGridKey key) {
      return ordinal == Grade && key == TGridKey::Enter ? TGridKeyAction::MoveDown : TGridKeyAction::Pass;
    };
    Grid.OnEditChanged = [](int) { return true; };
    Grid.resize(800, 300);
    Grid.show();
    Grid.SetFocus();
    QTest::qWait(1);
    FocusCell(0, Grade);
  }

  void FillGrades(std::initializer_list<const char*> tokens) {
    Grades.Close();
    Grades.Open();
    int id = 100;
    for (const char* token : tokens) {
      Grades.Append();
      Grades.FieldByName("ID").SetValue(id++);
      Grades.FieldByName("Token").SetValue(token);
      Grades.FieldByName("Description").SetValue("Note");
      Grades.Post();
    }
  }

  void FollowContent() {
    auto options = Grid.Options();
    options.RowsFollowContent = true;
    Grid.SetOptions(options);
  }
  void Filter(int ordinal, const TVariant& value, const char* text) {
    Grid.AddFilter(ordinal, value, text);
    Grid.SetFilterActive(true);
  }

  int AddColumn(const TGridColumn& column, const TVariant& value) {
    for (auto& row : Source.Rows) row->Cells.push_back(value);
    return Grid.AddColumn(column);
  }

  void AddColumns() {
    Grid.AddColumn({.Id = "name", .Caption = "Name", .Editing = false});
    Grid.AddColumn({.Id = "grade",
                    .Caption = "Note",
                    .Editor = {.Kind = TEditorKind::Lookup,
                               .ValueKind = TValueKind::Integer,
                               .Lookup = {&Grades, "ID", "Token", "Description"},
                               .DeleteClears = true}});
    Grid.AddColumn({.Id = "absences",
                    .Caption = "Fehltage",
                    .Editor = {.Kind = TEditorKind::Spin, .ValueKind = TValueKind::Integer, .Maximum = 99}});
    Grid.AddColumn({.Id = "result",
                    .Caption = "Ergebnis",
                    .Editor = {.Kind = TEditorKind::List,
                               .Items = {{"Bestanden (P)", "P"}, {"Nicht bestanden (F)", "F"}, {"Nicht belegt", "N"}},
                               .DeleteClears = true}});
  }

  void FocusCell(int record, int ordinal) {
    Grid.FocusRecord(record);
    Grid.FocusColumn(ordinal);
  }
  QWidget* Keyboard() {
    auto* editor = Grid.View().indexWidget(Grid.View().currentIndex());
    return editor != nullptr && Grid.IsEditing() ? editor : &Grid.View();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Keyboard(), key, modifiers); }
  /// A key for each character: '\r' is Return, '\t' Tab, '\b' Backspace, '\033' Escape.
  void Type(const std::string& text) {
    for (const char c : text) QTest::keyClick(Keyboard(), c);
  }
  void Type(int record, int ordinal, const std::string& text) {
    FocusCell(record, ordinal);
    Type(text);
  }
  using TCell = std::pair<int, int>;
  TCell Focus() const { return {Grid.FocusedRecord(), Grid.FocusedColumn()}; }
  bool IsRefused() { return dynamic_cast<TValueEditor*>(Keyboard())->HasRefused(); }
  TLookupEdit* Lookup() { return dynamic_cast<TLookupEdit*>(Keyboard()); }
  std::string Shown(int record, int ordinal) { return Grid.DisplayText(record, ordinal); }
  std::vector<int> Records() {
    return Collected(Grid.ShownRows(), [](const auto& row) { return row.Record; });
  }

  TVantrelMemTable Grades;
  TRowsSource Source{
      {{"Özil", TVariant::Null(), 5, "P"}, {"adam", 102, 12, "F"}, {"Zink", 101, TVariant::Null(), "P"}}};
  TDesktopGrid Grid;
  QAbstractItemModelTester ModelTester{Grid.View().model()};
};

/// A read-only list over the table of grades.
struct ListTest : GridTest {
  ListTest() {
    Grid.ClearColumns();
    Grid.SetOptions({.MultiSelect = true});
    Grid.BindTable(&Grades);
    Grid.AddColumn({.Id = "col_Token", .Caption = "Kürzel", .Field = "Token"});
    Grades.First();
  }
  ~ListTest() override { Grid.BindTable(nullptr); }
};
