#include "uCXUtils.h"

using enum TDataMode;

void TCXUtils::GotoFirst(TVantrelGrid& gridView) {
  gridView.GotoFirst();
  SyncSelectionToFocus(gridView);
}

void TCXUtils::GotoPrev(TVantrelGrid& gridView) {
  gridView.GotoPrev();
  SyncSelectionToFocus(gridView);
}

void TCXUtils::GotoNext(TVantrelGrid& gridView) {
  gridView.GotoNext();
  SyncSelectionToFocus(gridView);
}

void TCXUtils::GotoLast(TVantrelGrid& gridView) {
  gridView.GotoLast();
  SyncSelectionToFocus(gridView);
}

void TCXUtils::SyncSelectionToFocus(TVantrelGrid& gridView) {
  if (const int focused = gridView.FocusedRecord(); focused >= 0) gridView.SelectRecords({focused});
}

bool TCXUtils::FocusRecord(TVantrelGrid& gridView, int record) {
  gridView.FocusRecord(record);
  if (gridView.FocusedRecord() != record) {
    gridView.LiftUserFilter();
    gridView.FocusRecord(record);
  }
  SyncSelectionToFocus(gridView);
  return gridView.FocusedRecord() == record;
}

TVariant TCXUtils::GetSelectedRecord(const TVantrelGrid& gridView, int recordIndex, std::string_view fieldname) {
  return gridView.FieldValue(gridView.SelectedRecord(recordIndex), fieldname);
}

void TCXUtils::SelectAll(TVantrelGrid& gridView, bool forceSelect) {
  std::vector<int> records;
  if (gridView.IsGrouped()) {
    records = gridView.FocusedGroupRecords();
  } else {
    for (const auto& row : gridView.ShownRows())
      if (row.Record >= 0) records.push_back(row.Record);
  }
  if (gridView.SelectedCount() == static_cast<int>(records.size()) && !forceSelect)
    gridView.ClearSelection();
  else
    gridView.SelectRecords(records);
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
