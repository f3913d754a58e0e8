#include "uGridSheet.h"

#include <algorithm>

#include "VantrelDateTime.h"

namespace {

constexpr std::string_view DateFormat = "DD.MM.YYYY";

/// "0" with as many places as the text shows.
std::string NumberFormat(std::string_view text) {
  const auto comma = text.find(',');
  return comma == std::string_view::npos ? "0" : "0." + std::string(text.size() - comma - 1, '0');
}

TSheetCell CellOf(const TVantrelGrid& grid, int record, int ordinal) {
  TSheetCell cell{.Text = grid.DisplayText(record, ordinal)};
  const auto& editor = grid.Columns()[static_cast<std::size_t>(ordinal)].Editor;
  if (cell.Text.empty() || editor.Picks() || editor.ValueKind == TValueKind::Text) return cell;
  const auto value = grid.Value(record, ordinal);
  if (value.Kind() == TVariantKind::DateTime && IsDateTime(value.AsFloat())) {
    cell.Number = value.AsFloat();
    cell.Format = DateFormat;
  } else if (editor.IsNumber() && (value.Kind() == TVariantKind::Integer || value.Kind() == TVariantKind::Float)) {
    cell.Number = value.AsFloat();
    cell.Format = NumberFormat(cell.Text);
  }
  return cell;
}

}  // namespace

TSheet SheetOf(const TVantrelGrid& grid, const std::string& title, bool all) {
  TSheet sheet{.Name = title};
  const auto shown = grid.ShownColumns();
  for (const int ordinal : shown) sheet.Captions.push_back(grid.Columns()[static_cast<std::size_t>(ordinal)].Caption);
  std::vector<int> selected;
  for (int i = 0; i < grid.SelectedCount(); ++i) selected.push_back(grid.SelectedRecord(i));
  for (const auto& line : grid.ShownRows()) {
    if (line.Record < 0) {
      if (all) sheet.Rows.push_back({.Cells = {{.Text = line.GroupText}}, .IsHeading = true});
      continue;
    }
    if (!all && std::ranges::find(selected, line.Record) == selected.end()) continue;
    auto& row = sheet.Rows.emplace_back();
    for (const int ordinal : shown) row.Cells.push_back(CellOf(grid, line.Record, ordinal));
  }
  return sheet;
}
