#pragma once

#include <optional>

#include "fBaseView.h"
#include "fListViewUi.h"
#include "uListPane.h"
#include "uProject.h"

/// An overview to check a class by: for the focused class a row per student and a column per subject. Nothing can be
/// edited, and no layout is stored.
class TClassesView final : public TBaseView {
 public:
  TClassesView(TViewFrame& frame, std::unique_ptr<TListViewUi> ui);
  ~TClassesView() override;

  void CreateData() override;
  void SetupView() override;
  void TeardownView() override;
  void UpdateStatus(const TVantrelMemTable* dataSet) override;
  void UpdateViewCommands() override;
  void UpdateContent() override;

 protected:
  TFormUi& Ui() override { return *FUi; }
  TVantrelGrid* NavigatedGrid() override { return &Grid(); }
  std::string Title() override { return FUi->TitleLabel().Value().AsTextOrEmpty(); }
  TVantrelGrid* ExportedGrid() override { return &Grid(); }

 private:
  TVantrelGrid& Grid() { return FUi->Achievements().Grid(); }
  void DefineFields(const TCourses& courses);
  void CreateColumns();
  void ShowClass();
  void FillSubjects();
  void UpdateTitle();
  void DataChange_ClassesSource(TListChange change);

  TClass* CurrentClass = nullptr;
  TVantrelMemTable FSubjects;
  std::optional<TListPane> FClasses;
  /// Goes first: its grids show what list and table hold.
  std::unique_ptr<TListViewUi> FUi;
};

/// The classes view while there is one.
inline TClassesView* ClassesView = nullptr;
