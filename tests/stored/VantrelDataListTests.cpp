#include <gtest/gtest.h>

#include "TestDocument.h"
#include "VantrelExceptions.h"

namespace {

class DataListTest : public testing::Test {
 protected:
  void SetUp() override {
    TTestItem::Alive = 0;
    for (const char* name : {"A", "B", "C", "D", "E"}) FDocument->AddItem(name);
  }
  void TearDown() override {
    FDocument.reset();
    EXPECT_EQ(TTestItem::Alive, 0);
  }

  TVantrelDataList& Items() { return *FDocument->Items; }
  TVantrelDataList& Refs() { return *FDocument->Refs; }
  TTestItem* Item(int index) { return static_cast<TTestItem*>(Items().GetItem(index)); }
  static std::string Names(const TVantrelDataList& list) {
    std::string names;
    for (int i = 0; i < list.Count(); ++i) names += static_cast<TTestItem*>(list.GetItem(i))->Name;
    return names;
  }

  TVantrelPtr<TTestDocument> FDocument = CreateVantrel<TTestDocument>();
};

TEST_F(DataListTest, OrderAfterMovesAndChanges) {
  const struct {
    const char* Expected;
    std::function<void(TVantrelDataList&)> Change;
  } cases[] = {
      {"BCADE", [](auto& list) { list.Move(0, 2); }},
      {"EABCD", [](auto& list) { list.MoveToFirstIndex(4); }},
      {"BCDEA", [](auto& list) { list.MoveToLastIndex(list.First()); }},
      {"BACDE", [](auto& list) { list.MoveToPrevIndex(1); }},
      {"ACBDE", [](auto& list) { list.MoveToNextIndex(list.GetItem(1)); }},
      {"ADCBE", [](auto& list) { list.Swap(1, 3); }},
      {"ADCBE", [](auto& list) { list.Swap(3, 1); }},
      {"ABCDE", [](auto& list) { list.Swap(2, 2); }},
      {"ABDE", [](auto& list) { list.Delete(list.GetItem(2)->ID()); }},
      {"ABCDE", [](auto& list) { list.Delete(NewGuid()); }},
      {"ABCDE", [](auto& list) { list.Insert(0, list.Last()); }},
      {"ABCD", [](auto& list) { list.Remove(list.Last()); }},
      {"ABCD", [](auto& list) { list.Exchange(4, list.First()); }},
      {"ABCDE", [](auto& list) { list.Exchange(1, list.GetItem(1)); }},
      {"ABCDE", [](auto& list) { list.Exchange(list.First(), list.First()); }},
      {"EDCBA",
       [](auto& list) {
         list.SetCompare([](const auto& a, const auto& b) { return b.Compare(a); });
         list.Sort();
       }},
      {"", [](auto& list) { list.Clear(); }},
  };
  for (const auto& [expected, change] : cases) {
    TearDown();
    FDocument = CreateVantrel<TTestDocument>();
    SetUp();
    FDocument->SetModifiedFlag(false);
    change(Items());
    EXPECT_EQ(Names(Items()), expected);
    EXPECT_EQ(FDocument->Modified(), std::string_view(expected) != "ABCDE") << expected;
  }
  EXPECT_THROW(Items().MoveToPrevIndex(0), EVantrelCollectionError);
  EXPECT_EQ(Items().First(), nullptr);
}

TEST_F(DataListTest, SetOperationsGoByGuid) {
  EXPECT_TRUE(Refs().AddAll(Items()));
  EXPECT_FALSE(Refs().Merge(Items()));
  EXPECT_FALSE(Refs().InsertAll(0, Items()));
  EXPECT_EQ(Refs().Add(Item(0)), 5);
  EXPECT_EQ(Refs().Add(static_cast<TVantrelDataObject*>(nullptr)), -1);
  EXPECT_EQ(Names(Refs()), "ABCDEA");

  TVantrelDataList some;
  some.Add(Item(1));
  some.Add(Item(3));
  EXPECT_TRUE(Refs().RemoveAll(some));
  EXPECT_EQ(Names(Refs()), "ACEA");
  EXPECT_FALSE(Refs().RemoveAll(some));
  Refs().InsertAll(1, some);
  EXPECT_EQ(Names(Refs()), "ABDCEA");
  some.Clear();
  for (const int index : {1, 4, 3}) some.Add(Item(index));
  TVantrelDataList others;
  others.Add(Item(1));
  EXPECT_TRUE(others.InsertAll(0, some));
  EXPECT_EQ(Names(others), "EDB");
  some.Delete(1);
  EXPECT_TRUE(Refs().RetainAll(some));
  EXPECT_EQ(Names(Refs()), "BD");
  EXPECT_EQ(Refs().Find(Item(3)->ID()), Item(3));
  EXPECT_EQ(Refs().IndexOf(Item(0)), -1);
  EXPECT_FALSE(Refs().Contains(nullptr));
}

TEST_F(DataListTest, AssignOfReferencesKeepsOnlyWhatStandsFirstInTheSource) {
  Refs().AddAll(Items());
  TVantrelDataList source;
  for (const int index : {2, 4}) source.Add(Item(index));
  Refs().Assign(source);
  EXPECT_EQ(Names(Refs()), "CE");
  Refs().Clear();
  for (const int index : {1, 2}) Refs().Add(Item(index));
  Refs().Assign(source);
  EXPECT_EQ(Names(Refs()), "CE");
  source.Move(0, 1);
  source.Add(Item(0));
  Refs().Assign(source);
  EXPECT_EQ(Names(Refs()), "ECA");
}

TEST_F(DataListTest, OwnershipAndExtraction) {
  TVantrelDataList copies(FDocument.get(), true);
  copies.Assign(Items());
  EXPECT_EQ(Names(copies), "ABCDE");
  EXPECT_NE(copies.GetItem(0)->ID(), Item(0)->ID());
  EXPECT_EQ(copies.GetItem(0)->Owner(), &copies);
  copies.Clear();
  Refs().AddAll(Items());
  Refs().Delete(0);
  EXPECT_EQ(TTestItem::Alive, 5);
  TVantrelPtr<TVantrelDataObject> taken(Items().Extract(Item(1)));
  EXPECT_EQ(Items().Extract(9), nullptr);
  EXPECT_EQ(Items().Extract(NewGuid()), nullptr);
  EXPECT_EQ(Names(Items()), "ACDE");
  EXPECT_EQ(TTestItem::Alive, 5);
  auto* last = Item(3);
  last->Extract();
  EXPECT_EQ(Items().Count(), 3);
  TVantrelDeleter()(last);
}

/// An item in several entries is freed with the last of them, whichever list goes first.
TEST_F(DataListTest, ItemInTwoOwningListsIsFreedOnce) {
  auto* shared = Item(0)->Children->Add(TTestItem::Class());
  Item(1)->Children->Add(shared);
  Item(1)->Children->Add(shared);
  Items().Add(Item(2));
  EXPECT_EQ(TTestItem::Alive, 6);
  Item(1)->Children->Delete(0);
  EXPECT_EQ(shared->Owner(), Item(1)->Children.get());
  Items().Delete(1);
  EXPECT_EQ(TTestItem::Alive, 5);
  EXPECT_EQ(shared->GetStorage(), FDocument.get());

  auto* extracted = Item(3)->Children->Add(TTestItem::Class());
  Item(0)->Children->Add(extracted);
  Item(0)->Children->Extract(extracted);
  EXPECT_EQ(extracted->GetStorage(), FDocument.get());
  Items().Delete(0);
  EXPECT_EQ(TTestItem::Alive, 4);
}

TEST_F(DataListTest, RefusesUnsuitableItems) {
  TVantrelDataListOf<TTestItem> typed(true);
  EXPECT_THROW(typed.Add(TOtherItem::Class()), EVantrelCollectionError);
  EXPECT_THROW(Item(0)->Children->Add(Item(0)), EVantrelCollectionError);
  EXPECT_THROW(Items().GetItem(5), EVantrelCollectionError);
  auto& listeners = FDocument->Observer().ListClear;
  listeners.Add([](void*, TVantrelDataStorage*, TVantrelDataList*) {}, nullptr);
  for (const int index : {-1, 1}) {
    EXPECT_THROW(listeners.GetItem(index), EVantrelCollectionError);
    EXPECT_THROW(listeners.Delete(index), EVantrelCollectionError);
  }
  listeners.Delete(0);
}

}  // namespace
