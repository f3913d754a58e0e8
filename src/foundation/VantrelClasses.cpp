#include "VantrelClasses.h"

#include <functional>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

void TVantrelObject::Assign(const TVantrelObject&) {
  throw EVantrelAssignError(ResourceText(FoundationTexts::AssignNotSupported));
}

int TVantrelObject::Compare(const TVantrelObject&) const {
  return 0;
}

std::int32_t TVantrelObject::GetHashCode() const {
  return static_cast<std::int32_t>(std::hash<const void*>()(this) >> 4);
}

TVantrelStaticClass::TVantrelStaticClass(std::string_view className) {
  throw EVantrelStaticClassError(FormatText(FoundationTexts::StaticClass, className));
}
