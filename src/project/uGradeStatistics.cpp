#include "uGradeStatistics.h"

#include <algorithm>
#include <cmath>
#include <tuple>

TGradeStatistics GradeStatisticsOf(const TGrades& catalog, const std::vector<TVariant>& ids) {
  std::vector<const TGrade*> grades;
  for (const auto& id : ids)
    if (const auto* grade = id.IsEmpty() ? nullptr : catalog.Find(id.AsInteger())) grades.push_back(grade);
  std::ranges::sort(grades, {}, [](const auto* grade) {
    return std::tuple(grade->GradeType(), std::isnan(grade->GradeValue) ? -1.0F : grade->GradeValue, grade->Token);
  });

  TGradeStatistics statistics;
  statistics.Count = static_cast<int>(grades.size());
  double sum = 0;
  const TGrade* counted = nullptr;
  int countedGrades = 0;
  bool isMixed = false;
  for (const auto* grade : grades) {
    auto& shares = statistics.Distribution;
    if (shares.empty() || shares.back().first != grade->Token) shares.emplace_back(grade->Token, 0);
    ++shares.back().second;
    if (grade->GradeType() == TGradeTypes::gtFill || !(grade->GradeValue >= 0)) continue;
    isMixed = isMixed || (counted != nullptr && counted->GradeType() != grade->GradeType());
    counted = grade;
    sum += static_cast<double>(grade->GradeValue);
    ++countedGrades;
  }
  if (countedGrades > 0 && !isMixed) statistics.Average = sum / countedGrades;
  return statistics;
}
