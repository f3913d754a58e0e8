#pragma once

#include "mLookup.h"

/// The lookup tables that the program holds: those of LookupModule, which follows the loads, and those of the open
/// project. Where a load fails the open project keeps its own, at the same place, until another one is opened.
class TProjectLookups {
 public:
  /// A load begins: LookupModule goes.
  void BeforeLoad();
  /// A load has ended, well or not: LookupModule mirrors what was read.
  void AfterLoad(TMyTessaronProject& project);
  /// The project is the open one, or none is any more (null). Nobody shows the tables of the one before.
  void SetOpen(TMyTessaronProject* project);
  /// The tables of the open project. There must be one.
  TLookupTables& OfOpen();

 private:
  static bool Mirrors(const TVantrelPtr<TLookupModule>& module, const TMyTessaronProject* project) {
    return module != nullptr && module->ProjectObj == project;
  }

  TMyTessaronProject* FOpen = nullptr;
  TVantrelPtr<TLookupModule> FLoaded;
  /// The tables of the open project, once LookupModule does not hold them any more.
  TVantrelPtr<TLookupModule> FKept;
};
