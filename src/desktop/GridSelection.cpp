#include "GridSelection.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <algorithm>
#include <unordered_map>

#include "GridView.h"

namespace {
std::set<int> RowsOf(const QItemSelection& selection) {
  std::set<int> rows;
  for (const auto& range : selection)
    for (int row = range.top(); row <= range.bottom(); ++row) rows.insert(row);
  return rows;
}
}  // namespace

TGridSelection::TGridSelection(TGridView& view) : FView(view) {
  QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                   [this](const auto& selected, const auto& deselected) { Changed(selected, deselected); });
  view.OnSelectAll = [this] { SelectAllShown(); };
}

std::vector<int> TGridSelection::Records() const {
  std::vector<int> records;
  for (const auto& entry : FEntries) records.push_back(entry.Record);
  return records;
}

void TGridSelection::Add(int row) {
  if (const int record = FView.Model().RecordAt(row); record >= 0)
    FEntries.push_back({record, FView.Model().Data().RecordId(record)});
}

void TGridSelection::Changed(const QItemSelection& selected, const QItemSelection& deselected) {
  if (FSuspended) return;
  const auto remove = [this](int row) {
    std::erase_if(FEntries,
                  [record = FView.Model().RecordAt(row)](const auto& entry) { return entry.Record == record; });
  };
  for (const int row : RowsOf(deselected)) remove(row);
  const auto rows = FView.SelectsRange() ? FocusedRange() : RowsOf(selected);
  for (const int row : rows) remove(row);
  for (const int row : rows) Add(row);
  Tell();
}

void TGridSelection::Tell() {
  if (OnChange) OnChange();
}

std::set<int> TGridSelection::FocusedRange() const {
  std::set<int> rows;
  const auto isSelected = [this](int row) {
    const QModelIndex index = FView.Model().index(row, 0);
    return index.isValid() && FView.selectionModel()->isSelected(index);
  };
  const int current = FView.currentIndex().row();
  for (int row = current; isSelected(row); --row) rows.insert(row);
  for (int row = current; isSelected(row); ++row) rows.insert(row);
  return rows;
}

void TGridSelection::SelectInView() {
  const QScopedValueRollback silent(FSuspended, true);
  const auto& model = FView.Model();
  QItemSelection rows;
  for (const auto& entry : FEntries) {
    const QModelIndex index = model.index(model.RowOf(entry.Record), 0);
    rows.select(index, index);
  }
  FView.selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void TGridSelection::Select(const std::vector<int>& records) {
  FEntries.clear();
  for (const int record : records) Add(FView.Model().RowOf(record));
  SelectInView();
  Tell();
}

void TGridSelection::SelectAllShown() {
  std::vector<int> records;
  for (int row = 0; row < FView.Model().rowCount(); ++row)
    if (const int record = FView.Model().RecordAt(row); record >= 0) records.push_back(record);
  Select(records);
}

void TGridSelection::Resume(bool keeps) {
  FSuspended = false;
  const bool hadNone = FEntries.empty();
  std::unordered_map<std::uint64_t, int> shown;
  for (int row = 0; row < FView.Model().rowCount() && !hadNone; ++row)
    if (const int record = FView.Model().RecordAt(row); record >= 0)
      shown.emplace(FView.Model().Data().RecordId(record), record);
  std::erase_if(FEntries, [&](const auto& entry) { return !shown.contains(entry.Id); });
  if (keeps && (hadNone || !FEntries.empty())) {
    for (auto& entry : FEntries) entry.Record = shown.at(entry.Id);
    SelectInView();
  } else {
    FEntries.clear();
    for (const int row : RowsOf(FView.selectionModel()->selection())) Add(row);
  }
  Tell();
}
