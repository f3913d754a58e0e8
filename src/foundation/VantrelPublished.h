#pragma once

#include "VantrelRtti.h"

// What the tables of published properties are written with:
//   static constexpr TVantrelProperty Properties[] = {
//       Published<&TLink::Caption, &TLink::SetCaption>("Caption"),
//       Published<&TLink::Align, &TLink::SetAlign>("Align", AlignType, 0),
//   };

/// The type of an ordinal T.
template <class T>
constexpr TVantrelTypeInfo OrdinalTypeInfo(std::string_view name, TVantrelTypeKind kind) {
  using enum TVantrelOrdType;
  constexpr TVantrelOrdType ofSize[] = {otSByte, otUByte, otSWord, otUWord, otSLong, otULong};
  constexpr std::size_t size = sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 2 : 4;
  return {.Name = name,
          .Kind = kind,
          .OrdType = ofSize[size + (std::is_unsigned_v<T> ? 1 : 0)],
          .MinValue = static_cast<std::int64_t>(std::numeric_limits<T>::min()),
          .MaxValue = static_cast<std::int64_t>(std::numeric_limits<T>::max())};
}

/// The type of an enumeration with these members, from 0 on.
constexpr TVantrelTypeInfo EnumTypeInfo(std::string_view name, std::span<const std::string_view> members) {
  return {.Name = name,
          .Kind = TVantrelTypeKind::tkEnumeration,
          .OrdType = TVantrelOrdType::otUByte,
          .MaxValue = static_cast<std::int64_t>(members.size()) - 1,
          .EnumNames = members};
}

/// The type of a set of the members of an enumeration, 32 at most.
constexpr TVantrelTypeInfo SetTypeInfo(std::string_view name, const TVantrelTypeInfo& element) {
  return {.Name = name,
          .Kind = TVantrelTypeKind::tkSet,
          .OrdType = TVantrelOrdType::otULong,
          .MaxValue = (std::int64_t{2} << element.MaxValue) - 1,
          .ElementType = &element};
}

constexpr TVantrelTypeInfo FloatTypeInfo(std::string_view name, TVantrelFloatType type) {
  return {.Name = name, .Kind = TVantrelTypeKind::tkFloat, .FloatType = type};
}

/// The type of a property that refers to an object of this class or a descendant.
constexpr TVantrelTypeInfo ClassTypeInfo(const TVantrelClass& classReference) {
  return {.Name = classReference.Name, .Kind = TVantrelTypeKind::tkClass, .ClassType = &classReference};
}

constexpr TVantrelTypeInfo InterfaceTypeInfo(std::string_view name) {
  return {.Name = name, .Kind = TVantrelTypeKind::tkInterface};
}

inline constexpr std::string_view BooleanNames[] = {"False", "True"};

/// The types that need not be named in a table.
template <class T>
struct TPlainType;
template <>
struct TPlainType<bool> {
  static constexpr TVantrelTypeInfo Info = EnumTypeInfo("Boolean", BooleanNames);
};
template <>
struct TPlainType<char> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<unsigned char>("AnsiChar", TVantrelTypeKind::tkChar);
};
template <>
struct TPlainType<char16_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<char16_t>("Char", TVantrelTypeKind::tkWChar);
};
template <>
struct TPlainType<std::int8_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::int8_t>("ShortInt", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::uint8_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::uint8_t>("Byte", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::int16_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::int16_t>("SmallInt", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::uint16_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::uint16_t>("Word", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::int32_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::int32_t>("Integer", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::uint32_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::uint32_t>("Cardinal", TVantrelTypeKind::tkInteger);
};
template <>
struct TPlainType<std::int64_t> {
  static constexpr TVantrelTypeInfo Info = OrdinalTypeInfo<std::int64_t>("Int64", TVantrelTypeKind::tkInt64);
};
template <>
struct TPlainType<float> {
  static constexpr TVantrelTypeInfo Info = FloatTypeInfo("Single", TVantrelFloatType::ftSingle);
};
template <>
struct TPlainType<double> {
  static constexpr TVantrelTypeInfo Info = FloatTypeInfo("Double", TVantrelFloatType::ftDouble);
};
template <>
struct TPlainType<long double> {
  static constexpr TVantrelTypeInfo Info = FloatTypeInfo("Extended", TVantrelFloatType::ftExtended);
};
template <>
struct TPlainType<std::string> {
  static constexpr TVantrelTypeInfo Info = {.Name = "string", .Kind = TVantrelTypeKind::tkString};
};
template <>
struct TPlainType<TVariant> {
  static constexpr TVantrelTypeInfo Info = {.Name = "Variant", .Kind = TVantrelTypeKind::tkVariant};
};

/// Class and value of a property's access function.
template <class TFunction>
struct TPropertyAccess;
template <class TOwner, class TResult>
struct TPropertyAccess<TResult (TOwner::*)() const> {
  using TClass = TOwner;
  using TValue = std::remove_cvref_t<TResult>;
};
template <class TOwner, class TArgument>
struct TPropertyAccess<void (TOwner::*)(TArgument)> {
  using TClass = TOwner;
  using TValue = std::remove_cvref_t<TArgument>;
};

template <class T>
concept CObjectPointer = std::is_pointer_v<T> && std::derived_from<std::remove_pointer_t<T>, TVantrelObject>;

template <auto Getter>
TVantrelPropertyValue GetPublished(const TVantrelObject& object) {
  using TAccess = TPropertyAccess<decltype(Getter)>;
  using T = typename TAccess::TValue;
  decltype(auto) value = (static_cast<const typename TAccess::TClass&>(object).*Getter)();
  if constexpr (std::same_as<T, char>)
    return std::int64_t{static_cast<unsigned char>(value)};
  else if constexpr (std::integral<T> || std::is_enum_v<T>)
    return static_cast<std::int64_t>(value);
  else if constexpr (std::floating_point<T>)
    return static_cast<double>(value);
  else if constexpr (std::same_as<T, TVariant>)
    return TVantrelPropertyValue(std::in_place_type<TVariant>, value);
  else if constexpr (CObjectPointer<T>)
    return static_cast<TVantrelObject*>(value);
  else if constexpr (std::is_pointer_v<T>)
    return static_cast<void*>(value);
  else
    return std::string(value);
}

template <auto Setter>
void SetPublished(TVantrelObject& object, const TVantrelPropertyValue& value) {
  using TAccess = TPropertyAccess<decltype(Setter)>;
  using T = typename TAccess::TValue;
  auto& target = static_cast<typename TAccess::TClass&>(object);
  if constexpr (std::integral<T> || std::is_enum_v<T>) {
    (target.*Setter)(static_cast<T>(std::get<std::int64_t>(value)));
  } else if constexpr (std::floating_point<T>) {
    (target.*Setter)(static_cast<T>(std::get<double>(value)));
  } else if constexpr (std::same_as<T, TVariant>) {
    (target.*Setter)(std::get<TVariant>(value));
  } else if constexpr (CObjectPointer<T>) {
    TVantrelObject* const given = std::get<TVantrelObject*>(value);
    const T taken = dynamic_cast<T>(given);
    if (given != nullptr && taken == nullptr) RaisePropertyAccess();
    (target.*Setter)(taken);
  } else if constexpr (std::is_pointer_v<T>) {
    (target.*Setter)(static_cast<T>(std::get<void*>(value)));
  } else {
    (target.*Setter)(std::get<std::string>(value));
  }
}

/// A property by its getter and, unless it is read-only, its setter. Enumerations, sets, objects and interfaces name
/// their type.
template <auto Getter, auto Setter = nullptr>
constexpr TVantrelProperty Published(std::string_view name, const TVantrelTypeInfo& type,
                                     std::int64_t defaultValue = TVantrelProperty::NoDefault) {
  if constexpr (std::same_as<decltype(Setter), std::nullptr_t>)
    return {name, &type, &GetPublished<Getter>, nullptr, defaultValue};
  else
    return {name, &type, &GetPublished<Getter>, &SetPublished<Setter>, defaultValue};
}

template <auto Getter, auto Setter = nullptr>
constexpr TVantrelProperty Published(std::string_view name, std::int64_t defaultValue = TVantrelProperty::NoDefault) {
  return Published<Getter, Setter>(name, TPlainType<typename TPropertyAccess<decltype(Getter)>::TValue>::Info,
                                   defaultValue);
}

/// As Published, for a property that is public but not published.
template <auto Getter, auto Setter = nullptr, class... TArgs>
constexpr TVantrelProperty Public(std::string_view name, const TArgs&... args) {
  TVantrelProperty property = Published<Getter, Setter>(name, args...);
  property.IsPublished = false;
  return property;
}
