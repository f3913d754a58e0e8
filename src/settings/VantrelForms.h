#pragma once

#include <functional>
#include <map>

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

  /// Whether the form may be kept for later instead of being destroyed: the handler's word, by default yes.
  bool CacheQuery() const { return !FOnCacheQuery || FOnCacheQuery(); }
  /// Puts off the drawing of the form's window, or of a part of it, until each call has met its EnableRedraw. A form
  /// without a window has nothing to put off.
  void DisableRedraw();
  void DisableRedraw(TVantrelControl& control);
  void EnableRedraw();
  /// One without a DisableRedraw before it is nothing.
  void EnableRedraw(TVantrelControl& control);
  /// Shows the form's window in front of all others.
  void ShowTopMost();
  /// The user's desktop is about to end.
  bool QueryEndSession() const { return FQueryEndSession; }

 protected:
  virtual void FormCreate() {}
  virtual void FormDestroy() {}

  TVantrelPlacedWindow* FPlacedWindow;
  bool FQueryEndSession = false;
  bool FRestored = false;
  TVantrelStorage* FStorage;
  std::string FStorageKey;
  TVantrelComponentLinks FStorageLinks;
  bool FStoreComponents = false;
  bool FStorePlacement = false;
  std::function<bool()> FOnCacheQuery;
  std::function<void()> FOnFocusChanged;
  std::function<void()> FOnLoadProperties;
  std::function<void()> FOnSaveProperties;

 private:
  bool HasPlacement() const;
  using TPropertyAct = decltype(&TVantrelStorage::ReadProperty);
  void ForEachLink(TPropertyAct act);

  std::map<TVantrelControl*, int> FRedrawDisabled;
};

/// The same for a window with a ribbon.
class TVantrelDxRibbonForm : public TVantrelForm {
 public:
  using TVantrelForm::TVantrelForm;
};
