#include "uModifiedMark.h"

#include "uProject.h"

void TModifiedMark::TellAgain() {
  CurrentProject->SetModified(CurrentProject->Modified());
}

void TModifiedMark::Follow(TVantrelGrid& grid) {
  grid.OnEditStarted = [this] {
    FWasModified = CurrentProject->Modified();
    FSaveCount = CurrentProject->SaveCount();
    CurrentProject->BeginEdit();
  };
  grid.OnEditEnded = [] {
    CurrentProject->EndEdit();
    TellAgain();
  };
  grid.OnEditReverted = [this] {
    if (!FWasModified && FSaveCount == CurrentProject->SaveCount()) CurrentProject->SetModified(false);
  };
}
