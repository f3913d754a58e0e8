#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "uProject.h"

/// What has changed in one student, or in one part of the document that belongs to no student.
struct TDifferences {
  std::string Title;
  /// One German line per changed field, added, removed or repeated record, and order.
  std::vector<std::string> Lines;
};

/// Compares two states of a project: records are the same where their object ids are. Parts without a change are left
/// out, so equal documents give nothing. A text counts as unchanged also where `after` has what `rewritten`, if set,
/// makes of it.
std::vector<TDifferences> FindDifferences(const TMyTessaronProject& before, const TMyTessaronProject& after,
                                          const std::function<std::string(std::string_view)>& rewritten = {});

/// A title a line, what belongs to it indented below.
void PrintDifferences(const std::vector<TDifferences>& differences, std::ostream& target);
