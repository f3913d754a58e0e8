#pragma once

#include <list>

#include "VantrelLists.h"

/// Base of the lists that are walked from item to item.
class TVantrelAbstractSequencedList : public TVantrelAbstractList {
 public:
  using TVantrelAbstractList::TVantrelAbstractList;

  /// Both raise EVantrelCollectionError for an empty list.
  TVantrelObject* First() const;
  TVantrelObject* Last() const;
};

/// A doubly linked list of objects.
class TVantrelLinkedList final : public TVantrelAbstractSequencedList {
 public:
  explicit TVantrelLinkedList(bool itemOwner = true) : TVantrelAbstractSequencedList(itemOwner) {}
  ~TVantrelLinkedList() override;

  int Count() const override { return static_cast<int>(FItems.size()); }
  TVantrelObject* Get(int index) const override;
  void Insert(int index, TVantrelObject* item) override;
  TVantrelObject* Extract(int index) override;
  void Clear() override;
  int IndexOf(const TVantrelObject* item) const override;
  void Sort() override;

  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }

 private:
  std::list<TVantrelObject*> FItems;
};
