#pragma once

#include <vector>

#include "VantrelLists.h"
#include "VantrelMaps.h"

/// Base of the collections that hold an object once, by Equals.
class TVantrelAbstractSet : public TVantrelAbstractCollection {
 public:
  using TVantrelAbstractCollection::TVantrelAbstractCollection;

  /// False if an equal item is there; the new one is then freed if the set owns its items.
  virtual bool Add(TVantrelObject* item) = 0;
  virtual bool Contains(const TVantrelObject* item) const = 0;
  /// Takes the equal item out, freeing it if the set owns its items; false if there is none.
  virtual bool Remove(const TVantrelObject* item) = 0;
  /// As Remove, but returns the item unfreed, or null.
  virtual TVantrelObject* Extract(const TVantrelObject* item) = 0;
  /// All items.
  virtual std::vector<TVantrelObject*> Items() const = 0;
};

/// A set in the buckets of a hash map.
class TVantrelHashSet final : public TVantrelAbstractSet {
 public:
  explicit TVantrelHashSet(bool itemOwner = true) : TVantrelHashSet(16, 0.75, itemOwner) {}
  /// As the constructor of TVantrelHashMap.
  TVantrelHashSet(int capacity, double loadFactor, bool itemOwner)
      : TVantrelAbstractSet(itemOwner), FMap(capacity, loadFactor, false, false) {}
  ~TVantrelHashSet() override;

  int Count() const override { return FMap.Count(); }
  bool Add(TVantrelObject* item) override;
  bool Contains(const TVantrelObject* item) const override { return FMap.ContainsKey(item); }
  bool Remove(const TVantrelObject* item) override;
  TVantrelObject* Extract(const TVantrelObject* item) override { return FMap.Remove(item); }
  void Clear() override;
  std::vector<TVantrelObject*> Items() const override { return FMap.Items(); }

 private:
  TVantrelHashMap FMap;
};
