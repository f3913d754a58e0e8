#pragma once

#include "VantrelGrid.h"
#include "uDataSource.h"

/// The course that the user works on, kept while the list goes on, by what is the same in the next content: the subject
/// from student to student. It is kept also over contents that lack it: their first row is focused in a column where
/// nothing can be typed, so that no entry lands elsewhere. Until the user has chosen, the work begins in the first row.
class TKeptRow {
 public:
  /// What tells the kept course in another content; an empty value is like no other.
  using TKey = const TVariant& (*)(const TCourse& course);

  explicit TKeptRow(TKey key) : FKey(key) {}

  /// The user has changed something in the focused cell, or has tried to: where the work begins is chosen then.
  void Touch() { FTouched = true; }
  /// Takes what the user has chosen since the last Restore. `source` may be null, as before the first content.
  void Save(const TVantrelGrid& grid, TMyTessaronSource* source);
  /// Focuses the cell that is next to be worked on: the kept course in the kept column, in a content without it the
  /// first row in `lockedColumn`, at the beginning the first row in `firstColumn`.
  void Restore(TVantrelGrid& grid, TMyTessaronSource& source, int firstColumn, int lockedColumn);

 private:
  struct TPlace {
    int Record = -1;
    int Column = -1;
    bool operator==(const TPlace&) const = default;
  };

  const TVariant& KeyAt(TMyTessaronSource& source, int record) const;
  int FindKept(TMyTessaronSource& source) const;

  TKey FKey;
  TPlace FPlaced;
  bool FTouched = false;
  bool FChosen = false;
  TVariant FKept;
  int FColumn = -1;
};
