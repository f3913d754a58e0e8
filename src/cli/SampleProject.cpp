#include "SampleProject.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "SampleCatalogs.h"
#include "SampleNames.h"
#include "VantrelDateTime.h"

namespace {

using SampleNames::TMarking;
using SampleNames::TSchoolClass;

constexpr int SchoolYear = 2025;
constexpr std::int32_t FirstClassId = 100, FirstSubjectId = 300, FirstStudentId = 1000, FirstTermRecordId = 50000,
                       FirstCourseId = 20000;

TGradeTypes GradeTypeOf(TMarking marking) {
  switch (marking) {
    case TMarking::Values:
      return TGradeTypes::gtValue;
    case TMarking::Points:
      return TGradeTypes::gtPoints;
    case TMarking::Texts:
      break;
  }
  return TGradeTypes::gtFill;
}

double Date(int year, int month, int day) {
  return EncodeDateTime({.Year = year, .Month = month, .Day = day, .Hour = 0});
}

class TSampleBuilder {
 public:
  TSampleBuilder(TMyTessaronProject& project, const TSampleOptions& options)
      : FProject(project),
        FOptions(options),
        FRandom(options.Seed),
        FNamespace(NameBasedGuid(GuidNamespaceDns(), fmt::format("sample-{}", options.Seed), 5)),
        FClasses(SampleNames::Classes(std::max(options.Classes, 1))),
        FSubjects(SampleNames::Subjects()) {
    FSubjects =
        FSubjects.first(std::clamp<std::size_t>(static_cast<std::size_t>(options.Subjects), 1, FSubjects.size()));
  }

  void Build() {
    AddHeader();
    AddCatalogues();
    AddColumns();
    AddClasses();
    for (int i = 0; i < FOptions.Students; ++i) AddStudent(i);
  }

 private:
  template <class TItem>
  TVantrelPtr<TItem> Create(TVantrelAbstractDataObject* owner) {
    const int number = FCounts[TItem::ClassName]++;
    return CreateVantrel<TItem>(owner, NameBasedGuid(FNamespace, fmt::format("{}-{}", TItem::ClassName, number), 5));
  }
  template <class TItem>
  TItem& Add(TVantrelDataList& list) {
    auto item = Create<TItem>(&list);
    list.Add(item.get());
    return *item.release();
  }
  void AddRemark(TCertificateComments& list, int place, std::string_view token, std::string_view subject);

  void AddHeader();
  void AddCatalogues();
  void AddColumns();
  void AddClasses();
  void AddStudent(int index);
  void FillCertificate(TStudent& student, const TSchoolClass& schoolClass);
  void AddCourse(TStudent& student, int classIndex, int subjectIndex);
  void FillGrades(TCourse& course, TMarking marking);
  std::int32_t GradeId(TGradeTypes type);
  bool Maybe(TMyTessaronInteger& value, int percent, int low, int high);

  TMyTessaronProject& FProject;
  TSampleOptions FOptions;
  TSampleRandom FRandom;
  TGuid FNamespace;
  std::vector<TSchoolClass> FClasses;
  std::span<const SampleNames::TSubject> FSubjects;
  std::map<std::string_view, int> FCounts;
};

void TSampleBuilder::AddHeader() {
  const auto& teacher = SampleNames::Teachers().front();
  FProject.SetProductVersion(fmt::format("{}.2.1", FOptions.Edition));
  FProject.TenantId.SetAsInt(7);
  FProject.TeacherId.SetAsInt(42);
  FProject.TermId.SetAsInt(SchoolYear * 10 + 1);
  FProject.TeacherToken = teacher.Token;
  FProject.TeacherName = teacher.Text;
  FProject.TermName = fmt::format("1. Halbjahr {}/{}", SchoolYear, (SchoolYear + 1) % 100);
  FProject.Description = "Bitte tragen Sie die Noten bis zum 16. Januar ein.\nRückfragen beantwortet das Schulbüro.";
}

void TSampleBuilder::AddCatalogues() {
  const auto add = [this](TCatalogs& list, std::string_view token, std::string_view description) {
    auto& entry = Add<TCatalog>(list);
    entry.Token = token;
    entry.Description = description;
  };
  for (const auto& [list, token, description] : SampleCatalogs::Entries()) add((FProject.*list)(), token, description);
  for (const auto& [token, text] : SampleNames::Assessments())
    add(FProject.Zeugnisbeurteilungen(), token, fmt::format(fmt::runtime(text), "Die Schülerin oder der Schüler"));

  std::int32_t id = 0;
  for (const auto& [token, description, value, type] : SampleCatalogs::Grades()) {
    auto& grade = Add<TGrade>(FProject.Noten());
    grade.Token = token;
    grade.Description = description;
    grade.TessaronId = ++id;
    grade.GradeValue = value;
    grade.SetGradeType(type);
  }
  for (std::size_t i = 0; i < SampleNames::Remarks().size(); ++i)
    AddRemark(FProject.CertificateComments(), static_cast<int>(i), SampleNames::Remarks()[i].Token, "");
}

/// Remarks that begin in lower case lack their subject.
void TSampleBuilder::AddRemark(TCertificateComments& list, int place, std::string_view token,
                               std::string_view subject) {
  const auto& known = *std::ranges::find(SampleNames::Remarks(), token, &SampleNames::TText::Token);
  const bool lacksSubject = known.Text.starts_with("hat ");
  auto& remark = Add<TCertificateComment>(list);
  remark.Token = subject.empty() ? token : "";
  remark.Description = lacksSubject && !subject.empty() ? fmt::format("{} {}", subject, known.Text) : known.Text;
  remark.Attribute = lacksSubject ? "L" : "H";
  remark.Position = place + 1;
}

void TSampleBuilder::AddColumns() {
  auto options = Create<TDataOptions>(&FProject);
  options->SetAbsenceBehaviour(TAbsenceBehaviour::abUpdate);
  for (const auto& entry : SampleCatalogs::Columns()) {
    auto& column = Add<TColumn>(options->Columns());
    column.Fieldname = entry.Fieldname;
    column.Displayname = entry.Displayname;
    column.SetCustomname(std::string(entry.Customname));
    column.Customization = 1 << ccVisibility | 1 << ccEditability;
    column.Editable = entry.Editable;
    column.Visible = entry.Visible;
    column.GridColumn = entry.GridColumn;
  }
  FProject.SetOptions(std::move(options));
}

void TSampleBuilder::AddClasses() {
  std::int32_t id = FirstClassId;
  for (const TSchoolClass& schoolClass : FClasses) {
    auto& item = Add<TClass>(FProject.Classes());
    item.TessaronId = id++;
    item.Token = schoolClass.Token;
    item.SetGradeType(GradeTypeOf(schoolClass.Marking));
  }
}

void TSampleBuilder::AddStudent(int index) {
  const auto classCount = static_cast<std::int64_t>(FClasses.size());
  const auto classIndex = static_cast<int>(index * classCount / FOptions.Students);
  const TSchoolClass& schoolClass = FClasses[static_cast<std::size_t>(classIndex)];
  auto& student = Add<TStudent>(FProject.Students());
  student.TessaronId.SetAsInt(FirstStudentId + index);
  student.StudentTermId.SetAsInt(FirstTermRecordId + index);
  student.ClassId.SetAsInt(FirstClassId + classIndex);
  std::tie(student.Vorname, student.Geschlecht) = SampleNames::FirstName(FRandom);
  student.Nachname = SampleNames::Surname(FRandom);
  const int month = FRandom.Between(1, 12), day = FRandom.Between(1, 28);
  const int birthYear = SchoolYear + 1 - schoolClass.Age - (month > 9 ? 1 : 0);
  student.Geburtsdatum.SetAsDateTime(Date(birthYear, month, day));
  student.Personalnummer = fmt::format("{:06}", 700000 + index);
  student.Schulbesuchsjahr.SetAsInt(schoolClass.Age - 6);
  const int entryYear = SchoolYear + 11 - schoolClass.Age;
  student.Zugang.SetAsDateTime(Date(entryYear, 8, 1));
  student.Schulformeintritt.SetAsDateTime(Date(entryYear, 8, 1));
  FillCertificate(student, schoolClass);
  for (std::size_t i = 0; i < FSubjects.size(); ++i) AddCourse(student, classIndex, static_cast<int>(i));
}

bool TSampleBuilder::Maybe(TMyTessaronInteger& value, int percent, int low, int high) {
  if (!FRandom.Chance(percent)) return false;
  value.SetAsInt(FRandom.Between(low, high));
  return true;
}

void TSampleBuilder::FillCertificate(TStudent& student, const TSchoolClass& schoolClass) {
  // Most students are the teacher's own, or of a class that the teacher leads.
  student.SetLehrerTyp(FRandom.Chance(85) ? (FRandom.Chance(50) ? 2 : 0) : (FRandom.Chance(70) ? 1 : 255));
  student.Zeugnisdatum.SetAsDateTime(Date(SchoolYear + 1, 1, 30));
  student.ZeugniskonferenzAm.SetAsDateTime(Date(SchoolYear + 1, 1, 21));
  student.Unterrichtstage.SetAsInt(92);
  if (Maybe(student.Fehltage, 60, 0, 14)) Maybe(student.FehltageU, 30, 0, student.Fehltage.AsInt());
  if (Maybe(student.Fehlstunden, 50, 0, 40)) Maybe(student.FehlstundenU, 30, 0, student.Fehlstunden.AsInt());
  if (schoolClass.Age == 15) Maybe(student.FehltagePraktikum, 40, 0, 3);
  if (FRandom.Chance(60)) student.VerhaltenGradeId.SetAsInt(FRandom.Between(1, 9));
  if (FRandom.Chance(60)) student.MitarbeitGradeId.SetAsInt(FRandom.Between(1, 11));
  student.VonSportBefreit = FRandom.Chance(2);
  student.TeilnahmeAnZusatzangebot = FRandom.Chance(15);
  if (schoolClass.Age <= 12 && FRandom.Chance(70)) student.Empfehlung = FRandom.Chance(50) ? "GY" : "RS";
  if (schoolClass.Age == 16 && FRandom.Chance(50)) {
    student.Abschluss1 = FRandom.Chance(60) ? "MSA" : "EMSA";
    student.Abschluss1Art = "P";
    student.Abschluss1Datum.SetAsDateTime(Date(SchoolYear + 1, 6, 19));
    student.Abschluss1Note.SetAsFloat(static_cast<float>(FRandom.Between(10, 40)) / 10);
  }
  for (int count = std::max(FRandom.Between(-2, 2), 0), i = 0; i < count; ++i)
    AddRemark(student.CertificateComments(), i, FRandom.Pick(SampleNames::Remarks()).Token, student.Vorname);
}

void TSampleBuilder::AddCourse(TStudent& student, int classIndex, int subjectIndex) {
  const SampleNames::TSubject& subject = FSubjects[static_cast<std::size_t>(subjectIndex)];
  const TSchoolClass& schoolClass = FClasses[static_cast<std::size_t>(classIndex)];
  const auto teachers = SampleNames::Teachers();
  auto& course = Add<TCourse>(FProject.Courses());
  course.TessaronId.SetAsInt(FirstCourseId + FProject.Courses().Count() - 1);
  course.SubjectId.SetAsInt(FirstSubjectId + subjectIndex);
  course.SubjectToken = subject.Token;
  course.SubjectName = subject.Name;
  course.Student = &student;
  course.Position.SetAsInt(subjectIndex + 1);
  course.Faktor.SetAsFloat(1);
  course.Fachstatus = FRandom.Chance(95) ? "B" : "E";
  course.Fachlehrer = teachers[static_cast<std::size_t>(classIndex * 3 + subjectIndex) % teachers.size()].Token;
  course.Tutor = teachers[static_cast<std::size_t>(classIndex) % teachers.size()].Token;
  if (schoolClass.Marking == TMarking::Points) {
    const bool advanced = (student.TessaronId.AsInt() + subjectIndex) % 5 == 0;
    course.Unterrichtsart = advanced ? "LK" : "GK";
    course.KursNr.SetAsInt(1 + student.TessaronId.AsInt() % 3);
    course.Leistungsart = advanced || FRandom.Chance(50) ? "S" : "M";
  } else {
    course.Unterrichtsart = subjectIndex >= 3 && subjectIndex <= 5 ? "WP" : "PF";
    if (schoolClass.Marking == TMarking::Values && subjectIndex < 3) course.Niveau = FRandom.Chance(50) ? "E" : "G";
  }
  FillGrades(course, schoolClass.Marking);
}

/// A grade of that type: the middle ones are the most frequent.
std::int32_t TSampleBuilder::GradeId(TGradeTypes type) {
  const auto grades = SampleCatalogs::Grades();
  const auto isOfType = [type](const SampleCatalogs::TGradeEntry& grade) { return grade.Type == type; };
  const auto first = static_cast<int>(std::ranges::find_if(grades, isOfType) - grades.begin());
  const auto count = static_cast<int>(std::ranges::count_if(grades, isOfType));
  return 1 + first + (FRandom.Below(count) + FRandom.Below(count)) / 2;
}

void TSampleBuilder::FillGrades(TCourse& course, TMarking marking) {
  if (marking == TMarking::Texts) {
    if (FRandom.Chance(70))
      course.Beurteilung =
          fmt::format(fmt::runtime(FRandom.Pick(SampleNames::Assessments()).Text), course.Student->Vorname);
    if (FRandom.Chance(20)) course.Endnote1Id.SetAsInt(GradeId(TGradeTypes::gtFill));
    return;
  }
  const TGradeTypes type = GradeTypeOf(marking);
  const std::pair<TMyTessaronInteger TCourse::*, int> chances[] = {
      {&TCourse::VornoteId, 90}, {&TCourse::Note1Id, 90},    {&TCourse::Note2Id, 65},
      {&TCourse::Note3Id, 40},   {&TCourse::Endnote1Id, 25}, {&TCourse::ZusatzNote1Id, 30}};
  for (const auto& [field, percent] : chances)
    if (FRandom.Chance(percent)) (course.*field).SetAsInt(GradeId(FRandom.Chance(97) ? type : TGradeTypes::gtFill));
  Maybe(course.VergesseneHA, 50, 0, 9);
  Maybe(course.VergesseneAM, 40, 0, 6);
  Maybe(course.Mahnung, 4, 0, 2);
  if (marking == TMarking::Points && FRandom.Chance(30)) course.Bestanden = FRandom.Chance(90) ? "P" : "F";
}

}  // namespace

void BuildSample(TMyTessaronProject& project, const TSampleOptions& options) {
  TSampleBuilder(project, options).Build();
}
