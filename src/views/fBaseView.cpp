#include "fBaseView.h"

#include "VantrelExceptions.h"
#include "VantrelGrid.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "ViewTexts.h"
#include "mStorage.h"

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

void TBaseForm::FormCreate() {
  FIsInitialized = false;
  FStorageFormdir = "Forms";
  FStorePlacement = false;
  CreateData();
  SetupView();
  UpdateViewCommands();
}

void TBaseForm::FormDestroy() {
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
  return GetStoragePath(*FStorage, FStorageKey, FStorageSubdir, FStorageVersion);
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
  const auto layout = FStorage->ReadString(FStorage->KeyOf(StoragePath()), LayoutName, {});
  if (!layout.empty()) grid.RestoreLayout(layout);
}

void TBaseView::StoreLayout(const TVantrelGrid& grid) {
  FStorage->WriteString(FStorage->KeyOf(StoragePath()), LayoutName, grid.Layout());
}

void TBaseView::UpdateGotoCommands(const TVantrelGrid& list) {
  for (auto* command : {&FFrame.GotoFirstCommand, &FFrame.GotoPrevCommand}) command->SetEnabled(list.CanGotoPrev());
  for (auto* command : {&FFrame.GotoNextCommand, &FFrame.GotoLastCommand}) command->SetEnabled(list.CanGotoNext());
}
