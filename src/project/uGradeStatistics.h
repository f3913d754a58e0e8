#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "uCatalogs.h"

/// What a column of grades comes to.
struct TGradeStatistics {
  int Count = 0;
  /// Of the grades that are worth 0 or more, without fill values; none where grade types are mixed, or there is
  /// none.
  std::optional<double> Average;
  /// Tokens and how often they occur, by grade type and value.
  std::vector<std::pair<std::string, int>> Distribution;
};

/// Of grades by their ids; empty values and ids that the catalogue has not are left out.
TGradeStatistics GradeStatisticsOf(const TGrades& catalog, const std::vector<TVariant>& ids);
