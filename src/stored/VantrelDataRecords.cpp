#include "VantrelDataRecords.h"

const TVantrelRecordField& TVantrelRecord::RequireField(std::string_view key) const {
  const auto* field = FindField(key);
  if (field == nullptr || field->SetValue == nullptr)
    throw EVantrelException(FormatText(StoredTexts::UnknownField, GetDataClassName(), key));
  return *field;
}
