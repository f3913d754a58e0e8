#include "VantrelDataRegistry.h"

#include <algorithm>
#include <string>

namespace {
class TVantrelDataClassRegistryEntry final : public TVantrelObject {
 public:
  explicit TVantrelDataClassRegistryEntry(const TVantrelDataClass& dataClass) : FClass(dataClass) {}
  const TVantrelDataClass& FClass;
};

std::string KeyOf(std::string_view storageClass, std::string_view name) {
  return std::string(storageClass).append(".").append(name);
}
}  // namespace

TVantrelDataClassRegistry& TVantrelDataClassRegistry::Instance() {
  static TVantrelDataClassRegistry registry;
  return registry;
}

void TVantrelDataClassRegistry::AddClass(std::string_view storageClass, const TVantrelDataClass& dataClass) {
  const auto key = KeyOf(storageClass, dataClass.Name);
  if (!FEntries.ContainsKey(key)) FEntries.Put(key, CreateVantrel<TVantrelDataClassRegistryEntry>(dataClass).release());
}

void TVantrelDataClassRegistry::RemoveClass(std::string_view storageClass, const TVantrelDataClass& dataClass) {
  TVantrelDeleter()(FEntries.Remove(KeyOf(storageClass, dataClass.Name)));
}

bool TVantrelDataClassRegistry::ContainsClass(std::string_view storageClass, const TVantrelDataClass& dataClass) const {
  return FEntries.ContainsKey(KeyOf(storageClass, dataClass.Name));
}

const TVantrelDataClass* TVantrelDataClassRegistry::GetClass(std::string_view storageClass,
                                                             std::string_view storedName) const {
  const auto* entry = FEntries.Get(KeyOf(storageClass, storedName));
  return entry == nullptr ? nullptr : &static_cast<const TVantrelDataClassRegistryEntry*>(entry)->FClass;
}

void TVantrelDataObjectRegistry::AddObject(TVantrelDataObject& object) {
  if (auto* known = FObjects->Put(&object.FKey, &object))
    FObjects->Put(&static_cast<TVantrelDataObject*>(known)->FKey, known);
}

void TVantrelDataObjectRegistry::RemoveObject(const TVantrelDataObject& object) {
  if (GetObject(object.ID()) != &object) return;
  FObjects->Remove(&object.FKey);
  FLastFound = nullptr;
}

TVantrelDataObject* TVantrelDataObjectRegistry::GetObject(const TGuid& id) const {
  if (FLastFound != nullptr && FLastFound->ID() == id) return FLastFound;
  const TVantrelDataObjectKey key(id);
  auto* found = static_cast<TVantrelDataObject*>(FObjects->Get(&key));
  if (found != nullptr) FLastFound = found;
  return found;
}

void TVantrelDataObjectRegistry::Reserve(std::int64_t objects) {
  constexpr double loadFactor = 0.75;
  constexpr double most = 1 << 24;
  const int capacity = static_cast<int>(std::min(static_cast<double>(objects) / loadFactor, most));
  if (capacity <= FObjects->BucketCount()) return;
  auto larger = std::make_unique<TVantrelHashMap>(capacity, loadFactor, false, false);
  for (auto* item : FObjects->Items()) larger->Put(&static_cast<TVantrelDataObject*>(item)->FKey, item);
  FObjects = std::move(larger);
}

std::vector<TVantrelDataObject*> TVantrelDataObjectRegistry::Unclaimed() const {
  std::vector<TVantrelDataObject*> found;
  for (auto* item : FObjects->Items())
    if (auto* object = static_cast<TVantrelDataObject*>(item); object->FUnclaimed) found.push_back(object);
  return found;
}
