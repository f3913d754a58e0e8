#include "uRememberedColumns.h"

#include <algorithm>

namespace {

template <class TRecord, class... TArgs>
void Remember(TFieldRecords<TRecord>& records, const TGridColumn& column, int ordinal, const TArgs&... values) {
  const auto known = std::ranges::find_if(records, [&](const auto& record) { return record->Name == column.Id; });
  if (known != records.end())
    (*known)->Values(column.Id, ordinal, values..., true);
  else
    records.AddField(column.Id, ordinal, values...);
}

template <class TRecord, class TApply>
void Apply(const TFieldRecords<TRecord>& records, const std::vector<TGridColumn>& columns, TApply apply) {
  for (const auto& record : records) {
    const auto column = std::ranges::find(columns, record->Name, &TGridColumn::Id);
    if (column != columns.end()) apply(static_cast<int>(column - columns.begin()), *record);
  }
}

}  // namespace

void TRememberedColumns::Save(const TVantrelGrid& grid) {
  const auto& columns = grid.Columns();
  const bool isSorted =
      std::ranges::any_of(columns, [](const auto& column) { return column.SortOrder != TGridSortOrder::None; });
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    const auto& column = columns[static_cast<std::size_t>(i)];
    if (isSorted && column.Visible)
      Remember(SortFields, column, i, column.SortIndex, static_cast<TSortOrder>(column.SortOrder));
    Remember(VisibleFields, column, i, i, column.Visible, column.TakesRest ? 0 : column.Width);
  }
}

void TRememberedColumns::Restore(TVantrelGrid& grid) const {
  const auto columns = grid.Columns();
  Apply(SortFields, columns, [&](int ordinal, const TSortField& field) {
    grid.SetColumnSort(ordinal, static_cast<TGridSortOrder>(field.SortOrder), field.SortIndex);
  });
  Apply(VisibleFields, columns, [&](int ordinal, const TVisibleField& field) {
    grid.ShowColumn(ordinal, field.Visible);
    if (field.Width > 0) grid.SetColumnWidth(ordinal, field.Width);
  });
}
