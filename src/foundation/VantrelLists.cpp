#include "VantrelLists.h"

#include <fmt/format.h>

#include <algorithm>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {
constexpr int MaxCapacity = 1 << 27;
}  // namespace

void CheckListIndex(int index, int count) {
  if (index < 0 || index >= count) throw EVantrelCollectionError(FormatText(FoundationTexts::ListIndex, index));
}

int TVantrelAbstractList::CompareItems(const TVantrelObject* a, const TVantrelObject* b) const {
  if (a == nullptr || b == nullptr) return static_cast<int>(a != nullptr) - static_cast<int>(b != nullptr);
  return FCompare ? (*FCompare)(*a, *b) : a->Compare(*b);
}

int TVantrelAbstractList::PlaceBehindEquals(const TVantrelObject* item) const {
  int low = 0;
  int high = Count();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (IsBelow(item, Get(middle)))
      high = middle;
    else
      low = middle + 1;
  }
  return low;
}

int TVantrelAbstractList::FindDuplicate(const TVantrelObject* item, int place) const {
  if (!FSorted) return IndexOf(item);
  return place > 0 && CompareItems(Get(place - 1), item) == 0 ? place - 1 : -1;
}

int TVantrelAbstractList::Add(TVantrelObject* item) {
  const int place = FSorted ? PlaceBehindEquals(item) : Count();
  if (FDuplicates != TVantrelDuplicates::dupAccept) {
    const int present = FindDuplicate(item, place);
    if (present >= 0 && FDuplicates == TVantrelDuplicates::dupError)
      throw EVantrelCollectionError(ResourceText(FoundationTexts::ListDuplicate));
    if (present >= 0) return present;
  }
  Insert(place, item);
  return place;
}

void TVantrelAbstractList::Delete(int index) {
  TVantrelObject* const item = Extract(index);
  if (FItemOwner && !Contains(item)) FreeItem(item);
}

bool TVantrelAbstractList::Remove(const TVantrelObject* item) {
  const int index = IndexOf(item);
  if (index >= 0) Delete(index);
  return index >= 0;
}

void TVantrelAbstractList::Move(int from, int to) {
  CheckListIndex(from, Count());
  CheckListIndex(to, Count());
  Insert(to, Extract(from));
}

void TVantrelAbstractList::SetSorted(bool sorted) {
  if (sorted && !FSorted) Sort();
  FSorted = sorted;
}

void TVantrelAbstractList::SetCompare(TVantrelCompare compare) {
  FCompare = compare ? std::make_unique<TVantrelCompare>(std::move(compare)) : nullptr;
  if (FSorted) Sort();
}

TVantrelArrayList::~TVantrelArrayList() {
  Clear();
}

void TVantrelArrayList::SetCapacity(int capacity) {
  if (capacity < FCount || capacity >= MaxCapacity)
    throw EVantrelCollectionError(FormatText(FoundationTexts::ListCapacity, capacity));
  if (capacity == FCapacity) return;
  auto items =
      capacity > 0 ? std::make_unique_for_overwrite<TVantrelObject*[]>(static_cast<std::size_t>(capacity)) : nullptr;
  std::copy(begin(), end(), items.get());
  FItems = std::move(items);
  FCapacity = capacity;
}

void TVantrelArrayList::Grow() {
  int step = 4;
  if (FCapacity > 64)
    step = FCapacity / 4;
  else if (FCapacity > 8)
    step = 16;
  SetCapacity(FCapacity + step);
}

void TVantrelArrayList::Insert(int index, TVantrelObject* item) {
  CheckListIndex(index, FCount + 1);
  if (FCount == FCapacity) Grow();
  TVantrelObject** const place = FItems.get() + index;
  std::copy_backward(place, FItems.get() + FCount, FItems.get() + FCount + 1);
  *place = item;
  ++FCount;
}

TVantrelObject* TVantrelArrayList::Extract(int index) {
  CheckListIndex(index, FCount);
  TVantrelObject** const place = FItems.get() + index;
  TVantrelObject* const item = *place;
  std::copy(place + 1, FItems.get() + FCount, place);
  --FCount;
  return item;
}

// Each item is out of the list before it is freed, the others are still in: a destructor may look up and take out
// itself or another.
void TVantrelArrayList::Clear() {
  if (FItemOwner) {
    FCount = static_cast<int>(DropRepeatedItems(FItems.get(), FItems.get() + FCount) - FItems.get());
    std::reverse(FItems.get(), FItems.get() + FCount);
    while (FCount > 0) FreeItem(FItems[--FCount]);
  }
  FCount = 0;
  FCapacity = 0;
  FItems.reset();
}

int TVantrelArrayList::IndexOf(const TVantrelObject* item) const {
  const auto place = std::find(begin(), end(), item);
  return place == end() ? -1 : static_cast<int>(place - begin());
}

void TVantrelArrayList::Sort() {
  std::stable_sort(FItems.get(), FItems.get() + FCount,
                   [this](const TVantrelObject* a, const TVantrelObject* b) { return IsBelow(a, b); });
}
