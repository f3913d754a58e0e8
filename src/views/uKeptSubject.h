#pragma once

#include "VantrelGrid.h"
#include "uDataSource.h"

/// The subject that the user works on, kept from student to student, also over students who lack it: their first row is
/// focused in a column where nothing can be typed, so that no entry lands in another subject. Until the user has
/// chosen, the work begins in the first row.
class TKeptSubject {
 public:
  /// The user has changed something in the focused cell, or has tried to: where the work begins is chosen then.
  void Touch() { FTouched = true; }
  /// Takes what the user has chosen since the last Restore. `source` may be null, as before the first student.
  void Save(const TVantrelGrid& grid, TMyTessaronSource* source);
  /// Focuses the cell that is next to be worked on: the kept subject in the kept column, for a student without it the
  /// first row in `lockedColumn`, at the beginning the first row in `firstColumn`.
  void Restore(TVantrelGrid& grid, TMyTessaronSource& source, int firstColumn, int lockedColumn);

 private:
  struct TPlace {
    int Record = -1;
    int Column = -1;
    bool operator==(const TPlace&) const = default;
  };

  TPlace FPlaced;
  bool FTouched = false;
  bool FChosen = false;
  TVariant FSubject;
  int FColumn = -1;
};
