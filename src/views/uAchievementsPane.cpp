#include "uAchievementsPane.h"

#include <algorithm>

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uCXUtils.h"
#include "uUpdates.h"

TAchievementsPane::TAchievementsPane(TGridPaneUi& ui, TLookupTables& lookups, const TAchievementsSettings& settings)
    : FUi(ui),
      FLookups(lookups),
      FSettings(settings),
      FCourseColumns(TCourseColumns::Of(settings.Grid)),
      FColumns(FCourseColumns.GridColumns(CurrentProject->Options().Columns(), lookups)),
      FKeptRow(settings.KeptBy) {
  for (const auto& column : FColumns) FEditable.push_back(CurrentProject->EditableColumn(column.Id));
  SetGridOptions();
  ConnectEvents();
  FLookups.Grades.SetOnFilterRecord([this](const auto& row) { return OffersGrade(row); });
  ReapplyGradeFilter();
  FChanges = CurrentProject->Listen([this](const TProjectChange& change) { ShowChange(change); });
  UpdateCount();
}

TAchievementsPane::~TAchievementsPane() {
  FLookups.Grades.SetFiltered(false);
  FLookups.Grades.SetOnFilterRecord(nullptr);
}

void TAchievementsPane::SetGridOptions() {
  TGridOptions options;
  options.ReadOnly = false;
  options.IncrementalSearch = false;
  options.TabMovesCells = options.EnterMovesToNextCell = options.WrapAtRowEnd = FSettings.MovesByCells;
  options.RowIndicator = options.HeaderFollowsContent = FSettings.MovesByCells;
  options.RowsFollowContent = true;
  options.CaseSensitive = FSettings.SortsByCase;
  options.Grouping = options.Filtering = options.Chooser = true;
  FUi.Grid().SetOptions(options);
  FUi.Grid().SetName(ResourceText(ViewTexts::AchievementSheet));
}

void TAchievementsPane::ConnectEvents() {
  // A double click on an assessment opens nothing: its dialog is reached by the command alone.
  auto& grid = FUi.Grid();
  grid.OnFocusChanged = [this](int, int) {
    if (OnCourseChanged) OnCourseChanged();
    if (FSettings.GradesFollowRow) ReapplyGradeFilter();
  };
  grid.OnColumnChanged = [this](int) { TellShown(); };
  grid.OnRowsChanged = [this] { TellShown(); };
  if (FSettings.KeptBy == nullptr) grid.OnFirstKey = [this] { BeginWork(); };
  grid.OnEditing = [this](int ordinal) {
    return FEditable[static_cast<std::size_t>(ordinal)] && (!MayEdit || MayEdit());
  };
  grid.OnKeyDown = [this](int ordinal, TGridKey key) { return AnswerKey(ordinal, key); };
  grid.OnEditChanged = [](int) {
    TModifiedMark::TellAgain();
    return false;
  };
  FModifiedMark.Follow(grid);
}

void TAchievementsPane::Show(std::unique_ptr<TMyTessaronSource> source, bool isTextClass) {
  auto& grid = FUi.Grid();
  const TGridUpdate update(grid);
  FRemembered.Save(grid);
  if (FSettings.KeptBy != nullptr) FKeptRow.Save(grid, FSource.get());
  grid.BindSource(nullptr);
  FSource = std::move(source);
  BuildColumns(isTextClass);
  grid.BindSource(FSource.get());
  UpdateCount();
  // The columns that the first content left on show stay for the next ones, whatever their class.
  FRemembered.Restore(grid);
}

void TAchievementsPane::BuildColumns(bool isTextClass) {
  auto& grid = FUi.Grid();
  grid.ClearColumns();
  for (const auto& source : FColumns) {
    const int ordinal = grid.AddColumn(source);
    if (source.Visible && FCourseColumns.Posts(ordinal)) {
      grid.OnEditChanged = [this](int) {
        FKeptRow.Touch();
        return true;
      };
    }
    // A field that the project does not know has no caption; it stays hidden.
    if (isTextClass) grid.ShowColumn(ordinal, FCourseColumns.StaysForText(ordinal) && !source.Caption.empty());
  }
}

void TAchievementsPane::FocusWork() {
  if (FSource == nullptr) return;
  FKeptRow.Restore(FUi.Grid(), *FSource, FirstGradeColumn(), FCourseColumns.OrdinalOf(CourseColumnNames::Name));
}

/// Where the work begins: the first grade that can be entered; -1 if there is none.
int TAchievementsPane::FirstGradeColumn() const {
  for (int ordinal = 0; ordinal < static_cast<int>(FColumns.size()); ++ordinal) {
    const auto place = static_cast<std::size_t>(ordinal);
    if (FCourseColumns.IsGrade(ordinal) && FColumns[place].Visible && FEditable[place]) return ordinal;
  }
  return -1;
}

void TAchievementsPane::BeginWork() {
  Grid().FocusColumn(WorkColumn());
  Grid().GotoFirst();
}

/// The grade column used last, else the first that can be edited, else any other that can.
int TAchievementsPane::WorkColumn() const {
  const auto& columns = FUi.Grid().Columns();
  const auto canEdit = [&](int ordinal) {
    const auto place = static_cast<std::size_t>(ordinal);
    return columns[place].Visible && columns[place].Editing && FEditable[place];
  };
  if (FUsedColumn >= 0 && canEdit(FUsedColumn)) return FUsedColumn;
  int other = -1;
  for (int ordinal = 0; ordinal < static_cast<int>(columns.size()); ++ordinal) {
    if (!canEdit(ordinal)) continue;
    if (FCourseColumns.IsGrade(ordinal)) return ordinal;
    if (other < 0) other = ordinal;
  }
  return other;
}

void TAchievementsPane::TellShown() {
  if (OnShownChanged) OnShownChanged();
}

void TAchievementsPane::ReapplyGradeFilter() {
  FLookups.Grades.SetFiltered(false);
  FLookups.Grades.SetFiltered(true);
}

bool TAchievementsPane::OffersGrade(const TVantrelMemTable::TRow& row) const {
  const auto accepted = AcceptedGradeTypes ? AcceptedGradeTypes() : TGradeTypeList();
  const auto& gradeType = row[static_cast<std::size_t>(FLookups.Grades.FieldByName("GradeType").Index())];
  return accepted.empty() || std::ranges::any_of(accepted, [&](auto type) {
           return gradeType == TVariant(static_cast<std::int32_t>(type));
         });
}

TGridKeyAction TAchievementsPane::AnswerKey(int ordinal, TGridKey key) {
  if (key == TGridKey::Enter || key == TGridKey::Delete) FKeptRow.Touch();
  return key == TGridKey::Enter && FCourseColumns.IsGrade(ordinal) ? TGridKeyAction::MoveDown : TGridKeyAction::Pass;
}

void TAchievementsPane::Fit() {
  auto& grid = FUi.Grid();
  grid.BeginBestFit();
  if (FSettings.FitsColumns) grid.BestFitAll();
  grid.EndBestFit();
}

void TAchievementsPane::UpdateCount() {
  FUi.Status().SetValue(FormatText(ViewTexts::Count, FSource == nullptr ? 0 : FSource->GetRecordCount()));
}

void TAchievementsPane::ShowChange(const TProjectChange& change) {
  if (FSource == nullptr) return;
  if (FSource->BeingWritten() == &change.Record) {
    // What the grid writes it shows itself.
    if (FCourseColumns.IsGrade(FUi.Grid().FocusedColumn())) FUsedColumn = FUi.Grid().FocusedColumn();
    return;
  }
  for (int row = 0; row < FSource->GetRecordCount(); ++row) {
    if (FSource->GetRecordHandle(row) != &change.Record) continue;
    return FUi.Grid().RecordChanged(row);
  }
}

TCourse* TAchievementsPane::FocusedCourse() const {
  const int focused = FUi.Grid().FocusedRecord();
  if (FSource == nullptr || focused < 0 || focused >= FSource->GetRecordCount()) return nullptr;
  return static_cast<TCourse*>(FSource->GetRecordHandle(focused));
}

bool TAchievementsPane::ShowPlace(const TCourse& course, std::string_view key) {
  auto& grid = FUi.Grid();
  int record = FSource == nullptr ? -1 : FSource->GetRecordCount() - 1;
  while (record >= 0 && FSource->GetRecordHandle(record) != &course) --record;
  if (record < 0 || !TCXUtils::FocusRecord(grid, record)) return false;
  const auto shown = grid.ShownColumns();
  const auto column = std::ranges::find_if(shown, [&](int ordinal) { return FCourseColumns.Find(ordinal)->Key == key; });
  if (column != shown.end()) grid.FocusColumn(*column);
  grid.SetFocus();
  return column != shown.end();
}

void TAchievementsPane::EditAssessment(const TViewFrame& frame) {
  PostEdit();
  auto* course = FocusedCourse();
  if (course == nullptr || !frame.EditAssessment) return;
  const auto text =
      frame.EditAssessment(course->SubjectToken, course->Beurteilung, course->RequireStudent().ViewDisplayName());
  if (!text) return;
  CurrentProject->ChangeField(*course, "Beurteilung", *text);
}
