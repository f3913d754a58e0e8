#pragma once

#include <memory>
#include <vector>

#include "fBaseView.h"
#include "fStudentsViewUi.h"
#include "mLookup.h"
#include "uDataSource.h"
#include "uGridState.h"
#include "uKeptSubject.h"
#include "uModifiedMark.h"

/// Where the teacher works through the class student by student: the list of students, and what the focused one
/// achieves in each course.
class TStudentsView final : public TBaseView {
 public:
  TStudentsView(TViewFrame& frame, std::unique_ptr<TStudentsViewUi> ui);
  ~TStudentsView() override;

  void PostEdits() override;
  void CreateData() override;
  void SetupView() override;
  void DestroyData() override;
  void TeardownView() override;
  void UpdateStatus(const TVantrelMemTable* dataSet) override;
  void UpdateViewCommands() override;
  void GotoFirst() override;
  void GotoPrev() override;
  void GotoNext() override;
  void GotoLast() override;
  void ExportToExcel() override;
  void UpdateContent() override;
  /// Lets the user change the assessment text of the focused course.
  void EditZeugnisbeurteilungen();

 protected:
  TFormUi& Ui() override { return *FUi; }

 private:
  void MakeStudents();
  void ConnectEvents();
  void BuildAchievementColumns();
  void TakeLookups();
  void LeaveLookupModule();
  void UseLookups(TLookupTables& lookups);
  void ReapplyGradeFilter();
  bool FilterGrades(const TVantrelMemTable::TRow& row) const;
  /// Where the work begins: the first grade that can be entered; -1 if there is none.
  int FirstGradeColumn() const;
  /// The list holds students, but its filter hides them all.
  bool IsNobodyShown() const { return FUi->StudentsGrid().FocusedRecord() < 0 && Students.RecordCount() > 0; }
  void ShowCourses();
  TCourse* FocusedCourse() const;
  void UpdateTitle();
  void FitGridView();
  void RememberSortProps(int ordinal);
  void Students_SortByData();
  void FormLoadProperties();
  void FormSaveProperties();
  void Handle_StudentsChange();
  void Handle_StudentsRowsChanged();
  void Handle_PageChanged();
  bool Handle_AchievementsEditing(int ordinal) const { return FEditable[static_cast<std::size_t>(ordinal)]; }
  TGridKeyAction Handle_AchievementsKeyDown(int ordinal, TGridKey key);

  TDataMode StudentsDataMode = TDataMode::dmNone;
  TStudent* CurrentStudent = nullptr;
  TClass* CurrentClass = nullptr;
  std::unique_ptr<TStudentCoursesSource> CoursesSource;
  TSortField StudentSort{{}, 0, -1, TSortOrder::soNone};
  TGridState FGridState;
  TKeptSubject FKeptSubject;
  TModifiedMark FModifiedMark;
  TVantrelMemTable Students;
  /// The lookup tables of CurrentProject: those of LookupModule, or the view's own where LookupModule has gone or
  /// mirrors another project.
  TLookupTables* FLookups = nullptr;
  std::unique_ptr<TLookupTables> FOwnLookups;
  /// The achievement columns as the project gives them, and whether they may be edited.
  std::vector<TGridColumn> FColumns;
  std::vector<bool> FEditable;
  /// Goes first: its grids show the tables and the source.
  std::unique_ptr<TStudentsViewUi> FUi;
};

/// The students view while there is one.
inline TStudentsView* StudentsView = nullptr;
