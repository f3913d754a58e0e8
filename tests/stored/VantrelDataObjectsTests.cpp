#include <gtest/gtest.h>

#include "TestDocument.h"
#include "VantrelMaps.h"

namespace {

TEST(DataObjects, OwnerChain) {
  auto document = CreateVantrel<TTestDocument>();
  auto& item = document->AddItem("a");
  auto& child = *static_cast<TTestItem*>(item.Children->Add(TTestItem::Class()));
  EXPECT_EQ(child.GetRootOwner(), document.get());
  EXPECT_EQ(child.GetStorage(), document.get());
  EXPECT_EQ(document->GetRootOwner(), nullptr);
  EXPECT_FALSE(document->HasStorage());
  EXPECT_TRUE(item.IsOwnerOf(&child));
  EXPECT_FALSE(item.IsOwnerOf(&item));
  EXPECT_FALSE(item.IsOwnerOf(nullptr));
  EXPECT_FALSE(child.IsOwnerOf(&item));
  EXPECT_TRUE(item.IsOwnerOfOrHasSameOwner(&document->AddItem("b")));
  EXPECT_FALSE(child.IsOwnerOfOrHasSameOwner(&item));
  TTestItem loose;
  EXPECT_EQ(loose.GetRootOwner(), nullptr);
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
  EXPECT_FALSE(clone->Equals(&item));
  EXPECT_TRUE(TOtherItem(item.ID()).Equals(&item));
  EXPECT_FALSE(item.Equals(document.get()));
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

TEST(DataObjects, RegistryOfClassesGoesByKindOfDocument) {
  auto& registry = TVantrelDataClassRegistry::Instance();
  TTestDocument::RegisterClasses();
  TTestDocument::RegisterClasses();
  EXPECT_EQ(registry.GetClass("TTestDocument", "TTestItem"), &TTestItem::Class());
  EXPECT_EQ(registry.GetClass("TOtherDocument", "TTestItem"), nullptr);
  registry.RemoveClass("TTestDocument", TTestItem::Class());
  EXPECT_FALSE(registry.ContainsClass("TTestDocument", TTestItem::Class()));
  TTestDocument::RegisterClasses();
}

/// Every event with its arguments in one line each.
class TListener {
 public:
  explicit TListener(TTestDocument& document) {
    auto& observer = document.Observer();
    const auto item = [](auto& event, auto code) { event.Add(code, nullptr); };
    FLog.clear();
    item(observer.ListInsert,
         [](void*, auto*, auto* object, int index, auto* list) { Put("ListInsert", object, index, list->Count()); });
    item(observer.ListDelete,
         [](void*, auto*, auto* object, int index, auto* list) { Put("ListDelete", object, index, list->Count()); });
    item(observer.ListClear, [](void*, auto*, auto* list) { Put("ListClear", nullptr, list->Count(), 0); });
    item(observer.ListSort, [](void*, auto*, auto* list) { Put("ListSort", nullptr, list->Count(), 0); });
    item(observer.ListMove, [](void*, auto*, auto*, int from, int to) { Put("ListMove", nullptr, from, to); });
    item(observer.ObjectCreate, [](void*, auto*, auto* object) { Put("ObjectCreate", object, 0, 0); });
    item(observer.ObjectDestroy, [](void*, auto*, auto* object) { Put("ObjectDestroy", object, 0, 0); });
    item(observer.ObjectUpdate, [](void*, auto*, auto* object) { Put("ObjectUpdate", object, 0, 0); });
    item(observer.StorageLoad, [](void*, auto* storage) { Put("StorageLoad", nullptr, storage->Modified(), 0); });
    item(observer.StorageSave, [](void*, auto*) { Put("StorageSave", nullptr, 0, 0); });
    item(observer.StorageSaveAs, [](void*, auto*) { Put("StorageSaveAs", nullptr, 0, 0); });
    item(observer.StorageClear, [](void*, auto*) { Put("StorageClear", nullptr, 0, 0); });
  }
  static std::string Take() { return std::exchange(FLog, {}); }

 private:
  static void Put(const char* event, const TVantrelAbstractDataObject* object, int a, int b) {
    const auto* named = dynamic_cast<const TTestItem*>(object);
    FLog +=
        std::string(event) + "(" + (named == nullptr ? "" : named->Name) + std::to_string(a) + std::to_string(b) + ")";
  }
  static inline std::string FLog;
};

TEST(DataObjects, EventsInTheirOrder) {
  auto document = CreateVantrel<TTestDocument>();
  const TListener listener(*document);
  auto& item = document->AddItem("x");
  EXPECT_EQ(TListener::Take(), "ObjectCreate(00)ListInsert(01)ObjectUpdate(00)");
  item.Changed();
  EXPECT_EQ(TListener::Take(), "ObjectUpdate(x00)");
  document->Items->Move(0, 0);
  document->Items->Sort();
  EXPECT_EQ(TListener::Take(), "ListMove(00)ObjectUpdate(00)ListSort(10)ObjectUpdate(00)");
  TTestItem::Removed = 0;
  document->Items->Delete(0);
  EXPECT_EQ(TTestItem::Removed, 1);
  EXPECT_EQ(TListener::Take(), "ListDelete(x01)ObjectDestroy(x00)ObjectUpdate(00)");
  document->AddItem("y");
  TListener::Take();
  const TVantrelPtr<TVantrelDataObject> extracted(document->Items->Extract(0));
  EXPECT_EQ(TListener::Take(), "ObjectUpdate(00)");
  document->Items->Clear();
  EXPECT_EQ(TListener::Take(), "");
  document->AddItem("z");
  TListener::Take();
  TTestItem::Removed = 0;
  document->Clear();
  EXPECT_EQ(TListener::Take(), "ListClear(10)ObjectDestroy(z00)ObjectUpdate(00)StorageClear(00)");
  EXPECT_EQ(TTestItem::Removed, 0);
  LoadText(*document, TextOf(*document, TFormat::dsfBinary), TFormat::dsfBinary);
  EXPECT_EQ(TListener::Take(), "StorageSave(00)StorageLoad(00)");
}

TEST(DataObjects, MethodListTellsCodeAndDataApart) {
  TVantrelMethodList<int> list;
  int sums[2] = {};
  const auto add = [](void* data, int value) { *static_cast<int*>(data) += value; };
  for (auto* sum : {&sums[0], &sums[1], &sums[0]}) list.Add(add, sum);
  list.Call(3);
  EXPECT_EQ(sums[0], 6);
  EXPECT_EQ(list.IndexOf(add, &sums[1]), 1);
  list.Remove(add, &sums[0]);
  EXPECT_EQ(list.IndexOf(add, &sums[0]), 1);
  list.Delete(0);
  EXPECT_FALSE(list.Contains(add, &sums[1]));
  EXPECT_EQ(list.GetItem(0).second, &sums[0]);
  list.Clear();
  list.Call(3);
  EXPECT_EQ(sums[0], 6);
}

}  // namespace
