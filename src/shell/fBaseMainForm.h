#pragma once

#include "VantrelForms.h"

/// Base of the main window. It takes its stored place before it shows.
class TBaseMainForm : public TVantrelDxRibbonForm {
 public:
  TBaseMainForm(TVantrelMainWindow& window, TVantrelStorage& storage, std::string_view storageKey)
      : TVantrelDxRibbonForm(&storage, &window), FWindow(window) {
    SetStorageKey(storageKey);
    FStoreComponents = FStorePlacement = true;
  }

  void AfterConstruction() override {
    TVantrelDxRibbonForm::AfterConstruction();
    DoShow();
  }

 protected:
  TVantrelMainWindow& FWindow;
};
