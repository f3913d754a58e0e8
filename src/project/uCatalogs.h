#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelDataList.h"
#include "VantrelMemTable.h"
#include "uFields.h"

/// What the grades of a class are, and what a grade entry is for. Kept as the byte of the file.
enum class TGradeTypes : std::uint8_t { gtValue = 0, gtPoints = 1, gtFill = 2 };

/// "Noten", "Punkte" or "Text"; null for a byte that is no grade type.
TVariant GetGradeTypeName(TGradeTypes gradeType);

class TCatalog;
extern template class TVantrelRecordOf<TCatalog>;

/// Token and text of a catalogue.
class TCatalog : public TVantrelRecordOf<TCatalog> {
 public:
  static constexpr std::string_view ClassName = "TCatalog";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::string Token;
  std::string Description;

 private:
  friend TVantrelRecordOf<TCatalog>;
  static constexpr auto FieldTable();
};

/// A catalogue: what may be chosen, in the order of the file.
class TCatalogs : public TVantrelDataListOf<TCatalog> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  TCatalog* AddCatalog(std::string_view token, std::string_view description);
  /// Closes and opens the table and appends a row "Token", "Description" per item.
  void Populate(TVantrelMemTable& memData) const;
};

class TCertificateComment;
extern template class TVantrelRecordOf<TCertificateComment, TCatalog>;

/// A certificate remark, known by its object id.
class TCertificateComment : public TVantrelRecordOf<TCertificateComment, TCatalog> {
 public:
  static constexpr std::string_view ClassName = "TCertificateComment";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::string Attribute;
  std::int32_t Position = 0;

 private:
  friend TVantrelRecordOf<TCertificateComment, TCatalog>;
  static constexpr auto FieldTable();
};

/// The remarks of one certificate, or those of the project that they are composed of.
class TCertificateComments : public TVantrelDataListOf<TCertificateComment> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  /// A remark with a new GUID for this list.
  TVantrelPtr<TCertificateComment> NewComment(std::string_view token, std::string_view description,
                                              std::string_view attribute, std::int32_t position);
  /// Appends a new remark.
  TCertificateComment* AddCertificateComment(std::string_view token, std::string_view description,
                                             std::string_view attribute, std::int32_t position);
  /// Closes and opens the table and appends a row "ID", "Token", "Description", "Attribute", "Position" per item.
  void Populate(TVantrelMemTable& memData) const;
};

class TGrade;
extern template class TVantrelRecordOf<TGrade, TCatalog>;

/// An entry of the grade catalogue. Courses refer to it by TessaronId.
class TGrade : public TVantrelRecordOf<TGrade, TCatalog> {
 public:
  static constexpr std::string_view ClassName = "TGrade";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::int32_t TessaronId = -1;
  float GradeValue = -1.0F;

  TGradeTypes GradeType() const { return static_cast<TGradeTypes>(FGradeType); }
  void SetGradeType(TGradeTypes value) { FGradeType = static_cast<std::uint8_t>(value); }

 private:
  friend TVantrelRecordOf<TGrade, TCatalog>;
  static constexpr auto FieldTable();
  std::uint8_t FGradeType = 0;
};

/// The grade catalogue.
class TGrades : public TVantrelDataListOf<TGrade> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  TGrade* AddNote(std::int32_t tessaronId, std::string_view token, std::string_view description, float gradeValue,
                  TGradeTypes gradeType);
  /// The first grade with that id; null for a negative id.
  TGrade* Find(std::int32_t tessaronId) const;
  /// Closes and opens the table and appends a row "Token", "Description", "ID", "GradeValue", "GradeType" per grade of
  /// the given types; no types means all.
  void Populate(TVantrelMemTable& memData, const std::vector<TGradeTypes>& gradeTypeFilter) const;
};
