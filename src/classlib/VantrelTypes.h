#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "VantrelClasses.h"
#include "VantrelDateTime.h"
#include "VantrelGraphics.h"
#include "VantrelGuid.h"
#include "VantrelIO.h"

// Every value type of the library as a small object, which can stand in the collections as a key or an item.

/// Which class of typed value an object is of.
enum class TVantrelValueType : std::uint8_t {
  vtypeReference,
  vtypeBinary,
  vtypeBitmap,
  vtypeIcon,
  vtypeBoolean,
  vtypeChar,
  vtypeSmallInt,
  vtypeShortInt,
  vtypeLongInt,
  vtypeInt64,
  vtypeByte,
  vtypeWord,
  vtypeLongWord,
  vtypeSingle,
  vtypeDouble,
  vtypeExtended,
  vtypeCurrency,
  vtypeDateTime,
  vtypeString,
  vtypeUtf8String,
  vtypeGuid,
  vtypeCustom,
};

/// What the stored form of a typed value goes through, by one operation for each type.
using TVantrelObjectReader = TVantrelReader;
using TVantrelObjectWriter = TVantrelWriter;

/// Base of the typed values.
class TVantrelType : public TVantrelPersistent {
 public:
  virtual TVantrelValueType ValueType() const = 0;
  /// The stored form. Unless a descendant has one both raise EVantrelPersistentError.
  virtual void Read(TVantrelObjectReader& reader);
  virtual void Write(TVantrelObjectWriter& writer) const;
};

/// Base of the typed values that have a text form. Numbers and dates go by one fixed set of formats: decimal point,
/// dates as DateTimeToText writes them.
class TVantrelSimpleType : public TVantrelType {
 public:
  virtual std::string AsString() const = 0;
  /// Raises EConvertError for a text that is no value of the type, EVantrelDateTimeError for one that is no date. A
  /// Boolean reads "J" in either case as true and all else as false; a character is taken from a text of one UTF-16
  /// unit only, else the value stays.
  virtual void SetAsString(std::string_view text) = 0;
};

/// One class of simple values: two objects of the same class are equal if their values are.
template <class T, TVantrelValueType Kind>
class TVantrelValue final : public TVantrelSimpleType {
 public:
  using TPlain = T;

  TVantrelValue() = default;
  explicit TVantrelValue(T value) : FValue(std::move(value)) {}

  const T& Value() const { return FValue; }
  void SetValue(T value) { FValue = std::move(value); }

  TVantrelValueType ValueType() const override { return Kind; }
  /// Takes an object of the same class only.
  void Assign(const TVantrelObject& source) override;
  /// 0 for an object of another class.
  int Compare(const TVantrelObject& other) const override;
  bool Equals(const TVantrelObject* other) const override;
  std::int32_t GetHashCode() const override;
  std::string AsString() const override;
  void SetAsString(std::string_view text) override;
  void Read(TVantrelObjectReader& reader) override;
  void Write(TVantrelObjectWriter& writer) const override;

 private:
  T FValue{};
};

using TVantrelBoolean = TVantrelValue<bool, TVantrelValueType::vtypeBoolean>;
using TVantrelChar = TVantrelValue<char16_t, TVantrelValueType::vtypeChar>;
using TVantrelSmallInt = TVantrelValue<std::int16_t, TVantrelValueType::vtypeSmallInt>;
using TVantrelShortInt = TVantrelValue<std::int8_t, TVantrelValueType::vtypeShortInt>;
using TVantrelLongInt = TVantrelValue<std::int32_t, TVantrelValueType::vtypeLongInt>;
using TVantrelInt64 = TVantrelValue<std::int64_t, TVantrelValueType::vtypeInt64>;
using TVantrelByte = TVantrelValue<std::uint8_t, TVantrelValueType::vtypeByte>;
using TVantrelWord = TVantrelValue<std::uint16_t, TVantrelValueType::vtypeWord>;
using TVantrelLongWord = TVantrelValue<std::uint32_t, TVantrelValueType::vtypeLongWord>;
using TVantrelSingle = TVantrelValue<float, TVantrelValueType::vtypeSingle>;
using TVantrelDouble = TVantrelValue<double, TVantrelValueType::vtypeDouble>;
using TVantrelExtended = TVantrelValue<long double, TVantrelValueType::vtypeExtended>;
using TVantrelCurrency = TVantrelValue<TCurrency, TVantrelValueType::vtypeCurrency>;
using TVantrelDateTime = TVantrelValue<TDateTime, TVantrelValueType::vtypeDateTime>;
using TVantrelString = TVantrelValue<std::string, TVantrelValueType::vtypeString>;
using TVantrelUtf8String = TVantrelValue<std::string, TVantrelValueType::vtypeUtf8String>;
using TVantrelGuid = TVantrelValue<TGuid, TVantrelValueType::vtypeGuid>;

/// The hash codes of plain values, which are those of the value objects.
std::int32_t HashOfValue(std::string_view value);
std::int32_t HashOfValue(const TGuid& value);
std::int32_t HashOfValue(std::int32_t value);
std::int32_t HashOfValue(std::int64_t value);

/// Base of the holders of an object of a class, owned or not.
template <class T>
class TVantrelHolder : public TVantrelType {
 public:
  explicit TVantrelHolder(bool isOwner = false) : TVantrelHolder(nullptr, isOwner) {}
  explicit TVantrelHolder(T* value, bool isOwner = false) : FValue(value), FOwner(isOwner) {}
  ~TVantrelHolder() override { TVantrelHolder::Clear(); }

  T* Value() const { return FValue; }
  /// A change clears the holder first.
  void SetValue(T* value) {
    if (value == FValue) return;
    Clear();
    FValue = value;
  }
  bool IsOwner() const { return FOwner; }
  /// Sets the value to null, freeing it if it is owned.
  void Clear() {
    T* const value = std::exchange(FValue, nullptr);
    if (FOwner) TVantrelDeleter()(value);
  }

 protected:
  T* FValue;
  bool FOwner;
};

/// Holds an object, owned or not.
class TVantrelReference final : public TVantrelHolder<TVantrelObject> {
 public:
  using TVantrelHolder::TVantrelHolder;

  /// The value, which leaves the holder only if it was owned.
  TVantrelObject* Extract();

  TVantrelValueType ValueType() const override { return TVantrelValueType::vtypeReference; }
  /// By the value's own Equals; false for a null value.
  bool Equals(const TVantrelObject* other) const override;
  std::int32_t GetHashCode() const override;
};

/// Holds a stream of bytes, owned or not.
class TVantrelBinary final : public TVantrelHolder<TVantrelMemoryStream> {
 public:
  using TVantrelHolder::TVantrelHolder;

  /// The stream, which leaves the holder in any case.
  TVantrelMemoryStream* Extract();

  TVantrelValueType ValueType() const override { return TVantrelValueType::vtypeBinary; }
  /// By the identity of the streams; false for a null stream.
  bool Equals(const TVantrelObject* other) const override;
  std::int32_t GetHashCode() const override;
  /// Fills the stream that is held, or a new one, which is then owned.
  void Read(TVantrelObjectReader& reader) override;
  /// A null stream is written as an empty one.
  void Write(TVantrelObjectWriter& writer) const override;
};

/// Base of the holders of a picture, which they own.
class TVantrelGraphicType : public TVantrelType {
 public:
  TVantrelGraphic* Value() const { return FGraphic.get(); }
  void SetValue(TVantrelPtr<TVantrelGraphic> graphic) { FGraphic = std::move(graphic); }
  void Clear() { FGraphic.reset(); }
  TVantrelPtr<TVantrelGraphic> Extract() { return std::move(FGraphic); }

  /// The class of the pictures that are held here.
  virtual const std::type_info& GraphicClass() const = 0;
  /// True if `other` is the held picture itself and of GraphicClass: it is a picture and not another holder.
  bool Equals(const TVantrelObject* other) const override;
  std::int32_t GetHashCode() const override;
  /// Size and stream form; a null picture has size 0.
  void Read(TVantrelObjectReader& reader) override;
  void Write(TVantrelObjectWriter& writer) const override;

 protected:
  virtual TVantrelPtr<TVantrelGraphic> CreateGraphic() const = 0;

 private:
  TVantrelPtr<TVantrelGraphic> FGraphic;
};

/// The holder of one class of pictures.
template <class TGraphic, TVantrelValueType Kind>
class TVantrelGraphicValue final : public TVantrelGraphicType {
 public:
  TVantrelValueType ValueType() const override { return Kind; }
  const std::type_info& GraphicClass() const override { return typeid(TGraphic); }

 protected:
  TVantrelPtr<TVantrelGraphic> CreateGraphic() const override { return CreateVantrel<TGraphic>(); }
};

using TVantrelBitmap = TVantrelGraphicValue<TBitmap, TVantrelValueType::vtypeBitmap>;
using TVantrelIcon = TVantrelGraphicValue<TIcon, TVantrelValueType::vtypeIcon>;
