#include "uClassOverview.h"

#include <algorithm>
#include <iterator>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uCourseColumns.h"
#include "uProject.h"

using enum TVantrelFieldType;

namespace ClassOverview {
namespace {

constexpr const char* IdField = "ID";
constexpr std::string_view GradeColumn = "endnote1";

/// A field that shows a column of the achievement grids.
struct TShown {
  const char* Field;
  const char* Caption;
  TVantrelFieldType Type;
  std::string_view Column;
};

constexpr TShown Heads[] = {{IdField, ProjectTexts::IdColumn, ftInteger, "student_id"},
                            {"FirstName", ProjectTexts::FirstNameColumn, ftText, "student_firstname"},
                            {"LastName", ProjectTexts::LastNameColumn, ftText, "student_lastname"},
                            {"Birthdate", ProjectTexts::BirthdayColumn, ftDateTime, "student_birthday"}};
constexpr TShown Assessment = {"Beurteilung", ProjectTexts::AssessmentColumn, ftMemo, "beurteilung"};

TField FieldFor(const TShown& shown) {
  return {shown.Field, ResourceText(shown.Caption), shown.Type};
}

std::string SubjectField(const TCourse& course) {
  return course.SubjectToken + "." + course.SubjectId.ToString();
}

TVariant ValueOf(const TCourse& course, std::string_view column) {
  return CourseColumn(column).Value(course);
}

void AppendStudent(TVantrelMemTable& memData, const TCourse& course) {
  const auto set = [&](const TShown& shown) {
    memData.FieldByName(shown.Field).SetValue(ValueOf(course, shown.Column));
  };
  memData.Append();
  std::ranges::for_each(Heads, set);
  set(Assessment);
}

}  // namespace

std::vector<TField> FieldsOf(const TCourses& courses) {
  std::vector<TField> fields;
  std::ranges::transform(Heads, std::back_inserter(fields), FieldFor);
  for (int i = 0; i < courses.Count(); ++i) {
    const auto& course = *courses.GetItem(i);
    const auto name = SubjectField(course);
    if (std::ranges::find(fields, name, &TField::Name) == fields.end())
      fields.push_back({name, course.SubjectToken, ftText});
  }
  fields.push_back(FieldFor(Assessment));
  return fields;
}

void Populate(TVantrelMemTable& memData, const TCourses& courses) {
  for (int i = 0; i < courses.Count(); ++i) {
    const auto& course = *courses.GetItem(i);
    if (memData.Locate(IdField, ValueOf(course, Heads[0].Column)))
      memData.Edit();
    else
      AppendStudent(memData, course);
    const auto id = ValueOf(course, GradeColumn);
    if (const auto* grade = id.IsEmpty() ? nullptr : CurrentProject->Noten().Find(id.AsInteger()))
      memData.FieldByName(SubjectField(course)).SetValue(grade->Token);
    memData.Post();
  }
}

}  // namespace ClassOverview
