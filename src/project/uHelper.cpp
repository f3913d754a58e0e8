#include "uHelper.h"

#include "VantrelDateTime.h"
#include "VantrelExceptions.h"

std::string TMyTessaronInteger::ToString() const {
  try {
    return IsNull() ? std::string() : std::to_string(AsInt());
  } catch (const EConvertError&) {
    return Value.AsText();
  }
}

std::string TMyTessaronDateTime::ToString() const {
  return IsNull() ? std::string() : DateToGermanText(AsDateTime());
}

TSortField::TSortField(const std::string& name, int index, int sortIndex, TSortOrder sortOrder) {
  Values(name, index, sortIndex, sortOrder, true);
}

void TSortField::Values(const std::string& name, int, int sortIndex, TSortOrder sortOrder, bool clearFirst) {
  if (clearFirst) Clear();
  Name = name;
  SortIndex = sortIndex;
  SortOrder = sortOrder;
}

void TSortField::Clear() {
  Name.clear();
  SortIndex = -1;
  SortOrder = TSortOrder::soNone;
}

TVisibleField::TVisibleField(const std::string& name, int index, int visibleIndex, bool visible, int width) {
  Values(name, index, visibleIndex, visible, width, true);
}

void TVisibleField::Values(const std::string& name, int, int visibleIndex, bool visible, int width, bool clearFirst) {
  if (clearFirst) Clear();
  Name = name;
  VisibleIndex = visibleIndex;
  Visible = visible;
  Width = width;
}

void TVisibleField::Clear() {
  Name.clear();
  Visible = true;
  VisibleIndex = -1;
  Width = 0;
}

TGroupField::TGroupField(const std::string& name, int index, int groupIndex) {
  Values(name, index, groupIndex, true);
}

void TGroupField::Values(const std::string& name, int, int groupIndex, bool clearFirst) {
  if (clearFirst) Clear();
  Name = name;
  GroupIndex = groupIndex;
}

void TGroupField::Clear() {
  Name.clear();
  GroupIndex = -1;
}
