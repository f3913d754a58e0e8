#pragma once

#include <algorithm>
#include <optional>

#include "VantrelGrid.h"
#include "VantrelMemTable.h"

/// A grid without a screen: rows in the order of the source, and one open editor that a test types into.
class FakeGrid : public TVantrelGrid, private TVantrelTableListener {
 public:
  ~FakeGrid() override {
    OnFocusChanged = nullptr;
    BindSource(nullptr);
  }

  /// As the user would: false where no editor opens.
  bool Type(int ordinal, const TVariant& value) {
    const auto& column = Columns().at(static_cast<std::size_t>(ordinal));
    if (FOptions.ReadOnly || !column.Editing || FFocused < 0 || !OnEditing(ordinal)) return false;
    FFocusedColumn = ordinal;
    if (OnEditStarted) OnEditStarted();
    FEditor = value;
    if (OnEditChanged) OnEditChanged(ordinal);
    return true;
  }
  TGridKeyAction Press(int ordinal, TGridKey key) {
    const auto action = OnKeyDown(ordinal, key);
    if (action == TGridKeyAction::MoveDown) GotoNext();
    return action;
  }
  std::vector<std::string> ShownIds() const {
    std::vector<std::string> ids;
    for (const auto& column : FColumns)
      if (column.Visible) ids.push_back(column.Id);
    return ids;
  }
  const TGridColumn& Column(std::string_view id) const { return *std::ranges::find(FColumns, id, &TGridColumn::Id); }
  const TGridOptions& Options() const { return FOptions; }
  int Updates() const { return FUpdates; }

  void SetOptions(const TGridOptions& options) override { FOptions = options; }
  void SetName(const std::string&) override {}
  void SetEnabled(bool) override {}
  void SetFocus() override {}
  void BindSource(TVantrelGridSource* source) override {
    if (FTable != nullptr) FTable->RemoveListener(this);
    FTable = nullptr;
    FSource = source;
    FEditor.reset();
    Focus(-1);
  }
  void BindTable(TVantrelMemTable* table) override {
    BindSource(nullptr);
    FTable = table;
    table->AddListener(this);
    Focus(table->RecNo() - 1);
  }
  void DataChanged() override {
    if (FTable != nullptr) Focus(FTable->RecNo() - 1);
    ++Repaints;
  }
  void BeginUpdate() override { ++FUpdates; }
  void EndUpdate() override { --FUpdates; }
  int AddColumn(TGridColumn column) override {
    FColumns.push_back(std::move(column));
    return static_cast<int>(FColumns.size()) - 1;
  }
  void ClearColumns() override { FColumns.clear(); }
  const std::vector<TGridColumn>& Columns() const override { return FColumns; }
  void ShowColumn(int ordinal, bool visible) override { At(ordinal).Visible = visible; }
  void SetColumnWidth(int ordinal, int width) override {
    At(ordinal).Width = width;
    At(ordinal).TakesRest = false;
  }
  void SetColumnSort(int ordinal, TGridSortOrder order, int sortIndex) override {
    At(ordinal).SortOrder = order;
    At(ordinal).SortIndex = sortIndex;
  }
  void GroupColumn(int ordinal, int groupIndex) override { At(ordinal).GroupIndex = groupIndex; }
  int RecordCount() const override {
    if (FSource != nullptr) return FSource->GetRecordCount();
    return FTable == nullptr ? 0 : FTable->RecordCount();
  }
  TVariant Value(int record, int ordinal) const override {
    const auto& column = FColumns.at(static_cast<std::size_t>(ordinal));
    if (FTable != nullptr) return FTable->ValueAt(record, FTable->FieldByName(column.Field).Index());
    TVariant value;
    FSource->GetValue(FSource->GetRecordHandle(record), ordinal, value);
    return value;
  }
  std::string DisplayText(int record, int ordinal) const override {
    const auto& column = FColumns.at(static_cast<std::size_t>(ordinal));
    const auto value = Value(record, ordinal);
    if (FTable != nullptr) return FTable->FieldByName(column.Field).DisplayTextOf(value);
    const auto& lookup = column.Lookup;
    if (lookup.Table == nullptr) return value.AsTextOrEmpty();
    return lookup.Table->Lookup(lookup.KeyField, value, lookup.ShownField).AsTextOrEmpty();
  }
  std::vector<TGridShownRow> ShownRows() const override {
    std::vector<TGridShownRow> rows;
    for (int i = 0; i < RecordCount(); ++i) rows.push_back({i, 0, {}});
    return rows;
  }
  std::vector<int> ShownColumns() const override { return {}; }
  int FocusedRecord() const override { return FFocused; }
  int FocusedColumn() const override { return FFocusedColumn; }
  void FocusRecord(int record) override {
    if (record >= 0 && record < RecordCount()) Focus(record);
  }
  void FocusColumn(int ordinal) override { FFocusedColumn = ordinal; }
  void GotoFirst() override { FocusRecord(0); }
  void GotoPrev() override { FocusRecord(FFocused - 1); }
  void GotoNext() override { FocusRecord(FFocused + 1); }
  void GotoLast() override { FocusRecord(RecordCount() - 1); }
  bool CanGotoPrev() const override { return FFocused > 0; }
  bool CanGotoNext() const override { return FFocused + 1 < RecordCount(); }
  void PostEdit() override {
    if (FEditor) FSource->SetValue(FSource->GetRecordHandle(FFocused), FFocusedColumn, *FEditor);
  }
  bool IsEditing() const override { return FEditor.has_value(); }
  void ClearFilter() override { Filter.clear(); }
  void AddFilter(int, const TVariant&, const std::string& displayText) override { Filter += displayText; }
  void SetFilterActive(bool) override {}
  int SelectedCount() const override { return static_cast<int>(Selected.size()); }
  int SelectedRecord(int index) const override {
    return index >= 0 && index < SelectedCount() ? Selected[static_cast<std::size_t>(index)] : -1;
  }
  void ClearSelection() override { Selected.clear(); }
  void SelectRecords(const std::vector<int>& records) override { Selected = records; }
  void DeleteSelection() override {}
  bool IsGrouped() const override { return !Group.empty(); }
  std::vector<int> FocusedGroupRecords() const override { return Group; }
  void BeginBestFit() override {}
  void BestFitAll() override {}
  void EndBestFit() override {}
  std::string Layout() const override {
    std::string layout;
    for (const auto& column : FColumns) layout += std::to_string(column.Width) + " ";
    return layout;
  }
  void RestoreLayout(std::string_view layout) override {
    for (auto& column : FColumns) {
      column.Width = std::stoi(std::string(layout));
      layout.remove_prefix(layout.find(' ') + 1);
    }
  }

  int Repaints = 0;
  std::string Filter;
  std::vector<int> Selected;
  std::vector<int> Group;

 private:
  void RecordMoved() override { Focus(FTable->RecNo() - 1); }
  TGridColumn& At(int ordinal) { return FColumns.at(static_cast<std::size_t>(ordinal)); }
  void Focus(int record) {
    if (record == FFocused) return;
    const int previous = std::exchange(FFocused, record);
    if (FTable != nullptr && record >= 0) FTable->SetRecNo(record + 1);
    if (OnFocusChanged) OnFocusChanged(previous, record);
  }

  TVantrelGridSource* FSource = nullptr;
  TVantrelMemTable* FTable = nullptr;
  TGridOptions FOptions;
  std::vector<TGridColumn> FColumns;
  std::optional<TVariant> FEditor;
  int FFocused = -1;
  int FFocusedColumn = -1;
  int FUpdates = 0;
};
