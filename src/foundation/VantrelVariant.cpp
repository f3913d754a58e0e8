#include "VantrelVariant.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "FoundationTexts.h"
#include "VantrelDateTime.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace {
constexpr const char* TrueText = "True";
constexpr const char* FalseText = "False";

[[noreturn]] void RaiseKind(TVariantKind from, TVariantKind to) {
  const auto name = [](TVariantKind kind) { return FoundationTexts::VariantKinds[static_cast<std::size_t>(kind)]; };
  throw EConvertError(FormatText(FoundationTexts::VariantKind, name(from), name(to)));
}

bool ReadsAs(std::string_view text, double number) {
  return TextToFloatOr(text, std::numeric_limits<double>::quiet_NaN()) == number;
}
}  // namespace

TVariant::TVariant(const TVariant& other) : FKind(other.FKind), FInteger(other.FInteger) {
  if (FKind == TVariantKind::Text) FText = new std::string(*other.FText);
}

TVariant& TVariant::operator=(const TVariant& other) {
  if (this != &other) *this = TVariant(other);
  return *this;
}

double TVariant::AsFloat() const {
  switch (FKind) {
    case TVariantKind::Null:
      RaiseKind(FKind, TVariantKind::Float);
    case TVariantKind::Boolean:
      return FBoolean ? 1 : 0;
    case TVariantKind::Integer:
      return static_cast<double>(FInteger);
    case TVariantKind::Float:
    case TVariantKind::DateTime:
      return FFloat;
    case TVariantKind::Text:
      return TextToFloat(*FText);
    default:
      return 0;
  }
}

std::int32_t TVariant::AsInteger() const {
  using TLimits = std::numeric_limits<std::int32_t>;
  if (FKind == TVariantKind::Null) RaiseKind(FKind, TVariantKind::Integer);
  const double rounded = std::nearbyint(AsFloat());
  if (!(rounded >= TLimits::min() && rounded <= TLimits::max())) {
    throw EConvertError(FormatText(FoundationTexts::NoInteger, AsText()));
  }
  return static_cast<std::int32_t>(rounded);
}

bool TVariant::AsBoolean() const {
  if (FKind == TVariantKind::Null) RaiseKind(FKind, TVariantKind::Boolean);
  if (FKind == TVariantKind::Text) {
    if (SameText(*FText, TrueText)) return true;
    if (SameText(*FText, FalseText)) return false;
  }
  return AsFloat() != 0;
}

std::string TVariant::AsText() const {
  switch (FKind) {
    case TVariantKind::Null:
      RaiseKind(FKind, TVariantKind::Text);
    case TVariantKind::Boolean:
      return FBoolean ? TrueText : FalseText;
    case TVariantKind::Integer:
      return std::to_string(FInteger);
    case TVariantKind::Float: {
      std::string text = FloatToText(FFloat);
      std::replace(text.begin(), text.end(), '.', ',');
      return text;
    }
    case TVariantKind::DateTime:
      return DateToGermanText(FFloat);
    case TVariantKind::Text:
      return *FText;
    default:
      return {};
  }
}

bool TVariant::operator==(const TVariant& other) const {
  if (IsEmpty() || other.IsEmpty()) return FKind == other.FKind;
  const bool isText = FKind == TVariantKind::Text;
  const bool otherIsText = other.FKind == TVariantKind::Text;
  if (isText && otherIsText) return *FText == *other.FText;
  if (isText) return ReadsAs(*FText, other.AsFloat());
  if (otherIsText) return ReadsAs(*other.FText, AsFloat());
  if (FKind == TVariantKind::Integer && other.FKind == TVariantKind::Integer) return FInteger == other.FInteger;
  return AsFloat() == other.AsFloat();
}
