#include "uMissingGrades.h"

#include <initializer_list>
#include <utility>

namespace {

using TGradeField = std::pair<std::string_view, TMyTessaronInteger TCourse::*>;

int CountNulls(const TMyTessaronProject& project, std::initializer_list<TGradeField> fields) {
  int count = -1;
  for (const auto& [fieldname, grade] : fields) {
    if (!project.Options().Columns().IsVisible(fieldname)) continue;
    if (count < 0) count = 0;
    for (int i = 0; i < project.Courses().Count(); ++i) {
      const auto& course = *project.Courses().GetItem(i);
      if (course.Student != nullptr && (course.*grade).IsNull()) ++count;
    }
  }
  return count;
}

}  // namespace

TMissingGrades CountMissingGrades(const TMyTessaronProject& project) {
  return {CountNulls(project, {{"Note1", &TCourse::Note1Id},
                               {"Note2", &TCourse::Note2Id},
                               {"Note3", &TCourse::Note3Id},
                               {"Note4", &TCourse::Note4Id},
                               {"Note5", &TCourse::Note5Id}}),
          CountNulls(project, {{"Endnote1", &TCourse::Endnote1Id}}),
          CountNulls(project, {{"Endnote2", &TCourse::Endnote2Id}})};
}
