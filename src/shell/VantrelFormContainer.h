#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "VantrelDialogs.h"
#include "fBaseView.h"

/// Reference to a class of forms: tells its instances and makes them.
struct TVantrelFormClass {
  std::function<TVantrelPtr<TBaseForm>()> Create;
  /// True also for descendants.
  bool (*IsInstance)(const TBaseForm& form);
};

template <class TForm>
TVantrelFormClass VantrelFormClass(std::function<TVantrelPtr<TBaseForm>()> create) {
  return {std::move(create), [](const TBaseForm& form) { return dynamic_cast<const TForm*>(&form) != nullptr; }};
}

/// The panel that hosts the current view: one form at a time.
class TVantrelFormContainer {
 public:
  TVantrelFormContainer(TVantrelDialogs& dialogs, TVantrelWaitCursor& waitCursor)
      : FWaitCursor(waitCursor), FTimer(dialogs.CreateTimer()) {}

  TBaseForm* EmbeddedForm() const { return FEmbeddedForm.get(); }
  /// Forms that agree are hidden and kept instead of being destroyed. Off at first.
  bool EmbeddedCached() const { return FEmbeddedCached; }
  void SetEmbeddedCached(bool value);
  /// Forms are asked whether they may close. On at first.
  void SetEmbeddedCloseQuery(bool value) { FEmbeddedCloseQuery = value; }

  /// Puts a form of that class in place of the hosted one, at once or, if `posted`, when the message loop comes to it;
  /// the last of several posted ones counts. Nothing where such a form is hosted already, or where the hosted one
  /// refuses to close. What the making of the form raises goes to the caller; no form is hosted then.
  void CreateEmbeddedForm(const TVantrelFormClass& formClass, bool posted, bool show);
  /// True if no form is hosted afterwards.
  bool FreeEmbeddedForm();
  /// Hands the hosted form over, if there is one.
  TVantrelPtr<TBaseForm> ExtractEmbeddedForm() { return std::move(FEmbeddedForm); }
  void ClearEmbeddedCache() { FCache.clear(); }

 private:
  void ChangeForm(const TVantrelFormClass& formClass, bool show);
  TVantrelPtr<TBaseForm> FromCache(const TVantrelFormClass& formClass);

  TVantrelWaitCursor& FWaitCursor;
  std::unique_ptr<TVantrelTimer> FTimer;
  std::function<void()> FPosted;
  std::vector<TVantrelPtr<TBaseForm>> FCache;
  TVantrelPtr<TBaseForm> FEmbeddedForm;
  bool FEmbeddedCached = false;
  bool FEmbeddedCloseQuery = true;
};
