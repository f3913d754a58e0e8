#pragma once

#include "uClasses.h"
#include "uFields.h"
#include "uHelper.h"
#include "uStudents.h"

class TCourse;
extern template class TVantrelRecordOf<TCourse>;

/// One student's enrolment in one subject: what the teacher fills in. Grades are ids of the grade catalogue.
class TCourse : public TVantrelRecordOf<TCourse> {
 public:
  static constexpr std::string_view ClassName = "TCourse";
  using TVantrelRecordOf::TVantrelRecordOf;

  TMyTessaronInteger TessaronId;
  TMyTessaronInteger SubjectId;
  std::string SubjectToken;
  std::string SubjectName;
  /// The enrolled student, not owned. Null only where a damaged file says so: see RequireStudent.
  TStudent* Student = nullptr;
  TMyTessaronInteger Note1Id, Note2Id, Note3Id, Note4Id, Note5Id;
  TMyTessaronInteger Endnote1Id, Endnote2Id;
  std::string Fachstatus;
  std::string Schwerpunkt;
  std::string Unterrichtsart;
  std::string Niveau;
  std::string Merkmal;
  TMyTessaronInteger Mahnung;
  TMyTessaronInteger KursNr;
  TMyTessaronInteger Position;
  TMyTessaronFloat Faktor;
  std::string Beurteilung;
  std::string Fachlehrer;
  std::string Tutor;
  TMyTessaronInteger ZusatzNote1Id, ZusatzNote2Id, ZusatzNote3Id, ZusatzNote4Id, ZusatzNote5Id, ZusatzNote6Id,
      ZusatzNote7Id, ZusatzNote8Id, ZusatzNote9Id;
  TMyTessaronInteger VornoteId;
  TMyTessaronInteger VergesseneHA;
  TMyTessaronInteger VergesseneAM;
  std::string Leistungsart;
  std::string Bestanden;

  /// The subject's token and the course number: lower case for "GK", upper case for "LK".
  std::string Name() const;
  /// The student; a course without one raises EVantrelException with a text that says so.
  TStudent& RequireStudent() const;

 private:
  friend TVantrelRecordOf<TCourse>;
  static constexpr auto FieldTable();
};

/// Courses: those of the project, which owns them, or some that were asked for, which are only listed.
class TCourses : public TVantrelDataListOf<TCourse> {
 public:
  using TVantrelDataListOf::Find;
  using TVantrelDataListOf::TVantrelDataListOf;

  /// The first course with that id, -1 for null; null if there is none.
  TCourse* Find(std::int32_t tessaronId) const;
  bool Exists(const TCourse& course) const { return Find(course.TessaronId.AsInt()) != nullptr; }
  /// Appends the course; one whose id exists is freed instead.
  void AddCourse(TVantrelPtr<TCourse> course);
  /// Appends a row "ID", "Token", "Name" per subject that the table does not hold, in the order of first appearance.
  void PopulateSubjects(TVantrelMemTable& memData) const;
  /// Appends the overview of the class, whose courses it takes from CurrentProject: see ClassOverview::Populate.
  void PopulateClassSubjects(TVantrelMemTable& memData, const TClass& schoolClass) const;
};
