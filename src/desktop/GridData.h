#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "VantrelGrid.h"

/// The columns of a grid over its rows, whichever they come from: a source of objects or a table in memory.
class TGridData {
 public:
  explicit TGridData(const TVantrelGrid& events) : FEvents(events) {}

  void BindSource(TVantrelGridSource* source);
  void BindTable(TVantrelMemTable* table);
  TVantrelMemTable* Table() const { return FTable; }

  int RecordCount() const;
  /// Null where reading the value raises.
  TVariant Value(int record, int ordinal) const { return Read(record, ordinal).value_or(TVariant::Null()); }
  /// The value of a field of the bound table, also of one that no column shows; null without such a field.
  TVariant FieldValue(int record, std::string_view field) const;
  /// A number that stays with the record while the rows are bound; 0 where there is no such record.
  std::uint64_t RecordId(int record) const;
  bool IsReadable(int record, int ordinal) const { return Read(record, ordinal).has_value(); }
  void SetValue(int record, int ordinal, const TVariant& value);
  /// What the user reads in a cell. Never raises: what cannot be shown is told in words.
  QString DisplayText(int record, int ordinal) const;
  QString DisplayTextOf(const TGridColumn& column, int ordinal, const TVariant& value) const;

  TGridColumn& Column(int ordinal) { return Columns[static_cast<std::size_t>(ordinal)]; }
  const TGridColumn& Column(int ordinal) const { return Columns[static_cast<std::size_t>(ordinal)]; }
  int ColumnCount() const { return static_cast<int>(Columns.size()); }

  std::vector<TGridColumn> Columns;

 private:
  std::optional<TVariant> Read(int record, int ordinal) const;
  QString TextOf(const TGridColumn& column, int ordinal, const TVariant& value) const;

  const TVantrelGrid& FEvents;
  TVantrelGridSource* FSource = nullptr;
  TVantrelMemTable* FTable = nullptr;
};

/// What a row must hold in a column to be shown, and how that is told to the user.
struct TGridFilterItem {
  int Ordinal = 0;
  TVariant Value;
  QString DisplayText;
  bool OfUser = false;  ///< set and lifted by the user; else by the view
};

/// A row as shown: a record, or the heading of a group with the key by which it stays closed.
struct TGridRow {
  int Record = -1;
  int Level = 0;
  QString Text;
  QString Key;
};

/// Filters, sorts and groups the records, with all groups opened.
std::vector<TGridRow> BuildGridRows(const TGridData& data, const TGridOptions& options,
                                    const std::vector<TGridFilterItem>& filter);

/// The part of a text that a cell measures and paints: no more than can be of use in a grid, and without the end of its
/// last line.
QString ShownPart(const QString& text);

/// The ordinals of the columns that have the index (&TGridColumn::SortIndex or GroupIndex), in its order.
std::vector<int> ColumnsInOrder(const std::vector<TGridColumn>& columns, int TGridColumn::*index);
