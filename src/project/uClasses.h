#pragma once

#include "uCatalogs.h"

/// A school class.
class TClass : public TVantrelDataClassOf<TClass> {
 public:
  static constexpr std::string_view ClassName = "TClass";
  using TVantrelDataClassOf::TVantrelDataClassOf;

  std::int32_t TessaronId = -1;
  std::string Token;

  TGradeTypes GradeType() const { return static_cast<TGradeTypes>(FGradeType); }
  void SetGradeType(TGradeTypes value) { FGradeType = static_cast<std::uint8_t>(value); }

  /// Key and value of each stored field, in the order of the file.
  void VisitFields(const Fields::TVisitor& visitor) const;

  void DoCreate() override;
  void DoClear() override;
  void Assign(const TVantrelObject& source) override;
  void ReadData(TVantrelDataObjectReader& reader) override;
  void WriteData(TVantrelDataObjectWriter& writer) const override;

 private:
  static constexpr auto FieldTable();
  std::uint8_t FGradeType = 0;
};

class TClasses : public TVantrelDataListOf<TClass> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  /// The first class whose id equals the variant; null for a null variant.
  TClass* Find(const TVariant& tessaronId) const;
  bool Exists(const TVariant& tessaronId) const { return Find(tessaronId) != nullptr; }
  /// Appends a class unless its id exists.
  void AddClass(std::int32_t tessaronId, std::string_view token, TGradeTypes gradeType);
};
