#pragma once

#include <string_view>

#include "VantrelMaps.h"
#include "VantrelRtti.h"

/// What the class registry keeps for one class.
class TVantrelClassRegistryEntry final : public TVantrelObject {
 public:
  explicit TVantrelClassRegistryEntry(const TVantrelClass& classReference) : FClass(classReference) {}

  const TVantrelClass& Class() const { return FClass; }

 private:
  const TVantrelClass& FClass;
};

/// Finds the library's own persistent classes by their names. The one instance is made at program start; a second
/// one raises EVantrelSingletonError. Class references live as long as the program.
class TVantrelClassRegistry final {
 public:
  TVantrelClassRegistry();
  TVantrelClassRegistry(const TVantrelClassRegistry&) = delete;
  TVantrelClassRegistry& operator=(const TVantrelClassRegistry&) = delete;
  ~TVantrelClassRegistry();

  /// Ignored if a class of that name is present.
  void AddClass(const TVantrelClass& classReference);
  void RemoveClass(const TVantrelClass& classReference);
  bool ContainsClass(const TVantrelClass& classReference) const;
  /// Null if unknown.
  const TVantrelClass* GetClass(std::string_view name) const;

 private:
  static bool FExists;
  TVantrelHashMap FClasses;
};

/// Registers the collections and the typed values.
void RegisterLibraryClasses(TVantrelClassRegistry& registry);
