#include "uStudentsViewPages.h"

namespace {
const TVariant& SubjectOf(const TCourse& course) {
  return course.SubjectId.Value;
}
}  // namespace

TAchievementSheet::TAchievementSheet(TGridPaneUi& ui, TLookupTables& lookups)
    : FPane(ui, lookups, {.KeptBy = SubjectOf}) {
  ui.OnFit = [this] { Fit(); };
}

void TAchievementSheet::ShowStudent(TStudent* student, const TClass* schoolClass) {
  const bool isTextClass = schoolClass != nullptr && schoolClass->GradeType() == TGradeTypes::gtFill;
  FPane.Show(student == nullptr
                 ? nullptr
                 : std::make_unique<TStudentCoursesSource>(CurrentProject->CoursesByStudent(student->TessaronId.Value)),
             isTextClass);
}

std::vector<TGradeTypes> TAchievementSheet::GradeTypes(const TClass& schoolClass) const {
  return {schoolClass.GradeType(), TGradeTypes::gtFill};
}
