#pragma once

#include <string_view>
#include <vector>

#include "VantrelGrid.h"
#include "mLookup.h"
#include "uColumns.h"

/// The columns of the students' achievement grid, in the order of their ordinals. Captions and visibility come from
/// `options`; a field without a column there is hidden. The lookup tables outlive the columns.
std::vector<TGridColumn> StudentCourseColumns(const TColumns& options, const TLookupTables& lookups);

/// The ordinal of "Kurs", where nothing can be typed.
inline constexpr int CourseNameColumn = 0;
/// The ordinals of that grid that hold grades: Enter goes down there.
bool IsGradeColumn(int ordinal);
/// The grade columns whose edits make the whole grid post at every change.
bool PostsEdits(int ordinal);
/// The three columns that a class without grades leaves.
bool IsFillColumn(int ordinal);
