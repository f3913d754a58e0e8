#pragma once

#include <string>

#include "VantrelClasses.h"
#include "VantrelMainWindow.h"
#include "VantrelSettings.h"

/// Base of the main window: its placement and its stored properties.
///
/// Created: FormCreate, then the properties load and the window takes its place. Destroyed: properties and placement
/// are saved, then FormDestroy.
class TBaseMainForm : public TVantrelObject {
 public:
  TBaseMainForm(TVantrelMainWindow& window, TVantrelSettings& storage, std::string storageKey)
      : FWindow(window), FStorage(storage), FStorageKey(std::move(storageKey)) {}

  void AfterConstruction() override;
  void BeforeDestruction() override;

 protected:
  virtual void FormCreate() = 0;
  virtual void FormDestroy() = 0;
  virtual void FormLoadProperties() = 0;
  virtual void FormSaveProperties() = 0;
  void RestorePlacement();
  void SavePlacement();

  TVantrelMainWindow& FWindow;
  TVantrelSettings& FStorage;
  const std::string FStorageKey;
};
