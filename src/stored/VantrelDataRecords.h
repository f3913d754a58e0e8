#pragma once

#include <array>

#include "VantrelDataFields.h"

class TVantrelRecord;

/// One stored field of a class of records, for those who go by its key.
struct TVantrelRecordField {
  std::string_view Key;
  /// Null for a list and for a reference.
  TVariant (*Value)(const TVantrelRecord& record) = nullptr;
  /// Raises EConvertError for what the field cannot hold. None for a list and for a reference.
  void (*SetValue)(TVantrelRecord& record, const TVariant& value) = nullptr;
};

/// A stored object whose content is a table of fields.
class TVantrelRecord : public TVantrelDataObject {
 public:
  using TVantrelDataObject::TVantrelDataObject;

  /// Tells key and value of each stored field, in the order of the file.
  virtual void VisitFields(const Fields::TVisitor&) const {}
  /// As VisitFields, without the texts, lists and references.
  virtual void VisitNumbers(const Fields::TVisitor&) const {}
  /// The stored field of that key; null if there is none.
  virtual const TVantrelRecordField* FindField(std::string_view) const { return nullptr; }
  /// As FindField, for a field that can be set; where there is none raises EVantrelException.
  const TVantrelRecordField& RequireField(std::string_view key) const;

  void DoCreate() override { DoClear(); }
};

/// Base of a class of records, from whose field table all of this comes. TSelf has a static ClassName and declares
/// `static constexpr auto FieldTable();` (see Fields), which its source file defines before it instantiates this class.
/// The fields of TBase, a record itself, stand before those of TSelf.
template <class TSelf, class TBase = TVantrelRecord>
class TVantrelRecordOf : public TVantrelDataClassOf<TSelf, TBase> {
 public:
  using TVantrelDataClassOf<TSelf, TBase>::TVantrelDataClassOf;

  /// A field of TSelf's own table; null if there is none.
  static const TVantrelRecordField* FieldOf(std::string_view key);

  void VisitFields(const Fields::TVisitor& visitor) const override;
  void VisitNumbers(const Fields::TVisitor& visitor) const override;
  const TVantrelRecordField* FindField(std::string_view key) const override;

  void DoClear() override;
  void Assign(const TVantrelObject& source) override;
  void ReadData(TVantrelDataObjectReader& reader) override;
  void WriteData(TVantrelDataObjectWriter& writer) const override;

 private:
  const TSelf& Self() const { return static_cast<const TSelf&>(*this); }
  TSelf& Self() { return static_cast<TSelf&>(*this); }
};

namespace Fields {

template <class T, auto MakeTable, std::size_t Index>
constexpr TVantrelRecordField RecordField() {
  constexpr const auto& field = std::get<Index>(Of<MakeTable>);
  TVantrelRecordField result{field.Key, [](const TVantrelRecord& record) {
                               return std::get<Index>(Of<MakeTable>).Value(static_cast<const T&>(record));
                             }};
  if constexpr (requires(T & record, const TVariant& value) { field.SetValue(record, value); })
    result.SetValue = [](TVantrelRecord& record, const TVariant& value) {
      std::get<Index>(Of<MakeTable>).SetValue(static_cast<T&>(record), value);
    };
  return result;
}

/// The fields of the table that a function makes.
template <class T, auto MakeTable>
constexpr auto RecordFields() {
  return []<std::size_t... Index>(std::index_sequence<Index...>) {
    return std::array{RecordField<T, MakeTable, Index>()...};
  }
  (std::make_index_sequence<std::tuple_size_v<decltype(MakeTable())>>());
}

}  // namespace Fields

template <class TSelf, class TBase>
const TVantrelRecordField* TVantrelRecordOf<TSelf, TBase>::FieldOf(std::string_view key) {
  static constexpr auto fields = Fields::RecordFields<TSelf, TSelf::FieldTable>();
  for (const auto& field : fields)
    if (field.Key == key) return &field;
  return nullptr;
}

template <class TSelf, class TBase>
const TVantrelRecordField* TVantrelRecordOf<TSelf, TBase>::FindField(std::string_view key) const {
  const auto* field = FieldOf(key);
  return field != nullptr ? field : TBase::FindField(key);
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::VisitFields(const Fields::TVisitor& visitor) const {
  TBase::VisitFields(visitor);
  Fields::VisitAll(Fields::Of<TSelf::FieldTable>, Self(), visitor);
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::VisitNumbers(const Fields::TVisitor& visitor) const {
  TBase::VisitNumbers(visitor);
  Fields::VisitNumbers(Fields::Of<TSelf::FieldTable>, Self(), visitor);
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::DoClear() {
  TBase::DoClear();
  Fields::ClearAll(Fields::Of<TSelf::FieldTable>, Self());
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::Assign(const TVantrelObject& source) {
  TBase::Assign(source);
  Fields::AssignAll(Fields::Of<TSelf::FieldTable>, Self(), source);
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::ReadData(TVantrelDataObjectReader& reader) {
  TBase::ReadData(reader);
  Fields::ReadAll(Fields::Of<TSelf::FieldTable>, Self(), reader);
}

template <class TSelf, class TBase>
void TVantrelRecordOf<TSelf, TBase>::WriteData(TVantrelDataObjectWriter& writer) const {
  TBase::WriteData(writer);
  Fields::WriteAll(Fields::Of<TSelf::FieldTable>, Self(), writer);
}
