#pragma once

#include "VantrelGrid.h"

/// A begin/end update of a grid that ends with its scope.
class TGridUpdate {
 public:
  explicit TGridUpdate(TVantrelGrid& grid) : FGrid(grid) { FGrid.BeginUpdate(); }
  TGridUpdate(const TGridUpdate&) = delete;
  TGridUpdate& operator=(const TGridUpdate&) = delete;
  ~TGridUpdate() { FGrid.EndUpdate(); }

 private:
  TVantrelGrid& FGrid;
};
