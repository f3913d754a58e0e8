#pragma once

#include <span>
#include <string_view>

#include "VantrelDialogs.h"
#include "VantrelGrid.h"
#include "fBaseView.h"

/// Helpers over grids.
class TCXUtils {
 public:
  TCXUtils() = delete;

  /// Move the focus along the records as shown, and select the focused one alone.
  static void GotoFirst(TVantrelGrid& gridView);
  static void GotoPrev(TVantrelGrid& gridView);
  static void GotoNext(TVantrelGrid& gridView);
  static void GotoLast(TVantrelGrid& gridView);

  /// Selects just the focused record, if there is one.
  static void SyncSelectionToFocus(TVantrelGrid& gridView);
  /// Focuses a record and selects it alone; a filter of the user that hides it is lifted. False where it is not shown.
  static bool FocusRecord(TVantrelGrid& gridView, int record);
  /// The value of a field of the n-th selected record, whether a column shows it or not; null if there is none.
  static TVariant GetSelectedRecord(const TVantrelGrid& gridView, int recordIndex, std::string_view fieldname);
  /// Selects all records that are shown, in a grouped grid those of the focused group instead of what was selected. If
  /// they are selected already and `forceSelect` is off, clears the selection.
  static void SelectAll(TVantrelGrid& gridView, bool forceSelect);

  /// Between browsing and editing; `sender` is down while the grid is edited.
  static void SwitchEditMode(TVantrelGrid& gridView, TGridOptions options, TDataMode& dataMode, TVantrelCommand& sender,
                             TDataMode forceTo);
  /// Appends a blank to the text of each label, which makes it measure itself anew, whatever `autoSize` says.
  static void SetLabelAutosize(std::span<TVantrelFormItem* const> labels, bool autoSize);
  /// By the height of the ribbon in pixels.
  static bool IsCollapsed(int ribbonHeight) { return ribbonHeight < 100; }
};
