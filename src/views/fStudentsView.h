#pragma once

#include <array>
#include <memory>
#include <optional>

#include "fBaseView.h"
#include "fStudentsViewUi.h"
#include "uListPane.h"
#include "uStudentsViewPages.h"

/// Where the teacher works through the class student by student: the list of students, and on pages what the focused
/// one achieves in each course and what stands on the certificate.
class TStudentsView final : public TBaseView {
 public:
  TStudentsView(TViewFrame& frame, std::unique_ptr<TStudentsViewUi> ui);
  ~TStudentsView() override;

  void PostEdits() override;
  void EndEdits() override;
  bool HasDraft() override { return FAchievements->Grid().HasDraft(); }
  void CreateData() override;
  void SetupView() override;
  void DestroyData() override;
  void TeardownView() override;
  void UpdateStatus(const TVantrelMemTable* dataSet) override;
  void UpdateViewCommands() override;
  void UpdateContent() override;
  void EditZeugnisbeurteilungen() override;
  bool ShowPlace(const TProjectPlace& place) override;

 protected:
  TFormUi& Ui() override { return *FUi; }
  TVantrelGrid* NavigatedGrid() override { return &FUi->Students().Grid(); }
  std::string Title() override { return FUi->TitleLabel().Value().AsTextOrEmpty(); }
  TVantrelGrid* ExportedGrid() override { return &FUi->Achievements().Grid(); }

 private:
  TStudentsViewPage& ActivePage() const { return *FPages[static_cast<std::size_t>(FUi->ActivePage())]; }
  void UpdateTitle();
  void Handle_StudentsChange(TListChange change);
  void Handle_PageChanged();

  TStudent* CurrentStudent = nullptr;
  TClass* CurrentClass = nullptr;
  std::optional<TListPane> FStudents;
  /// By TStudentsPage.
  std::array<std::unique_ptr<TStudentsViewPage>, 3> FPages;
  TAchievementsPane* FAchievements = nullptr;
  /// Goes first: its grids show what list and pages hold.
  std::unique_ptr<TStudentsViewUi> FUi;
};

/// The students view while there is one.
inline TStudentsView* StudentsView = nullptr;
