#include "VantrelRegistry.h"

#include <gtest/gtest.h>

#include "VantrelExceptions.h"
#include "VantrelTypes.h"

namespace {
TEST(ClassRegistry, FindsClassesByName) {
  TVantrelClassRegistry registry;
  RegisterFoundationClasses(registry);
  const TVantrelClass* const found = registry.GetClass("TVantrelLongInt");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(TVantrelLongInt().Equals(found->Create().get()));
  const TVantrelClass sameName{.Name = "TVantrelLongInt"};
  registry.AddClass(sameName);
  EXPECT_EQ(registry.GetClass("TVantrelLongInt"), found);
  registry.RemoveClass(*found);
  EXPECT_FALSE(registry.ContainsClass(*found));
  EXPECT_EQ(registry.GetClass("TVantrelLongInt"), nullptr);
  registry.RemoveClass(*found);
}

TEST(ClassRegistry, ExistsOnce) {
  {
    const TVantrelClassRegistry registry;
    EXPECT_THROW(TVantrelClassRegistry(), EVantrelSingletonError);
    EXPECT_THROW(TVantrelClassRegistry(), EVantrelSingletonError);
  }
  EXPECT_NO_THROW(TVantrelClassRegistry());
}
}  // namespace
