#pragma once

#include "VantrelGrid.h"

/// What CurrentProject makes of the edits of a grid: all that one editor posts is one thing. An edit that is taken back
/// leaves an unmodified project unmodified, unless a save has stored it meanwhile.
class TModifiedMark {
 public:
  /// Listens to the edits of a grid, which ends before the mark does.
  void Follow(TVantrelGrid& grid);
  /// What an open editor holds that is not posted yet is another: there is something to save, or nothing any more.
  static void TellAgain();

 private:
  bool FWasModified = false;
  int FSaveCount = 0;
};
