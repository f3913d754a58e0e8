#include "uProjectLookups.h"

#include <utility>

void TProjectLookups::BeforeLoad() {
  if (FOpen != nullptr && Mirrors(FLoaded, FOpen)) {
    FLoaded->Retire();
    FKept = std::move(FLoaded);
  }
  FLoaded.reset();
}

void TProjectLookups::AfterLoad(TMyTessaronProject& project) {
  BeforeLoad();
  FLoaded = CreateLookupModule(project);
}

void TProjectLookups::SetOpen(TMyTessaronProject* project) {
  FOpen = project;
  FKept.reset();
}

TLookupTables& TProjectLookups::OfOpen() {
  return Mirrors(FKept, FOpen) ? *FKept : *FLoaded;
}
