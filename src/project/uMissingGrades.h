#pragma once

#include "uProject.h"

/// How many grades are still to be entered; -1 where the columns are not in use.
struct TMissingGrades {
  int Noten1To5Count = -1;
  int Endnote1Count = -1;
  int Endnote2Count = -1;

  /// Nothing is missing, or nothing is to be entered at all.
  bool IsNothingMissing() const { return Noten1To5Count < 1 && Endnote1Count < 1 && Endnote2Count < 1; }
};

/// Counts the null grades of all courses that have a student, in the visible columns among Note1 to Note5, Endnote1 and
/// Endnote2.
TMissingGrades CountMissingGrades(const TMyTessaronProject& project);
