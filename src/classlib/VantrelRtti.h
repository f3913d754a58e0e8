#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelVariant.h"

// The published properties of a class stand in one table, from which they are listed, read and written by name or
// index. A class shows its table by overriding ClassReference.

/// The kinds of types; up to tkSet they are ordinals.
enum class TVantrelTypeKind : std::uint8_t {
  tkInteger,
  tkChar,
  tkWChar,
  tkEnumeration,
  tkSet,
  tkInt64,
  tkFloat,
  tkString,
  tkVariant,
  tkClass,
  tkInterface,
};

/// Size and sign of an ordinal, and the size of a float.
enum class TVantrelOrdType : std::uint8_t { otSByte, otUByte, otSWord, otUWord, otSLong, otULong };
enum class TVantrelFloatType : std::uint8_t { ftSingle, ftDouble, ftExtended };

/// The type of a property.
struct TVantrelTypeInfo {
  std::string_view Name;
  TVantrelTypeKind Kind;
  TVantrelOrdType OrdType = TVantrelOrdType::otSLong;
  /// The range of ordinals and of 64-bit integers.
  std::int64_t MinValue = 0;
  std::int64_t MaxValue = 0;
  TVantrelFloatType FloatType = TVantrelFloatType::ftDouble;
  /// Names of the members of an enumeration, from MinValue on.
  std::span<const std::string_view> EnumNames = {};
  /// The enumeration of a set; the set is kept as bits, that of a member being 1 << ordinal.
  const TVantrelTypeInfo* ElementType = nullptr;
  const TVantrelClass* ClassType = nullptr;
};

/// Ordinals and sets, floats, texts in UTF-8, objects, other interfaces, variants.
using TVantrelPropertyValue = std::variant<std::int64_t, double, std::string, TVantrelObject*, void*, TVariant>;

/// One property of a class.
struct TVantrelProperty {
  static constexpr std::int64_t NoDefault = std::numeric_limits<std::int32_t>::min();

  std::string_view Name;
  const TVantrelTypeInfo* Type;
  /// Null for a property without that access.
  TVantrelPropertyValue (*Get)(const TVantrelObject& object);
  void (*Set)(TVantrelObject& object, const TVantrelPropertyValue& value);
  std::int64_t Default = NoDefault;
  /// False for one that is public only: it is passed over wherever public members are not asked for.
  bool IsPublished = true;
};

/// The class reference: what is known of a class at run time.
struct TVantrelClass {
  std::string_view Name;
  const TVantrelClass* Base = nullptr;
  /// Null for a class that is not created by name.
  TVantrelPtr<TVantrelObject> (*Create)() = nullptr;
  /// The properties that the class adds to those of its base, in the order of declaration.
  std::span<const TVantrelProperty> Properties = {};
};

/// The class of an object; that of TVantrelObject, which has no properties, where it shows none.
const TVantrelClass& ClassOf(const TVantrelObject& object);

/// The published properties of a class, and on demand the public ones, with the inherited ones in front. A property is
/// named by its index or by its name without regard to case; one that is not there raises EVantrelRTTIError, and so
/// does a question that does not go with the kind of its type.
class TVantrelClassRTTI {
 public:
  /// An index or a name.
  class TKey {
   public:
    TKey(int index) : FIndex(index) {}
    TKey(std::string_view name) : FIndex(-1), FName(name) {}
    TKey(const char* name) : TKey(std::string_view(name)) {}

   private:
    friend class TVantrelClassRTTI;
    int FIndex;
    std::string_view FName;
  };

  explicit TVantrelClassRTTI(const TVantrelClass& classReference, bool includePublicMembers = false);

  const TVantrelClass& Class() const { return *FClass; }
  int PropCount() const { return static_cast<int>(FPropList.size()); }
  const TVantrelProperty& Property(TKey key) const;

  bool IsPropertyPublished(std::string_view name) const {
    const int index = GetPropertyIndex(name);
    return index >= 0 && Property(index).IsPublished;
  }
  /// The first property of that name, or -1.
  int GetPropertyIndex(std::string_view name) const;
  std::string_view GetPropertyName(int index) const { return Property(index).Name; }
  bool IsPropertyReadable(TKey key) const { return Property(key).Get != nullptr; }
  bool IsPropertyWriteable(TKey key) const { return Property(key).Set != nullptr; }

  std::string_view GetPropertyTypeName(TKey key) const { return Property(key).Type->Name; }
  TVantrelTypeKind GetPropertyTypeKind(TKey key) const { return Property(key).Type->Kind; }
  /// True if the type bears that name, without regard to case.
  bool PropertyTypeHasName(TKey key, std::string_view typeName) const;

  TVantrelOrdType GetPropertyOrdType(TKey key) const { return Ordinal(key).OrdType; }
  /// TVantrelProperty::NoDefault where the table gives none.
  std::int64_t GetPropertyOrdDefaultValue(TKey key) const;
  std::int64_t GetPropertyOrdMinValue(TKey key) const { return Ordinal(key).MinValue; }
  std::int64_t GetPropertyOrdMaxValue(TKey key) const { return Ordinal(key).MaxValue; }
  std::int64_t GetPropertyInt64MinValue(TKey key) const;
  std::int64_t GetPropertyInt64MaxValue(TKey key) const;
  TVantrelFloatType GetPropertyFloatType(TKey key) const;
  /// Null where the table names no class.
  const TVantrelClass* GetPropertyClassType(TKey key) const;

  /// Raises EVantrelRTTIError for a value outside the enumeration.
  std::string_view GetPropertyEnumName(TKey key, std::int64_t value) const;
  /// Without regard to case; -1 for an unknown name.
  std::int64_t GetPropertyEnumValue(TKey key, std::string_view name) const;

  std::string_view GetPropertySetEnumTypeName(TKey key) const { return Element(key).Name; }
  TVantrelTypeKind GetPropertySetEnumTypeKind(TKey key) const { return Element(key).Kind; }
  TVantrelOrdType GetPropertySetEnumOrdType(TKey key) const { return Element(key).OrdType; }
  std::int64_t GetPropertySetEnumOrdMinValue(TKey key) const { return Element(key).MinValue; }
  std::int64_t GetPropertySetEnumOrdMaxValue(TKey key) const { return Element(key).MaxValue; }
  std::string_view GetPropertySetEnumName(TKey key, std::int64_t value) const;
  std::int64_t GetPropertySetEnumValue(TKey key, std::string_view name) const;

 private:
  const TVantrelTypeInfo& TypeOfKind(TKey key, TVantrelTypeKind kind) const;
  const TVantrelTypeInfo& Ordinal(TKey key) const;
  const TVantrelTypeInfo& Element(TKey key) const;

  const TVantrelClass* FClass;
  std::vector<const TVantrelProperty*> FPropList;
};

/// Reads and writes the properties of one object. Beyond what TVantrelClassRTTI raises, EVantrelRTTIError
/// says that a property has not that access, or that a value is none of its type.
class TVantrelInstanceRTTI {
 public:
  using TKey = TVantrelClassRTTI::TKey;

  explicit TVantrelInstanceRTTI(TVantrelObject& object, bool includePublicMembers = false)
      : FClassRTTI(ClassOf(object), includePublicMembers), FObject(&object) {}

  const TVantrelClassRTTI& ClassRTTI() const { return FClassRTTI; }
  std::string_view GetPropertyName(int index) const { return FClassRTTI.GetPropertyName(index); }

  /// Integers up to 32 bits, characters, enumerations by their ordinal and sets by their bits.
  std::int64_t GetOrdProperty(TKey key) const;
  void SetOrdProperty(TKey key, std::int64_t value);
  std::int64_t GetInt64Property(TKey key) const;
  void SetInt64Property(TKey key, std::int64_t value);
  /// By the member's name.
  std::string GetEnumProperty(TKey key) const;
  void SetEnumProperty(TKey key, std::string_view name);
  /// The members' names with commas between them; square brackets around them are passed over.
  std::string GetSetProperty(TKey key) const;
  void SetSetProperty(TKey key, std::string_view names);
  double GetFloatProperty(TKey key) const;
  void SetFloatProperty(TKey key, double value);
  /// Texts in UTF-8, in the ANSI code page and in UTF-16.
  std::string GetStringProperty(TKey key) const;
  void SetStringProperty(TKey key, std::string_view value);
  std::string GetAnsiStringProperty(TKey key) const;
  void SetAnsiStringProperty(TKey key, std::string_view value);
  std::u16string GetWideStringProperty(TKey key) const;
  void SetWideStringProperty(TKey key, std::u16string_view value);
  TVantrelObject* GetObjectProperty(TKey key) const;
  /// Raises EVantrelRTTIError for an object of a class that the property does not take.
  void SetObjectProperty(TKey key, TVantrelObject* value);
  /// A pointer to the property's interface class.
  void* GetInterfaceProperty(TKey key) const;
  void SetInterfaceProperty(TKey key, void* value);
  TVariant GetVariantProperty(TKey key) const;
  void SetVariantProperty(TKey key, const TVariant& value);

 private:
  template <class T>
  T Get(TKey key) const;
  void Set(TKey key, const TVantrelPropertyValue& value);
  void SetInRange(TKey key, std::int64_t value);

  TVantrelClassRTTI FClassRTTI;
  TVantrelObject* FObject;
};

/// Raises the EVantrelRTTIError for a value or an access that does not go with a property.
[[noreturn]] void RaisePropertyAccess();
