#pragma once

#include "VantrelGrid.h"
#include "uHelper.h"

/// What a grid remembers while its columns are made anew: sort, visibility and widths, one entry per column, the last
/// one counting. A column that takes the rest has no width. Groups and filters end with the columns.
class TRememberedColumns {
 public:
  void Save(const TVantrelGrid& grid);
  /// Entries whose column is missing are skipped.
  void Restore(TVantrelGrid& grid) const;

 private:
  TSortFields SortFields;
  TVisibleFields VisibleFields;
};
