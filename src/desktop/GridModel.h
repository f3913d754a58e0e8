#pragma once

#include <QAbstractTableModel>
#include <set>

#include "GridData.h"

/// The rows of a grid for Qt's table view: filtered, sorted and grouped. Sections are column ordinals.
class TGridModel : public QAbstractTableModel {
 public:
  explicit TGridModel(const TVantrelGrid& events) : FData(events) {}

  TGridData& Data() { return FData; }
  const TGridData& Data() const { return FData; }
  TGridOptions& Options() { return FOptions; }
  const TGridOptions& Options() const { return FOptions; }

  /// From Suspend on there are no rows and nothing is read; Resume builds them anew. Closed groups end with their
  /// grouping.
  void Suspend();
  void Resume();

  const TGridRow& Row(int row) const { return FRows[static_cast<std::size_t>(row)]; }
  /// -1 for a group and where there is no such row.
  int RecordAt(int row) const;
  /// -1 where the record is not shown.
  int RowOf(int record) const;
  /// The row of the record, or of the shown record that is nearest to it in the order of all; the one below before the
  /// one above. -1 where none is shown or the record does not exist.
  int RowNear(int record) const;
  bool IsGroup(const QModelIndex& index) const { return index.isValid() && RecordAt(index.row()) < 0; }
  bool IsClosed(int row) const { return FClosed.contains(Row(row).Key); }
  void SetClosed(int row, bool closed);

  std::vector<TGridFilterItem> Filter;
  /// Whether the items of the view act. Those of the user always do.
  bool FilterActive = false;
  /// The items that act, those of the view first.
  std::vector<TGridFilterItem> ActiveFilter() const;
  /// The rows with all groups opened, in the order in which they are shown.
  const std::vector<TGridRow>& OpenedRows() const { return FOpened; }
  /// Opens the groups that hide the record, from the next Resume on. False where none does.
  bool OpenGroupsOf(int record);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Writes to the source and lets the row be painted anew. The order of the rows stays.
  void Write(const QModelIndex& index, const TVariant& value);
  /// Lets the row be painted anew.
  void RecordChanged(int record);
  bool IsReadable(const QModelIndex& index) const { return FData.IsReadable(RecordAt(index.row()), index.column()); }
  TVariant Read(const QModelIndex& index) const { return FData.Value(RecordAt(index.row()), index.column()); }

 private:
  TGridData FData;
  TGridOptions FOptions;
  std::vector<TGridRow> FOpened;
  std::vector<TGridRow> FRows;
  std::set<QString> FClosed;
};

/// Texts stand on the left unless their column is centred, all else in the middle.
Qt::Alignment AlignmentOf(const TGridColumn& column);
