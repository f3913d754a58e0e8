#pragma once

#include <memory>

#include "fBaseView.h"
#include "fWelcomeViewUi.h"

/// The first thing a teacher sees: which version runs, what the open file is, what is still to be entered.
class TWelcomeView final : public TBaseView {
 public:
  TWelcomeView(TViewFrame& frame, std::unique_ptr<TWelcomeViewUi> ui);
  ~TWelcomeView() override { TWelcomeView::TeardownView(); }

  void SetupView() override;
  void TeardownView() override;
  void UpdateContent() override;
  void RecentFilesChanged() override;
  void FileChanged() override { UpdateContent(); }

 protected:
  TFormUi& Ui() override { return *FUi; }

 private:
  void SetText(TWelcomeText text, const TVariant& value) { FUi->Text(text).SetValue(value); }

  std::unique_ptr<TWelcomeViewUi> FUi;
};

/// The welcome view while there is one.
inline TWelcomeView* WelcomeView = nullptr;
