#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "uCatalogs.h"

/// What a column of grades comes to.
struct TGradeStatistics {
  /// Of all that is entered.
  int Count = 0;
  /// Of the grades that are worth 0 or more, without fill values; none where grade types are mixed, or there is
  /// none. Values count with two places as they are written, and so does the average, rounded half up.
  std::optional<double> Average;
  /// Tokens and how often they occur, by grade type and value.
  std::vector<std::pair<std::string, int>> Distribution;
};

/// Of grades by their ids. What the catalogue has not counts as entered and is left out else.
TGradeStatistics GradeStatisticsOf(const TGrades& catalog, const std::vector<TVariant>& ids);
