#include "uClasses.h"

// The order of this table is the file format.
constexpr auto TClass::FieldTable() {
  return std::tuple(Fields::PlainInt("ID", &TClass::TessaronId, -1), Fields::String("Token", &TClass::Token),
                    Fields::Byte("GradeType", &TClass::FGradeType));
}

template class TVantrelRecordOf<TClass>;

TClass* TClasses::Find(const TVariant& tessaronId) const {
  if (tessaronId.IsNull()) return nullptr;
  for (int i = 0; i < Count(); ++i)
    if (tessaronId == TVariant(GetItem(i)->TessaronId)) return GetItem(i);
  return nullptr;
}

void TClasses::AddClass(std::int32_t tessaronId, std::string_view token, TGradeTypes gradeType) {
  if (Exists(TVariant(tessaronId))) return;
  auto* item = AddNew();
  item->TessaronId = tessaronId;
  item->Token = token;
  item->SetGradeType(gradeType);
}
