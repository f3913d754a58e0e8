#pragma once

#include <memory>
#include <vector>

#include "CommandActions.h"
#include "DesktopModalForm.h"
#include "SmallDialog.h"
#include "fSpellingUi.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;

/// The window in which a mistake is corrected. It stands in the lower right corner of the window with the text.
class TDesktopCorrection final : public TDesktopModalForm, public TCorrectionUi {
 public:
  TDesktopCorrection();
  ~TDesktopCorrection() override;

  void SetCommands(const std::vector<TVantrelCommand*>& commands) override;
  TVantrelModalForm& Form() override { return *this; }
  void ShowMistake(const std::string& before, const std::string& word, const std::string& behind) override;
  void SetSuggestions(const std::vector<std::string>& words) override;
  TVantrelFormItem& Replacement() override { return *FReplacement; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  /// A suggestion becomes the replacement.
  void Take(const QString& word);

  TCommandActions FActions;
  QLabel* FMistake;
  QLineEdit* FLine;
  QListWidget* FSuggestions;
  std::unique_ptr<TVantrelFormItem> FReplacement;
};

class TDesktopTickDialog final : public TSmallDialog, public TTickDialogUi {
 public:
  TDesktopTickDialog() = default;

  void SetTexts(const std::string& title, const std::string& explanation,
                const std::vector<std::string>& captions) override;
  TVantrelModalForm& Form() override { return *this; }
  TVantrelFormItem& Box(std::size_t index) override { return *FBoxes.at(index); }

 private:
  std::vector<std::unique_ptr<TVantrelFormItem>> FBoxes;
};
