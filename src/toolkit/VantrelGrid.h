#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelEditors.h"

class TVantrelObject;

enum class TGridSortOrder { None, Ascending, Descending };
enum class TGridKey { Enter, Tab, Escape, Delete, Other };
/// What becomes of a key: the grid deals with it, nobody does, or the focus goes down one row in the same column.
enum class TGridKeyAction { Pass, Swallow, MoveDown };

/// A column as the view makes it and as the user left it.
struct TGridColumn {
  std::string Id;
  std::string Caption;
  TEditorDescription Editor = {};
  int Width = 100;  ///< in pixels at scale 1 and with a usual font; larger fonts widen it
  bool Visible = true;
  bool InChooser = true;   ///< the user may show and hide it
  bool Editing = true;     ///< false: no editor ever opens, and the veto is not asked
  std::string Field = {};  ///< field of a bound table; a custom source goes by ordinal
  TGridSortOrder SortOrder = TGridSortOrder::None;
  int SortIndex = -1;      ///< place among the sorted columns
  int GroupIndex = -1;     ///< place among the grouped columns
  bool Frozen = false;     ///< of the leading columns: stays in sight while the others scroll sideways
  bool Centred = false;    ///< also where it shows texts
  bool TakesRest = false;  ///< takes the room that the others leave, until it is given a width
};

/// What a grid lets the user do. The defaults are those of a read-only list.
struct TGridOptions {
  bool ReadOnly = true;
  bool MultiSelect = false;
  bool IncrementalSearch = true;
  bool TabMovesCells = false;
  bool EnterMovesToNextCell = false;
  bool WrapAtRowEnd = false;
  bool RowIndicator = false;
  bool RowsFollowContent = false;
  bool HeaderFollowsContent = false;
  bool Sorting = true;
  /// The rows stay in the order of the data: the view sorts them, by one column, when the sort has changed.
  bool SortedByView = false;
  bool CaseSensitive = false;
  bool Grouping = false;
  bool Filtering = false;
  bool Chooser = false;
  bool MovingColumns = false;
};

/// Rows that come from objects instead of a table: a plain table model by record and column ordinal.
class TVantrelGridSource {
 public:
  virtual ~TVantrelGridSource() = default;
  virtual int GetRecordCount() = 0;
  /// The object behind a row, none where there is no such row. Not owned by the caller.
  virtual TVantrelObject* GetRecordHandle(int index) = 0;
  /// Clears `value` to null, then reads it.
  virtual void GetValue(TVantrelObject* record, int ordinal, TVariant& value) = 0;
  virtual void SetValue(TVantrelObject* record, int ordinal, const TVariant& value) = 0;
};

/// One line of a grid as it is shown: a record, or the heading of a group.
struct TGridShownRow {
  int Record = -1;  ///< index in the source; -1 for a group
  int Level = 0;    ///< depth of the group
  std::string GroupText;
};

/// What the logic needs of a grid. Records go by their index in the source, columns by their ordinal, which is the
/// order of their creation. Widgets that show it belong to the window; views hold plain references.
class TVantrelGrid {
 public:
  virtual ~TVantrelGrid() = default;

  /// Events. The grid calls what is set, on the one thread, to its end.
  std::function<void(int previousRecord, int record)> OnFocusChanged;
  /// Another column has the focus, whether a record has it or not.
  std::function<void(int ordinal)> OnColumnChanged;
  /// A key that is meant for a cell comes while no record has the focus: the view may focus one, which takes the key.
  /// Where this is unset the first record has the focus as soon as the keyboard comes.
  std::function<void()> OnFirstKey;
  /// Others are shown, or they stand in another order. Told after the focus has found its place among them.
  std::function<void()> OnRowsChanged;
  /// The veto: asked before an editor opens and when a cell is tinted, so it must answer without side effects.
  std::function<bool(int ordinal)> OnEditing;
  /// An editor has opened, before its first key.
  std::function<void()> OnEditStarted;
  /// The value of the open editor is another. True posts it at once, else it is posted when the editor closes.
  std::function<bool(int ordinal)> OnEditChanged;
  /// What the edit had written to the source was taken back: the cell holds what it held when the editor opened.
  std::function<void()> OnEditReverted;
  /// The editor has closed, whatever became of its value.
  std::function<void()> OnEditEnded;
  /// Other records are selected.
  std::function<void()> OnSelectionChanged;
  std::function<TGridKeyAction(int ordinal, TGridKey key)> OnKeyDown;
  std::function<void(int ordinal)> OnDoubleClick;
  /// A click on a header, told after the column took its new sort order and before OnSortChanged.
  std::function<void(int ordinal)> OnHeaderClick;
  std::function<void()> OnSortChanged;
  /// Display text instead of the grid's own; nothing keeps the grid's own.
  std::function<std::optional<std::string>(int ordinal, const TVariant& value)> OnDisplayText;

  virtual void SetOptions(const TGridOptions& options) = 0;
  /// What a screen reader calls the grid.
  virtual void SetName(const std::string& name) = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void SetFocus() = 0;

  /// Binds the rows; the grid owns neither. Binding the one unbinds the other, none unbinds. No record is focused after
  /// the binding of a source. With a table the focused record is its current one. What is shown leads: a table that
  /// moves to a record that is not shown goes on to the nearest that is; only where none is shown it stays.
  virtual void BindSource(TVantrelGridSource* source) = 0;
  virtual void BindTable(TVantrelMemTable* table) = 0;
  /// The content of the source is another: shows it anew.
  virtual void DataChanged() = 0;
  /// A value of this record is another: shows its row anew. As after an edit the rows stay as they are, sorted, grouped
  /// and filtered by the value before, until the next rebuild.
  virtual void RecordChanged(int record) = 0;
  /// A bracket that can be nested, in which the grid shows nothing: one rebuild at its end. Within the bracket the grid
  /// does not touch its source, which may go and be bound anew.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;

  virtual int AddColumn(TGridColumn column) = 0;
  virtual void ClearColumns() = 0;
  /// The columns by ordinal, with the width, visibility, sort and group of this moment.
  virtual const std::vector<TGridColumn>& Columns() const = 0;
  virtual void ShowColumn(int ordinal, bool visible) = 0;
  /// Like the user, who can give a width as well: the column does not take the rest any more.
  virtual void SetColumnWidth(int ordinal, int width) = 0;
  virtual void SetColumnSort(int ordinal, TGridSortOrder order, int sortIndex) = 0;
  virtual void GroupColumn(int ordinal, int groupIndex) = 0;

  /// All records of the source, whatever the filter.
  virtual int RecordCount() const = 0;
  virtual TVariant Value(int record, int ordinal) const = 0;
  /// Of a field of the bound table, also of one that has no column; null where there is no such field or no table.
  virtual TVariant FieldValue(int record, std::string_view field) const = 0;
  virtual std::string DisplayText(int record, int ordinal) const = 0;
  /// What is shown, from the top, with all groups opened.
  virtual std::vector<TGridShownRow> ShownRows() const = 0;
  /// The ordinals of the visible columns from left to right.
  virtual std::vector<int> ShownColumns() const = 0;

  /// -1 where no record has the focus. If the focused record is not shown any more, the nearest shown one has it.
  virtual int FocusedRecord() const = 0;
  virtual int FocusedColumn() const = 0;
  virtual void FocusRecord(int record) = 0;
  virtual void FocusColumn(int ordinal) = 0;
  /// Along the records as shown; group headings are skipped.
  virtual void GotoFirst() = 0;
  virtual void GotoPrev() = 0;
  virtual void GotoNext() = 0;
  virtual void GotoLast() = 0;
  /// Whether a record is shown before or behind the focused one.
  virtual bool CanGotoPrev() const = 0;
  virtual bool CanGotoNext() const = 0;

  /// Writes the value of the open editor to the source at once; the editor stays open.
  virtual void PostEdit() = 0;
  virtual bool IsEditing() const = 0;
  /// What stands in the open editor would be written by a post.
  virtual bool HasDraft() const = 0;
  /// As PostEdit, and closes the editor.
  virtual void EndEdit() = 0;

  /// The view's filter: the records whose column equals the value, all items together. It acts only while it is active;
  /// the display texts are shown below the rows then. What the user filters by acts beside it and is lifted by the user
  /// alone, with a button or with Escape in a read-only grid. Both end with the columns.
  virtual void ClearFilter() = 0;
  virtual void AddFilter(int ordinal, const TVariant& value, const std::string& displayText) = 0;
  virtual void SetFilterActive(bool active) = 0;
  virtual void LiftUserFilter() = 0;

  virtual int SelectedCount() const = 0;
  /// The n-th selected record, -1 if there is none: in the order of the clicks, those selected at once from the top. A
  /// sort keeps the selection; a record that a filter or a closed group hides leaves it.
  virtual int SelectedRecord(int index) const = 0;
  virtual void ClearSelection() = 0;
  /// These alone, in this order; what is not shown is passed over.
  virtual void SelectRecords(const std::vector<int>& records) = 0;
  /// Deletes the selected records from the bound table.
  virtual void DeleteSelection() = 0;
  virtual bool IsGrouped() const = 0;
  /// The records of the innermost group that the focused row belongs to.
  virtual std::vector<int> FocusedGroupRecords() const = 0;

  /// The bracket alone leaves the widths as they are.
  virtual void BeginBestFit() = 0;
  virtual void BestFitAll() = 0;
  virtual void EndBestFit() = 0;

  /// Widths, order, visibility, sort and groups by column id as one text, to be stored whole. Restoring ignores columns
  /// that are not there and a text that is no layout.
  virtual std::string Layout() const = 0;
  virtual void RestoreLayout(std::string_view layout) = 0;
};
