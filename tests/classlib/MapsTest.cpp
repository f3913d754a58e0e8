#include "VantrelMaps.h"

#include "Testing.h"
#include "VantrelSets.h"
#include "VantrelTypes.h"

namespace {
TEST(ElfHash, KnownValues) {
  TVantrelELFHash hash;
  EXPECT_EQ(hash.GetHash(), 0);
  hash.SetValue("a");
  EXPECT_EQ(hash.GetHash(), 0x61);
  EXPECT_EQ(TVantrelELFHash("printf").GetHash(), 0x077905A6);
  EXPECT_GE(ElfHash("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), 0);
}

TEST(HashMap, SizesOfBuckets) {
  const int cases[][3] = {{0, 1, 0}, {1, 1, 0}, {3, 4, 3}, {16, 16, 12}, {17, 32, 24}};
  for (const auto& [capacity, buckets, threshold] : cases) {
    const TVantrelHashMap map(capacity, 0.75, false, false);
    EXPECT_EQ(map.BucketCount(), buckets) << capacity;
    EXPECT_EQ(map.Threshold(), threshold) << capacity;
  }
  EXPECT_THROW(TVantrelHashMap(-1, 0.75, false, false), EVantrelMapError);
  EXPECT_THROW(TVantrelHashMap(16, 0, false, false), EVantrelMapError);
}

TEST(HashMap, ThirteenthEntryDoubles) {
  TVantrelHashMap map(false, true);
  for (std::int32_t key = 1; key <= 12; ++key) map.Put(key * 16, nullptr);
  EXPECT_EQ(map.BucketCount(), 16);
  map.Put(std::int32_t{12} * 16, nullptr);
  EXPECT_EQ(map.BucketCount(), 16);
  map.Put(std::int32_t{13} * 16, nullptr);
  EXPECT_EQ(std::tuple(map.BucketCount(), map.Threshold()), std::tuple(32, 24));
  for (std::int32_t key = 1; key <= 13; ++key) EXPECT_TRUE(map.ContainsKey(key * 16)) << key;
  EXPECT_FALSE(map.ContainsKey(std::int32_t{14} * 16));
}

TEST(HashMap, PlainValuesStandForKeyObjectsOfTheirClass) {
  const TGuid guid = GuidNamespaceDns();
  TVantrelString text("ein längerer Schlüssel"), other("x");
  TVantrelHashMap map(false, true);
  const auto check = [&](const auto& key, const TVantrelType& keyObject) {
    EXPECT_EQ(map.Put(key, &text), nullptr);
    EXPECT_EQ(map.Put(key, &other), &text);
    EXPECT_EQ(map.Get(key), &other);
    EXPECT_EQ(map.Remove(key), &other);
    EXPECT_EQ(map.Remove(key), nullptr);
    map.Put(key, &text);
    EXPECT_TRUE(map.ContainsKey(key) && map.ContainsKey(&keyObject));
  };
  check(std::string_view(text.Value()), text);
  check(guid, TVantrelGuid(guid));
  check(std::int32_t{7}, TVantrelLongInt(7));
  check(std::int64_t{7}, TVantrelInt64(7));
  EXPECT_FALSE(map.ContainsKey(GuidToText(guid)));
  EXPECT_THAT(map.Items(), ElementsAre(&text, &text, &text, &text));
}

TEST(HashMap, EqualKeyReplacesItemAndFreesNewKey) {
  TVantrelString first("1"), second("2");
  TVantrelHashMap map(false, true);
  auto* const key = new TVantrelString("k");
  EXPECT_EQ(map.Put(key, &first), nullptr);
  EXPECT_EQ(map.Put(new TVantrelString("k"), &second), &first);
  EXPECT_EQ(map.Put(key, &first), &second);
  EXPECT_EQ(map.Put(static_cast<TVantrelObject*>(nullptr), &second), nullptr);
  EXPECT_EQ(map.Get(static_cast<const TVantrelObject*>(nullptr)), &second);
  EXPECT_EQ(map.Count(), 2);
}

class TProbe final : public TVantrelObject {
 public:
  TProbe(int& freed, TVantrelHashMap& home, std::string key) : FFreed(freed), FHome(home), FKey(std::move(key)) {}
  ~TProbe() override {
    ++FFreed;
    FHome.Remove(FKey);
  }

 private:
  int& FFreed;
  TVantrelHashMap& FHome;
  std::string FKey;
};

TEST(HashMap, FreesRepeatedItemOnceAndSurvivesItemsThatTakeThemselvesOut) {
  int freed = 0;
  TVantrelHashMap map(true, true);
  for (const char* key : {"a", "b", "c"}) map.Put(key, new TProbe(freed, map, key));
  map.Put("d", map.Get("a"));
  auto* const itsOwnKey = new TVantrelString("e");
  map.Put(itsOwnKey, itsOwnKey);
  map.Clear();
  EXPECT_EQ(freed, 3);
  EXPECT_TRUE(map.IsEmpty() && !map.ContainsKey("d"));
}

TEST(HashSet, HoldsEqualItemsOnce) {
  TVantrelHashSet set;
  auto* const held = new TVantrelString("x");
  EXPECT_TRUE(set.Add(held) && !set.Add(held) && !set.Add(new TVantrelString("x")));
  EXPECT_TRUE(set.Add(new TVantrelUtf8String("x")));
  const TVantrelString wanted("x");
  EXPECT_TRUE(set.Contains(&wanted) && set.Items().size() == 2);
  EXPECT_EQ(set.Extract(&wanted), held);
  EXPECT_TRUE(!(set.Contains(&wanted) || set.Remove(&wanted)) && set.Add(held) && set.Remove(&wanted));
  EXPECT_EQ(set.Count(), 1);
}
}  // namespace
