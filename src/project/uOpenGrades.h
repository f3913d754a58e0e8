#pragma once

#include <map>
#include <vector>

#include "uProject.h"

/// The grades that are still to be entered subject by subject: the empty cells of the visible and editable columns
/// among Note1 to Note5, Endnote1 and Endnote2.
namespace OpenGrades {

/// The ordinals of these columns in the subjects' grid.
std::vector<int> ColumnsOf(const TMyTessaronProject& project);
/// How many there are, by the id of the subject: in courses of classes of that grade type; null for all. A subject
/// without such a course is left out.
std::map<std::int32_t, int> CountBySubject(const TMyTessaronProject& project, const TVariant& gradeType);
/// Of one subject.
int CountOf(const TMyTessaronProject& project, const TVariant& gradeType, std::int32_t subjectId);

/// What the change of a course may have done to the counts.
enum class TEffect { None, OwnSubject, Any };
TEffect EffectOf(const TProjectChange& change);

}  // namespace OpenGrades
