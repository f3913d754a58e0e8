#pragma once

#include <functional>
#include <memory>

#include "fBatchCertificateDataUi.h"
#include "fSpellingUi.h"
#include "fTextDialogUi.h"

/// How the screens of the dialogs are made. What needs a dialog that is missing cannot be done.
struct TMainDialogs {
  std::function<std::unique_ptr<TTextDialogUi>()> TextDialog = {};
  std::function<std::unique_ptr<TCorrectionUi>()> Correction = {};
  std::function<std::unique_ptr<TTickDialogUi>()> SpellingOptions = {};
  std::function<std::unique_ptr<TBatchCertificateDataUi>()> BatchCertificateData = {};
};
