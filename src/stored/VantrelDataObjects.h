#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "VantrelClasses.h"
#include "VantrelGuid.h"

class TVantrelDataObject;
class TVantrelDataObjectReader;
class TVantrelDataObjectWriter;
class TVantrelDataStorage;

/// Base of everything that lives in a document: an owner, and two operations that say what it stores.
class TVantrelAbstractDataObject : public TVantrelObject {
 public:
  TVantrelAbstractDataObject() = default;
  explicit TVantrelAbstractDataObject(TVantrelAbstractDataObject* owner) : FOwner(owner) {}

  /// Does nothing; classes with data take over the content of `source`.
  void Assign(const TVantrelObject& source) override;

  TVantrelAbstractDataObject* Owner() const { return FOwner; }
  bool HasOwner() const { return FOwner != nullptr; }
  bool HasStorage() const { return GetStorage() != nullptr; }
  /// True if this object stands in the owner chain above `other`; false for null and for itself.
  bool IsOwnerOf(const TVantrelAbstractDataObject* other) const;
  bool IsOwnerOfOrHasSameOwner(const TVantrelAbstractDataObject* other) const;
  /// The top of the owner chain; null without an owner.
  TVantrelAbstractDataObject* GetRootOwner() const;
  /// The root of the owner chain if that is a document, else null. A document itself has none.
  TVantrelDataStorage* GetStorage() const;

  /// Tells the document that this object has changed: it counts as modified, ObjectUpdate is reported.
  virtual void Changed();
  /// Resets every field to its initial value.
  virtual void DoClear() {}
  /// Frees sub-objects; runs before destruction.
  virtual void DoDestroy() {}
  /// Creates sub-objects; runs after construction and ends with DoClear.
  virtual void DoCreate() {}
  /// Reads the stored values from a cleared object; raises what the reader raises.
  virtual void ReadData(TVantrelDataObjectReader& reader);
  virtual void WriteData(TVantrelDataObjectWriter& writer) const;
  virtual std::string GetDisplayText() const { return {}; }

  void AfterConstruction() override { DoCreate(); }
  void BeforeDestruction() override { DoDestroy(); }

 protected:
  friend class TVantrelDataList;
  /// This object as a document, or null.
  virtual TVantrelDataStorage* AsStorage() { return nullptr; }

  TVantrelAbstractDataObject* FOwner = nullptr;
};

/// A sub-record held by its parent: no identity, not registered.
class TVantrelDataProperty : public TVantrelAbstractDataObject {
 public:
  using TVantrelAbstractDataObject::TVantrelAbstractDataObject;
  void Clear() { DoClear(); }
};

/// Reference to a class of data objects: what virtual constructors and creation by stored name go through.
struct TVantrelDataClass {
  /// The name that goes into files.
  std::string_view Name;
  const TVantrelDataClass* Base;
  TVantrelPtr<TVantrelDataObject> (*Factory)(TVantrelAbstractDataObject* owner, const TGuid& id);

  /// An instance with a new GUID.
  TVantrelPtr<TVantrelDataObject> Create(TVantrelAbstractDataObject* owner = nullptr) const;
  TVantrelPtr<TVantrelDataObject> Create(TVantrelAbstractDataObject* owner, const TGuid& id) const;
  bool InheritsFrom(const TVantrelDataClass& other) const;
};

/// A stored object with an identity. While it has a document it stands in the document's registry under its GUID,
/// from after-construction until before-destruction.
class TVantrelDataObject : public TVantrelAbstractDataObject {
 public:
  TVantrelDataObject() : TVantrelDataObject(nullptr) {}
  explicit TVantrelDataObject(TVantrelAbstractDataObject* owner) : TVantrelDataObject(owner, NewGuid()) {}
  explicit TVantrelDataObject(const TGuid& id) : TVantrelDataObject(nullptr, id) {}
  TVantrelDataObject(TVantrelAbstractDataObject* owner, const TGuid& id) : TVantrelAbstractDataObject(owner), FId(id) {}

  static const TVantrelDataClass& Class();
  virtual const TVantrelDataClass& ClassType() const { return Class(); }
  /// The name under which the class goes into files.
  std::string_view GetDataClassName() const { return ClassType().Name; }

  const TGuid& ID() const { return FId; }
  /// New instance of the same class without owner, with a new GUID and this content.
  TVantrelPtr<TVantrelDataObject> Clone() const;
  /// True for a data object with the same GUID.
  bool Equals(const TVantrelObject* other) const override;
  /// ELF hash of the GUID's default text.
  std::int32_t GetHashCode() const override;
  /// Takes the object out of the list that owns it, unfreed.
  void Extract();
  /// Called when the object dies outside load, clear and destruction of its document.
  virtual void ObjectRemoved() {}

  void AfterConstruction() override;
  void BeforeDestruction() override;

 private:
  friend class TVantrelDataList;
  friend class TVantrelDataObjectRegistry;
  friend class TVantrelDataObjectReader;

  const TGuid FId;
  /// How many entries of owning lists hold the object: it is freed with the last one.
  std::uint32_t FOwningEntries = 0;
  /// Made by a reader and not yet taken by a list or a field: it belongs to the document.
  bool FUnclaimed = false;
};

/// Gives a class its class reference. TSelf has a static `ClassName`.
template <class TSelf, class TBase = TVantrelDataObject>
class TVantrelDataClassOf : public TBase {
 public:
  using TBase::TBase;

  static const TVantrelDataClass& Class() {
    static const TVantrelDataClass reference{
        TSelf::ClassName, &TBase::Class(),
        [](TVantrelAbstractDataObject* owner, const TGuid& id) -> TVantrelPtr<TVantrelDataObject> {
          return CreateVantrel<TSelf>(owner, id);
        }};
    return reference;
  }
  const TVantrelDataClass& ClassType() const override { return Class(); }
};
