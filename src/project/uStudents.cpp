#include "uStudents.h"

#include <fmt/format.h>

#include "uProject.h"

constexpr auto TStudent::RemarkList() {
  return Fields::DataList("CertificateComments", &TStudent::FCertificateComments);
}

// The order of this table is the file format. "Zuzgang" has that spelling there.
constexpr auto TStudent::FieldTable() {
  using namespace Fields;
  return std::tuple(
      LongInt("StudentId", &TStudent::TessaronId), LongInt("StudentTermId", &TStudent::StudentTermId),
      LongInt("ClassId", &TStudent::ClassId), String("Lastname", &TStudent::Nachname),
      String("Firstname", &TStudent::Vorname), Char("Gender", &TStudent::Geschlecht, u'M'),
      Date("Birthday", &TStudent::Geburtsdatum), String("Personalnr", &TStudent::Personalnummer), RemarkList(),
      LongInt("Ausbildungsjahr", &TStudent::Ausbildungsjahr), LongInt("Schulbesuchsjahr", &TStudent::Schulbesuchsjahr),
      Date("Zuzgang", &TStudent::Zugang), Date("Abgang", &TStudent::Abgang),
      Date("Schulformeintritt", &TStudent::Schulformeintritt), Date("Zeugnisdatum", &TStudent::Zeugnisdatum),
      Date("Zeugniskonferenz", &TStudent::ZeugniskonferenzAm), LongInt("Fehlstunden", &TStudent::Fehlstunden),
      LongInt("FehlstundenU", &TStudent::FehlstundenU), LongInt("Fehltage", &TStudent::Fehltage),
      LongInt("FehltageU", &TStudent::FehltageU), LongInt("FehltagePraktikum", &TStudent::FehltagePraktikum),
      LongInt("FehltagePraktikumU", &TStudent::FehltagePraktikumU), LongInt("Versaeumnisse", &TStudent::Versaeumnisse),
      String("Versetzt", &TStudent::Versetzt), String("Versetzungsart", &TStudent::Versetzungsart),
      String("Abschluss1", &TStudent::Abschluss1), String("Abschluss1Art", &TStudent::Abschluss1Art),
      Date("Abschluss1Datum", &TStudent::Abschluss1Datum), Single("Abschluss1Note", &TStudent::Abschluss1Note),
      String("Abschluss2", &TStudent::Abschluss2), String("Abschluss2Art", &TStudent::Abschluss2Art),
      Date("Abschluss2Datum", &TStudent::Abschluss2Datum), Single("Abschluss2Note", &TStudent::Abschluss2Note),
      LongInt("MitarbeitGradeId", &TStudent::MitarbeitGradeId),
      LongInt("VerhaltenGradeId", &TStudent::VerhaltenGradeId), Byte("TeacherType", &TStudent::FLehrerTyp, 255),
      Boolean("TeilnahmeAnZusatzangebot", &TStudent::TeilnahmeAnZusatzangebot),
      LongInt("Unterrichtstage", &TStudent::Unterrichtstage), Boolean("VonSportBefreit", &TStudent::VonSportBefreit),
      String("Empfehlung", &TStudent::Empfehlung), String("Leistungsanforderung", &TStudent::Leistungsanforderung));
}

template class TVantrelRecordOf<TStudent>;

std::string TStudent::DisplayName() const {
  const auto name = Join(Vorname, Nachname, " ");
  if (name.empty() || Geburtsdatum.IsNull()) return name;
  return Join(name, fmt::format("({})", Geburtsdatum.ToString()), " ");
}

std::string TStudent::ViewDisplayName() const {
  const auto name = Join(Vorname, Nachname, " ");
  const auto* schoolClass = CurrentProject->Classes().Find(ClassId.Value);
  return schoolClass == nullptr || schoolClass->Token.empty() ? name : fmt::format("{} ({})", name, schoolClass->Token);
}

TCertificateComments& TStudent::CertificateComments() {
  return RemarkList().List(*this);
}

TCertificateComment* TStudent::AddCertificateComment(std::int32_t position, std::string_view attribute,
                                                     std::string_view description) {
  auto& comments = CertificateComments();
  auto comment = comments.NewComment({}, description, attribute, position);
  auto* added = comment.get();
  CurrentProject->InsertItem(comments, comments.Count(), std::move(comment));
  return added;
}

void TStudent::EditCertificateComment(const TGuid& id, std::int32_t position, std::string_view attribute,
                                      std::string_view description) {
  auto* comment = static_cast<TCertificateComment*>(CertificateComments().Find(id));
  if (comment == nullptr) return;
  const TJoinedChanges joined(*CurrentProject);
  CurrentProject->ChangeField(*comment, "Position", position);
  CurrentProject->ChangeField(*comment, "Attribute", attribute);
  CurrentProject->ChangeField(*comment, "Description", description);
}

void TStudent::DeleteCertificateComment(const TGuid& id) {
  const int index = CertificateComments().IndexOf(id);
  if (index >= 0) CurrentProject->DeleteItem(CertificateComments(), index);
}

void TStudent::DeleteAllCertificateComments() {
  auto& comments = CertificateComments();
  const TJoinedChanges joined(*CurrentProject);
  // Also where there was nothing to delete.
  if (comments.IsEmpty()) CurrentProject->SetModified(true);
  while (!comments.IsEmpty()) CurrentProject->DeleteItem(comments, comments.Count() - 1);
}

TStudent* TStudents::Find(const TVariant& tessaronId) const {
  for (int i = 0; i < Count(); ++i)
    if (tessaronId == TVariant(GetItem(i)->TessaronId.AsInt())) return GetItem(i);
  return nullptr;
}

void TStudents::Populate(TVantrelMemTable& memData) const {
  memData.Reopen();
  for (int i = 0; i < Count(); ++i) {
    const auto* student = GetItem(i);
    memData.AppendRow({{"ID", student->TessaronId.Value},
                       {"Vorname", student->Vorname},
                       {"Nachname", student->Nachname},
                       {"Geburtsdatum", student->Geburtsdatum.Value},
                       {"Klasse", student->ClassId.Value}});
  }
}

void TStudents::PopulateClasses(TVantrelMemTable& memData) const {
  memData.Reopen();
  for (int i = 0; i < Count(); ++i) {
    const auto& classId = GetItem(i)->ClassId.Value;
    const auto* schoolClass = CurrentProject->Classes().Find(classId);
    if (schoolClass == nullptr || memData.Locate("ID", classId)) continue;
    memData.AppendRow({{"ID", schoolClass->TessaronId},
                       {"Token", schoolClass->Token},
                       {"GradeType", static_cast<std::int32_t>(schoolClass->GradeType())}});
  }
}
