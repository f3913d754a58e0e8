#include "fBaseView.h"

#include "VantrelExceptions.h"
#include "VantrelGrid.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "ViewTexts.h"
#include "mStorage.h"
#include "uCXUtils.h"

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

void TBaseView::GotoFirst() {
  if (auto* grid = NavigatedGrid()) TCXUtils::GotoFirst(*grid);
}

void TBaseView::GotoPrev() {
  if (auto* grid = NavigatedGrid()) TCXUtils::GotoPrev(*grid);
}

void TBaseView::GotoNext() {
  if (auto* grid = NavigatedGrid()) TCXUtils::GotoNext(*grid);
}

void TBaseView::GotoLast() {
  if (auto* grid = NavigatedGrid()) TCXUtils::GotoLast(*grid);
}

void TBaseView::ExportToExcel() {
  PostEdits();
  auto* grid = ExportedGrid();
  if (grid != nullptr && FFrame.ExportGrid) FFrame.ExportGrid(*grid, Title());
}

std::string TBaseView::StoredLayout() const {
  return FStorage->ReadString(FStorage->KeyOf(StoragePath()), LayoutName, {});
}

void TBaseView::StoreLayout(const std::string& layout) {
  FStorage->WriteString(FStorage->KeyOf(StoragePath()), LayoutName, layout);
}

void TBaseView::UpdateGotoCommands() {
  const auto* grid = NavigatedGrid();
  const bool canGoBack = grid != nullptr && grid->CanGotoPrev(), canGoOn = grid != nullptr && grid->CanGotoNext();
  for (auto* command : {&FFrame.GotoFirstCommand, &FFrame.GotoPrevCommand}) command->SetEnabled(canGoBack);
  for (auto* command : {&FFrame.GotoNextCommand, &FFrame.GotoLastCommand}) command->SetEnabled(canGoOn);
}
