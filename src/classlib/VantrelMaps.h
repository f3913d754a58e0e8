#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelGuid.h"
#include "VantrelHashes.h"

/// Base of the maps from key object to item object. Keys and items are owned or not by two flags; an owned item that
/// stands under two keys is freed once.
class TVantrelAbstractMap : public TVantrelPersistent {
 public:
  TVantrelAbstractMap(bool itemOwner, bool keyOwner) : FItemOwner(itemOwner), FKeyOwner(keyOwner) {}

  bool ItemOwner() const { return FItemOwner; }
  bool KeyOwner() const { return FKeyOwner; }
  void SetKeyOwner(bool value) { FKeyOwner = value; }

  virtual int Count() const = 0;
  /// The item under an equal key, or null. A null key is a key like others.
  virtual TVantrelObject* Get(const TVantrelObject* key) const = 0;
  virtual bool ContainsKey(const TVantrelObject* key) const = 0;
  /// Stores `item` under `key`. If an equal key is there its item is replaced and returned unfreed, and the new key
  /// is freed if the map owns keys; else the result is null.
  virtual TVantrelObject* Put(TVantrelObject* key, TVantrelObject* item) = 0;
  /// Takes the entry out, frees its key if owned, and returns its item unfreed; null if absent.
  virtual TVantrelObject* Remove(const TVantrelObject* key) = 0;
  virtual void Clear() = 0;
  /// All items.
  virtual std::vector<TVantrelObject*> Items() const = 0;
  bool IsEmpty() const { return Count() == 0; }

 protected:
  void FreeKey(TVantrelObject* key) const {
    if (FKeyOwner) TVantrelDeleter()(key);
  }
  void FreeItem(TVantrelObject* item) const {
    if (FItemOwner) TVantrelDeleter()(item);
  }

 private:
  bool FItemOwner;
  bool FKeyOwner;
};

/// One key with its item in a bucket of a hash map.
class TVantrelHashMapEntry final : public TVantrelObject {
 public:
  TVantrelHashMapEntry(std::int32_t hash, TVantrelObject* key, TVantrelObject* item, TVantrelHashMapEntry* next)
      : FHash(hash), FKey(key), FItem(item), FNext(next) {}

  std::int32_t GetHashCode() const override { return FHash; }

 private:
  friend class TVantrelHashMap;
  std::int32_t FHash;
  TVantrelObject* FKey;
  TVantrelObject* FItem;
  TVantrelHashMapEntry* FNext;
};

/// Hash map with chains. The overloads with a plain value stand for a key object of the typed values TVantrelString,
/// TVantrelGuid, TVantrelLongInt and TVantrelInt64; a key object is made where one is stored, not for a look-up.
class TVantrelHashMap final : public TVantrelAbstractMap {
 public:
  explicit TVantrelHashMap(bool itemOwner = true, bool keyOwner = true)
      : TVantrelHashMap(16, 0.75, itemOwner, keyOwner) {}
  /// Raises EVantrelMapError for a capacity below 0 or a load factor not above 0. The number of buckets is the
  /// smallest power of two not below `capacity`, at most 2^30.
  TVantrelHashMap(int capacity, double loadFactor, bool itemOwner, bool keyOwner);
  ~TVantrelHashMap() override;

  int Count() const override { return FSize; }
  int BucketCount() const { return static_cast<int>(FBuckets.size()); }
  /// The number of entries with which the next new one doubles the buckets.
  int Threshold() const { return FThreshold; }

  TVantrelObject* Get(const TVantrelObject* key) const override;
  TVantrelObject* Get(std::string_view key) const;
  TVantrelObject* Get(const TGuid& key) const;
  TVantrelObject* Get(std::int32_t key) const;
  TVantrelObject* Get(std::int64_t key) const;
  bool ContainsKey(const TVantrelObject* key) const override;
  bool ContainsKey(std::string_view key) const;
  bool ContainsKey(const TGuid& key) const;
  bool ContainsKey(std::int32_t key) const;
  bool ContainsKey(std::int64_t key) const;
  /// The forms with a plain value are for maps that own their keys.
  TVantrelObject* Put(TVantrelObject* key, TVantrelObject* item) override;
  TVantrelObject* Put(std::string_view key, TVantrelObject* item);
  TVantrelObject* Put(const TGuid& key, TVantrelObject* item);
  TVantrelObject* Put(std::int32_t key, TVantrelObject* item);
  TVantrelObject* Put(std::int64_t key, TVantrelObject* item);
  TVantrelObject* Remove(const TVantrelObject* key) override;
  TVantrelObject* Remove(std::string_view key);
  TVantrelObject* Remove(const TGuid& key);
  TVantrelObject* Remove(std::int32_t key);
  TVantrelObject* Remove(std::int64_t key);
  /// Frees what is owned and keeps the buckets.
  void Clear() override;
  /// All items, in the order of the buckets.
  std::vector<TVantrelObject*> Items() const override;

 private:
  template <class TKey>
  TVantrelHashMapEntry* Find(const TKey& key, std::int32_t hash) const;
  template <class TKey>
  TVantrelObject* ItemOf(const TKey& key) const;
  template <class TKey>
  bool Contains(const TKey& key) const;
  template <class TKey>
  TVantrelObject* PutValue(const TKey& key, TVantrelObject* item);
  template <class TKey>
  TVantrelObject* Take(const TKey& key);
  void AddEntry(std::int32_t hash, TVantrelObject* key, TVantrelObject* item);
  std::size_t BucketOf(std::int32_t hash) const { return static_cast<std::uint32_t>(hash) & (FBuckets.size() - 1); }
  void Resize();
  void UpdateThreshold();
  void DropRepeatedItems();

  double FLoadFactor;
  int FSize = 0;
  int FThreshold = 0;
  std::vector<TVantrelHashMapEntry*> FBuckets;
};
