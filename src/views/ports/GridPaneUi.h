#pragma once

#include <functional>
#include <vector>

#include "VantrelCommands.h"
#include "VantrelDialogs.h"
#include "VantrelGrid.h"

/// A grid with its count and a note below it and, where it is offered, the button FitColumns or SelectAllButton.
class TGridPaneUi {
 public:
  virtual ~TGridPaneUi() = default;
  /// The button that fits the columns.
  std::function<void()> OnFit;
  /// SelectAllButton.
  std::function<void()> OnSelectAll;

  virtual TVantrelGrid& Grid() = 0;
  virtual TVantrelFormItem& Status() = 0;
  /// One line beside the count, cut where the room is short.
  virtual TVantrelFormItem& Note() = 0;
  /// A bar of buttons above the grid; the shortcuts of the commands act while the keyboard is in the pane. Called at
  /// most once. The screen goes before the commands.
  virtual void SetCommands(const std::vector<TVantrelCommand*>& commands) = 0;
};
