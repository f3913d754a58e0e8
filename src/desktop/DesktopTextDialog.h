#pragma once

#include <map>
#include <memory>

#include "CommandActions.h"
#include "DesktopFormItems.h"
#include "DesktopModalForm.h"
#include "DesktopText.h"
#include "DialogUndo.h"

class QBoxLayout;
class QLineEdit;
class TDesktopGrid;

/// The window of the text dialogs. Ctrl+F goes to the line for searching; there Up and Down go from one row that was
/// found to the next, and Return takes it.
class TDesktopTextDialog final : public TDesktopModalForm, public TTextDialogUi {
 public:
  TDesktopTextDialog();
  ~TDesktopTextDialog() override;

  void SetDescription(const TTextDialogDescription& description) override;
  TVantrelModalForm& Form() override { return *this; }
  TVantrelFormItem& Item(TTextDialogItem item) override;
  TTextUi& Text() override { return FText; }
  TVantrelGrid& Catalog() override;
  void InOneStep(const std::function<void()>& change) override { FUndo.Join(change); }
  TDesktopGrid& DesktopCatalog() { return *FCatalog; }

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeTextGroup(const TTextDialogDescription& description);
  void AddField(QBoxLayout& row, const TTextDialogField& field);
  QWidget* MakeCatalogGroup(const TTextDialogDescription& description);
  QBoxLayout* MakeNoteLine();
  QBoxLayout* MakeFoot(const TTextDialogDescription& description);
  void Place();
  void Search(int step);
  bool TakeSearchKey(int key);

  TCommandActions FActions;
  TDialogUndo FUndo;
  TMemoEdit* FMemo;
  TDesktopText FText;
  TDesktopGrid* FCatalog;
  QLineEdit* FSearch;
  QLabel* FNotFound;
  std::map<TTextDialogItem, std::unique_ptr<TVantrelFormItem>> FItems;
};
