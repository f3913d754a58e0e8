#include "VantrelI18nObjects.h"

#include <unordered_set>

#include "VantrelGraphics.h"
#include "VantrelLists.h"
#include "VantrelRtti.h"
#include "VantrelStringList.h"
#include "VantrelTypes.h"

namespace {
/// One walk through an object and what hangs on it; each object is visited once, however they refer to each other.
class TTranslationWalk {
 public:
  TTranslationWalk(const TVantrelI18nManager& manager, bool includePublicMembers)
      : FManager(manager), FIncludePublicMembers(includePublicMembers) {}

  void Visit(TVantrelObject* object) {
    if (object == nullptr || dynamic_cast<TVantrelGraphic*>(object) != nullptr) return;
    if (!FCachedObjects.insert(object).second) return;
    if (auto* text = dynamic_cast<TVantrelString*>(object)) return text->SetValue(FManager.Translate(text->Value()));
    if (auto* lines = dynamic_cast<TVantrelStringList*>(object))
      for (std::string& line : lines->Lines) line = FManager.Translate(line);
    const auto* list = dynamic_cast<const TVantrelAbstractList*>(object);
    TVantrelInstanceRTTI rtti(*object, FIncludePublicMembers);
    for (int i = 0; i < rtti.ClassRTTI().PropCount(); ++i) VisitProperty(rtti, i);
    for (int i = 0; list != nullptr && i < list->Count(); ++i) Visit(list->Get(i));
  }

 private:
  void VisitProperty(TVantrelInstanceRTTI& rtti, int index) {
    const TVantrelClassRTTI& properties = rtti.ClassRTTI();
    if (!properties.IsPropertyReadable(index)) return;
    const TVantrelTypeKind kind = properties.GetPropertyTypeKind(index);
    if (kind == TVantrelTypeKind::tkClass) return Visit(rtti.GetObjectProperty(index));
    if (kind != TVantrelTypeKind::tkString || !properties.IsPropertyWriteable(index)) return;
    const std::string text = rtti.GetStringProperty(index);
    const std::string translated = FManager.Translate(text);
    if (translated != text) rtti.SetStringProperty(index, translated);
  }

  const TVantrelI18nManager& FManager;
  bool FIncludePublicMembers;
  std::unordered_set<const TVantrelObject*> FCachedObjects;
};
}  // namespace

void TranslateStrings(const TVantrelI18nManager& manager, TVantrelObject& object, bool includePublicMembers) {
  TTranslationWalk(manager, includePublicMembers).Visit(&object);
}
