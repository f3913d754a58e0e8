#include "VantrelDataList.h"

#include "StoredTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

TVantrelDataList::~TVantrelDataList() {
  ReleaseAll();
}

void TVantrelDataList::CheckItem(const TVantrelDataObject& item) const {
  if (!item.ClassType().InheritsFrom(ItemClass()))
    throw EVantrelCollectionError(FormatText(StoredTexts::WrongClass, item.GetDataClassName(), ItemClass().Name));
  if (OwnsItems() && item.IsOwnerOf(this))
    throw EVantrelCollectionError(FormatText(StoredTexts::ObjectInItself, GuidToText(item.ID())));
}

void TVantrelDataList::TakeIn(TVantrelDataObject& item) {
  if (!OwnsItems()) return;
  item.FOwner = this;
  item.FUnclaimed = false;
  ++item.FOwningEntries;
}

void TVantrelDataList::Release(TVantrelDataObject* item, bool stillHere) {
  if (!OwnsItems()) return;
  if (--item->FOwningEntries == 0)
    TVantrelDeleter()(item);
  else if (!stillHere && item->FOwner == this)
    item->FOwner = GetStorage();
}

void TVantrelDataList::ReleaseAll() {
  if (!OwnsItems()) return FItems.Clear();
  while (!FItems.IsEmpty()) Release(static_cast<TVantrelDataObject*>(FItems.Extract(FItems.Count() - 1)), false);
}

void TVantrelDataList::ReportInsert(TVantrelDataObject* item, int index) {
  if (auto* storage = GetStorage()) storage->Observer().ListInsert.Call(storage, item, index, this);
  Changed();
}

void TVantrelDataList::ReportDelete(TVantrelDataObject* item, int index) {
  if (auto* storage = GetStorage()) storage->Observer().ListDelete.Call(storage, item, index, this);
}

int TVantrelDataList::Add(TVantrelDataObject* item) {
  if (item == nullptr) return -1;
  CheckItem(*item);
  TakeIn(*item);
  const int index = FItems.Add(item);
  ReportInsert(item, index);
  return index;
}

TVantrelDataObject* TVantrelDataList::Add(const TVantrelDataClass& itemClass) {
  auto item = itemClass.Create(this);
  CheckItem(*item);
  auto* added = item.release();
  Add(added);
  return added;
}

bool TVantrelDataList::AddAll(const TVantrelDataList& other) {
  const int count = other.Count();
  for (int i = 0; i < count; ++i) Add(other.GetItem(i));
  return count > 0;
}

void TVantrelDataList::Insert(int index, TVantrelDataObject* item) {
  if (item == nullptr || Contains(item->ID())) return;
  CheckItem(*item);
  FItems.Insert(index, item);
  TakeIn(*item);
  ReportInsert(item, index);
}

bool TVantrelDataList::InsertAll(int index, const TVantrelDataList& other) {
  bool any = false;
  for (int i = 0; i < other.Count(); ++i) {
    if (Contains(other.GetItem(i))) continue;
    Insert(index++, other.GetItem(i));
    any = true;
  }
  return any;
}

bool TVantrelDataList::Merge(const TVantrelDataList& other) {
  bool any = false;
  for (int i = 0; i < other.Count(); ++i) {
    if (Contains(other.GetItem(i))) continue;
    Add(other.GetItem(i));
    any = true;
  }
  return any;
}

void TVantrelDataList::Assign(const TVantrelObject& source) {
  const auto* list = dynamic_cast<const TVantrelDataList*>(&source);
  if (list == nullptr || list == this) return;
  if (OwnsItems()) {
    Clear();
    for (int i = 0; i < list->Count(); ++i) {
      auto item = list->GetItem(i)->ClassType().Create(GetStorage());
      CheckItem(*item);
      auto* added = item.release();
      Add(added);
      added->Assign(*list->GetItem(i));
    }
    return;
  }
  for (int i = Count() - 1; i >= 0; --i)
    if (list->IndexOf(GetItem(i)) != 0) Delete(i);
  for (int i = 0; i < list->Count(); ++i)
    if (IndexOf(list->GetItem(i)) != 0) Add(list->GetItem(i));
}

void TVantrelDataList::Clear() {
  if (IsEmpty()) return;
  if (auto* storage = GetStorage()) storage->Observer().ListClear.Call(storage, this);
  ReleaseAll();
  Changed();
}

void TVantrelDataList::Delete(int index) {
  auto* item = GetItem(index);
  ReportDelete(item, index);
  FItems.Extract(index);
  Release(item, item->FOwningEntries > 1 && FItems.Contains(item));
  Changed();
}

void TVantrelDataList::Delete(const TGuid& id) {
  if (const int index = IndexOf(id); index >= 0) Delete(index);
}

void TVantrelDataList::Remove(const TVantrelDataObject* item) {
  if (const int index = IndexOf(item); index >= 0) Delete(index);
}

bool TVantrelDataList::RemoveAll(const TVantrelDataList& other) {
  const int before = Count();
  for (int i = before - 1; i >= 0; --i)
    if (other.Contains(GetItem(i))) Delete(i);
  return Count() < before;
}

bool TVantrelDataList::RetainAll(const TVantrelDataList& other) {
  const int before = Count();
  for (int i = before - 1; i >= 0; --i)
    if (!other.Contains(GetItem(i))) Delete(i);
  return Count() < before;
}

TVantrelDataObject* TVantrelDataList::Extract(int index) {
  if (index < 0 || index >= Count()) return nullptr;
  auto* item = static_cast<TVantrelDataObject*>(FItems.Extract(index));
  if (OwnsItems()) {
    --item->FOwningEntries;
    if (item->FOwner == this && !FItems.Contains(item)) item->FOwner = GetStorage();
  }
  Changed();
  return item;
}

TVantrelDataObject* TVantrelDataList::Extract(const TVantrelDataObject* item) {
  return Extract(IndexOf(item));
}

TVantrelDataObject* TVantrelDataList::Extract(const TGuid& id) {
  return Extract(IndexOf(id));
}

TVantrelPtr<TVantrelDataObject> TVantrelDataList::TakeOut(int index) {
  if (index >= 0 && index < Count()) ReportDelete(GetItem(index), index);
  auto* item = Extract(index);
  return TVantrelPtr<TVantrelDataObject>(item != nullptr && OwnsItems() && item->FOwningEntries == 0 ? item : nullptr);
}

void TVantrelDataList::Exchange(int index, TVantrelDataObject* item) {
  if (GetItem(index) == item) return;
  Delete(index);
  Insert(index, item);
}

void TVantrelDataList::Exchange(const TVantrelDataObject* oldItem, TVantrelDataObject* item) {
  if (const int index = IndexOf(oldItem); index >= 0) Exchange(index, item);
}

TVantrelDataObject* TVantrelDataList::Find(const TGuid& id) const {
  const int index = IndexOf(id);
  return index < 0 ? nullptr : GetItem(index);
}

int TVantrelDataList::IndexOf(const TGuid& id) const {
  for (int i = 0; i < Count(); ++i)
    if (GetItem(i)->ID() == id) return i;
  return -1;
}

void TVantrelDataList::Move(int from, int to) {
  FItems.Move(from, to);
  if (auto* storage = GetStorage()) storage->Observer().ListMove.Call(storage, this, from, to);
  Changed();
}

void TVantrelDataList::Move(const TVantrelDataObject* item, int to) {
  if (const int index = IndexOf(item); index >= 0) Move(index, to);
}

void TVantrelDataList::Swap(int a, int b) {
  if (b > a) {
    Move(a, b - 1);
    Move(b, a);
  } else if (b < a) {
    Move(b, a - 1);
    Move(a, b);
  }
}

void TVantrelDataList::Sort() {
  FItems.Sort();
  if (auto* storage = GetStorage()) storage->Observer().ListSort.Call(storage, this);
  Changed();
}
