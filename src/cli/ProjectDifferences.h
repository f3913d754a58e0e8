#pragma once

#include <string>
#include <vector>

#include "uProject.h"

/// What has changed in one student, or in one part of the document that belongs to no student.
struct TDifferences {
  std::string Title;
  /// One German line per changed field, added or removed record.
  std::vector<std::string> Lines;
};

/// Compares two states of a project: records are the same where their object ids are. Parts without a change are left
/// out, so equal documents give nothing.
std::vector<TDifferences> FindDifferences(const TMyTessaronProject& before, const TMyTessaronProject& after);
