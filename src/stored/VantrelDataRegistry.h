#pragma once

#include <tsl/robin_set.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "VantrelDataObjects.h"
#include "VantrelMaps.h"

/// Which stored class names a kind of document knows. One instance for the process; each document kind is registered
/// at program start.
class TVantrelDataClassRegistry {
 public:
  static TVantrelDataClassRegistry& Instance();

  /// Ignored if the name is present.
  void AddClass(std::string_view storageClass, const TVantrelDataClass& dataClass);
  void RemoveClass(std::string_view storageClass, const TVantrelDataClass& dataClass);
  bool ContainsClass(std::string_view storageClass, const TVantrelDataClass& dataClass) const;
  /// Null if unknown.
  const TVantrelDataClass* GetClass(std::string_view storageClass, std::string_view storedName) const;

 private:
  TVantrelHashMap FEntries{true, true};
};

/// The objects of one document by GUID. Owns none of them.
class TVantrelDataObjectRegistry {
 public:
  TVantrelDataObjectRegistry() { FObjects.max_load_factor(0.8F); }

  /// Ignored if the GUID is present.
  void AddObject(TVantrelDataObject& object) { FObjects.insert(&object); }
  /// Only if this very object is the one that is registered.
  void RemoveObject(const TVantrelDataObject& object);
  bool ContainsObject(const TVantrelDataObject& object) const { return GetObject(object.ID()) != nullptr; }
  /// Null if unknown.
  TVantrelDataObject* GetObject(const TGuid& id) const;
  int Count() const { return static_cast<int>(FObjects.size()); }
  /// Makes room for about so many objects, so that a large document need not grow into it step by step.
  void Reserve(std::int64_t objects);
  /// The objects that a reader made and nobody took.
  std::vector<TVantrelDataObject*> Unclaimed() const;

 private:
  struct THash {
    using is_transparent = void;
    std::size_t operator()(const TGuid& id) const;
    std::size_t operator()(const TVantrelDataObject* object) const { return (*this)(object->ID()); }
  };
  struct TSameId {
    using is_transparent = void;
    bool operator()(const TVantrelDataObject* a, const TVantrelDataObject* b) const { return a->ID() == b->ID(); }
    bool operator()(const TGuid& id, const TVantrelDataObject* object) const { return id == object->ID(); }
    bool operator()(const TVantrelDataObject* object, const TGuid& id) const { return id == object->ID(); }
  };

  /// Flat and with the hashes beside the objects, which know their GUIDs: a reader asks for every object that it meets,
  /// and mostly finds out without a look at any other.
  tsl::robin_set<TVantrelDataObject*, THash, TSameId, std::allocator<TVantrelDataObject*>, true> FObjects;
};
