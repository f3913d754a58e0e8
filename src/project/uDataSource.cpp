#include "uDataSource.h"

#include <array>
#include <variant>

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {

/// The computed name of the course.
using TComputed = std::monostate;
using TMember =
    std::variant<TComputed, std::string TCourse::*, TMyTessaronInteger TCourse::*, TMyTessaronFloat TCourse::*>;

struct TCourseField {
  TMember Member;
  bool ReadOnly = false;
};

/// By the ordinals of the students' grid; the subjects' grid has most of them six places later.
constexpr std::array<TCourseField, 34> CourseFields{{
    {TComputed(), true},        {&TCourse::SubjectToken},  {&TCourse::Position},          {&TCourse::Faktor},
    {&TCourse::Unterrichtsart}, {&TCourse::Fachstatus},    {&TCourse::Schwerpunkt, true}, {&TCourse::Niveau},
    {&TCourse::Note1Id},        {&TCourse::Note2Id},       {&TCourse::Note3Id},           {&TCourse::Note4Id},
    {&TCourse::Note5Id},        {&TCourse::Endnote1Id},    {&TCourse::Endnote2Id},        {&TCourse::Beurteilung},
    {&TCourse::Merkmal},        {&TCourse::Mahnung},       {&TCourse::Tutor, true},       {&TCourse::Fachlehrer, true},
    {&TCourse::ZusatzNote1Id},  {&TCourse::ZusatzNote2Id}, {&TCourse::ZusatzNote3Id},     {&TCourse::ZusatzNote4Id},
    {&TCourse::ZusatzNote5Id},  {&TCourse::ZusatzNote6Id}, {&TCourse::ZusatzNote7Id},     {&TCourse::ZusatzNote8Id},
    {&TCourse::ZusatzNote9Id},  {&TCourse::VornoteId},     {&TCourse::VergesseneHA},      {&TCourse::VergesseneAM},
    {&TCourse::Leistungsart},   {&TCourse::Bestanden},
}};
constexpr int FieldCount = static_cast<int>(CourseFields.size());
constexpr int TokenOrdinal = 1;
constexpr int SubjectShift = 6;

struct TReadMember {
  const TCourse& Course;
  TVariant operator()(TComputed) const { return Course.Name(); }
  TVariant operator()(std::string TCourse::*member) const { return Course.*member; }
  template <class TNullable>
  TVariant operator()(TNullable TCourse::*member) const {
    return (Course.*member).Value;
  }
};

struct TWriteMember {
  TCourse& Course;
  const TVariant& Value;
  void operator()(TComputed) const {}
  void operator()(std::string TCourse::*member) const { Course.*member = Value.AsTextOrEmpty(); }
  template <class TNullable>
  void operator()(TNullable TCourse::*member) const {
    (Course.*member).Value = Value;
  }
};

TVariant ReadField(const TCourse& course, int field) {
  return std::visit(TReadMember{course}, CourseFields[static_cast<std::size_t>(field)].Member);
}

void WriteField(TCourse& course, int field, const TVariant& value) {
  const auto& entry = CourseFields[static_cast<std::size_t>(field)];
  if (!entry.ReadOnly) std::visit(TWriteMember{course, value}, entry.Member);
}

const TClass& RequireClass(const TStudent& student) {
  const auto* schoolClass = CurrentProject->Classes().Find(student.ClassId.Value);
  if (schoolClass == nullptr)
    throw EVantrelException(FormatText(ProjectTexts::StudentWithoutClass, student.DisplayName()));
  return *schoolClass;
}

}  // namespace

TVantrelObject* TMyTessaronSource::GetRecordHandle(int index) {
  return FList == nullptr ? nullptr : FList->GetItem(index);
}

void TMyTessaronSource::GetValue(TVantrelObject* record, int ordinal, TVariant& value) {
  value = TVariant::Null();
  if (record != nullptr) value = Read(*static_cast<TCourse*>(record), ordinal);
}

void TMyTessaronSource::SetValue(TVantrelObject* record, int ordinal, const TVariant& value) {
  if (record == nullptr) return;
  Write(*static_cast<TCourse*>(record), ordinal, value);
  CurrentProject->SetModified(true);
}

TVariant TStudentCoursesSource::Read(const TCourse& course, int ordinal) const {
  return ordinal >= 0 && ordinal < FieldCount ? ReadField(course, ordinal) : TVariant::Null();
}

void TStudentCoursesSource::Write(TCourse& course, int ordinal, const TVariant& value) const {
  if (ordinal == TokenOrdinal)
    course.SubjectToken = value.AsText();
  else if (ordinal >= 0 && ordinal < FieldCount)
    WriteField(course, ordinal, value);
}

TVariant TSubjectCoursesSource::Read(const TCourse& course, int ordinal) const {
  switch (ordinal) {
    case 0:
      return course.Name();
    case 1:
      return static_cast<std::int32_t>(RequireClass(course.RequireStudent()).GradeType());
    case 2:
      return course.RequireStudent().Nachname;
    case 3:
      return course.RequireStudent().Vorname;
    case 4:
      return course.RequireStudent().Geburtsdatum.Value;
    case 5:
      return course.RequireStudent().Personalnummer;
    case 6:
      return RequireClass(course.RequireStudent()).Token;
    case FieldCount + SubjectShift:
      return GetGradeTypeName(RequireClass(course.RequireStudent()).GradeType());
    default:
      if (ordinal < 0 || ordinal > FieldCount + SubjectShift)
        throw EVantrelException(FormatText(ProjectTexts::OrdinalNotFound, ordinal));
      return ReadField(course, ordinal - SubjectShift);
  }
}

void TSubjectCoursesSource::Write(TCourse& course, int ordinal, const TVariant& value) const {
  const int field = ordinal - SubjectShift;
  if (field > TokenOrdinal && field < FieldCount) WriteField(course, field, value);
}
