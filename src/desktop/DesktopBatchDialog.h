#pragma once

#include <array>

#include "DesktopFormItems.h"
#include "DesktopGridPane.h"
#include "DesktopModalForm.h"
#include "fBatchCertificateDataUi.h"

class QPushButton;
class QStackedWidget;
class TDesktopFieldForm;

/// The batch dialog as a window.
class TDesktopBatchDialog final : public TDesktopModalForm, public TBatchCertificateDataUi {
 public:
  TDesktopBatchDialog();
  ~TDesktopBatchDialog() override;

  void SetTexts(const TBatchTexts& texts) override;
  TVantrelModalForm& Form() override { return *this; }
  TGridPaneUi& Students() override { return FStudents; }
  TVantrelFieldForm& Fields() override;
  TVantrelFormItem& Affected() override { return FAffected; }
  void SetButtonEnabled(TBatchButton button, bool enabled) override;
  TBatchPage ActivePage() const override;
  void SetActivePage(TBatchPage page) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddPage(QWidget* content);
  QWidget* MakeDataPage();

  TDesktopGridPane FStudents;
  TDesktopFieldForm* FFields;
  QStackedWidget* FPages;
  QLabel* FNotice;
  QLabel* FAffectedLabel;
  TDesktopLabelItem FAffected;
  /// By TBatchPage.
  std::vector<QLabel*> FTitles, FDescriptions;
  /// By TBatchButton.
  std::array<QPushButton*, 4> FButtons{};
};
