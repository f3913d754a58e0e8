#include "VantrelRtti.h"

#include <algorithm>

#include "ClasslibTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"

namespace {
using enum TVantrelTypeKind;

std::string_view NameOf(const TVantrelTypeInfo& enumeration, std::int64_t value) {
  const std::int64_t index = value - enumeration.MinValue;
  if (index < 0 || index >= std::ssize(enumeration.EnumNames)) RaisePropertyAccess();
  return enumeration.EnumNames[static_cast<std::size_t>(index)];
}

std::int64_t ValueOf(const TVantrelTypeInfo& enumeration, std::string_view name) {
  const auto& names = enumeration.EnumNames;
  const auto place = std::ranges::find_if(names, [name](std::string_view member) { return SameText(member, name); });
  return place == names.end() ? -1 : enumeration.MinValue + (place - names.begin());
}

bool TakesValue(TVantrelTypeKind kind, const TVantrelPropertyValue& value) {
  switch (kind) {
    case tkFloat:
      return std::holds_alternative<double>(value);
    case tkString:
      return std::holds_alternative<std::string>(value);
    case tkVariant:
      return std::holds_alternative<TVariant>(value);
    case tkClass:
      return std::holds_alternative<TVantrelObject*>(value);
    case tkInterface:
      return std::holds_alternative<void*>(value);
    default:
      return std::holds_alternative<std::int64_t>(value);
  }
}

}  // namespace

void RaisePropertyAccess() {
  throw EVantrelRTTIError(ResourceText(ClasslibTexts::PropertyAccess));
}

const TVantrelClass& ClassOf(const TVantrelObject& object) {
  static constexpr TVantrelClass root{.Name = "TVantrelObject"};
  const auto* reference = object.ClassReference();
  return reference == nullptr ? root : *reference;
}

TVantrelClassRTTI::TVantrelClassRTTI(const TVantrelClass& classReference, bool includePublicMembers)
    : FClass(&classReference) {
  std::vector<const TVantrelClass*> line;
  for (const TVantrelClass* one = FClass; one != nullptr; one = one->Base) line.push_back(one);
  std::ranges::reverse(line);
  for (const TVantrelClass* one : line)
    for (const TVantrelProperty& property : one->Properties)
      if (property.IsPublished || includePublicMembers) FPropList.push_back(&property);
}

const TVantrelProperty& TVantrelClassRTTI::Property(TKey key) const {
  const int index = key.FName.empty() ? key.FIndex : GetPropertyIndex(key.FName);
  if (index < 0 || index >= PropCount()) throw EVantrelRTTIError(ResourceText(ClasslibTexts::PropertyNotFound));
  return *FPropList[static_cast<std::size_t>(index)];
}

int TVantrelClassRTTI::GetPropertyIndex(std::string_view name) const {
  const auto place = std::ranges::find_if(
      FPropList, [name](const TVantrelProperty* property) { return SameText(property->Name, name); });
  return place == FPropList.end() ? -1 : static_cast<int>(place - FPropList.begin());
}

bool TVantrelClassRTTI::PropertyTypeHasName(TKey key, std::string_view typeName) const {
  return SameText(GetPropertyTypeName(key), typeName);
}

const TVantrelTypeInfo& TVantrelClassRTTI::TypeOfKind(TKey key, TVantrelTypeKind kind) const {
  const TVantrelTypeInfo& type = *Property(key).Type;
  if (type.Kind != kind) RaisePropertyAccess();
  return type;
}

const TVantrelTypeInfo& TVantrelClassRTTI::Ordinal(TKey key) const {
  const TVantrelTypeInfo& type = *Property(key).Type;
  if (type.Kind > tkSet) RaisePropertyAccess();
  return type;
}

const TVantrelTypeInfo& TVantrelClassRTTI::Element(TKey key) const {
  return *TypeOfKind(key, tkSet).ElementType;
}

std::int64_t TVantrelClassRTTI::GetPropertyOrdDefaultValue(TKey key) const {
  Ordinal(key);
  return Property(key).Default;
}

std::int64_t TVantrelClassRTTI::GetPropertyInt64MinValue(TKey key) const {
  return TypeOfKind(key, tkInt64).MinValue;
}

std::int64_t TVantrelClassRTTI::GetPropertyInt64MaxValue(TKey key) const {
  return TypeOfKind(key, tkInt64).MaxValue;
}

TVantrelFloatType TVantrelClassRTTI::GetPropertyFloatType(TKey key) const {
  return TypeOfKind(key, tkFloat).FloatType;
}

const TVantrelClass* TVantrelClassRTTI::GetPropertyClassType(TKey key) const {
  return TypeOfKind(key, tkClass).ClassType;
}

std::string_view TVantrelClassRTTI::GetPropertyEnumName(TKey key, std::int64_t value) const {
  return NameOf(TypeOfKind(key, tkEnumeration), value);
}

std::int64_t TVantrelClassRTTI::GetPropertyEnumValue(TKey key, std::string_view name) const {
  return ValueOf(TypeOfKind(key, tkEnumeration), name);
}

std::string_view TVantrelClassRTTI::GetPropertySetEnumName(TKey key, std::int64_t value) const {
  return NameOf(Element(key), value);
}

std::int64_t TVantrelClassRTTI::GetPropertySetEnumValue(TKey key, std::string_view name) const {
  return ValueOf(Element(key), name);
}

template <class T>
T TVantrelInstanceRTTI::Get(TKey key) const {
  const TVantrelProperty& property = FClassRTTI.Property(key);
  if (property.Get == nullptr) RaisePropertyAccess();
  TVantrelPropertyValue value = property.Get(*FObject);
  if (!std::holds_alternative<T>(value)) RaisePropertyAccess();
  return std::get<T>(std::move(value));
}

void TVantrelInstanceRTTI::Set(TKey key, const TVantrelPropertyValue& value) {
  const TVantrelProperty& property = FClassRTTI.Property(key);
  if (property.Set == nullptr || !TakesValue(property.Type->Kind, value)) RaisePropertyAccess();
  property.Set(*FObject, value);
}

void TVantrelInstanceRTTI::SetInRange(TKey key, std::int64_t value) {
  const TVantrelTypeInfo& type = *FClassRTTI.Property(key).Type;
  if (value < type.MinValue || value > type.MaxValue) RaisePropertyAccess();
  Set(key, value);
}

std::int64_t TVantrelInstanceRTTI::GetOrdProperty(TKey key) const {
  FClassRTTI.GetPropertyOrdType(key);
  return Get<std::int64_t>(key);
}

void TVantrelInstanceRTTI::SetOrdProperty(TKey key, std::int64_t value) {
  FClassRTTI.GetPropertyOrdType(key);
  SetInRange(key, value);
}

std::int64_t TVantrelInstanceRTTI::GetInt64Property(TKey key) const {
  return Get<std::int64_t>(key);
}

void TVantrelInstanceRTTI::SetInt64Property(TKey key, std::int64_t value) {
  SetInRange(key, value);
}

std::string TVantrelInstanceRTTI::GetEnumProperty(TKey key) const {
  return std::string(FClassRTTI.GetPropertyEnumName(key, Get<std::int64_t>(key)));
}

void TVantrelInstanceRTTI::SetEnumProperty(TKey key, std::string_view name) {
  SetInRange(key, FClassRTTI.GetPropertyEnumValue(key, name));
}

std::string TVantrelInstanceRTTI::GetSetProperty(TKey key) const {
  const std::int64_t last = FClassRTTI.GetPropertySetEnumOrdMaxValue(key);
  const std::int64_t bits = Get<std::int64_t>(key);
  std::string names;
  for (std::int64_t value = 0; value <= last; ++value)
    if ((bits >> value & 1) != 0) names = Join(names, FClassRTTI.GetPropertySetEnumName(key, value), ",");
  return names;
}

void TVantrelInstanceRTTI::SetSetProperty(TKey key, std::string_view names) {
  FClassRTTI.GetPropertySetEnumTypeKind(key);
  std::int64_t bits = 0;
  for (std::string_view rest = Trimmed(names, " []"); !rest.empty();) {
    const std::size_t end = std::min(rest.find(','), rest.size());
    const std::int64_t value = FClassRTTI.GetPropertySetEnumValue(key, Trimmed(rest.substr(0, end), " "));
    if (value < 0) RaisePropertyAccess();
    bits |= std::int64_t{1} << value;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  SetOrdProperty(key, bits);
}

double TVantrelInstanceRTTI::GetFloatProperty(TKey key) const {
  return Get<double>(key);
}
void TVantrelInstanceRTTI::SetFloatProperty(TKey key, double value) {
  Set(key, value);
}

std::string TVantrelInstanceRTTI::GetStringProperty(TKey key) const {
  return Get<std::string>(key);
}
void TVantrelInstanceRTTI::SetStringProperty(TKey key, std::string_view value) {
  Set(key, std::string(value));
}

std::string TVantrelInstanceRTTI::GetAnsiStringProperty(TKey key) const {
  return Utf8ToAnsi(GetStringProperty(key));
}
void TVantrelInstanceRTTI::SetAnsiStringProperty(TKey key, std::string_view value) {
  Set(key, AnsiToUtf8(value));
}

std::u16string TVantrelInstanceRTTI::GetWideStringProperty(TKey key) const {
  return Utf8ToUtf16(GetStringProperty(key));
}
void TVantrelInstanceRTTI::SetWideStringProperty(TKey key, std::u16string_view value) {
  Set(key, Utf16ToUtf8(value));
}

TVantrelObject* TVantrelInstanceRTTI::GetObjectProperty(TKey key) const {
  return Get<TVantrelObject*>(key);
}
void TVantrelInstanceRTTI::SetObjectProperty(TKey key, TVantrelObject* value) {
  Set(key, value);
}

void* TVantrelInstanceRTTI::GetInterfaceProperty(TKey key) const {
  return Get<void*>(key);
}
void TVantrelInstanceRTTI::SetInterfaceProperty(TKey key, void* value) {
  Set(key, value);
}

TVariant TVantrelInstanceRTTI::GetVariantProperty(TKey key) const {
  return Get<TVariant>(key);
}
void TVantrelInstanceRTTI::SetVariantProperty(TKey key, const TVariant& value) {
  Set(key, value);
}
