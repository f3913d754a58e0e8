#pragma once

#include "uCatalogs.h"

class TClass;
extern template class TVantrelRecordOf<TClass>;

/// A school class.
class TClass : public TVantrelRecordOf<TClass> {
 public:
  static constexpr std::string_view ClassName = "TClass";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::int32_t TessaronId = -1;
  std::string Token;

  TGradeTypes GradeType() const { return static_cast<TGradeTypes>(FGradeType); }
  void SetGradeType(TGradeTypes value) { FGradeType = static_cast<std::uint8_t>(value); }

 private:
  friend TVantrelRecordOf<TClass>;
  static constexpr auto FieldTable();
  std::uint8_t FGradeType = 0;
};

/// The school classes of the students of the file.
class TClasses : public TVantrelDataListOf<TClass> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  /// The first class whose id equals the variant; null for a null variant.
  TClass* Find(const TVariant& tessaronId) const;
  bool Exists(const TVariant& tessaronId) const { return Find(tessaronId) != nullptr; }
  /// Appends a class unless its id exists.
  void AddClass(std::int32_t tessaronId, std::string_view token, TGradeTypes gradeType);
};
