// Filter, selection, best fit and layout of the grid.
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "DesktopGrid.h"
#include "QtText.h"

void TDesktopGrid::ClearFilter() {
  BeginUpdate();
  std::erase_if(FModel.Filter, [](const auto& item) { return !item.OfUser; });
  EndUpdate();
}

void TDesktopGrid::AddFilter(int ordinal, const TVariant& value, const std::string& displayText) {
  BeginUpdate();
  FModel.Filter.push_back({ordinal, value, FromUtf8(displayText)});
  EndUpdate();
}

void TDesktopGrid::SetFilterActive(bool active) {
  BeginUpdate();
  FModel.FilterActive = active;
  EndUpdate();
}

void TDesktopGrid::FilterByUser(int ordinal, const TVariant& value, const QString& displayText) {
  BeginUpdate();
  FModel.Filter.push_back({ordinal, value, displayText, true});
  EndUpdate();
}

bool TDesktopGrid::IsFilteredByUser() const {
  return std::ranges::any_of(FModel.Filter, &TGridFilterItem::OfUser);
}

bool TDesktopGrid::LiftFilter() {
  if (!IsFilteredByUser()) return false;
  BeginUpdate();
  std::erase_if(FModel.Filter, &TGridFilterItem::OfUser);
  EndUpdate();
  return true;
}

int TDesktopGrid::OrdinalOf(const QString& id) const {
  const auto found = std::ranges::find(Columns(), ToUtf8(id), &TGridColumn::Id);
  return found == Columns().end() ? -1 : static_cast<int>(found - Columns().begin());
}

int TDesktopGrid::SelectedCount() const {
  return static_cast<int>(FSelection.Records().size());
}

int TDesktopGrid::SelectedRecord(int index) const {
  const auto records = FSelection.Records();
  return index < 0 || index >= static_cast<int>(records.size()) ? -1 : records[static_cast<std::size_t>(index)];
}

void TDesktopGrid::ClearSelection() {
  FSelection.Select({});
}

void TDesktopGrid::SelectRecords(const std::vector<int>& records) {
  if (!FModel.Options().MultiSelect && (records.size() > 1 || !FModel.Options().ReadOnly)) return;
  FSelection.Select(records);
}

void TDesktopGrid::DeleteSelection() {
  auto* table = FModel.Data().Table();
  if (table == nullptr) return;
  std::vector<std::uint64_t> selected;
  for (const int record : FSelection.Records()) selected.push_back(table->RecordId(record));
  BeginUpdate();
  table->DisableControls();
  for (const auto id : selected) {
    const int record = table->RecordOf(id);
    if (record < 0) continue;
    table->SetRecNo(record + 1);
    table->Delete();
  }
  table->EnableControls();
  EndUpdate();
}

bool TDesktopGrid::IsGrouped() const {
  return !ColumnsInOrder(Columns(), &TGridColumn::GroupIndex).empty();
}

std::vector<int> TDesktopGrid::FocusedGroupRecords() const {
  std::vector<int> group;
  bool found = false;
  for (const auto& row : FModel.OpenedRows()) {
    if (row.Record < 0) {
      if (found) break;
      group.clear();
      continue;
    }
    group.push_back(row.Record);
    found = found || row.Record == FFocused;
  }
  return found ? group : std::vector<int>();
}

void TDesktopGrid::BeginBestFit() {
  FView->setUpdatesEnabled(false);
}

void TDesktopGrid::EndBestFit() {
  FView->FitRows();
  FView->setUpdatesEnabled(true);
}

int TDesktopGrid::BestWidth(int ordinal) const {
  const QFontMetrics metrics = FView->fontMetrics();
  int width = FView->horizontalHeader()->sectionSizeHint(ordinal);
  for (int record = 0; record < RecordCount(); ++record)
    width = std::max(width, metrics.size(0, ShownPart(FModel.Data().DisplayText(record, ordinal))).width() + 14);
  return FView->FromPixels(std::min(width, FView->viewport()->width()));
}

void TDesktopGrid::BestFit(int ordinal) {
  SetColumnWidth(ordinal, BestWidth(ordinal));
}

void TDesktopGrid::BestFitAll() {
  for (const int ordinal : ShownColumns()) GiveWidth(ordinal, BestWidth(ordinal));
  if (FUpdates == 0) FView->ApplyColumns();
}

std::string TDesktopGrid::Layout() const {
  QJsonArray columns;
  for (int ordinal = 0; ordinal < FModel.Data().ColumnCount(); ++ordinal) {
    const auto& column = FModel.Data().Column(ordinal);
    columns.append(QJsonObject{{"id", FromUtf8(column.Id)},
                               {"width", column.Width},
                               {"visible", column.Visible},
                               {"place", FView->horizontalHeader()->visualIndex(ordinal)},
                               {"sort", static_cast<int>(column.SortOrder)},
                               {"sortIndex", column.SortIndex},
                               {"group", column.GroupIndex}});
  }
  return QJsonDocument(QJsonObject{{"columns", columns}}).toJson(QJsonDocument::Compact).toStdString();
}

void TDesktopGrid::RestoreLayout(std::string_view layout) {
  const auto document =
      QJsonDocument::fromJson(QByteArray(layout.data(), static_cast<qsizetype>(layout.size()))).object();
  std::vector<std::pair<int, int>> places;
  BeginUpdate();
  for (const auto& entry : document["columns"].toArray()) {
    const QJsonObject stored = entry.toObject();
    const int ordinal = OrdinalOf(stored["id"].toString());
    if (ordinal < 0) continue;
    auto* column = &FModel.Data().Column(ordinal);
    column->Width = std::clamp(stored["width"].toInt(column->Width), 1, 10000);
    column->Visible = stored["visible"].toBool(column->Visible);
    const int sortIndex = std::max(stored["sortIndex"].toInt(0), 0);
    const bool sorts = sortIndex == 0 || !FModel.Options().SortedByView;
    const auto order = static_cast<TGridSortOrder>(std::clamp(stored["sort"].toInt(0), 0, 2));
    column->SortOrder = sorts ? order : TGridSortOrder::None;
    column->SortIndex = column->SortOrder == TGridSortOrder::None ? -1 : sortIndex;
    column->GroupIndex = std::max(stored["group"].toInt(-1), -1);
    places.emplace_back(stored["place"].toInt(), ordinal);
  }
  EndUpdate();
  std::sort(places.begin(), places.end());
  auto* header = FView->horizontalHeader();
  for (std::size_t i = 0; i < places.size(); ++i)
    header->moveSection(header->visualIndex(places[i].second), static_cast<int>(i));
}
