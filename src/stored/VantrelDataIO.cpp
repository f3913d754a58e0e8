#include "VantrelDataIO.h"

#include <algorithm>

#include "StoredTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

const TVantrelDataClass* TVantrelDataObjectReader::FindClass(std::string_view name) const {
  for (const auto& [knownName, knownClass] : FKnownClasses)
    if (knownName == name) return knownClass;
  const auto* found = TVantrelDataClassRegistry::Instance().GetClass(FStorage.StorageClassName(), name);
  if (found != nullptr) FKnownClasses.emplace_back(name, found);
  return found;
}

const TVantrelDataClass& TVantrelDataObjectReader::RequireClass(std::string_view name) const {
  if (name.empty()) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NoClassName));
  const auto* dataClass = FindClass(name);
  if (dataClass == nullptr) throw EVantrelDataObjectReaderError(FormatText(StoredTexts::UnknownClass, name));
  return *dataClass;
}

TVantrelDataObject* TVantrelDataObjectReader::FindOrCreate(const TVantrelDataClass* dataClass, const TGuid& id) {
  if (auto* known = FStorage.Objects().GetObject(id)) {
    if (dataClass != nullptr && &known->ClassType() != dataClass) CheckClass(*known, *dataClass);
    return known;
  }
  auto* made = dataClass->Create(&FStorage, id).release();
  made->FUnclaimed = true;
  return made;
}

void TVantrelDataObjectReader::FillObject(TVantrelDataObject& object) {
  if (FFilling.size() >= MaxDepth) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::TooDeep));
  if (std::find(FFilling.begin(), FFilling.end(), &object) != FFilling.end())
    throw EVantrelDataObjectReaderError(FormatText(StoredTexts::ObjectInItself, GuidToText(object.ID())));
  FFilling.push_back(&object);
  object.ReadData(*this);
  FFilling.pop_back();
}

void TVantrelDataObjectReader::CheckClass(const TVantrelDataObject& object, const TVantrelDataClass& expected) {
  if (!object.ClassType().InheritsFrom(expected))
    throw EVantrelDataObjectReaderError(FormatText(StoredTexts::WrongClass, object.GetDataClassName(), expected.Name));
}

TVantrelDataObject* TVantrelDataObjectReader::Claim(TVantrelDataObject* object, const TVantrelDataClass& expected) {
  CheckClass(*object, expected);
  if (!object->FUnclaimed)
    throw EVantrelDataObjectReaderError(FormatText(StoredTexts::ObjectTaken, GuidToText(object->ID())));
  object->FUnclaimed = false;
  return object;
}
