#pragma once

#include <map>
#include <optional>

#include "fBaseView.h"
#include "fListViewUi.h"
#include "uAchievementsPane.h"
#include "uListPane.h"

/// Where the teacher works through the data subject by subject: the list of subjects, and for the focused one what each
/// student achieves. Nothing can be edited until a grade type is chosen.
class TSubjectsView final : public TBaseView {
 public:
  TSubjectsView(TViewFrame& frame, std::unique_ptr<TListViewUi> ui);
  ~TSubjectsView() override;

  void PostEdits() override { FAchievements->PostEdit(); }
  void EndEdits() override { FAchievements->EndEdit(); }
  bool HasDraft() override { return Grid().HasDraft(); }
  void CreateData() override;
  void SetupView() override;
  void DestroyData() override {}
  void TeardownView() override;
  void UpdateStatus(const TVantrelMemTable* dataSet) override;
  void UpdateViewCommands() override;
  void UpdateContent() override;
  void EditZeugnisbeurteilungen() override { FAchievements->EditAssessment(FFrame); }
  /// Shows and unlocks the rows of one grade type, and puts the keyboard into them.
  void UpdateFilter(const TVariant& gradeType, const TVariant& classValue) override;
  void GotoOpenGrade() override;
  bool ShowPlace(const TProjectPlace& place) override;

 protected:
  TFormUi& Ui() override { return *FUi; }
  TVantrelGrid* NavigatedGrid() override { return &FUi->List().Grid(); }
  std::string Title() override { return FUi->TitleLabel().Value().AsTextOrEmpty(); }
  TVantrelGrid* ExportedGrid() override { return &FUi->Achievements().Grid(); }

 private:
  TVantrelGrid& Grid() { return FAchievements->Grid(); }
  void ApplyFilter(const TVariant& gradeType, const TVariant& classValue);
  TAchievementsPane::TGradeTypeList AcceptedGradeTypes() const;
  void UpdateTitle();
  void UpdateNote();
  /// The counts of the list and the summary of the focused column.
  void UpdateSums();
  void UpdateOpenGrades();
  void ShowOpenGrades();
  std::string ColumnSummary();
  const char* GotoOpenGradeElsewhere();
  int OpenCellsShown();
  bool GotoOpenCell(bool behindFocus);
  bool GotoOpenSubject();
  void Handle_SubjectsChange(TListChange change);
  void Handle_ProjectChange(const TProjectChange& change);
  void Handle_ChangeMark(TChangeMark mark);

  /// 0, 1 or 2; null where none is chosen.
  TVariant LastFilter = TVariant::Null();
  TVariant LastClassFilter = TVariant::Null();
  TVariant FShownSubject = TVariant::Null();
  std::map<std::int32_t, int> FOpenGrades;  ///< by subject, of the grade type that is chosen
  bool FIsInBracket = false;
  bool FHasChanged = false;  ///< courses, within the bracket
  std::optional<TListPane> FSubjects;
  std::optional<TAchievementsPane> FAchievements;
  TProjectListeners::TToken FListener;
  /// Goes first: its grids show what list and pane hold.
  std::unique_ptr<TListViewUi> FUi;
};

/// The subjects view while there is one.
inline TSubjectsView* SubjectsView = nullptr;
