#include "GridModel.h"

#include <QApplication>
#include <QFontMetrics>
#include <algorithm>
#include <limits>

#include "QtText.h"

namespace {
constexpr int cellPadding = 8;

QVariant TipIfCut(const QString& whole, int width) {
  const QString text = ShownPart(whole);
  const QFontMetrics metrics(QApplication::font());
  const bool cut = metrics.horizontalAdvance(text) > width - cellPadding || text.contains('\n');
  return cut ? QVariant(text) : QVariant();
}
}  // namespace

Qt::Alignment AlignmentOf(const TGridColumn& column) {
  return Qt::AlignVCenter |
         (column.Editor.ValueKind == TValueKind::Text && !column.Centred ? Qt::AlignLeft : Qt::AlignHCenter);
}

void TGridModel::Suspend() {
  beginResetModel();
  FOpened.clear();
  FRows.clear();
}

void TGridModel::Resume() {
  if (ColumnsInOrder(FData.Columns, &TGridColumn::GroupIndex).empty()) FClosed.clear();
  FOpened = BuildGridRows(FData, FOptions, ActiveFilter());
  int closedLevel = std::numeric_limits<int>::max();
  for (const auto& row : FOpened) {
    if (row.Level > closedLevel) continue;
    FRows.push_back(row);
    closedLevel = row.Record < 0 && FClosed.contains(row.Key) ? row.Level : std::numeric_limits<int>::max();
  }
  endResetModel();
}

std::vector<TGridFilterItem> TGridModel::ActiveFilter() const {
  auto active = Filter;
  std::erase_if(active, [this](const auto& item) { return !item.OfUser && !FilterActive; });
  std::ranges::stable_sort(active, {}, &TGridFilterItem::OfUser);
  return active;
}

int TGridModel::RecordAt(int row) const {
  return row < 0 || row >= rowCount() ? -1 : Row(row).Record;
}

int TGridModel::RowOf(int record) const {
  if (record < 0) return -1;
  const auto at = std::find_if(FRows.begin(), FRows.end(), [record](const auto& row) { return row.Record == record; });
  return at == FRows.end() ? -1 : static_cast<int>(at - FRows.begin());
}

int TGridModel::RowNear(int record) const {
  if (const int row = RowOf(record); row >= 0 || FRows.empty()) return row;
  const auto all = BuildGridRows(FData, FOptions, {});
  const auto at = std::ranges::find(all, record, &TGridRow::Record);
  if (record < 0 || at == all.end()) return -1;
  const auto place = at - all.begin();
  const auto size = std::ssize(all);
  for (std::ptrdiff_t distance = 1; distance < size; ++distance) {
    for (const auto near : {place + distance, place - distance}) {
      if (near < 0 || near >= size) continue;
      if (const int row = RowOf(all[static_cast<std::size_t>(near)].Record); row >= 0) return row;
    }
  }
  return -1;
}

bool TGridModel::OpenGroupsOf(int record) {
  const auto at = std::ranges::find(FOpened, record, &TGridRow::Record);
  if (record < 0 || at == FOpened.end()) return false;
  bool opened = false;
  int level = at->Level;
  for (auto row = at; row != FOpened.begin() && level > 0;) {
    --row;
    if (row->Record >= 0 || row->Level >= level) continue;
    level = row->Level;
    opened = FClosed.erase(row->Key) > 0 || opened;
  }
  return opened;
}

void TGridModel::SetClosed(int row, bool closed) {
  const QString key = Row(row).Key;
  if (closed)
    FClosed.insert(key);
  else
    FClosed.erase(key);
}

int TGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FRows.size());
}

int TGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : FData.ColumnCount();
}

QVariant TGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto& row = Row(index.row());
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole) return {};
  const QString text = row.Record < 0 ? row.Text : FData.DisplayText(row.Record, index.column());
  if (role == Qt::ToolTipRole) return row.Record < 0 ? QVariant() : TipIfCut(text, FData.Column(index.column()).Width);
  return text;
}

QVariant TGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical || section < 0 || section >= columnCount()) return {};
  const auto& column = FData.Column(section);
  if (role == Qt::DisplayRole) return FromUtf8(column.Caption);
  if (role == Qt::ToolTipRole) return TipIfCut(FromUtf8(column.Caption), column.Width);
  return {};
}

Qt::ItemFlags TGridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (IsGroup(index)) return flags;
  if (!FOptions.ReadOnly && FData.Column(index.column()).Editing) flags |= Qt::ItemIsEditable;
  return flags;
}

void TGridModel::Write(const QModelIndex& index, const TVariant& value) {
  const int record = RecordAt(index.row());
  FData.SetValue(record, index.column(), value);
  RecordChanged(record);
}

void TGridModel::RecordChanged(int record) {
  if (const int row = RowOf(record); row >= 0 && columnCount() > 0)
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}
