#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_set>

#include "VantrelClasses.h"

/// What Add does with an item that is in the list: pass it over, take it, raise.
enum class TVantrelDuplicates : std::uint8_t { dupIgnore, dupAccept, dupError };

/// Order of two items: below, equal to or above 0.
using TVantrelCompare = std::function<int(const TVantrelObject&, const TVantrelObject&)>;

/// Raises EVantrelCollectionError for an index outside 0 to count - 1.
void CheckListIndex(int index, int count);

/// Moves the repeats of items behind the end that is returned, keeping the order of the others.
template <class TIterator>
TIterator DropRepeatedItems(TIterator first, TIterator last) {
  const bool ascending = std::adjacent_find(first, last, std::greater_equal<>()) == last;
  if (ascending) return last;
  std::unordered_set<const TVantrelObject*> seen;
  return std::remove_if(first, last, [&seen](const TVantrelObject* item) { return !seen.insert(item).second; });
}

/// Base of the containers of objects. The ownership of the items is a flag of the collection.
class TVantrelAbstractCollection : public TVantrelPersistent {
 public:
  explicit TVantrelAbstractCollection(bool itemOwner) : FItemOwner(itemOwner) {}

  /// The collection frees an item that leaves it, and all items when it dies. An item that stands in it more than
  /// once is freed once, with its last place.
  bool ItemOwner() const { return FItemOwner; }

  virtual int Count() const = 0;
  virtual void Clear() = 0;
  bool IsEmpty() const { return Count() == 0; }

 protected:
  void FreeItem(TVantrelObject* item) const {
    if (FItemOwner) TVantrelDeleter()(item);
  }

  bool FItemOwner;
};

/// A list of objects, in the order of adding or sorted.
class TVantrelAbstractList : public TVantrelAbstractCollection {
 public:
  using TVantrelAbstractCollection::TVantrelAbstractCollection;

  /// The item; an index outside the list raises EVantrelCollectionError, here as in all operations.
  virtual TVantrelObject* Get(int index) const = 0;
  /// Inserts before `index`, from 0 to Count.
  virtual void Insert(int index, TVantrelObject* item) = 0;
  /// Takes the item out and returns it unfreed.
  virtual TVantrelObject* Extract(int index) = 0;
  /// By pointer; -1 if absent.
  virtual int IndexOf(const TVantrelObject* item) const = 0;
  /// Stable sort by the comparison callback, or by the items' own Compare; null items come first.
  virtual void Sort() = 0;

  /// Adds at the end or, in a sorted list, at its place. A duplicate (an item that is the same object or compares
  /// equal in a sorted list) is ignored, accepted or refused with EVantrelCollectionError by Duplicates. Returns the
  /// index, or that of the item already there; an item that is not taken stays with the caller.
  int Add(TVantrelObject* item);
  /// Takes the item out, freeing it if the list owns its items.
  void Delete(int index);
  /// As Delete, by pointer; false if absent.
  bool Remove(const TVantrelObject* item);
  void Move(int from, int to);
  bool Contains(const TVantrelObject* item) const { return IndexOf(item) >= 0; }

  void SetDuplicates(TVantrelDuplicates value) { FDuplicates = value; }
  /// Setting it sorts the list and keeps it sorted through Add.
  void SetSorted(bool sorted);
  /// An empty callback goes back to the items' own Compare.
  void SetCompare(TVantrelCompare compare);

 protected:
  bool IsBelow(const TVantrelObject* a, const TVantrelObject* b) const { return CompareItems(a, b) < 0; }

 private:
  int CompareItems(const TVantrelObject* a, const TVantrelObject* b) const;
  int PlaceBehindEquals(const TVantrelObject* item) const;
  int FindDuplicate(const TVantrelObject* item, int place) const;

  TVantrelDuplicates FDuplicates = TVantrelDuplicates::dupAccept;
  bool FSorted = false;
  std::unique_ptr<TVantrelCompare> FCompare;
};

/// A growing list of objects in an array.
class TVantrelArrayList final : public TVantrelAbstractList {
 public:
  explicit TVantrelArrayList(bool itemOwner = true) : TVantrelAbstractList(itemOwner) {}
  ~TVantrelArrayList() override;

  int Count() const override { return FCount; }
  int Capacity() const { return FCapacity; }
  /// Raises EVantrelCollectionError for a value below Count or of 2^27 and more.
  void SetCapacity(int capacity);

  TVantrelObject* Get(int index) const override {
    CheckListIndex(index, FCount);
    return FItems[index];
  }
  void Insert(int index, TVantrelObject* item) override;
  TVantrelObject* Extract(int index) override;
  /// Gives the memory back, too.
  void Clear() override;
  int IndexOf(const TVantrelObject* item) const override;
  void Sort() override;

  TVantrelObject* const* begin() const { return FItems.get(); }
  TVantrelObject* const* end() const { return FItems.get() + FCount; }

 private:
  void Grow();

  int FCapacity = 0;
  int FCount = 0;
  std::unique_ptr<TVantrelObject*[]> FItems;
};
