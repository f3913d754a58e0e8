#include "VantrelRtti.h"

#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "PublishedObjects.h"

namespace {
TEST(ClassRtti, ListsInheritedPropertiesFirst) {
  const TVantrelClassRTTI rtti(TLeaf().ClassReference());
  EXPECT_EQ(&rtti.Class(), &TLeaf::Class);
  EXPECT_EQ(rtti.PropCount(), 11);
  EXPECT_EQ(rtti.GetPropertyIndex("SIDE"), 3);
  EXPECT_EQ(rtti.GetPropertyIndex("Weg"), -1);
  EXPECT_FALSE(rtti.IsPropertyPublished(""));
  EXPECT_TRUE(rtti.IsPropertyPublished("letter"));
  for (const TVantrelClassRTTI::TKey& key : {TVantrelClassRTTI::TKey(-1), {11}, {"Weg"}})
    EXPECT_EQ(ErrorOf<EVantrelRTTIError>([&] { rtti.Property(key); }), "Eigenschaft wurde nicht gefunden.");
  EXPECT_EQ(TVantrelClassRTTI(TVantrelObject().ClassReference()).PropCount(), 0);
}

TEST(ClassRtti, TellsTypes) {
  const TVantrelClassRTTI rtti(TLeaf().ClassReference());
  EXPECT_TRUE(rtti.IsPropertyReadable("Visible"));
  EXPECT_FALSE(rtti.IsPropertyWriteable("Visible"));
  EXPECT_TRUE(rtti.PropertyTypeHasName("Side", "tside"));
  EXPECT_EQ(rtti.GetPropertyOrdType("Tag"), TVantrelOrdType::otSWord);
  EXPECT_EQ(rtti.GetPropertyOrdMinValue("Tag"), -32768);
  EXPECT_EQ(rtti.GetPropertyOrdDefaultValue("Tag"), 7);
  EXPECT_EQ(rtti.GetPropertyOrdDefaultValue("Sides"), TVantrelProperty::NoDefault);
  EXPECT_EQ(rtti.GetPropertyOrdMaxValue("Sides"), 7);
  EXPECT_EQ(rtti.GetPropertyInt64MaxValue("Big"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(rtti.GetPropertyFloatType("Ratio"), TVantrelFloatType::ftSingle);
  EXPECT_EQ(rtti.GetPropertyClassType("Partner"), &TNode::Class);
  EXPECT_EQ(rtti.GetPropertyEnumName("Side", 2), "sdRight");
  EXPECT_EQ(rtti.GetPropertyEnumValue("Visible", "true"), 1);
  EXPECT_EQ(rtti.GetPropertyEnumValue("Side", "sdBottom"), -1);
  EXPECT_EQ(rtti.GetPropertySetEnumTypeName("Sides"), "TSide");
  EXPECT_EQ(rtti.GetPropertySetEnumValue("Sides", "sdTop"), 1);
  EXPECT_EQ(rtti.GetPropertySetEnumName("Sides", 2), "sdRight");
  EXPECT_EQ(rtti.GetPropertySetEnumTypeKind("Sides"), TVantrelTypeKind::tkEnumeration);
  EXPECT_EQ(rtti.GetPropertySetEnumOrdType("Sides"), TVantrelOrdType::otUByte);
  EXPECT_EQ(rtti.GetPropertySetEnumOrdMinValue("Sides"), 0);
  EXPECT_EQ(rtti.GetPropertySetEnumOrdMaxValue("Sides"), 2);
  EXPECT_EQ(rtti.GetPropertyTypeName(3), "TSide");
  EXPECT_EQ(rtti.GetPropertyInt64MinValue("Big"), std::numeric_limits<std::int64_t>::min());
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
  EXPECT_EQ(rtti.GetOrdProperty(1), leaf.Tag());
  EXPECT_EQ(rtti.GetEnumProperty("Visible"), "True");
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
}  // namespace
