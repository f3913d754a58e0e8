#pragma once

#include <limits>
#include <string>
#include <vector>

#include "uProject.h"

/// Which defects are looked for.
enum class TDefectScope {
  /// What the teacher must know: dates and numbers that are none, unknown grade types, references to nothing, courses
  /// without a student, students without a number, ids and objects that occur twice, objects of a class that their
  /// list does not hold.
  Teacher,
  /// Those, positions of remarks, which order them on the certificate alone, and what only the central system can put
  /// right: tokens and grade ids that stand in no catalogue, columns without a caption or twice.
  All
};

struct TProjectDefects {
  /// One German sentence each, with student and field.
  std::vector<std::string> Texts;
  /// Of all that were found, told or not.
  std::size_t Count = 0;
};

/// What is wrong with the values of a project that was read. Tells `most` defects at most.
TProjectDefects FindDefects(const TMyTessaronProject& project, TDefectScope scope,
                            std::size_t most = std::numeric_limits<std::size_t>::max());

/// The first date that no text form can hold, with its record and field; empty for none.
std::string FindImpossibleDate(const TMyTessaronProject& project);
