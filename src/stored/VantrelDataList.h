#pragma once

#include "VantrelDataObjects.h"
#include "VantrelLists.h"

/// A list of data objects. One that owns its items frees them and is stored with their data; one that does not is
/// stored as references. An item that stands in several entries of owning lists is freed with the last of them.
class TVantrelDataList : public TVantrelAbstractDataObject {
 public:
  /// Without arguments: no owner, and a list that does not own its items.
  TVantrelDataList() : TVantrelDataList(nullptr, false) {}
  explicit TVantrelDataList(bool ownsItems) : TVantrelDataList(nullptr, ownsItems) {}
  TVantrelDataList(TVantrelAbstractDataObject* owner, bool ownsItems)
      : TVantrelAbstractDataObject(owner), FItems(ownsItems) {}
  ~TVantrelDataList() override;

  /// The class that all items must have or descend from.
  virtual const TVantrelDataClass& ItemClass() const { return TVantrelDataObject::Class(); }
  bool OwnsItems() const { return FItems.ItemOwner(); }
  int Count() const { return FItems.Count(); }
  bool IsEmpty() const { return FItems.IsEmpty(); }
  /// Raises EVantrelCollectionError for an index outside the list.
  TVantrelDataObject* GetItem(int index) const { return static_cast<TVantrelDataObject*>(FItems.Get(index)); }
  TVantrelDataObject* First() const { return IsEmpty() ? nullptr : GetItem(0); }
  TVantrelDataObject* Last() const { return IsEmpty() ? nullptr : GetItem(Count() - 1); }

  /// Appends, whether the list holds the item already or not; null: nothing. Returns the index, -1 for null. An
  /// item of an unsuitable class, or one that owns this list, raises EVantrelCollectionError.
  int Add(TVantrelDataObject* item);
  /// Makes an instance owned by this list and appends it.
  TVantrelDataObject* Add(const TVantrelDataClass& itemClass);
  bool AddAll(const TVantrelDataList& other);
  /// Null, or an item whose GUID the list holds: nothing.
  void Insert(int index, TVantrelDataObject* item);
  /// Inserts the items of `other` one behind the other, those that the list lacks; true if any.
  bool InsertAll(int index, const TVantrelDataList& other);
  /// Adds each item of `other` whose GUID is not held; true if any.
  bool Merge(const TVantrelDataList& other);
  /// An owning list takes copies; one that does not own keeps the item that stands first in `source` and takes the
  /// others anew.
  void Assign(const TVantrelObject& source) override;

  void Clear();
  void DoClear() override { Clear(); }
  void Delete(int index);
  void Delete(const TGuid& id);
  void Remove(const TVantrelDataObject* item);
  bool RemoveAll(const TVantrelDataList& other);
  bool RetainAll(const TVantrelDataList& other);
  /// Take out without freeing; null if absent.
  TVantrelDataObject* Extract(int index);
  TVantrelDataObject* Extract(const TVantrelDataObject* item);
  TVantrelDataObject* Extract(const TGuid& id);
  /// Takes the entry out, told as a deletion. Gives the item to the caller where no entry of an owning list is left
  /// that holds it, else null.
  TVantrelPtr<TVantrelDataObject> TakeOut(int index);
  /// Delete, then Insert in the same place; an item that stands there already stays.
  void Exchange(int index, TVantrelDataObject* item);
  void Exchange(const TVantrelDataObject* oldItem, TVantrelDataObject* item);

  TVantrelDataObject* Find(const TGuid& id) const;
  /// By pointer; -1 if absent.
  int IndexOf(const TVantrelDataObject* item) const { return FItems.IndexOf(item); }
  int IndexOf(const TGuid& id) const;
  /// By GUID.
  bool Contains(const TVantrelDataObject* item) const { return item != nullptr && Contains(item->ID()); }
  bool Contains(const TGuid& id) const { return IndexOf(id) >= 0; }

  void Move(int from, int to);
  void Move(const TVantrelDataObject* item, int to);
  void MoveToFirstIndex(int index) { Move(index, 0); }
  void MoveToFirstIndex(const TVantrelDataObject* item) { Move(item, 0); }
  void MoveToLastIndex(int index) { Move(index, Count() - 1); }
  void MoveToLastIndex(const TVantrelDataObject* item) { Move(item, Count() - 1); }
  void MoveToPrevIndex(int index) { Move(index, index - 1); }
  void MoveToPrevIndex(const TVantrelDataObject* item) { Move(item, IndexOf(item) - 1); }
  void MoveToNextIndex(int index) { Move(index, index + 1); }
  void MoveToNextIndex(const TVantrelDataObject* item) { Move(item, IndexOf(item) + 1); }
  /// Two moves: the lower index to one before the higher, the higher to the lower.
  void Swap(int a, int b);
  void Sort();
  void SetSorted(bool sorted) { FItems.SetSorted(sorted); }
  void SetCompare(TVantrelCompare compare) { FItems.SetCompare(std::move(compare)); }

 private:
  void CheckItem(const TVantrelDataObject& item) const;
  void TakeIn(TVantrelDataObject& item);
  /// An entry of the item is gone: frees the item with its last entry. An item that lives on, outside this list, goes
  /// back to the document.
  void Release(TVantrelDataObject* item, bool stillHere);
  void ReleaseAll();
  void ReportInsert(TVantrelDataObject* item, int index);
  void ReportDelete(TVantrelDataObject* item, int index);

  TVantrelArrayList FItems;
};

/// A list of one class of items; GetItem gives that class.
template <class TItem>
class TVantrelDataListOf : public TVantrelDataList {
 public:
  using TVantrelDataList::TVantrelDataList;

  const TVantrelDataClass& ItemClass() const override { return TItem::Class(); }
  TItem* GetItem(int index) const { return static_cast<TItem*>(TVantrelDataList::GetItem(index)); }

 protected:
  /// Appends a new item.
  TItem* AddNew() { return static_cast<TItem*>(Add(TItem::Class())); }
};
