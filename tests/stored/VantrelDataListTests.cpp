#include "TestDocument.h"
#include "Testing.h"
#include "VantrelMaps.h"

namespace {

struct DataListTest : testing::Test {
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
  const std::pair<const char*, std::function<void(TVantrelDataList&)>> cases[] = {
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
  EXPECT_TRUE(Refs().AddAll(Items()) && !Refs().Merge(Items()) && !Refs().InsertAll(0, Items()));
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
  EXPECT_EQ(std::tuple(Refs().Find(Item(3)->ID()), Refs().IndexOf(Item(0))), std::tuple(Item(3), -1));
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

TEST(DataObjects, IdentityAndClone) {
  auto document = CreateVantrel<TTestDocument>();
  auto& item = document->AddItem("a");
  const int known = document->Objects().Count();
  const auto clone = item.Clone();
  EXPECT_EQ(static_cast<const TTestItem&>(*clone).Name, "a");
  EXPECT_FALSE(clone->HasOwner());
  EXPECT_NE(clone->ID(), item.ID());
  EXPECT_EQ(document->Objects().Count(), known);
  EXPECT_TRUE(!clone->Equals(&item) && TOtherItem(item.ID()).Equals(&item) && !item.Equals(document.get()));
  EXPECT_EQ(item.GetHashCode(), ElfHash(GuidToText(item.ID())));
}

TEST(DataObjects, RegistryOfObjects) {
  auto document = CreateVantrel<TTestDocument>();
  auto& objects = document->Objects();
  auto& item = document->AddItem("a");
  EXPECT_EQ(objects.GetObject(item.ID()), &item);
  {
    const auto twin = CreateVantrel<TTestItem>(document.get(), item.ID());
    EXPECT_EQ(objects.GetObject(item.ID()), &item);
  }
  EXPECT_TRUE(objects.ContainsObject(item));
  const auto id = item.ID();
  document->Items->Clear();
  EXPECT_EQ(objects.GetObject(id), nullptr);
}

std::string EventLog;
void Log(int number) {
  EventLog += fmt::format(" {}", number);
}
void Log(const TVantrelDataList* list) {
  EventLog += fmt::format(" [{}]", list->Count());
}
void Log(const TVantrelAbstractDataObject* object) {
  const auto* named = dynamic_cast<const TTestItem*>(object);
  EventLog += fmt::format(" '{}'", named == nullptr ? "" : named->Name);
}
/// Logs each call with its arguments.
template <class... TArgs>
void Listen(const char* name, TVantrelMethodList<TVantrelDataStorage*, TArgs...>& event) {
  const auto code = [](void* data, TVantrelDataStorage*, TArgs... args) {
    EventLog += static_cast<const char*>(data);
    (Log(args), ...);
    EventLog += ";";
  };
  event.Add(code, const_cast<char*>(name));
}
std::string TakeLog() {
  return std::exchange(EventLog, {});
}

TEST(DataObjects, EventsInTheirOrder) {
  auto document = CreateVantrel<TTestDocument>();
  auto& observer = document->Observer();
  Listen("Insert", observer.ListInsert);
  Listen("Delete", observer.ListDelete);
  Listen("ListClear", observer.ListClear);
  Listen("Sort", observer.ListSort);
  Listen("Move", observer.ListMove);
  Listen("Create", observer.ObjectCreate);
  Listen("Destroy", observer.ObjectDestroy);
  Listen("Update", observer.ObjectUpdate);
  Listen("Load", observer.StorageLoad);
  Listen("Save", observer.StorageSave);
  Listen("Clear", observer.StorageClear);
  auto& item = document->AddItem("x");
  EXPECT_EQ(TakeLog(), "Create '';Insert '' 0 [1];Update '';");
  item.Changed();
  EXPECT_EQ(TakeLog(), "Update 'x';");
  document->Items->Move(0, 0);
  document->Items->Sort();
  EXPECT_EQ(TakeLog(), "Move [1] 0 0;Update '';Sort [1];Update '';");
  TTestItem::Removed = 0;
  document->Items->Delete(0);
  EXPECT_EQ(TTestItem::Removed, 1);
  EXPECT_EQ(TakeLog(), "Delete 'x' 0 [1];Destroy 'x';Update '';");
  document->AddItem("y");
  TakeLog();
  const TVantrelPtr<TVantrelDataObject> extracted(document->Items->Extract(0));
  document->Items->Clear();
  EXPECT_EQ(TakeLog(), "Update '';");
  document->AddItem("w");
  TakeLog();
  document->Items->TakeOut(0).reset();
  EXPECT_EQ(TakeLog(), "Delete 'w' 0 [1];Update '';Destroy 'w';");
  TTestItem::Removed = 1;
  document->AddItem("z");
  TakeLog();
  document->Clear();
  EXPECT_EQ(TakeLog(), "ListClear [1];Destroy 'z';Update '';Clear;");
  EXPECT_EQ(TTestItem::Removed, 1);
  LoadText(*document, TextOf(*document, TFormat::dsfBinary), TFormat::dsfBinary);
  EXPECT_EQ(TakeLog(), "Save;Load;");
}

}  // namespace
