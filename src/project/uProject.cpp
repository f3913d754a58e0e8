#include "uProject.h"

#include <array>

#include "ProjectTexts.h"
#include "VantrelDataRegistry.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "uCourseColumns.h"
#include "uFields.h"
#include "uProjectDefects.h"

constexpr auto TDataOptions::FieldTable() {
  return std::tuple(Fields::Byte("AbsenceBehaviour", &TDataOptions::FAbsenceBehaviour),
                    Fields::DataList("Columns", &TDataOptions::FColumns));
}

template class TVantrelRecordOf<TDataOptions>;

void TDataOptions::DoCreate() {
  FColumns = CreateVantrel<TColumns>(this, true);
  DoClear();
}

void TDataOptions::DoDestroy() {
  FColumns.reset();
}

// The order of the two tables is the file format: "Version", these, then "DataOptions".
constexpr auto TMyTessaronProject::HeaderFields() {
  using namespace Fields;
  using T = TMyTessaronProject;
  return std::tuple(Boolean("PasswordProtected", &T::PasswordProtected), String("Password", &T::Password),
                    LongInt("TenantId", &T::TenantId), LongInt("TeacherId", &T::TeacherId),
                    LongInt("TermId", &T::TermId), String("TeacherToken", &T::TeacherToken),
                    String("TeacherName", &T::TeacherName), String("TermName", &T::TermName),
                    String("Description", &T::Description));
}

constexpr auto TMyTessaronProject::ListFields() {
  using Fields::DataList;
  using T = TMyTessaronProject;
  return std::tuple(
      DataList("Abschluesse", &T::FAbschluesse), DataList("Abschlussarten", &T::FAbschlussarten),
      DataList("Empfehlungen", &T::FEmpfehlungen), DataList("Fachstati", &T::FFachstati),
      DataList("Niveaus", &T::FNiveaus), DataList("Noten", &T::FNoten),
      DataList("Unterrichtsarten", &T::FUnterrichtsarten), DataList("Versetzungsarten", &T::FVersetzungsarten),
      DataList("Zeugnisbeurteilungen", &T::FZeugnisbeurteilungen), DataList("Leistungsarten", &T::FLeistungsarten),
      DataList("CertificateComments", &T::FCertificateComments), DataList("Classes", &T::FClasses),
      DataList("Courses", &T::FCourses), DataList("Students", &T::FStudents));
}

void TMyTessaronProject::RegisterClasses() {
  auto& registry = TVantrelDataClassRegistry::Instance();
  for (const auto* dataClass : {&TCatalog::Class(), &TCertificateComment::Class(), &TGrade::Class(), &TClass::Class(),
                                &TStudent::Class(), &TCourse::Class(), &TDataOptions::Class(), &TColumn::Class()})
    registry.AddClass(StorageName, *dataClass);
}

void TMyTessaronProject::DoCreate() {
  TVantrelDataStorage::DoCreate();
  FProductVersion = NewProductVersion;
  std::apply([this](const auto&... field) { (field.List(*this), ...); }, Fields::Of<ListFields>);
  FOptions = CreateVantrel<TDataOptions>(this);
  DoClear();
}

void TMyTessaronProject::DoDestroy() {
  std::apply([this](const auto&... field) { ((this->*field.Member).reset(), ...); }, Fields::Of<ListFields>);
  FOptions.reset();
  FExclusiveFileStream.reset();
  TVantrelDataStorage::DoDestroy();
}

void TMyTessaronProject::DoClear() {
  TVantrelDataStorage::DoClear();
  Fields::ClearAll(Fields::Of<HeaderFields>, *this);
  Fields::ClearAll(Fields::Of<ListFields>, *this);
  FOptions->DoClear();
}

void TMyTessaronProject::ReadData(TVantrelDataObjectReader& reader) {
  TVantrelDataStorage::ReadData(reader);
  FProductVersion = reader.ReadString("Version", FProductVersion);
  Fields::ReadAll(Fields::Of<HeaderFields>, *this, reader);
  Fields::ReadAll(Fields::Of<ListFields>, *this, reader);
  reader.ReadOwnedObject("DataOptions", FOptions);
}

void TMyTessaronProject::WriteData(TVantrelDataObjectWriter& writer) const {
  TVantrelDataStorage::WriteData(writer);
  writer.WriteString("Version", FProductVersion);
  Fields::WriteAll(Fields::Of<HeaderFields>, *this, writer);
  try {
    Fields::WriteAll(Fields::Of<ListFields>, *this, writer);
  } catch (const EVantrelDateTimeError&) {
    throw EVantrelDateTimeError(FormatText(ProjectTexts::DateNotStorable, FindImpossibleDate(*this)));
  }
  writer.WriteDataObject("DataOptions", FOptions.get());
}

void TMyTessaronProject::VisitFields(const Fields::TVisitor& visitor) const {
  visitor("Version", FProductVersion);
  Fields::VisitAll(HeaderFields(), *this, visitor);
}

int TMyTessaronProject::ProductEdition() const {
  const char first = FProductVersion.empty() ? '\0' : FProductVersion.front();
  return first >= '0' && first <= '9' ? first - '0' : -1;
}

bool TMyTessaronProject::CheckPassword(std::string_view enteredPassword) const {
  auto entered = Utf8ToUtf16(enteredPassword);
  for (auto& unit : entered) unit = static_cast<char16_t>(~unit);
  return !entered.empty() && entered == Utf8ToUtf16(Password);
}

void TMyTessaronProject::SetModified(bool isModified) {
  SetModifiedFlag(isModified);
  if (OnModified) OnModified();
}

template <class TPredicate>
TVantrelPtr<TCourses> TMyTessaronProject::CoursesWhere(TPredicate predicate) const {
  auto found = CreateVantrel<TCourses>(false);
  for (int i = 0; i < FCourses->Count(); ++i) {
    auto* course = FCourses->GetItem(i);
    if (course->Student != nullptr && predicate(*course)) found->Add(course);
  }
  return found;
}

TVantrelPtr<TCourses> TMyTessaronProject::CoursesByClass(const TVariant& classId) const {
  return CoursesWhere([&](const TCourse& course) { return course.Student->ClassId.Value == classId; });
}

TVantrelPtr<TCourses> TMyTessaronProject::CoursesByStudent(const TVariant& studentId) const {
  return CoursesWhere([&](const TCourse& course) { return course.Student->TessaronId.Value == studentId; });
}

TVantrelPtr<TCourses> TMyTessaronProject::CoursesBySubject(const TVariant& subjectId) const {
  return CoursesWhere([&](const TCourse& course) { return course.SubjectId.Value == subjectId; });
}

bool TMyTessaronProject::EditableColumn(std::string_view columnName) const {
  for (const auto grid : {TCourseGrid::Students, TCourseGrid::Subjects}) {
    const auto prefix = TCourseColumns::Prefix(grid);
    if (!SameText(columnName.substr(0, prefix.size()), prefix)) continue;
    columnName.remove_prefix(prefix.size());
    break;
  }
  return FOptions->Columns().IsEditable(columnName);
}

void TMyTessaronProject::PopulateClassSubjects(TVantrelMemTable& memData, const TClass& schoolClass) const {
  memData.Close();
  memData.Open();
  FCourses->PopulateClassSubjects(memData, schoolClass);
}

void TMyTessaronProject::PopulateSubjects(TVantrelMemTable& memData) const {
  memData.Close();
  memData.Open();
  FCourses->PopulateSubjects(memData);
}
