#include "uMissingGrades.h"

#include <algorithm>

#include "uCourseColumns.h"

TMissingGrades CountMissingGrades(const TMyTessaronProject& project) {
  TMissingGrades missing;
  for (const auto& column : AllCourseColumns()) {
    if (column.MissingCount == nullptr || !project.Options().Columns().IsVisible(column.Fieldname)) continue;
    int& count = missing.*column.MissingCount;
    const auto* grade = TCourse::FieldOf(column.Key);
    count = std::max(count, 0);
    for (int i = 0; i < project.Courses().Count(); ++i) {
      const auto& course = *project.Courses().GetItem(i);
      if (course.Student != nullptr && grade->Value(course).IsNull()) ++count;
    }
  }
  return missing;
}
