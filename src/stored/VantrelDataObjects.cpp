#include "VantrelDataObjects.h"

#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelHashes.h"

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
