#include "VantrelLinkedLists.h"

#include <algorithm>

#include "ClasslibTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

TVantrelObject* TVantrelAbstractSequencedList::First() const {
  if (IsEmpty()) throw EVantrelCollectionError(ResourceText(ClasslibTexts::ListItemNotFound));
  return Get(0);
}

TVantrelObject* TVantrelAbstractSequencedList::Last() const {
  if (IsEmpty()) throw EVantrelCollectionError(ResourceText(ClasslibTexts::ListItemNotFound));
  return Get(Count() - 1);
}

TVantrelLinkedList::~TVantrelLinkedList() {
  Clear();
}

TVantrelObject* TVantrelLinkedList::Get(int index) const {
  CheckListIndex(index, Count());
  return index <= Count() / 2 ? *std::next(FItems.begin(), index) : *std::prev(FItems.end(), Count() - index);
}

void TVantrelLinkedList::Insert(int index, TVantrelObject* item) {
  CheckListIndex(index, Count() + 1);
  FItems.insert(index == Count() ? FItems.end() : std::next(FItems.begin(), index), item);
}

TVantrelObject* TVantrelLinkedList::Extract(int index) {
  CheckListIndex(index, Count());
  const auto place = std::next(FItems.begin(), index);
  TVantrelObject* const item = *place;
  FItems.erase(place);
  return item;
}

void TVantrelLinkedList::Clear() {
  if (FItemOwner) {
    FItems.erase(DropRepeatedItems(FItems.begin(), FItems.end()), FItems.end());
    while (!FItems.empty()) FreeItem(Extract(0));
  }
  FItems.clear();
}

int TVantrelLinkedList::IndexOf(const TVantrelObject* item) const {
  const auto place = std::find(FItems.begin(), FItems.end(), item);
  return place == FItems.end() ? -1 : static_cast<int>(std::distance(FItems.begin(), place));
}

void TVantrelLinkedList::Sort() {
  FItems.sort([this](const TVantrelObject* a, const TVantrelObject* b) { return IsBelow(a, b); });
}
