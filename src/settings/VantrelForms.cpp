#include "VantrelForms.h"

#include "VantrelText.h"

namespace {
constexpr const char* FormLeft = "FormLeft";
constexpr const char* FormTop = "FormTop";
constexpr const char* FormRight = "FormRight";
constexpr const char* FormBottom = "FormBottom";
constexpr const char* FormState = "FormState";
}  // namespace

void TVantrelForm::AfterConstruction() {
  if (FPlacedWindow != nullptr) {
    FPlacedWindow->OnQueryEndSession = [this] { FQueryEndSession = true; };
    FPlacedWindow->OnFocusChanged = [this] {
      if (FOnFocusChanged) FOnFocusChanged();
    };
  }
  FormCreate();
  FRestored = false;
  LoadProperties();
}

void TVantrelForm::BeforeDestruction() {
  try {
    SaveProperties();
    SavePlacement();
  } catch (const std::exception&) {
    // Settings that cannot be written are no reason to stay: those before hold on.
  }
  FormDestroy();
  if (FPlacedWindow != nullptr) FPlacedWindow->OnQueryEndSession = FPlacedWindow->OnFocusChanged = nullptr;
}

void TVantrelForm::DoShow() {
  if (!FRestored) RestorePlacement();
  FRestored = true;
}

void TVantrelForm::DisableRedraw() {
  if (FPlacedWindow != nullptr) DisableRedraw(*FPlacedWindow);
}

void TVantrelForm::DisableRedraw(TVantrelControl& control) {
  if (++FRedrawDisabled[&control] == 1) control.SetRedraw(false);
}

void TVantrelForm::EnableRedraw() {
  if (FPlacedWindow != nullptr) EnableRedraw(*FPlacedWindow);
}

void TVantrelForm::EnableRedraw(TVantrelControl& control) {
  const auto disabled = FRedrawDisabled.find(&control);
  if (disabled == FRedrawDisabled.end() || --disabled->second > 0) return;
  FRedrawDisabled.erase(disabled);
  control.SetRedraw(true);
}

void TVantrelForm::ShowTopMost() {
  if (FPlacedWindow != nullptr) FPlacedWindow->ShowTopMost();
}

void TVantrelForm::ForEachLink(TPropertyAct act) {
  if (!FStoreComponents) return;
  for (const auto& component : FStorageLinks)
    for (const auto& link : component.Properties)
      (FStorage->*act)(Join(FStorageKey, link.StoredKey, "\\"), link.StoredName, *component.Component, link.Path);
}

void TVantrelForm::LoadProperties() {
  if (FStorage == nullptr || !FStorage->Active()) return;
  ForEachLink(&TVantrelStorage::ReadProperty);
  if (FOnLoadProperties) FOnLoadProperties();
}

void TVantrelForm::SaveProperties() {
  if (FStorage == nullptr || !FStorage->Active()) return;
  ForEachLink(&TVantrelStorage::WriteProperty);
  if (FOnSaveProperties) FOnSaveProperties();
}

bool TVantrelForm::HasPlacement() const {
  return FPlacedWindow != nullptr && FStorage != nullptr && FStorage->Active() && FStorePlacement &&
         !FStorageKey.empty();
}

void TVantrelForm::RestorePlacement() {
  if (!HasPlacement()) return;
  auto place = FPlacedWindow->Placement();
  const int width = place.Right - place.Left;
  const int height = place.Bottom - place.Top;
  place.Left = FStorage->ReadInteger(FStorageKey, FormLeft, place.Left);
  place.Top = FStorage->ReadInteger(FStorageKey, FormTop, place.Top);
  place.Right = place.Left + width;
  place.Bottom = place.Top + height;
  if (FPlacedWindow->IsSizeable()) {
    place.Right = FStorage->ReadInteger(FStorageKey, FormRight, place.Right);
    place.Bottom = FStorage->ReadInteger(FStorageKey, FormBottom, place.Bottom);
  }
  const int state = FStorage->ReadInteger(FStorageKey, FormState, static_cast<int>(place.State));
  if (state >= static_cast<int>(TWindowState::Normal) && state <= static_cast<int>(TWindowState::Maximized))
    place.State = static_cast<TWindowState>(state);
  FPlacedWindow->SetPlacement(place);
}

void TVantrelForm::SavePlacement() {
  if (!HasPlacement()) return;
  const auto place = FPlacedWindow->Placement();
  FStorage->WriteInteger(FStorageKey, FormLeft, place.Left);
  FStorage->WriteInteger(FStorageKey, FormTop, place.Top);
  FStorage->WriteInteger(FStorageKey, FormRight, place.Right);
  FStorage->WriteInteger(FStorageKey, FormBottom, place.Bottom);
  FStorage->WriteInteger(FStorageKey, FormState, static_cast<int>(place.State));
}
