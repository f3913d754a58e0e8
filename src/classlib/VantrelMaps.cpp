#include "VantrelMaps.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <typeinfo>
#include <unordered_set>

#include "ClasslibTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelTypes.h"

namespace {
constexpr int MaxBuckets = 1 << 30;

std::size_t BucketsFor(int capacity) {
  if (capacity < 0) throw EVantrelMapError(ResourceText(ClasslibTexts::MapCapacity));
  return std::bit_ceil(static_cast<std::size_t>(std::clamp(capacity, 1, MaxBuckets)));
}

// The key object that stands for a plain value.
template <class TValue>
struct TKeyClass;
template <>
struct TKeyClass<std::string_view> {
  using TType = TVantrelString;
};
template <>
struct TKeyClass<TGuid> {
  using TType = TVantrelGuid;
};
template <>
struct TKeyClass<std::int32_t> {
  using TType = TVantrelLongInt;
};
template <>
struct TKeyClass<std::int64_t> {
  using TType = TVantrelInt64;
};

template <class TValue>
std::int32_t HashOf(const TValue& value) {
  return HashOfValue(value);
}

std::int32_t HashOf(const TVantrelObject* key) {
  return key == nullptr ? 0 : key->GetHashCode();
}

template <class TValue>
bool IsKey(const TVantrelObject* held, const TValue& value) {
  using TKey = typename TKeyClass<TValue>::TType;
  return held != nullptr && typeid(*held) == typeid(TKey) && static_cast<const TKey*>(held)->Value() == value;
}

bool IsKey(const TVantrelObject* held, const TVantrelObject* key) {
  return held == key || (held != nullptr && key != nullptr && key->Equals(held));
}
}  // namespace

TVantrelHashMap::TVantrelHashMap(int capacity, double loadFactor, bool itemOwner, bool keyOwner)
    : TVantrelAbstractMap(itemOwner, keyOwner), FLoadFactor(loadFactor), FBuckets(BucketsFor(capacity)) {
  if (!(loadFactor > 0)) throw EVantrelMapError(ResourceText(ClasslibTexts::MapLoadFactor));
  UpdateThreshold();
}

TVantrelHashMap::~TVantrelHashMap() {
  TVantrelHashMap::Clear();
}

void TVantrelHashMap::UpdateThreshold() {
  const double threshold = static_cast<double>(FBuckets.size()) * FLoadFactor;
  FThreshold = static_cast<int>(std::min<double>(threshold, std::numeric_limits<int>::max()));
}

template <class TKey>
TVantrelHashMapEntry* TVantrelHashMap::Find(const TKey& key, std::int32_t hash) const {
  TVantrelHashMapEntry* entry = FBuckets[BucketOf(hash)];
  while (entry != nullptr && !(entry->FHash == hash && IsKey(entry->FKey, key))) entry = entry->FNext;
  return entry;
}

template <class TKey>
TVantrelObject* TVantrelHashMap::ItemOf(const TKey& key) const {
  const TVantrelHashMapEntry* const entry = Find(key, HashOf(key));
  return entry == nullptr ? nullptr : entry->FItem;
}

template <class TKey>
bool TVantrelHashMap::Contains(const TKey& key) const {
  return Find(key, HashOf(key)) != nullptr;
}

template <class TKey>
TVantrelObject* TVantrelHashMap::PutValue(const TKey& key, TVantrelObject* item) {
  using TKeyObject = typename TKeyClass<TKey>::TType;
  const std::int32_t hash = HashOf(key);
  if (TVantrelHashMapEntry* const entry = Find(key, hash)) return std::exchange(entry->FItem, item);
  AddEntry(hash, CreateVantrel<TKeyObject>(typename TKeyObject::TPlain(key)).release(), item);
  return nullptr;
}

template <class TKey>
TVantrelObject* TVantrelHashMap::Take(const TKey& key) {
  TVantrelHashMapEntry* const entry = Find(key, HashOf(key));
  if (entry == nullptr) return nullptr;
  TVantrelHashMapEntry** link = &FBuckets[BucketOf(entry->FHash)];
  while (*link != entry) link = &(*link)->FNext;
  *link = entry->FNext;
  --FSize;
  const TVantrelPtr<TVantrelHashMapEntry> taken(entry);
  if (taken->FKey != taken->FItem) FreeKey(taken->FKey);
  return taken->FItem;
}

void TVantrelHashMap::AddEntry(std::int32_t hash, TVantrelObject* key, TVantrelObject* item) {
  auto entry = CreateVantrel<TVantrelHashMapEntry>(hash, key, item, nullptr);
  if (FSize >= FThreshold) Resize();
  TVantrelHashMapEntry*& head = FBuckets[BucketOf(hash)];
  entry->FNext = head;
  head = entry.release();
  ++FSize;
}

void TVantrelHashMap::Resize() {
  if (FBuckets.size() >= MaxBuckets) {
    FThreshold = std::numeric_limits<int>::max();
    return;
  }
  std::vector<TVantrelHashMapEntry*> old(FBuckets.size() * 2);
  old.swap(FBuckets);
  for (TVantrelHashMapEntry* entry : old) {
    while (entry != nullptr) {
      TVantrelHashMapEntry*& head = FBuckets[BucketOf(entry->FHash)];
      TVantrelHashMapEntry* const next = std::exchange(entry->FNext, head);
      head = entry;
      entry = next;
    }
  }
  UpdateThreshold();
}

TVantrelObject* TVantrelHashMap::Put(TVantrelObject* key, TVantrelObject* item) {
  const TVantrelObject* const wanted = key;
  const std::int32_t hash = HashOf(wanted);
  TVantrelHashMapEntry* const entry = Find(wanted, hash);
  if (entry == nullptr) {
    AddEntry(hash, key, item);
    return nullptr;
  }
  TVantrelObject* const replaced = std::exchange(entry->FItem, item);
  if (key != entry->FKey && key != item) FreeKey(key);
  return replaced;
}

// Entries leave the map before what they hold is freed: a destructor may look up and take out itself or another.
void TVantrelHashMap::Clear() {
  if (ItemOwner()) DropRepeatedItems();
  for (std::size_t bucket = 0; bucket < FBuckets.size(); ++bucket) {
    while (FBuckets[bucket] != nullptr) {
      const TVantrelPtr<TVantrelHashMapEntry> entry(FBuckets[bucket]);
      FBuckets[bucket] = entry->FNext;
      --FSize;
      FreeItem(entry->FItem);
      FreeKey(entry->FKey);
    }
  }
}

// Leaves each owned object in one place of the map.
void TVantrelHashMap::DropRepeatedItems() {
  std::unordered_set<const TVantrelObject*> seen;
  for (TVantrelHashMapEntry* entry : FBuckets) {
    for (; entry != nullptr; entry = entry->FNext) {
      const bool keyIsFreed = KeyOwner() && entry->FKey == entry->FItem;
      if (keyIsFreed || !seen.insert(entry->FItem).second) entry->FItem = nullptr;
    }
  }
}

std::vector<TVantrelObject*> TVantrelHashMap::Items() const {
  std::vector<TVantrelObject*> items;
  items.reserve(static_cast<std::size_t>(FSize));
  for (const TVantrelHashMapEntry* entry : FBuckets)
    for (; entry != nullptr; entry = entry->FNext) items.push_back(entry->FItem);
  return items;
}

TVantrelObject* TVantrelHashMap::Get(const TVantrelObject* key) const {
  return ItemOf(key);
}
TVantrelObject* TVantrelHashMap::Get(std::string_view key) const {
  return ItemOf(key);
}
TVantrelObject* TVantrelHashMap::Get(const TGuid& key) const {
  return ItemOf(key);
}
TVantrelObject* TVantrelHashMap::Get(std::int32_t key) const {
  return ItemOf(key);
}
TVantrelObject* TVantrelHashMap::Get(std::int64_t key) const {
  return ItemOf(key);
}

bool TVantrelHashMap::ContainsKey(const TVantrelObject* key) const {
  return Contains(key);
}
bool TVantrelHashMap::ContainsKey(std::string_view key) const {
  return Contains(key);
}
bool TVantrelHashMap::ContainsKey(const TGuid& key) const {
  return Contains(key);
}
bool TVantrelHashMap::ContainsKey(std::int32_t key) const {
  return Contains(key);
}
bool TVantrelHashMap::ContainsKey(std::int64_t key) const {
  return Contains(key);
}

TVantrelObject* TVantrelHashMap::Put(std::string_view key, TVantrelObject* item) {
  return PutValue(key, item);
}
TVantrelObject* TVantrelHashMap::Put(const TGuid& key, TVantrelObject* item) {
  return PutValue(key, item);
}
TVantrelObject* TVantrelHashMap::Put(std::int32_t key, TVantrelObject* item) {
  return PutValue(key, item);
}
TVantrelObject* TVantrelHashMap::Put(std::int64_t key, TVantrelObject* item) {
  return PutValue(key, item);
}

TVantrelObject* TVantrelHashMap::Remove(const TVantrelObject* key) {
  return Take(key);
}
TVantrelObject* TVantrelHashMap::Remove(std::string_view key) {
  return Take(key);
}
TVantrelObject* TVantrelHashMap::Remove(const TGuid& key) {
  return Take(key);
}
TVantrelObject* TVantrelHashMap::Remove(std::int32_t key) {
  return Take(key);
}
TVantrelObject* TVantrelHashMap::Remove(std::int64_t key) {
  return Take(key);
}
