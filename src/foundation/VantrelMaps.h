#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelGuid.h"

/// The ELF hash of a byte text; 0 for an empty one, the top bit is never set.
std::int32_t ElfHash(std::string_view bytes);

/// Hash map from key object to item object. Keys and items are owned or not by two flags.
class TVantrelHashMap : public TVantrelPersistent {
 public:
  TVantrelHashMap(bool itemOwner, bool keyOwner) : TVantrelHashMap(16, 0.75, itemOwner, keyOwner) {}
  /// Raises EVantrelMapError for a capacity below 0 or a load factor not above 0.
  TVantrelHashMap(int capacity, double loadFactor, bool itemOwner, bool keyOwner);
  ~TVantrelHashMap() override;

  int Count() const { return FSize; }
  int BucketCount() const { return static_cast<int>(FBuckets.size()); }
  int Threshold() const { return FThreshold; }

  /// The item under an equal key, or null.
  TVantrelObject* Get(const TVantrelObject* key) const;
  /// As Get for a plain text or GUID key: compared with keys of the typed values TVantrelString and TVantrelGuid.
  TVantrelObject* Get(std::string_view key) const;
  TVantrelObject* Get(const TGuid& key) const;
  bool ContainsKey(const TVantrelObject* key) const;
  bool ContainsKey(std::string_view key) const;
  bool ContainsKey(const TGuid& key) const;
  /// Stores `item` under `key`. If an equal key is there its item is replaced and returned unfreed, and the new key
  /// is freed if the map owns keys; else the result is null.
  TVantrelObject* Put(TVantrelObject* key, TVantrelObject* item);
  TVantrelObject* Put(std::string_view key, TVantrelObject* item);
  TVantrelObject* Put(const TGuid& key, TVantrelObject* item);
  /// Takes the entry out, frees its key if owned, and returns its item unfreed; null if absent.
  TVantrelObject* Remove(const TVantrelObject* key);
  TVantrelObject* Remove(std::string_view key);
  TVantrelObject* Remove(const TGuid& key);
  /// Frees what is owned and keeps the buckets.
  void Clear();
  /// All items, in the order of the buckets.
  std::vector<TVantrelObject*> Items() const;

 private:
  struct TEntry;
  TEntry* Find(const TVantrelObject* key, std::int32_t hash) const;
  void Resize();

  bool FItemOwner;
  bool FKeyOwner;
  double FLoadFactor;
  int FSize = 0;
  int FThreshold;
  std::vector<TEntry*> FBuckets;
};
