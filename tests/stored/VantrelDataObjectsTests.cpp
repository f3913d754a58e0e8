#include <fmt/format.h>
#include <gtest/gtest.h>

#include "TestDocument.h"
#include "VantrelMaps.h"

namespace {

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
  document->AddItem("z");
  TakeLog();
  document->Clear();
  EXPECT_EQ(TakeLog(), "ListClear [1];Destroy 'z';Update '';Clear;");
  EXPECT_EQ(TTestItem::Removed, 1);
  LoadText(*document, TextOf(*document, TFormat::dsfBinary), TFormat::dsfBinary);
  EXPECT_EQ(TakeLog(), "Save;Load;");
}

}  // namespace
