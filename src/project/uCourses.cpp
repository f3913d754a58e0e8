#include "uCourses.h"

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uClassOverview.h"
#include "uProject.h"

// The order of this table is the file format.
constexpr auto TCourse::FieldTable() {
  using namespace Fields;
  return std::tuple(
      LongInt("TessaronId", &TCourse::TessaronId), LongInt("SubjectId", &TCourse::SubjectId),
      String("SubjectToken", &TCourse::SubjectToken), String("SubjectName", &TCourse::SubjectName),
      DataObjectRef("Student", &TCourse::Student), LongInt("Note1ID", &TCourse::Note1Id),
      LongInt("Note2ID", &TCourse::Note2Id), LongInt("Note3ID", &TCourse::Note3Id),
      LongInt("Note4ID", &TCourse::Note4Id), LongInt("Note5ID", &TCourse::Note5Id),
      LongInt("Endnote1ID", &TCourse::Endnote1Id), LongInt("Endnote2ID", &TCourse::Endnote2Id),
      String("Fachstatus", &TCourse::Fachstatus), String("Schwerpunkt", &TCourse::Schwerpunkt),
      String("Unterrichtsart", &TCourse::Unterrichtsart), String("Niveau", &TCourse::Niveau),
      String("Merkmal", &TCourse::Merkmal), SmallInt("Mahnung", &TCourse::Mahnung), LongInt("Kursnr", &TCourse::KursNr),
      LongInt("Position", &TCourse::Position), Single("Faktor", &TCourse::Faktor),
      String("Beurteilung", &TCourse::Beurteilung), String("Fachlehrer", &TCourse::Fachlehrer),
      String("Tutor", &TCourse::Tutor), LongInt("ZusatzNote1ID", &TCourse::ZusatzNote1Id),
      LongInt("ZusatzNote2ID", &TCourse::ZusatzNote2Id), LongInt("ZusatzNote3ID", &TCourse::ZusatzNote3Id),
      LongInt("ZusatzNote4ID", &TCourse::ZusatzNote4Id), LongInt("ZusatzNote5ID", &TCourse::ZusatzNote5Id),
      LongInt("ZusatzNote6ID", &TCourse::ZusatzNote6Id), LongInt("ZusatzNote7ID", &TCourse::ZusatzNote7Id),
      LongInt("ZusatzNote8ID", &TCourse::ZusatzNote8Id), LongInt("ZusatzNote9ID", &TCourse::ZusatzNote9Id),
      LongInt("VornoteID", &TCourse::VornoteId), LongInt("VergesseneHA", &TCourse::VergesseneHA),
      LongInt("VergesseneAM", &TCourse::VergesseneAM), String("Leistungsart", &TCourse::Leistungsart),
      String("Bestanden", &TCourse::Bestanden));
}

template class TVantrelRecordOf<TCourse>;

std::string TCourse::Name() const {
  const auto number = KursNr.ToString();
  if (Unterrichtsart == "GK") return LowerCase(SubjectToken) + number;
  if (Unterrichtsart == "LK") return UpperCase(SubjectToken) + number;
  return SubjectToken + number;
}

TStudent& TCourse::RequireStudent() const {
  if (Student == nullptr)
    throw EVantrelException(FormatText(ProjectTexts::CourseWithoutStudent, TessaronId.ToString(), SubjectToken));
  return *Student;
}

TCourse* TCourses::Find(std::int32_t tessaronId) const {
  for (int i = 0; i < Count(); ++i)
    if (GetItem(i)->TessaronId.AsInt() == tessaronId) return GetItem(i);
  return nullptr;
}

void TCourses::AddCourse(TVantrelPtr<TCourse> course) {
  if (!Exists(*course)) Add(course.release());
}

void TCourses::PopulateSubjects(TVantrelMemTable& memData) const {
  for (int i = 0; i < Count(); ++i) {
    const auto* course = GetItem(i);
    if (memData.Locate("ID", course->SubjectId.Value)) continue;
    memData.AppendRow(
        {{"ID", course->SubjectId.Value}, {"Token", course->SubjectToken}, {"Name", course->SubjectName}});
  }
}

void TCourses::PopulateClassSubjects(TVantrelMemTable& memData, const TClass& schoolClass) const {
  ClassOverview::Populate(memData, *CurrentProject->CoursesByClass(TVariant(schoolClass.TessaronId)));
}
