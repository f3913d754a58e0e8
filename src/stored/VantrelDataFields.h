#pragma once

#include <functional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "StoredTexts.h"
#include "VantrelDataIO.h"
#include "VantrelDataList.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "VantrelVariant.h"

/// The stored fields of a record, told once: a std::tuple of the descriptors below, in the order of the file, from
/// which reading, writing, clearing, assigning and listing come. Each descriptor has the stored key, the member and,
/// where the cleared state is not empty, null, false or 0, that state.
namespace Fields {

/// The value of a plain field from a variant. Raises EConvertError for what the field cannot hold.
template <class CppType>
CppType PlainOf(const TVariant& value) {
  if constexpr (std::is_same_v<CppType, bool>) {
    return value.AsBoolean();
  } else if constexpr (std::is_same_v<CppType, char16_t>) {
    const auto units = Utf8ToUtf16(value.AsText());
    if (units.size() != 1) throw EConvertError(FormatText(StoredTexts::BeyondField, value.AsText()));
    return units.front();
  } else if constexpr (std::is_same_v<CppType, float>) {
    return static_cast<float>(value.AsFloat());
  } else {
    const auto number = value.AsInteger();
    if (!std::in_range<CppType>(number)) throw EConvertError(FormatText(StoredTexts::BeyondField, number));
    return static_cast<CppType>(number);
  }
}

/// A plain value of the record.
#define VANTREL_PLAIN(Descriptor, CppType, Operation, AsVariant)                                        \
  template <class T>                                                                                    \
  struct Descriptor {                                                                                   \
    std::string_view Key;                                                                               \
    CppType T::*Member;                                                                                 \
    CppType Cleared;                                                                                    \
    constexpr Descriptor(std::string_view key, CppType T::*member, CppType cleared = {})                \
        : Key(key), Member(member), Cleared(cleared) {}                                                 \
                                                                                                        \
    void Read(T& record, TVantrelDataObjectReader& reader) const {                                      \
      record.*Member = reader.Read##Operation(Key, record.*Member);                                     \
    }                                                                                                   \
    void Write(const T& record, TVantrelDataObjectWriter& writer) const {                               \
      writer.Write##Operation(Key, record.*Member);                                                     \
    }                                                                                                   \
    void Clear(T& record) const { record.*Member = Cleared; }                                           \
    void Assign(T& record, const T& source) const { record.*Member = source.*Member; }                  \
    TVariant Value(const T& record) const { return AsVariant; }                                         \
    void SetValue(T& record, const TVariant& value) const { record.*Member = PlainOf<CppType>(value); } \
  }
VANTREL_PLAIN(Boolean, bool, Boolean, record.*Member);
VANTREL_PLAIN(Byte, std::uint8_t, Byte, std::int32_t{record.*Member});
VANTREL_PLAIN(Char, char16_t, Char, (Utf16ToUtf8({&(record.*Member), 1})));
VANTREL_PLAIN(PlainInt, std::int32_t, LongInt, record.*Member);
VANTREL_PLAIN(PlainSmallInt, std::int16_t, SmallInt, std::int32_t{record.*Member});
VANTREL_PLAIN(PlainSingle, float, Single, double{record.*Member});
#undef VANTREL_PLAIN

/// A text of the record.
template <class T>
struct String {
  std::string_view Key;
  std::string T::*Member;
  constexpr String(std::string_view key, std::string T::*member) : Key(key), Member(member) {}

  void Read(T& record, TVantrelDataObjectReader& reader) const {
    record.*Member = reader.ReadString(Key, record.*Member);
  }
  void Write(const T& record, TVantrelDataObjectWriter& writer) const { writer.WriteString(Key, record.*Member); }
  void Clear(T& record) const { (record.*Member).clear(); }
  void Assign(T& record, const T& source) const { record.*Member = source.*Member; }
  TVariant Value(const T& record) const { return record.*Member; }
  /// Null gives the empty text.
  void SetValue(T& record, const TVariant& value) const { record.*Member = value.AsTextOrEmpty(); }
};

/// A list that the record owns; null stands for an empty one that nobody has asked for.
template <class T, class TList>
struct DataList {
  std::string_view Key;
  TVantrelPtr<TList> T::*Member;
  constexpr DataList(std::string_view key, TVantrelPtr<TList> T::*member) : Key(key), Member(member) {}

  TList& List(T& record) const {
    auto& list = record.*Member;
    if (list == nullptr) list = CreateVantrel<TList>(&record, true);
    return *list;
  }
  void Read(T& record, TVantrelDataObjectReader& reader) const { reader.ReadDataList(Key, List(record)); }
  void Write(const T& record, TVantrelDataObjectWriter& writer) const {
    const auto& list = record.*Member;
    writer.WriteDataList(Key, list != nullptr ? *list : *CreateVantrel<TList>(true));
  }
  void Clear(T& record) const {
    if (record.*Member != nullptr) (record.*Member)->Clear();
  }
  void Assign(T& record, const T& source) const {
    if (source.*Member == nullptr) return Clear(record);
    List(record).Assign(*(source.*Member));
  }
  TVariant Value(const T&) const { return TVariant::Null(); }
};

/// A reference to an object that somebody else owns.
template <class T, class TObject>
struct DataObjectRef {
  std::string_view Key;
  TObject* T::*Member;
  constexpr DataObjectRef(std::string_view key, TObject* T::*member) : Key(key), Member(member) {}

  void Read(T& record, TVantrelDataObjectReader& reader) const {
    record.*Member = reader.template ReadRef<TObject>(Key);
  }
  void Write(const T& record, TVantrelDataObjectWriter& writer) const {
    writer.WriteDataObjectRef(Key, record.*Member);
  }
  void Clear(T& record) const { record.*Member = nullptr; }
  void Assign(T& record, const T& source) const { record.*Member = source.*Member; }
  TVariant Value(const T&) const { return TVariant::Null(); }
};

/// The table that a function makes, as a constant of the program.
template <auto MakeTable>
inline constexpr auto Of = MakeTable();

template <class TTable, class T>
void ReadAll(const TTable& table, T& record, TVantrelDataObjectReader& reader) {
  std::apply([&](const auto&... field) { (field.Read(record, reader), ...); }, table);
}

template <class TTable, class T>
void WriteAll(const TTable& table, const T& record, TVantrelDataObjectWriter& writer) {
  std::apply([&](const auto&... field) { (field.Write(record, writer), ...); }, table);
}

template <class TTable, class T>
void ClearAll(const TTable& table, T& record) {
  std::apply([&](const auto&... field) { (field.Clear(record), ...); }, table);
}

/// Takes over the content of another record of the same class; anything else is ignored.
template <class TTable, class T>
void AssignAll(const TTable& table, T& record, const TVantrelObject& source) {
  if (const auto* other = dynamic_cast<const T*>(&source); other != nullptr && other != &record)
    std::apply([&](const auto&... field) { (field.Assign(record, *other), ...); }, table);
}

/// Is told key and value of each field in the order of the file; lists and references are null.
using TVisitor = std::function<void(std::string_view key, const TVariant& value)>;

template <class TTable, class T>
void VisitAll(const TTable& table, const T& record, const TVisitor& visitor) {
  std::apply([&](const auto&... field) { (visitor(field.Key, field.Value(record)), ...); }, table);
}

/// As VisitAll, without texts, lists and references.
template <class TTable, class T>
void VisitNumbers(const TTable& table, const T& record, const TVisitor& visitor) {
  const auto visit = [&]<class TField>(const TField& field) {
    using TMember = decltype(field.Member);
    constexpr bool isText = std::is_same_v<TMember, std::string T::*> || std::is_same_v<TMember, char16_t T::*>;
    if constexpr (!isText && requires(T & other, const TVariant& value) { field.SetValue(other, value); })
      visitor(field.Key, field.Value(record));
  };
  std::apply([&](const auto&... field) { (visit(field), ...); }, table);
}

}  // namespace Fields
