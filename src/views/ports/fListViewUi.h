#pragma once

#include "GridPaneUi.h"
#include "fBaseViewUi.h"

/// The screen of a view with a list and one grid: a title across the top; on the left a panel of 300 pixels with a
/// label and the list; the grid with the rest. It wants 1264 by 616 pixels and scrolls where there is less.
class TListViewUi : public TFormUi {
 public:
  virtual TVantrelFormItem& TitleLabel() = 0;
  virtual TGridPaneUi& List() = 0;
  /// With the button FitColumns.
  virtual TGridPaneUi& Achievements() = 0;
};
