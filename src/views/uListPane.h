#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "GridPaneUi.h"
#include "VantrelMemTable.h"
#include "fBaseView.h"
#include "uHelper.h"

/// A field of a list's table, and the column that shows it.
struct TListField {
  std::string Name;
  TVantrelFieldType Type = TVantrelFieldType::ftText;
  int Size = 0;  ///< of texts, in characters; 0 for any
  std::string Caption;
  int Width = 100;
  bool Shown = true;  ///< false: hidden, and not in the chooser
  bool TakesRest = false;
  std::function<std::string(const TVariant& value)> OnGetText = {};
};

/// What a list shows and lets the user do.
struct TListPaneSettings {
  std::string Name;   ///< of the table, as the ids of its columns tell it
  std::string Label;  ///< what a screen reader calls the grid
  /// In the order of the columns. One of them is "ID".
  std::vector<TListField> Fields;
  TGridOptions Options;
  /// The field whose column has the focus at first; empty for the first shown one.
  std::string FocusedField = {};
};

/// What became of the list.
enum class TListChange {
  Record,  ///< another record has the focus
  Rows     ///< others are shown, or they stand in another order
};

/// The list at the left of a view: its table, the grid that shows it, the sort that the table takes from the headers,
/// the count, and the layout that outlives the run.
class TListPane {
 public:
  /// The screen goes before the pane: its grid shows the table.
  TListPane(TGridPaneUi& ui, TListPaneSettings settings);
  TListPane(const TListPane&) = delete;
  TListPane& operator=(const TListPane&) = delete;

  /// The one event, told while the list is browsed.
  std::function<void(TListChange change)> OnChange;

  /// Its changes are not told meanwhile.
  bool IsFilling() const { return FMode == TDataMode::dmFill || FMode == TDataMode::dmUpdate; }

  /// Fills the table and goes to the first row.
  void Fill(const std::function<void(TVantrelMemTable& table)>& populate);
  void UpdateCount();
  /// Gives a field of all records the values that belong to their ids.
  void SetValues(std::string_view field, const std::function<TVariant(const TVariant& id)>& value);

  TVantrelGrid& Grid() { return FUi.Grid(); }
  const TVantrelMemTable& Table() const { return FTable; }
  int RecordCount() const { return FTable.RecordCount(); }
  /// A value of the focused record; null if there is none.
  TVariant FocusedValue(std::string_view field = "ID") const { return FTable.FieldByName(field).Value(); }
  /// Focuses the record of that id; a filter of the user that hides it is lifted. False where there is none.
  bool FocusId(const TVariant& id);
  /// The list holds records, but its filter hides them all.
  bool IsNobodyShown() const { return FUi.Grid().FocusedRecord() < 0 && FTable.RecordCount() > 0; }

  /// The layout as one text. Restoring sorts the table as the layout tells, and goes to the first row then. It is told
  /// as a change of the record, whether another one has the focus then or not: the view can show its content.
  std::string Layout() const { return FUi.Grid().Layout(); }
  void RestoreLayout(std::string_view layout);

 private:
  void AddField(const TListPaneSettings& settings, const TListField& field);
  void Tell(TListChange change);
  void RememberSortProps(int ordinal);
  void SortByData();

  TGridPaneUi& FUi;
  TDataMode FMode = TDataMode::dmNone;
  TVantrelMemTable FTable;
  TSortField FSort{{}, 0, -1, TSortOrder::soNone};
};
