#include "VantrelRtti.h"

#include "PublishedObjects.h"
#include "Testing.h"
#include "VantrelRegistry.h"
#include "VantrelTypes.h"

TEST(ClassRtti, ListsInheritedPropertiesFirst) {
  const TVantrelClassRTTI rtti(*TLeaf().ClassReference());
  EXPECT_EQ(&rtti.Class(), &TLeaf::Class);
  EXPECT_EQ(std::tuple(rtti.PropCount(), rtti.GetPropertyIndex("SIDE")), std::tuple(11, 3));
  EXPECT_EQ(rtti.GetPropertyIndex("Weg"), -1);
  EXPECT_TRUE(!rtti.IsPropertyPublished("") && rtti.IsPropertyPublished("letter"));
  for (const TVantrelClassRTTI::TKey& key : {TVantrelClassRTTI::TKey(-1), {11}, {"Weg"}})
    EXPECT_EQ(ErrorOf<EVantrelRTTIError>([&] { rtti.Property(key); }), "Eigenschaft wurde nicht gefunden.");
  EXPECT_EQ(TVantrelClassRTTI(ClassOf(TVantrelObject())).PropCount(), 0);
}

TEST(ClassRtti, TellsTypes) {
  const TVantrelClassRTTI rtti(*TLeaf().ClassReference());
  EXPECT_TRUE(rtti.IsPropertyReadable("Visible") && !rtti.IsPropertyWriteable("Visible"));
  EXPECT_TRUE(rtti.PropertyTypeHasName("Side", "tside"));
  EXPECT_EQ(rtti.GetPropertyOrdType("Tag"), TVantrelOrdType::otSWord);
  EXPECT_EQ(rtti.GetPropertyOrdDefaultValue("Sides"), TVantrelProperty::NoDefault);
  const std::pair<std::int64_t, std::int64_t> numbers[] = {
      {rtti.GetPropertyOrdMinValue("Tag"), -32768},        {rtti.GetPropertyOrdDefaultValue("Tag"), 7},
      {rtti.GetPropertyOrdMaxValue("Sides"), 7},           {rtti.GetPropertyInt64MinValue("Big"), INT64_MIN},
      {rtti.GetPropertyInt64MaxValue("Big"), INT64_MAX},   {rtti.GetPropertyEnumValue("Visible", "true"), 1},
      {rtti.GetPropertyEnumValue("Side", "sdBottom"), -1}, {rtti.GetPropertySetEnumValue("Sides", "sdTop"), 1},
      {rtti.GetPropertySetEnumOrdMinValue("Sides"), 0},    {rtti.GetPropertySetEnumOrdMaxValue("Sides"), 2}};
  for (const auto& [value, expected] : numbers) EXPECT_EQ(value, expected);
  EXPECT_EQ(rtti.GetPropertyFloatType("Ratio"), TVantrelFloatType::ftSingle);
  EXPECT_EQ(rtti.GetPropertyClassType("Partner"), &TNode::Class);
  for (const auto& name : {rtti.GetPropertyEnumName("Side", 2), rtti.GetPropertySetEnumName("Sides", 2)})
    EXPECT_EQ(name, "sdRight");
  for (const auto& name : {rtti.GetPropertySetEnumTypeName("Sides"), rtti.GetPropertyTypeName(3)})
    EXPECT_EQ(name, "TSide");
  EXPECT_EQ(rtti.GetPropertySetEnumTypeKind("Sides"), TVantrelTypeKind::tkEnumeration);
  EXPECT_EQ(rtti.GetPropertySetEnumOrdType("Sides"), TVantrelOrdType::otUByte);
  EXPECT_THROW(rtti.GetPropertyEnumName("Side", 3), EVantrelRTTIError);
  EXPECT_THROW(rtti.GetPropertyFloatType("Tag"), EVantrelRTTIError);
  EXPECT_THROW(rtti.GetPropertyOrdType("Big"), EVantrelRTTIError);
}

TEST(InstanceRtti, ReadsAndWritesEveryKind) {
  TLeaf leaf;
  TNode node;
  TPort port;
  TVantrelInstanceRTTI rtti(leaf);
  EXPECT_EQ(rtti.GetPropertyName(0), "Caption");
  rtti.SetWideStringProperty(0, u"Grün");
  EXPECT_EQ(rtti.GetStringProperty("caption"), "Grün");
  EXPECT_EQ(rtti.GetWideStringProperty("Caption"), u"Grün");
  rtti.SetAnsiStringProperty("Caption", "Gr\xFC\xDF");
  EXPECT_EQ(leaf.Caption(), "Grüß");
  EXPECT_EQ(rtti.GetAnsiStringProperty("Caption"), "Gr\xFC\xDF");
  rtti.SetOrdProperty("Tag", -32768);
  EXPECT_EQ(std::tuple(rtti.GetOrdProperty(1), rtti.GetEnumProperty("Visible")), std::tuple(leaf.Tag(), "True"));
  rtti.SetEnumProperty("Side", "SDTOP");
  EXPECT_EQ(leaf.Side(), TSide::sdTop);
  rtti.SetSetProperty("Sides", "[sdRight, sdLeft]");
  EXPECT_EQ(rtti.GetSetProperty("Sides"), "sdLeft,sdRight");
  rtti.SetSetProperty("Sides", "");
  EXPECT_EQ(rtti.GetSetProperty("Sides"), "");
  rtti.SetInt64Property("Big", -5000000000);
  EXPECT_EQ(rtti.GetInt64Property("Big"), leaf.Big());
  rtti.SetFloatProperty("Ratio", 0.5);
  EXPECT_EQ(rtti.GetFloatProperty("Ratio"), 0.5);
  rtti.SetObjectProperty("Partner", &node);
  EXPECT_EQ(rtti.GetObjectProperty("Partner"), &node);
  rtti.SetInterfaceProperty("Port", &port);
  EXPECT_EQ(rtti.GetInterfaceProperty("Port"), &port);
  rtti.SetVariantProperty("Value", TVariant(3));
  EXPECT_EQ(rtti.GetVariantProperty("Value"), leaf.Value());
}

TEST(InstanceRtti, RefusesWhatDoesNotGoWithTheProperty) {
  TLeaf leaf;
  TVantrelObject stranger;
  TVantrelInstanceRTTI rtti(leaf);
  EXPECT_THROW(rtti.SetOrdProperty("Tag", 32768), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetOrdProperty("Visible", 1), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetEnumProperty("Side", "sdBottom"), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetSetProperty("Sides", "sdTop,sdBottom"), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetSetProperty("Tag", ""), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetStringProperty("Tag", "1"), EVantrelRTTIError);
  EXPECT_THROW(rtti.GetStringProperty("Ratio"), EVantrelRTTIError);
  EXPECT_THROW(rtti.SetObjectProperty("Partner", &stranger), EVantrelRTTIError);
}

TEST(ClassRegistry, MakesEveryTypedValueByItsName) {
  const char* names[] = {"Reference", "Binary",   "Bitmap",   "Icon",     "Boolean", "Char",       "SmallInt",
                         "ShortInt",  "LongInt",  "Int64",    "Byte",     "Word",    "LongWord",   "Single",
                         "Double",    "Extended", "Currency", "DateTime", "String",  "Utf8String", "Guid"};
  TVantrelClassRegistry registry;
  RegisterLibraryClasses(registry);
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