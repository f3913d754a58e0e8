#pragma once

#include <concepts>
#include <type_traits>

#include "VantrelRtti.h"

// What the tables of published properties are written with:
//   static constexpr TVantrelProperty Properties[] = {
//       Published<&TLink::Caption, &TLink::SetCaption>("Caption"),
//       Published<&TLink::Align, &TLink::SetAlign>("Align", AlignType, 0),
//   };

/// The type of an ordinal T.
template <class T>
constexpr TVantrelTypeInfo OrdinalTypeInfo(std::string_view name, TVantrelTypeKind kind = TVantrelTypeKind::tkInteger) {
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

/// The type of a number with a fraction.
constexpr TVantrelTypeInfo FloatTypeInfo(std::string_view name, TVantrelFloatType type) {
  return {.Name = name, .Kind = TVantrelTypeKind::tkFloat, .FloatType = type};
}

/// The type of a property that refers to an object of this class or a descendant.
constexpr TVantrelTypeInfo ClassTypeInfo(const TVantrelClass& classReference) {
  return {.Name = classReference.Name, .Kind = TVantrelTypeKind::tkClass, .ClassType = &classReference};
}

/// The type of a property that refers to anything else by its address.
constexpr TVantrelTypeInfo InterfaceTypeInfo(std::string_view name) {
  return {.Name = name, .Kind = TVantrelTypeKind::tkInterface};
}

/// A Boolean is an enumeration of these.
inline constexpr std::string_view BooleanNames[] = {"False", "True"};

/// The types that a table of properties need not name.
template <class T>
struct TPlainType;
#define VANTREL_PLAIN_TYPE(T, ...)                        \
  template <>                                             \
  struct TPlainType<T> {                                  \
    static constexpr TVantrelTypeInfo Info = __VA_ARGS__; \
  };
VANTREL_PLAIN_TYPE(bool, EnumTypeInfo("Boolean", BooleanNames))
VANTREL_PLAIN_TYPE(char, OrdinalTypeInfo<unsigned char>("AnsiChar", TVantrelTypeKind::tkChar))
VANTREL_PLAIN_TYPE(char16_t, OrdinalTypeInfo<char16_t>("Char", TVantrelTypeKind::tkWChar))
VANTREL_PLAIN_TYPE(std::int8_t, OrdinalTypeInfo<std::int8_t>("ShortInt"))
VANTREL_PLAIN_TYPE(std::uint8_t, OrdinalTypeInfo<std::uint8_t>("Byte"))
VANTREL_PLAIN_TYPE(std::int16_t, OrdinalTypeInfo<std::int16_t>("SmallInt"))
VANTREL_PLAIN_TYPE(std::uint16_t, OrdinalTypeInfo<std::uint16_t>("Word"))
VANTREL_PLAIN_TYPE(std::int32_t, OrdinalTypeInfo<std::int32_t>("Integer"))
VANTREL_PLAIN_TYPE(std::uint32_t, OrdinalTypeInfo<std::uint32_t>("Cardinal"))
VANTREL_PLAIN_TYPE(std::int64_t, OrdinalTypeInfo<std::int64_t>("Int64", TVantrelTypeKind::tkInt64))
VANTREL_PLAIN_TYPE(float, FloatTypeInfo("Single", TVantrelFloatType::ftSingle))
VANTREL_PLAIN_TYPE(double, FloatTypeInfo("Double", TVantrelFloatType::ftDouble))
VANTREL_PLAIN_TYPE(long double, FloatTypeInfo("Extended", TVantrelFloatType::ftExtended))
VANTREL_PLAIN_TYPE(std::string, {.Name = "string", .Kind = TVantrelTypeKind::tkString})
VANTREL_PLAIN_TYPE(TVariant, {.Name = "Variant", .Kind = TVantrelTypeKind::tkVariant})
#undef VANTREL_PLAIN_TYPE

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

/// What a property gives through its access function.
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

/// Sets a property through its access function. Raises EVantrelRTTIError for an object of a class that it does not
/// take.
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

/// As above, for the types of TPlainType.
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
