#pragma once

#include <string>

#include "VantrelPublished.h"

/// Objects that publish a property of every kind, some of them inherited.

enum class TSide : std::uint8_t { sdLeft, sdTop, sdRight };
inline constexpr std::string_view SideNames[] = {"sdLeft", "sdTop", "sdRight"};
inline constexpr TVantrelTypeInfo SideType = EnumTypeInfo("TSide", SideNames);
inline constexpr TVantrelTypeInfo SidesType = SetTypeInfo("TSides", SideType);
inline constexpr TVantrelTypeInfo PortType = InterfaceTypeInfo("IPort");
struct TPort {};

/// A field with the pair of operations that publish it.
#define PUBLISHED(Type, Name)  \
  Type Name() const {          \
    return F##Name;            \
  }                            \
  void Set##Name(Type value) { \
    F##Name = value;           \
  }                            \
  Type F##Name {}

class TNode : public TVantrelPersistent {
 public:
  PUBLISHED(std::string, Caption);
  PUBLISHED(std::int16_t, Tag);
  bool Visible() const { return FTag != 0; }
  const TVantrelClass* ClassReference() const override { return &Class; }
  static const TVantrelClass Class;
};
inline constexpr TVantrelProperty NodeProperties[] = {
    Published<&TNode::Caption, &TNode::SetCaption>("Caption"),
    Published<&TNode::Tag, &TNode::SetTag>("Tag", 7),
    Published<&TNode::Visible>("Visible"),
};
inline constexpr TVantrelClass TNode::Class{.Name = "TNode", .Properties = NodeProperties};
inline constexpr TVantrelTypeInfo NodeType = ClassTypeInfo(TNode::Class);

class TLeaf : public TNode {
 public:
  PUBLISHED(TSide, Side);
  PUBLISHED(std::uint8_t, Sides);
  PUBLISHED(std::int64_t, Big);
  PUBLISHED(float, Ratio);
  PUBLISHED(TNode*, Partner);
  PUBLISHED(TPort*, Port);
  PUBLISHED(TVariant, Value);
  PUBLISHED(char16_t, Letter);
  const TVantrelClass* ClassReference() const override { return &Class; }
  static const TVantrelClass Class;
};
#undef PUBLISHED
inline constexpr TVantrelProperty LeafProperties[] = {
    Published<&TLeaf::Side, &TLeaf::SetSide>("Side", SideType, 1),
    Published<&TLeaf::Sides, &TLeaf::SetSides>("Sides", SidesType),
    Published<&TLeaf::Big, &TLeaf::SetBig>("Big"),
    Published<&TLeaf::Ratio, &TLeaf::SetRatio>("Ratio"),
    Published<&TLeaf::Partner, &TLeaf::SetPartner>("Partner", NodeType),
    Published<&TLeaf::Port, &TLeaf::SetPort>("Port", PortType),
    Published<&TLeaf::Value, &TLeaf::SetValue>("Value"),
    Published<&TLeaf::Letter, &TLeaf::SetLetter>("Letter"),
};
inline constexpr TVantrelClass TLeaf::Class{.Name = "TLeaf", .Base = &TNode::Class, .Properties = LeafProperties};
