#include "VantrelFormContainer.h"

#include <algorithm>
#include <utility>

void TVantrelFormContainer::SetEmbeddedCached(bool value) {
  if (value != FEmbeddedCached) ClearEmbeddedCache();
  FEmbeddedCached = value;
}

void TVantrelFormContainer::CreateEmbeddedForm(const TVantrelFormClass& formClass, bool posted, bool show) {
  if (FEmbeddedForm != nullptr && formClass.IsInstance(*FEmbeddedForm)) return;
  if (!posted) return ChangeForm(formClass, show);
  FPosted = [this, formClass, show] { ChangeForm(formClass, show); };
  FTimer->Start(0, [this] {
    if (const auto change = std::exchange(FPosted, nullptr)) RunForUser(change);
    FTimer->Stop();
  });
}

void TVantrelFormContainer::ChangeForm(const TVantrelFormClass& formClass, bool show) {
  const TVantrelWaitScope wait(FWaitCursor);
  if (!FreeEmbeddedForm()) return;
  FEmbeddedForm = FromCache(formClass);
  if (FEmbeddedForm == nullptr) FEmbeddedForm = formClass.Create();
  if (show) FEmbeddedForm->Show();
}

bool TVantrelFormContainer::FreeEmbeddedForm() {
  if (FEmbeddedForm == nullptr) return true;
  if (FEmbeddedCloseQuery && !FEmbeddedForm->CloseQuery()) return false;
  if (FEmbeddedCached && FEmbeddedForm->CacheQuery()) {
    FEmbeddedForm->Hide();
    FCache.push_back(std::move(FEmbeddedForm));
  }
  FEmbeddedForm.reset();
  return true;
}

TVantrelPtr<TBaseForm> TVantrelFormContainer::FromCache(const TVantrelFormClass& formClass) {
  const auto cached = std::ranges::find_if(FCache, [&](const auto& form) { return formClass.IsInstance(*form); });
  if (cached == FCache.end()) return nullptr;
  auto form = std::move(*cached);
  FCache.erase(cached);
  return form;
}
