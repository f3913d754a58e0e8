#pragma once

#include <string>
#include <vector>

#include "VantrelMemTable.h"
#include "uCourses.h"

/// The overview of a class: a row per student, and a column per subject with the first final grade.
namespace ClassOverview {

/// A field of the overview's table, and the column that shows it.
struct TField {
  std::string Name;
  std::string Caption;
  TVantrelFieldType Type;
};

/// The fields for the courses of a class, in order: the student's, one per subject, the assessment.
std::vector<TField> FieldsOf(const TCourses& courses);
/// Appends a row per student, with the assessment of the first course, and sets the subjects' fields to the tokens of
/// the grades. Raises EVantrelException where the table lacks a field.
void Populate(TVantrelMemTable& memData, const TCourses& courses);

}  // namespace ClassOverview
