#pragma once

#include <functional>

#include "VantrelMainWindow.h"
#include "VantrelPropertySaver.h"
#include "VantrelStorage.h"

/// Base of windows and views: what of them outlives the run.
///
/// Created: FormCreate, then LoadProperties. DoShow takes the stored place at the first display. Destroyed:
/// SaveProperties, SavePlacement, then FormDestroy.
class TVantrelForm : public TVantrelObject {
 public:
  /// Both outlive the form. Without a window it has no placement, without a storage nothing is stored.
  TVantrelForm(TVantrelStorage* storage, TVantrelPlacedWindow* window) : FPlacedWindow(window), FStorage(storage) {}

  const std::string& StorageKey() const { return FStorageKey; }
  /// Separators at the ends are taken off.
  void SetStorageKey(std::string_view key) { FStorageKey = TrimSeparators(key); }

  void AfterConstruction() override;
  void BeforeDestruction() override;
  /// The form is about to be displayed.
  void DoShow();

  virtual void RestorePlacement();
  virtual void LoadProperties();
  virtual void SavePlacement();
  virtual void SaveProperties();

 protected:
  virtual void FormCreate() {}
  virtual void FormDestroy() {}

  TVantrelPlacedWindow* FPlacedWindow;
  bool FRestored = false;
  TVantrelStorage* FStorage;
  std::string FStorageKey;
  TVantrelComponentLinks FStorageLinks;
  bool FStoreComponents = false;
  bool FStorePlacement = false;
  std::function<void()> FOnLoadProperties;
  std::function<void()> FOnSaveProperties;

 private:
  bool HasPlacement() const;
  using TPropertyAct = decltype(&TVantrelStorage::ReadProperty);
  void ForEachLink(TPropertyAct act);
};

/// The same for a window with a ribbon.
class TVantrelDxRibbonForm : public TVantrelForm {
 public:
  using TVantrelForm::TVantrelForm;
};
