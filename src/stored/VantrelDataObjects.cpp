#include "VantrelDataObjects.h"

#include <cstring>
#include <typeinfo>

#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelMaps.h"

void TVantrelAbstractDataObject::Assign(const TVantrelObject&) {}

bool TVantrelAbstractDataObject::IsOwnerOf(const TVantrelAbstractDataObject* other) const {
  if (other == nullptr) return false;
  for (const auto* owner = other->FOwner; owner != nullptr; owner = owner->FOwner)
    if (owner == this) return true;
  return false;
}

bool TVantrelAbstractDataObject::IsOwnerOfOrHasSameOwner(const TVantrelAbstractDataObject* other) const {
  if (other == nullptr) return false;
  return FOwner == other->FOwner || IsOwnerOf(other);
}

TVantrelAbstractDataObject* TVantrelAbstractDataObject::GetRootOwner() const {
  auto* root = FOwner;
  while (root != nullptr && root->FOwner != nullptr) root = root->FOwner;
  return root;
}

TVantrelDataStorage* TVantrelAbstractDataObject::GetStorage() const {
  auto* root = GetRootOwner();
  return root == nullptr ? nullptr : root->AsStorage();
}

void TVantrelAbstractDataObject::Changed() {
  if (auto* storage = GetStorage()) {
    storage->Changed();
    storage->Observer().ObjectUpdate.Call(storage, this);
  }
}

void TVantrelAbstractDataObject::ReadData(TVantrelDataObjectReader&) {
  DoClear();
}

void TVantrelAbstractDataObject::WriteData(TVantrelDataObjectWriter&) const {}

TVantrelPtr<TVantrelDataObject> TVantrelDataClass::Create(TVantrelAbstractDataObject* owner) const {
  return Factory(owner, NewGuid());
}

TVantrelPtr<TVantrelDataObject> TVantrelDataClass::Create(TVantrelAbstractDataObject* owner, const TGuid& id) const {
  return Factory(owner, id);
}

bool TVantrelDataClass::InheritsFrom(const TVantrelDataClass& other) const {
  for (const auto* ancestor = this; ancestor != nullptr; ancestor = ancestor->Base)
    if (ancestor == &other) return true;
  return false;
}

bool TVantrelDataObjectKey::Equals(const TVantrelObject* other) const {
  return other != nullptr && typeid(*other) == typeid(TVantrelDataObjectKey) &&
         static_cast<const TVantrelDataObjectKey*>(other)->Id == Id;
}

std::int32_t TVantrelDataObjectKey::GetHashCode() const {
  std::uint64_t halves[2];
  std::memcpy(halves, Id.Bytes.data(), sizeof(halves));
  const std::uint64_t mixed = (halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15u)) * 0xC2B2AE3D27D4EB4Fu;
  return static_cast<std::int32_t>(mixed >> 32);
}

const TVantrelDataClass& TVantrelDataObject::Class() {
  static const TVantrelDataClass reference{
      "TVantrelDataObject", nullptr,
      [](TVantrelAbstractDataObject* owner, const TGuid& id) { return CreateVantrel<TVantrelDataObject>(owner, id); }};
  return reference;
}

TVantrelPtr<TVantrelDataObject> TVantrelDataObject::Clone() const {
  auto clone = ClassType().Create();
  clone->Assign(*this);
  return clone;
}

bool TVantrelDataObject::Equals(const TVantrelObject* other) const {
  const auto* object = dynamic_cast<const TVantrelDataObject*>(other);
  return object != nullptr && object->ID() == ID();
}

std::int32_t TVantrelDataObject::GetHashCode() const {
  return ElfHash(GuidToText(ID()));
}

void TVantrelDataObject::Extract() {
  if (auto* list = dynamic_cast<TVantrelDataList*>(FOwner)) list->Extract(this);
}

void TVantrelDataObject::AfterConstruction() {
  if (auto* storage = GetStorage()) {
    storage->Objects().AddObject(*this);
    storage->Observer().ObjectCreate.Call(storage, this);
  }
  DoCreate();
}

void TVantrelDataObject::BeforeDestruction() {
  if (auto* storage = GetStorage()) {
    storage->Objects().RemoveObject(*this);
    storage->Observer().ObjectDestroy.Call(storage, this);
    if (storage->State() == TVantrelDataStorageState::dssNormal) ObjectRemoved();
  }
  DoDestroy();
}
