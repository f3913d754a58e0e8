#pragma once

#include "uCatalogs.h"
#include "uFields.h"
#include "uHelper.h"

class TStudent;
extern template class TVantrelRecordOf<TStudent>;

/// One student of the term: identity, dates, absences, promotion and school-leaving data, remarks. Created by the
/// reader only.
class TStudent : public TVantrelRecordOf<TStudent> {
 public:
  static constexpr std::string_view ClassName = "TStudent";
  using TVantrelRecordOf::TVantrelRecordOf;

  TMyTessaronInteger TessaronId;
  TMyTessaronInteger StudentTermId;
  TMyTessaronInteger ClassId;
  std::string Vorname;
  std::string Nachname;
  TMyTessaronDateTime Geburtsdatum;
  std::string Personalnummer;
  TMyTessaronInteger Ausbildungsjahr;
  TMyTessaronInteger Schulbesuchsjahr;
  TMyTessaronDateTime Zugang;
  TMyTessaronDateTime Abgang;
  TMyTessaronDateTime Schulformeintritt;
  TMyTessaronInteger Fehlstunden;
  TMyTessaronInteger FehlstundenU;
  TMyTessaronInteger Fehltage;
  TMyTessaronInteger FehltageU;
  TMyTessaronInteger FehltagePraktikum;
  TMyTessaronInteger FehltagePraktikumU;
  TMyTessaronInteger MitarbeitGradeId;
  TMyTessaronInteger VerhaltenGradeId;
  TMyTessaronInteger Versaeumnisse;
  TMyTessaronDateTime Zeugnisdatum;
  TMyTessaronDateTime ZeugniskonferenzAm;
  std::string Versetzt;
  std::string Versetzungsart;
  std::string Abschluss1;
  std::string Abschluss1Art;
  TMyTessaronDateTime Abschluss1Datum;
  TMyTessaronFloat Abschluss1Note;
  std::string Abschluss2;
  std::string Abschluss2Art;
  TMyTessaronDateTime Abschluss2Datum;
  TMyTessaronFloat Abschluss2Note;
  std::string Empfehlung;
  std::string Leistungsanforderung;
  TMyTessaronInteger Unterrichtstage;
  char16_t Geschlecht = u'M';
  bool TeilnahmeAnZusatzangebot = false;
  bool VonSportBefreit = false;

  /// How the teacher of the file stands to the student; it says whether remarks may be changed. 255 if unknown.
  std::uint8_t LehrerTyp() const { return FLehrerTyp; }
  void SetLehrerTyp(std::uint8_t value) { FLehrerTyp = value; }

  /// First name, surname, and the date of birth in parentheses; empty without a name.
  std::string DisplayName() const;
  /// First name, surname, and the token of the class in CurrentProject in parentheses.
  std::string ViewDisplayName() const;

  /// The remarks of the student's certificate, in a list that the student owns.
  TCertificateComments& CertificateComments();
  /// Null while there has been none.
  const TCertificateComments* CertificateComments() const { return FCertificateComments.get(); }
  /// The four remark operations mark CurrentProject as modified. Adding gives the new remark, with an empty token.
  TCertificateComment* AddCertificateComment(std::int32_t position, std::string_view attribute,
                                             std::string_view description);
  /// An unknown id: nothing. The token stays as it was.
  void EditCertificateComment(const TGuid& id, std::int32_t position, std::string_view attribute,
                              std::string_view description);
  /// An unknown id: nothing.
  void DeleteCertificateComment(const TGuid& id);
  void DeleteAllCertificateComments();

  std::string GetDisplayText() const override { return DisplayName(); }
  void DoDestroy() override { FCertificateComments.reset(); }

 private:
  friend TVantrelRecordOf<TStudent>;
  static constexpr auto RemarkList();
  static constexpr auto FieldTable();

  std::uint8_t FLehrerTyp = 255;
  /// Null until it is first asked for.
  TVantrelPtr<TCertificateComments> FCertificateComments;
};

/// The students of the project, found by their number in the central system.
class TStudents : public TVantrelDataListOf<TStudent> {
 public:
  using TVantrelDataListOf::Find;
  using TVantrelDataListOf::TVantrelDataListOf;

  /// The first student whose id, -1 for null, equals the variant; null if there is none.
  TStudent* Find(const TVariant& tessaronId) const;
  bool Exists(const TVariant& tessaronId) const { return Find(tessaronId) != nullptr; }
  /// True also for another object with the same id.
  bool Exists(const TStudent& student) const { return Exists(TVariant(student.TessaronId.AsInt())); }
  /// Closes and opens the table and appends a row "ID", "Vorname", "Nachname", "Geburtsdatum", "Klasse" (the class's
  /// id) per student.
  void Populate(TVantrelMemTable& memData) const;
  /// Closes and opens the table and appends a row "ID", "Token", "GradeType" per class of CurrentProject that a student
  /// is in, in the order of first appearance.
  void PopulateClasses(TVantrelMemTable& memData) const;
};
