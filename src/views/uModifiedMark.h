#pragma once

#include "VantrelGrid.h"

/// Whether CurrentProject was modified when an edit began. An edit that is taken back leaves an unmodified project
/// unmodified, unless a save has stored it meanwhile.
class TModifiedMark {
 public:
  /// Listens to the edits of a grid, which ends before the mark does.
  void Follow(TVantrelGrid& grid);

 private:
  bool FWasModified = false;
  int FSaveCount = 0;
};
