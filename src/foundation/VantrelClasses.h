#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

struct TVantrelClass;

/// Base of the in-house classes. Objects live in two phases: construction, then AfterConstruction; BeforeDestruction,
/// then destruction. CreateVantrel and TVantrelDeleter are the only callers of the two hooks.
class TVantrelObject {
 public:
  TVantrelObject() = default;
  TVantrelObject(const TVantrelObject&) = delete;
  TVantrelObject& operator=(const TVantrelObject&) = delete;
  virtual ~TVantrelObject() = default;

  /// Takes over the content of `source`; raises EVantrelAssignError unless a descendant supports it.
  virtual void Assign(const TVantrelObject& source);
  /// Order of the two objects: below, equal to or above 0. 0 unless a descendant knows better.
  virtual int Compare(const TVantrelObject& other) const;
  /// Equality as keys of maps and sets; identity unless a descendant knows better.
  virtual bool Equals(const TVantrelObject* other) const { return this == other; }
  /// Hash that goes with Equals.
  virtual std::int32_t GetHashCode() const;
  /// The class with its published properties (VantrelRtti.h); null unless a descendant shows its own.
  virtual const TVantrelClass* ClassReference() const { return nullptr; }

  virtual void AfterConstruction() {}
  virtual void BeforeDestruction() {}
};

/// Base of the typed values and the collections.
class TVantrelPersistent : public TVantrelObject {};

/// Ends the life of an object in its two phases.
struct TVantrelDeleter {
  void operator()(TVantrelObject* object) const {
    if (object == nullptr) return;
    object->BeforeDestruction();
    delete object;
  }
};

/// What is owned, with the two-phase end of life.
template <class T>
using TVantrelPtr = std::unique_ptr<T, TVantrelDeleter>;

/// The one factory: constructs, then runs AfterConstruction. If that raises, the object is deleted.
template <class T, class... TArgs>
TVantrelPtr<T> CreateVantrel(TArgs&&... args) {
  auto object = std::make_unique<T>(std::forward<TArgs>(args)...);
  object->AfterConstruction();
  return TVantrelPtr<T>(object.release());
}

/// Base of classes that are never instantiated: the constructor raises EVantrelStaticClassError.
class TVantrelStaticClass {
 protected:
  [[noreturn]] explicit TVantrelStaticClass(std::string_view className);
};
