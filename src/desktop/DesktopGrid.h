#pragma once

#include <QWidget>

#include "GridModel.h"
#include "GridSelection.h"
#include "GridView.h"
#include "VantrelMemTable.h"

class QLabel;
class TFilterLine;

/// The grid of the port as a widget: the view, and below it a line that tells the search and one that tells the filter.
class TDesktopGrid : public QWidget, public TVantrelGrid, private TVantrelTableListener {
 public:
  explicit TDesktopGrid(QWidget* parent = nullptr);
  ~TDesktopGrid() override;

  TGridView& View() { return *FView; }
  const TGridOptions& Options() const { return FModel.Options(); }
  /// The line that tells the filter, for those who give it another place.
  QWidget& FilterLine();

  void SetOptions(const TGridOptions& options) override;
  void SetName(const std::string& name) override;
  void SetEnabled(bool enabled) override { setEnabled(enabled); }
  void SetFocus() override { FView->setFocus(); }

  void BindSource(TVantrelGridSource* source) override;
  void BindTable(TVantrelMemTable* table) override;
  void DataChanged() override;
  void RecordChanged(int record) override { FModel.RecordChanged(record); }
  void BeginUpdate() override;
  void EndUpdate() override;

  int AddColumn(TGridColumn column) override;
  void ClearColumns() override;
  const std::vector<TGridColumn>& Columns() const override { return FModel.Data().Columns; }
  void ShowColumn(int ordinal, bool visible) override;
  void SetColumnWidth(int ordinal, int width) override;
  void SetColumnSort(int ordinal, TGridSortOrder order, int sortIndex) override;
  void GroupColumn(int ordinal, int groupIndex) override;

  int RecordCount() const override { return FModel.Data().RecordCount(); }
  TVariant Value(int record, int ordinal) const override { return FModel.Data().Value(record, ordinal); }
  TVariant FieldValue(int record, std::string_view field) const override {
    return FModel.Data().FieldValue(record, field);
  }
  std::string DisplayText(int record, int ordinal) const override;
  std::vector<TGridShownRow> ShownRows() const override;
  std::vector<int> ShownColumns() const override;

  int FocusedRecord() const override { return FFocused; }
  int FocusedColumn() const override { return FFocusedColumn; }
  void FocusRecord(int record) override;
  void FocusColumn(int ordinal) override;
  void GotoFirst() override;
  void GotoPrev() override;
  void GotoNext() override;
  void GotoLast() override;
  bool CanGotoPrev() const override { return FView->NextRow(FView->currentIndex().row(), -1) >= 0; }
  bool CanGotoNext() const override { return FView->NextRow(FView->currentIndex().row(), 1) >= 0; }

  void PostEdit() override { FView->SaveEditor(); }
  bool IsEditing() const override { return FView->IsEditing(); }
  bool HasDraft() const override { return FView->IsEditing() && FView->CellEdit().HasDraft(); }
  void EndEdit() override { FView->EndEditor(); }

  void ClearFilter() override;
  void AddFilter(int ordinal, const TVariant& value, const std::string& displayText) override;
  void SetFilterActive(bool active) override;
  void LiftUserFilter() override { LiftFilter(); }

  int SelectedCount() const override;
  int SelectedRecord(int index) const override;
  void ClearSelection() override;
  void SelectRecords(const std::vector<int>& records) override;
  void DeleteSelection() override;
  bool IsGrouped() const override;
  std::vector<int> FocusedGroupRecords() const override;

  void BeginBestFit() override;
  void BestFitAll() override;
  void EndBestFit() override;
  void BestFit(int ordinal);

  std::string Layout() const override;
  void RestoreLayout(std::string_view layout) override;

  /// Lets go of rows, columns and handlers for good: what they belong to ends before the widget does.
  void Release();
  /// A click on the header of a column: turns its sort order, beside the sorted columns if `adds` and the grid sorts
  /// itself, else alone.
  void ClickHeader(int ordinal, bool adds);
  /// Sorts by a column alone; None takes it out of the sort.
  void SortBy(int ordinal, TGridSortOrder order, bool adds);
  /// The user's own filter, beside that of the view. Lifting answers false where there is none.
  void FilterByUser(int ordinal, const TVariant& value, const QString& displayText);
  bool LiftFilter();
  /// The menu of a cell, also by key.
  void ShowMenu(const QPoint& place);

 private:
  void RecordMoved() override;
  void Rebuild() { BeginUpdate(), EndUpdate(); }
  void GiveWidth(int ordinal, int width);
  int BestWidth(int ordinal) const;
  void MakeRoomForArrow(int ordinal);
  void RestoreFocus();
  void RestoreSelection();
  void SetFocused(int record);
  void SetFocusedColumn(int ordinal);
  void Current(const QModelIndex& current);
  void ShowInfo();
  void AddSortActions(QMenu& menu, int ordinal);
  void AddFilterActions(QMenu& menu, int ordinal);
  void AddColumnActions(QMenu& menu, int ordinal);
  bool IsFilteredByUser() const;
  int OrdinalOf(const QString& id) const;

  TGridModel FModel;
  TGridView* FView;
  TGridSelection FSelection;
  QLabel* FInfo;
  TFilterLine* FFilterLine;
  int FUpdates = 0;
  int FOldRow = -1;
  int FFocused = -1;
  std::uint64_t FFocusedId = 0;
  int FFocusedColumn = -1;
  bool FKeepsFocus = true;
  bool FHadKeyboard = false;
  bool FRestoring = false;
};
