#include "VantrelRegistry.h"

#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "VantrelTypes.h"

namespace {
TEST(ClassRegistry, MakesEveryTypedValueByItsName) {
  const char* names[] = {"Reference", "Binary",   "Bitmap",   "Icon",     "Boolean", "Char",       "SmallInt",
                         "ShortInt",  "LongInt",  "Int64",    "Byte",     "Word",    "LongWord",   "Single",
                         "Double",    "Extended", "Currency", "DateTime", "String",  "Utf8String", "Guid"};
  TVantrelClassRegistry registry;
  RegisterFoundationClasses(registry);
  int type = 0;
  for (const std::string name : names) {
    const TVantrelClass* const found = registry.GetClass("TVantrel" + name);
    ASSERT_NE(found, nullptr) << name;
    const auto value = found->Create();
    EXPECT_EQ(static_cast<int>(dynamic_cast<TVantrelType&>(*value).ValueType()), type++) << name;
  }
  for (const char* name : {"TVantrelHashMap", "TVantrelHashSet", "TVantrelArrayList", "TVantrelLinkedList"})
    EXPECT_NE(dynamic_cast<TVantrelPersistent*>(registry.GetClass(name)->Create().get()), nullptr);
}

TEST(ClassRegistry, KeepsTheFirstOfAName) {
  const TVantrelClass first{.Name = "TNode"}, second{.Name = "TNode"};
  TVantrelClassRegistry registry;
  registry.AddClass(first);
  registry.AddClass(second);
  EXPECT_EQ(registry.GetClass("TNode"), &first);
  registry.RemoveClass(first);
  EXPECT_FALSE(registry.ContainsClass(first));
  EXPECT_EQ(registry.GetClass("TNode"), nullptr);
  registry.RemoveClass(first);
}

TEST(ClassRegistry, ExistsOnce) {
  {
    const TVantrelClassRegistry registry;
    for (int i = 0; i < 2; ++i)
      EXPECT_EQ(ErrorOf<EVantrelSingletonError>([] { TVantrelClassRegistry(); }),
                "Eine zweite Instanz der Klasse \"TVantrelClassRegistry\" ist nicht erlaubt.");
  }
  EXPECT_NO_THROW(TVantrelClassRegistry());
}

TEST(StaticClass, HasNoInstance) {
  struct TNever : TVantrelStaticClass {
    TNever() : TVantrelStaticClass("TNever") {}
  };
  EXPECT_EQ(ErrorOf<EVantrelStaticClassError>([] { TNever(); }),
            "Eine Instanz der Klasse \"TNever\" darf nicht abgelegt werden.");
}
}  // namespace
