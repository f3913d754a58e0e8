#include "VantrelLinkedLists.h"

#include "Testing.h"
#include "VantrelTypes.h"

namespace {

class TProbe final : public TVantrelObject {
 public:
  TProbe(int number, std::vector<int>& freed, TVantrelAbstractList* home = nullptr)
      : FNumber(number), FFreed(freed), FHome(home) {}
  ~TProbe() override {
    FFreed.push_back(FNumber);
    if (FHome != nullptr && FHome->Contains(this)) FHome->Extract(FHome->IndexOf(this));
    if (FHome != nullptr && FPartner != nullptr) FHome->Remove(FPartner);
  }
  int Compare(const TVantrelObject& other) const override {
    return FNumber / 10 - static_cast<const TProbe&>(other).FNumber / 10;
  }
  void SetPartner(TProbe* partner) { FPartner = partner; }
  int Number() const { return FNumber; }

 private:
  int FNumber;
  std::vector<int>& FFreed;
  TVantrelAbstractList* FHome;
  TProbe* FPartner = nullptr;
};

template <class TList>
struct Lists : ::testing::Test {
  TProbe* New(int number, TVantrelAbstractList* home = nullptr) {
    return CreateVantrel<TProbe>(number, FFreed, home).release();
  }
  void Fill(TVantrelAbstractList& list, std::initializer_list<int> numbers) {
    for (const int number : numbers) list.Add(New(number));
  }
  static std::vector<int> Numbers(const TList& list) {
    std::vector<int> numbers;
    for (const TVantrelObject* item : list) numbers.push_back(static_cast<const TProbe*>(item)->Number());
    return numbers;
  }

  std::vector<int> FFreed;
};
using TListTypes = ::testing::Types<TVantrelArrayList, TVantrelLinkedList>;
TYPED_TEST_SUITE(Lists, TListTypes);

TYPED_TEST(Lists, InsertsMovesAndTakesOut) {
  TypeParam list;
  this->Fill(list, {1, 2, 3, 4, 5});
  list.Insert(0, this->New(0));
  list.Insert(6, this->New(6));
  list.Move(1, 5);
  list.Move(6, 0);
  EXPECT_THAT(this->Numbers(list), ElementsAre(6, 0, 2, 3, 4, 5, 1));
  for (int i = 0; i < list.Count(); ++i) EXPECT_EQ(list.IndexOf(list.Get(i)), i);
  list.Delete(6);
  const TVantrelPtr<TVantrelObject> extracted(list.Extract(2));
  EXPECT_THAT(this->Numbers(list), ElementsAre(6, 0, 3, 4, 5));
  EXPECT_THAT(this->FFreed, ElementsAre(1));
  EXPECT_FALSE(list.Remove(extracted.get()));
}

TYPED_TEST(Lists, RefusesIndexOutside) {
  TypeParam list;
  this->Fill(list, {1, 2});
  for (const int index : {-1, 2}) {
    EXPECT_THROW(list.Get(index), EVantrelCollectionError);
    EXPECT_THROW(list.Delete(index), EVantrelCollectionError);
    EXPECT_THROW(list.Move(0, index), EVantrelCollectionError);
  }
  EXPECT_EQ(ErrorOf<EVantrelCollectionError>([&] { list.Insert(3, nullptr); }),
            "Listenindex überschreitet das Maximum (3)");
}

TYPED_TEST(Lists, SortsStablyAndKeepsSorted) {
  TypeParam list;
  this->Fill(list, {31, 10, 32, 11, 20});
  list.SetSorted(true);
  EXPECT_EQ(list.Add(this->New(12)), 2);
  EXPECT_THAT(this->Numbers(list), ElementsAre(10, 11, 12, 20, 31, 32));
  list.SetCompare([](const TVantrelObject& a, const TVantrelObject& b) { return b.Compare(a); });
  EXPECT_THAT(this->Numbers(list), ElementsAre(31, 32, 20, 10, 11, 12));
}

TYPED_TEST(Lists, DuplicatesAreIgnoredOrRefused) {
  TypeParam list;
  this->Fill(list, {10, 20});
  list.SetDuplicates(TVantrelDuplicates::dupIgnore);
  EXPECT_EQ(list.Add(list.Get(1)), 1);
  list.SetSorted(true);
  TProbe equal(21, this->FFreed);
  EXPECT_EQ(list.Add(&equal), 1);
  list.SetDuplicates(TVantrelDuplicates::dupError);
  EXPECT_THROW(list.Add(&equal), EVantrelCollectionError);
  EXPECT_EQ(list.Count(), 2);
}

TYPED_TEST(Lists, FreesRepeatedItemOnceWithItsLastPlace) {
  {
    TypeParam list;
    this->Fill(list, {1, 2, 3});
    for (int i = 0; i < 3; ++i) list.Add(list.Get(i));
    list.Delete(0);
    EXPECT_TRUE(this->FFreed.empty());
    list.Delete(2);
    EXPECT_THAT(this->FFreed, ElementsAre(1));
  }
  EXPECT_THAT(this->FFreed, ElementsAre(1, 2, 3));
}

TYPED_TEST(Lists, ClearSurvivesItemsThatTakeThemselvesAndOthersOut) {
  TypeParam list;
  for (const int number : {1, 2, 3}) list.Add(this->New(number, &list));
  static_cast<TProbe*>(list.Get(0))->SetPartner(static_cast<TProbe*>(list.Get(2)));
  list.Clear();
  EXPECT_THAT(this->FFreed, ElementsAre(1, 3, 2));
  EXPECT_TRUE(list.IsEmpty());
}

TEST(LinkedList, AnEmptyOneHasNoEnds) {
  TVantrelLinkedList list;
  EXPECT_THROW(list.First(), EVantrelCollectionError);
  EXPECT_THROW(list.Last(), EVantrelCollectionError);
  for (const char* text : {"a", "b"}) list.Add(new TVantrelString(text));
  EXPECT_TRUE(list.First() == list.Get(0) && list.Last() == list.Get(1));
}

TEST(ArrayList, GrowsBySteps) {
  TVantrelArrayList list(false);
  std::vector<int> capacities;
  for (int i = 0; i < 100; ++i) {
    list.Add(nullptr);
    if (capacities.empty() || capacities.back() != list.Capacity()) capacities.push_back(list.Capacity());
  }
  EXPECT_THAT(capacities, ElementsAre(4, 8, 12, 28, 44, 60, 76, 95, 118));
  for (const int capacity : {99, 1 << 27}) EXPECT_THROW(list.SetCapacity(capacity), EVantrelCollectionError);
  EXPECT_LE(sizeof list, 40U);
}

}  // namespace
