#include "uOpenGrades.h"

#include <algorithm>

#include "uCourseColumns.h"

namespace OpenGrades {

std::vector<int> ColumnsOf(const TMyTessaronProject& project) {
  std::vector<int> ordinals;
  const auto& columns = TCourseColumns::Of(TCourseGrid::Subjects);
  for (int ordinal = 0; ordinal < columns.Count(); ++ordinal) {
    const auto& column = *columns.Find(ordinal);
    if (column.MissingCount != nullptr && project.Options().Columns().IsVisible(column.Fieldname) &&
        project.EditableColumn(column.Fieldname))
      ordinals.push_back(ordinal);
  }
  return ordinals;
}

std::map<std::int32_t, int> CountBySubject(const TMyTessaronProject& project, const TVariant& gradeType) {
  std::map<std::int32_t, int> counts;
  const auto& columns = TCourseColumns::Of(TCourseGrid::Subjects);
  const int typeColumn = columns.OrdinalOf(CourseColumnNames::ClassGradeType);
  const auto ordinals = ColumnsOf(project);
  for (int i = 0; i < project.Courses().Count(); ++i) {
    const auto& course = *project.Courses().GetItem(i);
    if (course.Student == nullptr || !(gradeType.IsNull() || columns.Value(course, typeColumn) == gradeType)) continue;
    const auto open =
        std::ranges::count_if(ordinals, [&](int ordinal) { return columns.Value(course, ordinal).IsEmpty(); });
    counts[course.SubjectId.AsInt()] += static_cast<int>(open);
  }
  return counts;
}

}  // namespace OpenGrades
