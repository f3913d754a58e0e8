#include "VantrelRtti.h"

#include <gtest/gtest.h>

#include "VantrelExceptions.h"
#include "VantrelPublished.h"

namespace {
enum class TSide : std::uint8_t { sdLeft, sdTop, sdRight };
constexpr std::string_view SideNames[] = {"sdLeft", "sdTop", "sdRight"};
constexpr TVantrelTypeInfo SideType = EnumTypeInfo("TSide", SideNames);
constexpr TVantrelTypeInfo SidesType = SetTypeInfo("TSides", SideType);
constexpr TVantrelTypeInfo PortType = InterfaceTypeInfo("IPort");
struct TPort {};

class TNode : public TVantrelObject {
 public:
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& value) { FCaption = value; }
  std::int16_t Tag() const { return FTag; }
  void SetTag(std::int16_t value) { FTag = value; }
  bool Visible() const { return FTag != 0; }
  const TVantrelClass& ClassReference() const override;
  static const TVantrelClass Class;

 private:
  std::string FCaption;
  std::int16_t FTag = 0;
};

constexpr TVantrelProperty NodeProperties[] = {
    Published<&TNode::Caption, &TNode::SetCaption>("Caption"),
    Published<&TNode::Tag, &TNode::SetTag>("Tag", 7),
    Published<&TNode::Visible>("Visible"),
};
constexpr TVantrelClass TNode::Class{.Name = "TNode", .Properties = NodeProperties};
const TVantrelClass& TNode::ClassReference() const {
  return Class;
}
constexpr TVantrelTypeInfo NodeType = ClassTypeInfo(TNode::Class);

/// A field with the pair of operations that publish it.
#define PUBLISHED(Type, Name)  \
  Type Name() const {          \
    return F##Name;            \
  }                            \
  void Set##Name(Type value) { \
    F##Name = value;           \
  }                            \
  Type F##Name {}

class TLeaf final : public TNode {
 public:
  PUBLISHED(TSide, Side);
  PUBLISHED(std::uint8_t, Sides);
  PUBLISHED(std::int64_t, Big);
  PUBLISHED(float, Ratio);
  PUBLISHED(TNode*, Partner);
  PUBLISHED(TPort*, Port);
  PUBLISHED(TVariant, Value);
  const TVantrelClass& ClassReference() const override;
};
#undef PUBLISHED

constexpr TVantrelProperty LeafProperties[] = {
    Published<&TLeaf::Side, &TLeaf::SetSide>("Side", SideType, 1),
    Published<&TLeaf::Sides, &TLeaf::SetSides>("Sides", SidesType),
    Published<&TLeaf::Big, &TLeaf::SetBig>("Big"),
    Published<&TLeaf::Ratio, &TLeaf::SetRatio>("Ratio"),
    Published<&TLeaf::Partner, &TLeaf::SetPartner>("Partner", NodeType),
    Published<&TLeaf::Port, &TLeaf::SetPort>("Port", PortType),
    Published<&TLeaf::Value, &TLeaf::SetValue>("Value"),
};

const TVantrelClass& TLeaf::ClassReference() const {
  static constexpr TVantrelClass reference{.Name = "TLeaf", .Base = &TNode::Class, .Properties = LeafProperties};
  return reference;
}

TEST(ClassRtti, ListsInheritedPropertiesFirst) {
  const TVantrelClassRTTI rtti(TLeaf().ClassReference());
  EXPECT_EQ(rtti.PropCount(), 10);
  EXPECT_EQ(rtti.GetPropertyName(0), "Caption");
  EXPECT_EQ(rtti.GetPropertyIndex("SIDE"), 3);
  EXPECT_EQ(rtti.GetPropertyIndex("Weg"), -1);
  EXPECT_FALSE(rtti.IsPropertyPublished(""));
  for (const int index : {-1, 10}) EXPECT_THROW(rtti.GetPropertyName(index), EVantrelRTTIError);
  EXPECT_THROW(rtti.GetPropertyTypeKind("Weg"), EVantrelRTTIError);
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
  rtti.SetWideStringProperty(0, u"Grün");
  EXPECT_EQ(rtti.GetStringProperty("caption"), "Grün");
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
