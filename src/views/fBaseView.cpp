#include "fBaseView.h"

#include <fmt/format.h>

#include "VantrelCommandLinks.h"
#include "VantrelExceptions.h"
#include "VantrelGrid.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelText.h"
#include "ViewTexts.h"

using enum TDBEnableType;

namespace {
constexpr const char* LayoutName = "Layout";
}

void RunForUser(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    MsgBoxError(error.what());
  }
}

void TBaseForm::AfterConstruction() {
  FStorageFormdir = "Forms";
  CreateData();
  SetupView();
  UpdateViewCommands();
  if (FOnLoadProperties) FOnLoadProperties();
}

void TBaseForm::BeforeDestruction() {
  try {
    if (FOnSaveProperties) FOnSaveProperties();
  } catch (const std::exception&) {
    // A layout that cannot be stored is no reason to keep the user: the one before stays.
  }
  DestroyData();
  TeardownView();
}

void TBaseForm::Show() {
  Ui().SetVisible(true);
  ViewShown();
  FIsInitialized = true;
}

bool TBaseForm::CloseQuery() {
  PostEdits();
  return true;
}

std::string TBaseForm::StoragePath() const {
  return Join(FStorageSubdir, FStorageVersion < 1 ? FStorageKey : fmt::format("{}.{}", FStorageKey, FStorageVersion),
              "\\");
}

void TBaseForm::UpdateStatus(const TVantrelMemTable*) {
  AbstractCall("UpdateStatus");
}

void TBaseForm::AbstractCall(std::string_view operation) const {
  throw EVantrelException(FormatText(ViewTexts::AbstractCall, FName, operation));
}

void TBaseView::SetupView() {
  TBaseForm::SetupView();
  FStorageSubdir = "Ansichten";
}

void TBaseView::RestoreLayout(TVantrelGrid& grid) {
  const auto layout = FStorage.ReadString(StoragePath(), LayoutName, {});
  if (!layout.empty()) grid.RestoreLayout(layout);
}

void TBaseView::StoreLayout(const TVantrelGrid& grid) {
  FStorage.WriteString(StoragePath(), LayoutName, grid.Layout());
}

void TBaseView::UpdateGotoCommands(const TVantrelMemTable& list) {
  for (auto* command : {&FFrame.GotoFirstCommand, &FFrame.GotoPrevCommand})
    TDBTools::UpdateLink(*command, &list, true, {dbtNotBOF, dbtHasRecords});
  for (auto* command : {&FFrame.GotoNextCommand, &FFrame.GotoLastCommand})
    TDBTools::UpdateLink(*command, &list, true, {dbtNotEOF, dbtHasRecords});
}
