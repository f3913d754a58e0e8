#pragma once

#include <utility>
#include <vector>

#include "VantrelDataObjects.h"
#include "VantrelLists.h"

class TVantrelDataList;

/// A list of bound callbacks, each a function and the data it is called with. Called in the order of adding. An index
/// outside the list raises EVantrelCollectionError.
template <class... TArgs>
class TVantrelMethodList {
 public:
  using TCode = void (*)(void* data, TArgs...);

  void Add(TCode code, void* data) { FMethods.emplace_back(code, data); }
  void Clear() { FMethods.clear(); }
  bool Contains(TCode code, void* data) const { return IndexOf(code, data) >= 0; }
  void Delete(int index) { FMethods.erase(FMethods.begin() + Checked(index)); }
  int IndexOf(TCode code, void* data) const {
    for (std::size_t i = 0; i < FMethods.size(); ++i)
      if (FMethods[i] == std::pair(code, data)) return static_cast<int>(i);
    return -1;
  }
  void Remove(TCode code, void* data) {
    if (const int index = IndexOf(code, data); index >= 0) Delete(index);
  }
  const std::pair<TCode, void*>& GetItem(int index) const { return FMethods.begin()[Checked(index)]; }

  void Call(TArgs... args) const {
    for (std::size_t i = 0; i < FMethods.size(); ++i) FMethods[i].first(FMethods[i].second, args...);
  }

 private:
  int Checked(int index) const {
    CheckListIndex(index, static_cast<int>(FMethods.size()));
    return index;
  }

  std::vector<std::pair<TCode, void*>> FMethods;
};

/// What a document tells those who listen: one list of callbacks for each of the twelve events.
class TVantrelDataObserver {
 public:
  using TItemEvent = TVantrelMethodList<TVantrelDataStorage*, TVantrelDataObject*, int, TVantrelDataList*>;
  using TListEvent = TVantrelMethodList<TVantrelDataStorage*, TVantrelDataList*>;
  using TMoveEvent = TVantrelMethodList<TVantrelDataStorage*, TVantrelDataList*, int, int>;
  using TObjectEvent = TVantrelMethodList<TVantrelDataStorage*, TVantrelAbstractDataObject*>;
  using TStorageEvent = TVantrelMethodList<TVantrelDataStorage*>;

  TItemEvent ListInsert;
  TItemEvent ListDelete;
  TListEvent ListClear;
  TListEvent ListSort;
  /// The two numbers are the old and the new index.
  TMoveEvent ListMove;
  TObjectEvent ObjectCreate;
  TObjectEvent ObjectDestroy;
  TObjectEvent ObjectUpdate;
  TStorageEvent StorageLoad;
  TStorageEvent StorageSave;
  TStorageEvent StorageSaveAs;
  TStorageEvent StorageClear;
};
