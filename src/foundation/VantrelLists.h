#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "VantrelClasses.h"

enum class TVantrelDuplicates : std::uint8_t { dupIgnore, dupAccept, dupError };

/// Order of two items: below, equal to or above 0.
using TVantrelCompare = std::function<int(const TVantrelObject&, const TVantrelObject&)>;

/// Base of the containers of objects. The ownership of the items is a flag of the collection.
class TVantrelAbstractCollection : public TVantrelPersistent {
 public:
  explicit TVantrelAbstractCollection(bool itemOwner) : FItemOwner(itemOwner) {}

  /// The collection frees an item that leaves it, and all items when it dies.
  bool ItemOwner() const { return FItemOwner; }
  void SetItemOwner(bool value) { FItemOwner = value; }

  virtual int Count() const = 0;
  virtual void Clear() = 0;
  bool IsEmpty() const { return Count() == 0; }

 protected:
  void FreeItem(TVantrelObject* item) const {
    if (FItemOwner) TVantrelDeleter()(item);
  }

  bool FItemOwner;
};

/// A growing list of objects in an array.
class TVantrelArrayList : public TVantrelAbstractCollection {
 public:
  explicit TVantrelArrayList(bool itemOwner = true) : TVantrelAbstractCollection(itemOwner) {}
  ~TVantrelArrayList() override;

  int Count() const override { return FCount; }
  int Capacity() const { return FCapacity; }
  /// Raises EVantrelCollectionError for a value below Count or of 2^27 and more.
  void SetCapacity(int capacity);

  /// The item; an index outside the list raises EVantrelCollectionError.
  TVantrelObject* Get(int index) const;
  /// Adds at the end or, in a sorted list, at its place. A duplicate (an item that is the same object or compares
  /// equal in a sorted list) is ignored, accepted or refused with EVantrelCollectionError by Duplicates. Returns the
  /// index, or that of the item already there.
  int Add(TVantrelObject* item);
  /// Inserts before `index`; below 0 or above Count raises EVantrelCollectionError.
  void Insert(int index, TVantrelObject* item);
  /// Takes the item out, freeing it if the list owns its items.
  void Delete(int index);
  /// Takes the item out and returns it unfreed.
  TVantrelObject* Extract(int index);
  void Clear() override;
  void Move(int from, int to);
  /// By pointer; -1 if absent.
  int IndexOf(const TVantrelObject* item) const;
  bool Contains(const TVantrelObject* item) const { return IndexOf(item) >= 0; }
  /// Stable sort by the comparison callback, or by the items' own Compare.
  void Sort();

  TVantrelDuplicates Duplicates() const { return FDuplicates; }
  void SetDuplicates(TVantrelDuplicates value) { FDuplicates = value; }
  bool Sorted() const { return FSorted; }
  /// Setting it sorts the list and keeps it sorted through Add.
  void SetSorted(bool sorted);
  void SetCompare(TVantrelCompare compare);

 private:
  void CheckIndex(int index) const;
  void Grow();
  int CompareItems(const TVantrelObject* a, const TVantrelObject* b) const;

  TVantrelDuplicates FDuplicates = TVantrelDuplicates::dupAccept;
  bool FSorted = false;
  int FCapacity = 0;
  int FCount = 0;
  std::unique_ptr<TVantrelObject*[]> FItems;
  std::unique_ptr<TVantrelCompare> FCompare;
};
