#include "VantrelSets.h"

TVantrelHashSet::~TVantrelHashSet() {
  TVantrelHashSet::Clear();
}

bool TVantrelHashSet::Add(TVantrelObject* item) {
  if (!FMap.ContainsKey(item)) {
    FMap.Put(item, item);
    return true;
  }
  if (FMap.Get(item) != item) FreeItem(item);
  return false;
}

bool TVantrelHashSet::Remove(const TVantrelObject* item) {
  if (!FMap.ContainsKey(item)) return false;
  FreeItem(FMap.Remove(item));
  return true;
}

void TVantrelHashSet::Clear() {
  FMap.SetKeyOwner(FItemOwner);
  FMap.Clear();
  FMap.SetKeyOwner(false);
}
