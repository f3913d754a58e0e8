#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// What a TVariant holds. Unassigned is the value that nobody has set, null that of an empty field.
enum class TVariantKind : std::uint8_t { Unassigned, Null, Boolean, Integer, Float, DateTime, Text };

/// A value of a kind known only at run time: what grids, tables and nullable fields pass around. 16 bytes.
/// Dates are days since 1899-12-30; texts are UTF-8.
class TVariant {
 public:
  TVariant() noexcept : FKind(TVariantKind::Unassigned), FInteger(0) {}
  TVariant(bool value) noexcept : FKind(TVariantKind::Boolean), FBoolean(value) {}
  TVariant(std::int32_t value) noexcept : FKind(TVariantKind::Integer), FInteger(value) {}
  TVariant(std::int64_t value) noexcept : FKind(TVariantKind::Integer), FInteger(value) {}
  TVariant(double value) noexcept : FKind(TVariantKind::Float), FFloat(value) {}
  TVariant(std::string_view value) : FKind(TVariantKind::Text), FText(new std::string(value)) {}
  TVariant(const std::string& value) : TVariant(std::string_view(value)) {}
  TVariant(const char* value) : TVariant(std::string_view(value)) {}
  TVariant(const TVariant& other);
  TVariant(TVariant&& other) noexcept : FKind(other.FKind), FInteger(other.FInteger) {
    other.FKind = TVariantKind::Unassigned;
    other.FInteger = 0;
  }
  TVariant& operator=(const TVariant& other);
  TVariant& operator=(TVariant&& other) noexcept {
    std::swap(FKind, other.FKind);
    std::swap(FInteger, other.FInteger);
    return *this;
  }
  ~TVariant() {
    if (FKind == TVariantKind::Text) delete FText;
  }

  static TVariant Null() noexcept {
    TVariant result;
    result.FKind = TVariantKind::Null;
    return result;
  }
  static TVariant DateTime(double days) noexcept {
    TVariant result(days);
    result.FKind = TVariantKind::DateTime;
    return result;
  }

  TVariantKind Kind() const noexcept { return FKind; }
  bool IsNull() const noexcept { return FKind == TVariantKind::Null; }
  /// Null or unassigned.
  bool IsEmpty() const noexcept { return FKind <= TVariantKind::Null; }

  /// Conversions. Unassigned gives 0 or the empty text; null raises EConvertError, and so does a text that is no
  /// number. Floats are rounded half to even on their way to an integer; a value outside the range raises.
  std::int32_t AsInteger() const;
  double AsFloat() const;
  bool AsBoolean() const;
  /// Integers in decimal, floats with a decimal comma, dates as dd.mm.yyyy, Booleans as "True" and "False".
  std::string AsText() const;
  /// As AsText, but null gives the empty text.
  std::string AsTextOrEmpty() const { return IsEmpty() ? std::string() : AsText(); }

  /// Equality as a database sees it: null equals only null, numbers compare by value whatever their kind, a text
  /// that reads as a number equals that number, texts compare exactly.
  bool operator==(const TVariant& other) const;

 private:
  TVariantKind FKind;
  union {
    std::int64_t FInteger;
    double FFloat;
    bool FBoolean;
    std::string* FText;
  };
};
