#include "uGradeStatistics.h"

#include <algorithm>
#include <cmath>
#include <tuple>

TGradeStatistics GradeStatisticsOf(const TGrades& catalog, const std::vector<TVariant>& ids) {
  TGradeStatistics statistics;
  std::vector<const TGrade*> grades;
  for (const auto& id : ids) {
    if (id.IsEmpty()) continue;
    ++statistics.Count;
    if (const auto* grade = catalog.Find(id.AsInteger())) grades.push_back(grade);
  }
  std::ranges::sort(grades, {}, [](const auto* grade) {
    return std::tuple(grade->GradeType(), std::isnan(grade->GradeValue) ? -1.0F : grade->GradeValue, grade->Token);
  });

  double hundredths = 0;
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
    hundredths += std::round(static_cast<double>(grade->GradeValue) * 100);
    ++countedGrades;
  }
  if (countedGrades > 0 && !isMixed) statistics.Average = std::round(hundredths / countedGrades) / 100;
  return statistics;
}
