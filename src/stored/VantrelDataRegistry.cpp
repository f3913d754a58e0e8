#include "VantrelDataRegistry.h"

#include <algorithm>
#include <cstring>
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

std::size_t TVantrelDataObjectRegistry::THash::operator()(const TGuid& id) const {
  std::uint64_t halves[2];
  std::memcpy(halves, id.Bytes.data(), sizeof(halves));
  const std::uint64_t mixed = (halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15u)) * 0xC2B2AE3D27D4EB4Fu;
  return static_cast<std::size_t>(mixed >> 32);
}

void TVantrelDataObjectRegistry::RemoveObject(const TVantrelDataObject& object) {
  const auto found = FObjects.find(object.ID());
  if (found == FObjects.end() || *found != &object) return;
  FObjects.erase(found);
}

TVantrelDataObject* TVantrelDataObjectRegistry::GetObject(const TGuid& id) const {
  const auto found = FObjects.find(id);
  return found == FObjects.end() ? nullptr : *found;
}

void TVantrelDataObjectRegistry::Reserve(std::int64_t objects) {
  constexpr std::int64_t most = 1 << 24;
  FObjects.reserve(static_cast<std::size_t>(std::min(objects, most)));
}

std::vector<TVantrelDataObject*> TVantrelDataObjectRegistry::Unclaimed() const {
  std::vector<TVantrelDataObject*> found;
  for (auto* object : FObjects)
    if (object->FUnclaimed) found.push_back(object);
  return found;
}
