#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "GridPaneUi.h"
#include "fBaseView.h"
#include "mLookup.h"
#include "uDataSource.h"
#include "uKeptRow.h"
#include "uModifiedMark.h"
#include "uRememberedColumns.h"

/// In what the achievement grids of the views differ.
struct TAchievementsSettings {
  TCourseGrid Grid = TCourseGrid::Students;
  /// Tab and Enter move from cell to cell, over the end of a row; the row that has the focus is marked, and the height
  /// of the header follows its captions.
  bool MovesByCells = true;
  bool SortsByCase = false;
  /// The fit gives all columns the width of their content; else it leaves them as they are.
  bool FitsColumns = false;
  /// By what the work goes on in the same row when the content is another. Null: no row of another content has the
  /// focus until the first key comes, which begins in the first row.
  TKeptRow::TKey KeptBy = nullptr;
  /// The lookups of the grades follow the focused row; else they follow the content.
  bool GradesFollowRow = false;
};

/// The grid of courses in which grades are entered: its columns and which of them may be edited, what they keep when
/// the content changes, the lookups of the grades, the keys, the posting of edits, and the assessment text of the
/// focused course. A course that changes elsewhere is shown anew alone.
class TAchievementsPane {
 public:
  using TGradeTypeList = std::vector<TGradeTypes>;

  /// The tables are those of CurrentProject, and outlive the pane. The screen goes before it.
  TAchievementsPane(TGridPaneUi& ui, TLookupTables& lookups, const TAchievementsSettings& settings);
  TAchievementsPane(const TAchievementsPane&) = delete;
  TAchievementsPane& operator=(const TAchievementsPane&) = delete;
  ~TAchievementsPane();

  /// Whether anything can be edited at this moment; unset: yes. Asked without side effects.
  std::function<bool()> MayEdit;
  /// The types of grades that the lookups offer at this moment; none given means all.
  std::function<TGradeTypeList()> AcceptedGradeTypes;
  /// Another course has the focus.
  std::function<void()> OnCourseChanged;
  /// Other courses are shown, or another column has the focus.
  std::function<void()> OnShownChanged;

  /// Shows other courses, in the columns as the content before left them. Null shows the columns alone. Of text classes
  /// the first content leaves three columns.
  void Show(std::unique_ptr<TMyTessaronSource> source, bool isTextClass);
  /// Focuses where the work goes on, once the content is another.
  void FocusWork();
  /// No course has the focus any more.
  void Unfocus() { FUi.Grid().BindSource(FSource.get()); }
  void ReapplyGradeFilter();
  void PostEdit() { FUi.Grid().PostEdit(); }
  void EndEdit() { FUi.Grid().EndEdit(); }
  void Fit();
  void UpdateCount();

  TVantrelGrid& Grid() { return FUi.Grid(); }
  /// Whether there is anything to show, be it no course at all.
  bool HasContent() const { return FSource != nullptr; }
  /// Focuses the course, in the column of the stored field if it is on show, and takes the keyboard. False where the
  /// course or the column is not shown.
  bool ShowPlace(const TCourse& course, std::string_view key);
  /// The course whose row has the focus; null if there is none.
  TCourse* FocusedCourse() const;
  /// Lets the user change the assessment text of the focused course.
  void EditAssessment(const TViewFrame& frame);

 private:
  void SetGridOptions();
  void ConnectEvents();
  void BuildColumns(bool isTextClass);
  void ShowChange(const TProjectChange& change);
  bool OffersGrade(const TVantrelMemTable::TRow& row) const;
  int FirstGradeColumn() const;
  void TellShown();
  void BeginWork();
  int WorkColumn() const;
  TGridKeyAction AnswerKey(int ordinal, TGridKey key);

  TGridPaneUi& FUi;
  TLookupTables& FLookups;
  const TAchievementsSettings FSettings;
  const TCourseColumns& FCourseColumns;
  /// The columns as the project gives them, and whether they may be edited.
  std::vector<TGridColumn> FColumns;
  std::vector<bool> FEditable;
  TRememberedColumns FRemembered;
  TKeptRow FKeptRow;
  /// The grade column that the user has entered something in; -1 if there is none.
  int FUsedColumn = -1;
  TModifiedMark FModifiedMark;
  std::unique_ptr<TMyTessaronSource> FSource;
  TProjectListeners::TToken FChanges;
};
