#pragma once

#include <QTableView>
#include <functional>
#include <optional>
#include <vector>

#include "CellEdit.h"

class TGridDelegate;
class TGridHeader;

/// The table view of a grid: keys, editing and what lies over the cells.
class TGridView : public QTableView {
 public:
  TGridView(TGridModel& model, const TVantrelGrid& events);

  TGridModel& Model() { return FModel; }
  TGridHeader& Header() const;
  void ApplyOptions();
  /// Gives widths, visibility and header the state of the columns.
  void ApplyColumns();
  /// Measures anew what is on show; other rows follow when they come to be shown.
  void FitRows();
  /// Widths of columns are told for the usual font size and grow with larger ones.
  int ToPixels(int width) const;
  int FromPixels(int pixels) const;
  /// The pixels that the view needs to show all visible columns, with a scroll bar beside them.
  int WidthOfColumns() const;
  /// Shows or hides the contents of the group in this row.
  void SetGroupClosed(int row, bool closed);

  /// Moves along the visible columns, on to the next row where the options say so; past what cannot be edited if
  /// `toEditable`. False where there is no further.
  bool MoveCell(int step, bool toEditable = false);
  /// Moves along the rows, past group headings. False where there is no further.
  bool MoveRow(int step);
  /// The next row with a record, -1 if there is none.
  int NextRow(int from, int step) const;
  void GotoCell(int row, int column);
  /// The next visible column from this one on, the first of all for -1.
  int VisibleColumn(int from) const;

  bool IsKeyboardIn() const;
  bool IsTinted(int ordinal) const;
  /// Opens the whole text of a cell that shows a part of it, to be read; in a read-only grid the first of the row where
  /// the cell itself shows all. False where there is none.
  bool Read(const QModelIndex& index);
  bool IsEditing() const { return state() == EditingState; }
  /// Writes the value of the open editor.
  void PostEditor();
  /// Writes it for good (see TCellEdit::Save).
  void SaveEditor();
  /// Writes it for good, and closes the editor.
  void EndEditor();
  TCellEdit& CellEdit() { return FEdit; }
  const QString& SearchText() const { return FSearch; }
  void EndSearch();

  std::function<void()> OnSearch;
  std::function<void()> OnRowsChange;  ///< the rows must be built anew
  std::function<void(const QModelIndex& current)> OnCurrent;
  std::function<void(const QPoint& place)> OnMenu;
  std::function<void()> OnSelectAll;
  std::function<bool()> OnLiftFilter;  ///< false where there is no filter

  void selectAll() override;
  /// What was selected last came about by Shift or by dragging: a range that grows and shrinks.
  bool SelectsRange() const { return FSelectsRange; }

  /// A key of the open editor: true where it does not go on to it.
  bool EditorKey(const QKeyEvent& event);

  /// What is typed into a cell that cannot be edited moves nothing.
  void keyboardSearch(const QString&) override {}
  // Frozen columns stand still while the others scroll.
  QRect visualRect(const QModelIndex& index) const override;
  QModelIndex indexAt(const QPoint& place) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void updateGeometries() override;
  void scrollContentsBy(int dx, int dy) override;
  void verticalScrollbarValueChanged(int value) override;

 private:
  /// What a change of the view's size brings into sight again.
  enum class TBringBack { None, Row, Cell };

  int HeightOf(int row) const;
  /// All heights are to be measured anew.
  void ForgetHeights();
  /// These measure what has not been, and answer true where that changed a height.
  bool FitRow(int row);
  /// The row, and those that fill the view from it on in the direction of the step.
  bool FitRowsFrom(int row, int step);
  bool FitShownRows();
  /// All that can be on show together with the row.
  void FitRowsAround(int row);
  void BringBack(TBringBack what);
  /// True where that changed a width.
  bool FillRest();
  void ColumnResized(int ordinal, int width);
  bool MayEdit(int ordinal) const;
  bool MayEditCell(const QModelIndex& index) const;
  bool TakeKey(QKeyEvent* event);
  /// The first key that a grid without a focused record gets: true where it has found its row and does nothing more.
  bool TakeFirstKey(const QKeyEvent& event);
  bool TakeGroupKey(QKeyEvent* event);
  bool IsCut(const QModelIndex& index) const;
  /// Enter and a double click have nothing else to do.
  bool ReadsAtOnce() const;
  bool TakeReadingKey(const QKeyEvent& event);
  bool TakeSearchKey(QKeyEvent* event);
  bool Search(const QString& text, int fromRow);
  bool Leave(TGridKey key, bool backwards);
  /// The open editor's value is written unless `revert`, and the editor closes.
  void Finish(bool revert);
  /// False where the view lets the grid deal with the key.
  bool TakeViewKey(TGridKey key);
  /// Goes down a row; at the last one the bell tells that there is no further.
  void MoveDown();
  /// The first letters behind that bell were meant for a row below: true for those, which the bell refuses.
  bool TakesLetterBehindEnd(const QKeyEvent& event);
  void PaintGroups();
  void PaintFrozen();

  TGridModel& FModel;
  const TVantrelGrid& FEvents;
  TGridDelegate* FDelegate;
  TCellEdit FEdit;
  bool FClickedCurrent = false;
  /// The cell of the last row in which a key that goes down was the last one; else no cell.
  QPersistentModelIndex FEnd;
  bool FApplying = false;       ///< widths change by the program, not by the user
  std::vector<bool> FIsFitted;  ///< by row: its height is that of its content
  bool FIsArranging = false;
  TBringBack FBringsBack = TBringBack::None;
  bool FHasMovedSideways = false;  ///< the focus of a read-only grid, from one column to another
  QString FSearch;
  mutable bool FSelectsRange = false;
  mutable std::vector<std::optional<bool>> FTints;
};
