#include "uModifiedMark.h"

#include "uProject.h"

void TModifiedMark::Follow(TVantrelGrid& grid) {
  grid.OnEditStarted = [this] {
    FWasModified = CurrentProject->Modified();
    FSaveCount = CurrentProject->SaveCount();
  };
  grid.OnEditReverted = [this] {
    if (!FWasModified && FSaveCount == CurrentProject->SaveCount()) CurrentProject->SetModified(false);
  };
}
