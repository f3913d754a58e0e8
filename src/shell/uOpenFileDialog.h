#pragma once

#include "VantrelClasses.h"
#include "VantrelDialogs.h"

/// The open dialog as a component: the folder that it begins in is a published property, which outlives the run.
class TOpenFileDialog final : public TVantrelPersistent, public TFileDialog {
 public:
  const TVantrelClass* ClassReference() const override;

  const std::string& GetInitialDir() const { return InitialDir; }
  void SetInitialDir(const std::string& folder) { InitialDir = folder; }
};
