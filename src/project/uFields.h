#pragma once

#include <cmath>

#include "ProjectTexts.h"
#include "VantrelDataRecords.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uHelper.h"

/// The stored fields of a record that may be null, beside the plain ones.
namespace Fields {

/// A nullable value of the record and the pair of operations that store its plain form. SetValue keeps the variant as
/// it stands, of whatever kind.
#define TESSARON_NULLABLE(Descriptor, Holder, Get, Set, Operation)                              \
  template <class T>                                                                            \
  struct Descriptor {                                                                           \
    std::string_view Key;                                                                       \
    Holder T::*Member;                                                                          \
    constexpr Descriptor(std::string_view key, Holder T::*member) : Key(key), Member(member) {} \
                                                                                                \
    void Read(T& record, TVantrelDataObjectReader& reader) const {                              \
      (record.*Member).Set(reader.Read##Operation(Key, (record.*Member).Get()));                \
    }                                                                                           \
    void Write(const T& record, TVantrelDataObjectWriter& writer) const {                       \
      writer.Write##Operation(Key, (record.*Member).Get());                                     \
    }                                                                                           \
    void Clear(T& record) const { (record.*Member).SetNull(); }                                 \
    void Assign(T& record, const T& source) const { record.*Member = source.*Member; }          \
    TVariant Value(const T& record) const { return (record.*Member).Value; }                    \
    void SetValue(T& record, const TVariant& value) const { (record.*Member).Value = value; }   \
  }
TESSARON_NULLABLE(LongInt, TMyTessaronInteger, AsInt, SetAsInt, LongInt);
TESSARON_NULLABLE(Single, TMyTessaronFloat, AsFloat, SetAsFloat, Single);
TESSARON_NULLABLE(Date, TMyTessaronDateTime, AsDateTime, SetAsDateTime, Date);
#undef TESSARON_NULLABLE

/// A nullable integer that is stored in 16 bits. Writing a value beyond them raises EConvertError.
template <class T>
struct SmallInt : LongInt<T> {
  using LongInt<T>::LongInt;

  void Read(T& record, TVantrelDataObjectReader& reader) const {
    (record.*this->Member).SetAsInt(reader.ReadSmallInt(this->Key, Stored(record)));
  }
  void Write(const T& record, TVantrelDataObjectWriter& writer) const {
    writer.WriteSmallInt(this->Key, Stored(record));
  }

 private:
  std::int16_t Stored(const T& record) const {
    const auto value = (record.*this->Member).AsInt();
    if (value != static_cast<std::int16_t>(value))
      throw EConvertError(FormatText(ProjectTexts::BeyondSmallInt, value, this->Key));
    return static_cast<std::int16_t>(value);
  }
};

template <class T>
SmallInt(std::string_view, TMyTessaronInteger T::*) -> SmallInt<T>;

/// Whether the value is nothing that can be meant: no date, no number, or below 0 where it is no id.
inline bool IsImpossible(std::string_view key, const TVariant& value) {
  switch (value.Kind()) {
    case TVariantKind::DateTime:
      return !IsDateTime(value.AsFloat());
    case TVariantKind::Float:
      return !std::isfinite(value.AsFloat());
    case TVariantKind::Integer:
      return value.AsFloat() < 0 && !key.ends_with("Id") && !key.ends_with("ID");
    default:
      return false;
  }
}

}  // namespace Fields
