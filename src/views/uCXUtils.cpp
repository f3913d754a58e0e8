#include "uCXUtils.h"

#include <algorithm>

using enum TDataMode;

namespace {

void Goto(TVantrelGrid& gridView, TVantrelMemTable* table, bool useController, void (TVantrelGrid::*alongGrid)(),
          void (TVantrelMemTable::*alongTable)()) {
  if (table == nullptr) return (gridView.*alongGrid)();
  if (useController)
    (gridView.*alongGrid)();
  else
    (table->*alongTable)();
  TCXUtils::SyncSelectionToFocus(gridView);
}

}  // namespace

void TCXUtils::GotoFirst(TVantrelGrid& gridView, TVantrelMemTable* table, bool useController) {
  Goto(gridView, table, useController, &TVantrelGrid::GotoFirst, &TVantrelMemTable::First);
}

void TCXUtils::GotoPrev(TVantrelGrid& gridView, TVantrelMemTable* table, bool useController) {
  Goto(gridView, table, useController, &TVantrelGrid::GotoPrev, &TVantrelMemTable::Prior);
}

void TCXUtils::GotoNext(TVantrelGrid& gridView, TVantrelMemTable* table, bool useController) {
  Goto(gridView, table, useController, &TVantrelGrid::GotoNext, &TVantrelMemTable::Next);
}

void TCXUtils::GotoLast(TVantrelGrid& gridView, TVantrelMemTable* table, bool useController) {
  Goto(gridView, table, useController, &TVantrelGrid::GotoLast, &TVantrelMemTable::Last);
}

void TCXUtils::SyncSelectionToFocus(TVantrelGrid& gridView) {
  if (const int focused = gridView.FocusedRecord(); focused >= 0) gridView.SelectRecords({focused});
}

TVariant TCXUtils::GetSelectedRecord(const TVantrelGrid& gridView, int recordIndex, std::string_view fieldname) {
  const auto& columns = gridView.Columns();
  const auto column = std::ranges::find(columns, fieldname, &TGridColumn::Field);
  const int record = gridView.SelectedRecord(recordIndex);
  if (column == columns.end() || record < 0) return TVariant::Null();
  return gridView.Value(record, static_cast<int>(column - columns.begin()));
}

void TCXUtils::SelectAll(TVantrelGrid& gridView, bool forceSelect) {
  std::vector<int> records;
  int count = gridView.RecordCount();
  if (gridView.IsGrouped()) {
    records = gridView.FocusedGroupRecords();
    count = static_cast<int>(records.size());
  } else {
    for (const auto& row : gridView.ShownRows())
      if (row.Record >= 0) records.push_back(row.Record);
  }
  if (gridView.SelectedCount() == count && !forceSelect)
    gridView.ClearSelection();
  else
    gridView.SelectRecords(records);
}

void TCXUtils::SetExtLookupComboBoxProperties(TGridColumn& properties, const TGridLookup& view,
                                              const std::string& keyFieldNames, const std::string& listFieldItem) {
  properties.Editor = TGridEditorKind::Lookup;
  properties.Lookup = view;
  properties.Lookup.KeyField = keyFieldNames;
  properties.Lookup.ShownField = listFieldItem;
}

void TCXUtils::SwitchEditMode(TVantrelGrid& gridView, TGridOptions options, TDataMode& dataMode,
                              TVantrelCommand& sender, TDataMode forceTo) {
  const bool browse = dataMode == dmEdit ? forceTo != dmEdit : forceTo == dmBrowse;
  dataMode = browse ? dmBrowse : dmEdit;
  options.ReadOnly = browse;
  gridView.SetOptions(options);
  sender.SetChecked(!browse);
}

void TCXUtils::SetLabelAutosize(std::span<TVantrelFormItem* const> labels, [[maybe_unused]] bool autoSize) {
  for (auto* label : labels) label->SetValue(label->Value().AsTextOrEmpty() + " ");
}
