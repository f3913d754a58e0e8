#pragma once

#include <functional>

#include "VantrelDialogs.h"
#include "VantrelGrid.h"

/// A grid of a view with its count below it and, where it is offered, the button FitColumns.
class TGridPaneUi {
 public:
  virtual ~TGridPaneUi() = default;
  /// The button that fits the columns.
  std::function<void()> OnFit;

  virtual TVantrelGrid& Grid() = 0;
  virtual TVantrelFormItem& Status() = 0;
};
