#include "fBaseMainForm.h"

#include <exception>

namespace {
// The show states of the stored form.
constexpr int ShowNormal = 1;
constexpr int ShowMaximized = 3;
}  // namespace

void TBaseMainForm::AfterConstruction() {
  FormCreate();
  FormLoadProperties();
  RestorePlacement();
}

void TBaseMainForm::BeforeDestruction() {
  try {
    FormSaveProperties();
    SavePlacement();
  } catch (const std::exception&) {
    // Settings that cannot be written are no reason to stay: those before hold on.
  }
  FormDestroy();
}

void TBaseMainForm::RestorePlacement() {
  auto place = FWindow.Placement();
  for (const auto& [name, value] : {std::pair("FormLeft", &place.Left), std::pair("FormTop", &place.Top),
                                    std::pair("FormRight", &place.Right), std::pair("FormBottom", &place.Bottom)})
    *value = FStorage.ReadInteger(FStorageKey, name, *value);
  const int state = FStorage.ReadInteger(FStorageKey, "FormState", place.Maximized ? ShowMaximized : ShowNormal);
  place.Maximized = state == ShowMaximized;
  FWindow.SetPlacement(place);
}

void TBaseMainForm::SavePlacement() {
  const auto place = FWindow.Placement();
  FStorage.WriteInteger(FStorageKey, "FormLeft", place.Left);
  FStorage.WriteInteger(FStorageKey, "FormTop", place.Top);
  FStorage.WriteInteger(FStorageKey, "FormRight", place.Right);
  FStorage.WriteInteger(FStorageKey, "FormBottom", place.Bottom);
  FStorage.WriteInteger(FStorageKey, "FormState", place.Maximized ? ShowMaximized : ShowNormal);
}
