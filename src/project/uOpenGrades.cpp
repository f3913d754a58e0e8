#include "uOpenGrades.h"

#include <algorithm>
#include <optional>

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

namespace {

/// Counts course by course.
class TCounter {
 public:
  TCounter(const TMyTessaronProject& project, const TVariant& gradeType)
      : FOrdinals(ColumnsOf(project)), FGradeType(gradeType) {}

  /// Nothing for a course that does not count.
  std::optional<int> OpenIn(const TCourse& course) const {
    if (course.Student == nullptr) return std::nullopt;
    if (!FGradeType.IsNull() && FColumns.Value(course, FTypeColumn) != FGradeType) return std::nullopt;
    return static_cast<int>(
        std::ranges::count_if(FOrdinals, [&](int ordinal) { return FColumns.Value(course, ordinal).IsEmpty(); }));
  }

 private:
  const TCourseColumns& FColumns = TCourseColumns::Of(TCourseGrid::Subjects);
  const int FTypeColumn = FColumns.OrdinalOf(CourseColumnNames::ClassGradeType);
  const std::vector<int> FOrdinals;
  const TVariant& FGradeType;
};

}  // namespace

std::map<std::int32_t, int> CountBySubject(const TMyTessaronProject& project, const TVariant& gradeType) {
  std::map<std::int32_t, int> counts;
  const TCounter counter(project, gradeType);
  for (int i = 0; i < project.Courses().Count(); ++i) {
    const auto& course = *project.Courses().GetItem(i);
    if (const auto open = counter.OpenIn(course)) counts[course.SubjectId.AsInt()] += *open;
  }
  return counts;
}

int CountOf(const TMyTessaronProject& project, const TVariant& gradeType, std::int32_t subjectId) {
  int count = 0;
  const TCounter counter(project, gradeType);
  const TVariant subject = subjectId;
  for (int i = 0; i < project.Courses().Count(); ++i) {
    const auto& course = *project.Courses().GetItem(i);
    if (course.SubjectId.Value == subject) count += counter.OpenIn(course).value_or(0);
  }
  return count;
}

TEffect EffectOf(const TProjectChange& change) {
  if (change.Kind != TChangeKind::Field) return TEffect::Any;
  const auto columns = AllCourseColumns();
  const auto column = std::ranges::find(columns, change.Key, &TCourseColumn::Key);
  // A field that no column shows may say where the course belongs.
  if (column == columns.end()) return TEffect::Any;
  const bool opens = column->MissingCount != nullptr && change.Before.IsEmpty() != change.After.IsEmpty();
  return opens ? TEffect::OwnSubject : TEffect::None;
}

}  // namespace OpenGrades
