#include "fStudentsView.h"

#include <algorithm>

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uAchievementColumns.h"
#include "uCXUtils.h"

using enum TDataMode;
using enum TStudentsPage;

namespace {

/// A begin/end update that ends with its scope.
class TGridUpdate {
 public:
  explicit TGridUpdate(TVantrelGrid& grid) : FGrid(grid) { FGrid.BeginUpdate(); }
  TGridUpdate(const TGridUpdate&) = delete;
  TGridUpdate& operator=(const TGridUpdate&) = delete;
  ~TGridUpdate() { FGrid.EndUpdate(); }

 private:
  TVantrelGrid& FGrid;
};

TGridColumn ListColumn(const char* field, const char* caption, int width, TValueKind kind) {
  TGridColumn column;
  column.Id = std::string("col_Students_") + field;
  column.Caption = ResourceText(caption);
  column.Editor.ValueKind = kind;
  column.Width = width;
  column.Field = field;
  return column;
}

std::string Students_KlasseGetText(const TVariant& value) {
  const auto* schoolClass = CurrentProject->Classes().Find(value);
  return schoolClass == nullptr ? value.AsTextOrEmpty() : schoolClass->Token;
}

}  // namespace

TStudentsView::TStudentsView(TViewFrame& frame, std::unique_ptr<TStudentsViewUi> ui)
    : TBaseView(frame, "StudentsView"), FUi(std::move(ui)) {
  MakeStudents();
  TGridOptions options;
  options.ReadOnly = false;
  options.IncrementalSearch = false;
  options.TabMovesCells = options.EnterMovesToNextCell = options.WrapAtRowEnd = true;
  options.RowIndicator = options.RowsFollowContent = options.HeaderFollowsContent = true;
  options.Grouping = options.Filtering = options.Chooser = true;
  FUi->AchievementsGrid().SetOptions(options);
  FUi->AchievementsGrid().SetName(ResourceText(ViewTexts::AchievementSheet));
  ConnectEvents();
}

TStudentsView::~TStudentsView() {
  TStudentsView::DestroyData();
  TStudentsView::TeardownView();
}

void TStudentsView::MakeStudents() {
  constexpr int nameSize = 100;
  Students.AddField("ID", TVantrelFieldType::ftInteger);
  Students.AddField("Vorname", TVantrelFieldType::ftText, nameSize);
  Students.AddField("Nachname", TVantrelFieldType::ftText, nameSize);
  Students.AddField("Geburtsdatum", TVantrelFieldType::ftDateTime);
  Students.AddField("Klasse", TVantrelFieldType::ftInteger).OnGetText = Students_KlasseGetText;
  Students.Open();

  auto& grid = FUi->StudentsGrid();
  TGridOptions options;
  options.SortedByView = options.Filtering = options.MovingColumns = true;
  grid.SetOptions(options);
  grid.SetName(ResourceText(ViewTexts::StudentsLabel));
  auto id = ListColumn("ID", ViewTexts::StudentId, 60, TValueKind::Integer);
  id.Visible = id.InChooser = false;
  grid.AddColumn(id);
  grid.AddColumn(ListColumn("Klasse", ViewTexts::StudentClass, 80, TValueKind::Text));
  grid.AddColumn(ListColumn("Vorname", ViewTexts::StudentFirstName, 120, TValueKind::Text));
  const int lastName = grid.AddColumn(ListColumn("Nachname", ViewTexts::StudentLastName, 120, TValueKind::Text));
  grid.AddColumn(ListColumn("Geburtsdatum", ViewTexts::StudentBirthday, 80, TValueKind::Date));
  grid.BindTable(&Students);
  grid.FocusColumn(lastName);
}

void TStudentsView::ConnectEvents() {
  auto& list = FUi->StudentsGrid();
  list.OnFocusChanged = [this](int, int) { Handle_StudentsChange(); };
  list.OnRowsChanged = [this] { Handle_StudentsRowsChanged(); };
  list.OnHeaderClick = [this](int ordinal) { RememberSortProps(ordinal); };
  list.OnSortChanged = [this] { Students_SortByData(); };
  // A double click on an assessment opens nothing: its dialog is reached by the command alone.
  auto& grid = FUi->AchievementsGrid();
  grid.OnFocusChanged = [this](int, int) { UpdateTitle(); };
  grid.OnEditing = [this](int ordinal) { return Handle_AchievementsEditing(ordinal); };
  grid.OnKeyDown = [this](int ordinal, TGridKey key) { return Handle_AchievementsKeyDown(ordinal, key); };
  FModifiedMark.Follow(grid);
  FUi->OnFit = [this] { FitGridView(); };
  FUi->OnPageChanged = [this] { Handle_PageChanged(); };
}

void TStudentsView::PostEdits() {
  FUi->AchievementsGrid().PostEdit();
}

void TStudentsView::CreateData() {
  StudentsDataMode = dmFill;
  Students.DisableControls();
  CurrentProject->Students().Populate(Students);
  Students.EnableControls();
  UpdateStatus(&Students);
  UpdateStatus(nullptr);
  TCXUtils::GotoFirst(FUi->StudentsGrid());
  StudentsDataMode = dmBrowse;

  TakeLookups();
}

void TStudentsView::TakeLookups() {
  if (LookupModule == nullptr || LookupModule->ProjectObj != CurrentProject) return LeaveLookupModule();
  LookupModule->OnDestroy = [this] { LeaveLookupModule(); };
  UseLookups(*LookupModule);
}

void TStudentsView::LeaveLookupModule() {
  FOwnLookups = std::make_unique<TLookupTables>(*CurrentProject);
  FOwnLookups->Initialize();
  UseLookups(*FOwnLookups);
}

void TStudentsView::UseLookups(TLookupTables& lookups) {
  FLookups = &lookups;
  lookups.Grades.SetOnFilterRecord([this](const auto& row) { return FilterGrades(row); });
  lookups.Grades.SetFiltered(true);
  FColumns = StudentCourseColumns(CurrentProject->Options().Columns(), lookups);
  FEditable.clear();
  for (const auto& column : FColumns) FEditable.push_back(CurrentProject->EditableColumn(column.Id));
  auto& grid = FUi->AchievementsGrid();
  if (grid.Columns().empty()) return;
  const TGridUpdate update(grid);
  FGridState.Save(grid);
  BuildAchievementColumns();
  FGridState.Restore(grid);
}

void TStudentsView::SetupView() {
  TBaseView::SetupView();
  FStorageKey = FStorageFormdir + "\\" + FName;
  FOnLoadProperties = [this] { FormLoadProperties(); };
  FOnSaveProperties = [this] { FormSaveProperties(); };
  FUi->SetPageVisible(CertificateDataSheet, false);
  FUi->SetPageVisible(CertificateCommentsSheet, false);
  FUi->SetActivePage(AchievementSheet);
  StudentsView = this;
}

void TStudentsView::DestroyData() {
  CurrentStudent = nullptr;
  CurrentClass = nullptr;
  if (FLookups != nullptr && FLookups == LookupModule) {
    LookupModule->OnDestroy = nullptr;
    LookupModule->Grades.SetFiltered(false);
    LookupModule->Grades.SetOnFilterRecord(nullptr);
  }
  FLookups = nullptr;
}

void TStudentsView::TeardownView() {
  if (StudentsView == this) StudentsView = nullptr;
}

void TStudentsView::FormLoadProperties() {
  auto& grid = FUi->StudentsGrid();
  RestoreLayout(grid);
  StudentsDataMode = dmFill;
  const auto& columns = grid.Columns();
  const auto sorted = std::ranges::find(columns, 0, &TGridColumn::SortIndex);
  if (sorted != columns.end()) {
    RememberSortProps(static_cast<int>(sorted - columns.begin()));
    Students_SortByData();
    TCXUtils::GotoFirst(grid);
  }
  StudentsDataMode = dmBrowse;
  Handle_StudentsChange();
}

void TStudentsView::FormSaveProperties() {
  StoreLayout(FUi->StudentsGrid());
}

void TStudentsView::UpdateStatus(const TVantrelMemTable* dataSet) {
  if (dataSet == &Students)
    FUi->StudentsStatus().SetValue(FormatText(ViewTexts::Count, Students.RecordCount()));
  else
    FUi->AchievementsStatus().SetValue(
        FormatText(ViewTexts::Count, CoursesSource == nullptr ? 0 : CoursesSource->GetRecordCount()));
}

void TStudentsView::UpdateViewCommands() {
  UpdateGotoCommands(FUi->StudentsGrid());
  const bool onAchievements = FUi->ActivePage() == AchievementSheet;
  FFrame.EditZeugnisbeurteilungenCommand.SetEnabled(onAchievements && CurrentStudent != nullptr &&
                                                    FFrame.EditAssessment != nullptr);
  FFrame.ExportToExcelCommand.SetEnabled(onAchievements && FFrame.ExportGrid != nullptr);
}

void TStudentsView::GotoFirst() {
  TCXUtils::GotoFirst(FUi->StudentsGrid());
}

void TStudentsView::GotoPrev() {
  TCXUtils::GotoPrev(FUi->StudentsGrid());
}

void TStudentsView::GotoNext() {
  TCXUtils::GotoNext(FUi->StudentsGrid());
}

void TStudentsView::GotoLast() {
  TCXUtils::GotoLast(FUi->StudentsGrid());
}

void TStudentsView::ExportToExcel() {
  if (FFrame.ExportGrid) FFrame.ExportGrid(FUi->AchievementsGrid());
}

void TStudentsView::UpdateContent() {
  if (StudentsDataMode == dmFill || StudentsDataMode == dmUpdate) return;
  PostEdits();
  auto& grid = FUi->AchievementsGrid();
  const TGridUpdate update(grid);
  CurrentStudent = IsNobodyShown() ? nullptr : CurrentProject->Students().Find(Students.FieldByName("ID").Value());
  if (CurrentStudent == nullptr && Students.RecordCount() == 0) return;
  // A student without a number is found by nobody: no other one's courses stand beside the name.
  FUi->SetPagesEnabled(CurrentStudent != nullptr);
  FGridState.Save(grid);
  FKeptSubject.Save(grid, CoursesSource.get());
  ShowCourses();

  UpdateStatus(nullptr);
  UpdateTitle();
  UpdateViewCommands();
  // The columns that the first student left on show stay for the next ones, whatever their class.
  FGridState.Restore(grid);
}

void TStudentsView::ShowCourses() {
  auto& grid = FUi->AchievementsGrid();
  grid.BindSource(nullptr);
  CoursesSource.reset();
  CurrentClass = CurrentStudent == nullptr ? nullptr : CurrentProject->Classes().Find(CurrentStudent->ClassId.Value);
  BuildAchievementColumns();
  if (CurrentStudent == nullptr) return;
  CoursesSource =
      std::make_unique<TStudentCoursesSource>(CurrentProject->CoursesByStudent(CurrentStudent->TessaronId.Value));
  grid.BindSource(CoursesSource.get());
}

void TStudentsView::BuildAchievementColumns() {
  auto& grid = FUi->AchievementsGrid();
  grid.ClearColumns();
  grid.ClearFilter();
  const bool fillOnly = CurrentClass != nullptr && CurrentClass->GradeType() == TGradeTypes::gtFill;
  for (const auto& source : FColumns) {
    const int ordinal = grid.AddColumn(source);
    if (source.Visible && PostsEdits(ordinal)) {
      grid.OnEditChanged = [this, &grid](int) {
        FKeptSubject.Touch();
        grid.PostEdit();
      };
    }
    // A field that the project does not know has no caption; it stays hidden.
    if (fillOnly) grid.ShowColumn(ordinal, IsFillColumn(ordinal) && !source.Caption.empty());
  }
}

void TStudentsView::ReapplyGradeFilter() {
  FLookups->Grades.SetFiltered(false);
  FLookups->Grades.SetFiltered(true);
}

bool TStudentsView::FilterGrades(const TVantrelMemTable::TRow& row) const {
  if (CurrentClass == nullptr || FUi->ActivePage() == CertificateCommentsSheet) return true;
  const auto own = FUi->ActivePage() == AchievementSheet ? CurrentClass->GradeType() : TGradeTypes::gtValue;
  const auto& gradeType = row[static_cast<std::size_t>(FLookups->Grades.FieldByName("GradeType").Index())];
  return std::ranges::any_of(std::initializer_list<TGradeTypes>{own, TGradeTypes::gtFill},
                             [&](auto accepted) { return gradeType == TVariant(static_cast<std::int32_t>(accepted)); });
}

TGridKeyAction TStudentsView::Handle_AchievementsKeyDown(int ordinal, TGridKey key) {
  if (key == TGridKey::Enter || key == TGridKey::Delete) FKeptSubject.Touch();
  return key == TGridKey::Enter && IsGradeColumn(ordinal) ? TGridKeyAction::MoveDown : TGridKeyAction::Pass;
}

void TStudentsView::Handle_StudentsChange() {
  if (StudentsDataMode == dmFill || StudentsDataMode == dmUpdate) return;
  RunForUser([this] {
    UpdateContent();
    ReapplyGradeFilter();
    if (CoursesSource != nullptr)
      FKeptSubject.Restore(FUi->AchievementsGrid(), *CoursesSource, FirstGradeColumn(), CourseNameColumn);
    FitGridView();
  });
}

void TStudentsView::Handle_StudentsRowsChanged() {
  if (StudentsDataMode == dmBrowse) UpdateViewCommands();
}

void TStudentsView::Handle_PageChanged() {
  UpdateViewCommands();
  if (FUi->ActivePage() != CertificateCommentsSheet) ReapplyGradeFilter();
}

int TStudentsView::FirstGradeColumn() const {
  for (int ordinal = 0; ordinal < static_cast<int>(FColumns.size()); ++ordinal) {
    const auto place = static_cast<std::size_t>(ordinal);
    if (IsGradeColumn(ordinal) && FColumns[place].Visible && FEditable[place]) return ordinal;
  }
  return -1;
}

TCourse* TStudentsView::FocusedCourse() const {
  const int focused = FUi->AchievementsGrid().FocusedRecord();
  if (CoursesSource == nullptr || focused < 0 || focused >= CoursesSource->GetRecordCount()) return nullptr;
  return static_cast<TCourse*>(CoursesSource->GetRecordHandle(focused));
}

void TStudentsView::UpdateTitle() {
  std::string title = ResourceText(ViewTexts::StudentsTitle);
  if (IsNobodyShown()) {
    title = ResourceText(ViewTexts::NobodyShown);
  } else if (CurrentStudent != nullptr) {
    title = CurrentStudent->ViewDisplayName();
    if (const auto* course = FocusedCourse()) title += " - " + course->SubjectName;
  }
  FUi->TitleLabel().SetValue(title);
}

void TStudentsView::EditZeugnisbeurteilungen() {
  PostEdits();
  auto* course = FocusedCourse();
  if (course == nullptr || !FFrame.EditAssessment) return;
  const auto text = FFrame.EditAssessment(course->SubjectToken, course->Beurteilung);
  if (!text) return;
  course->Beurteilung = *text;
  CurrentProject->SetModified(true);
  FUi->AchievementsGrid().DataChanged();
}

void TStudentsView::FitGridView() {
  if (FUi->ActivePage() == CertificateDataSheet) return;
  // The bracket alone: the widths stay as the teacher left them.
  FUi->AchievementsGrid().BeginBestFit();
  FUi->AchievementsGrid().EndBestFit();
}

void TStudentsView::RememberSortProps(int ordinal) {
  const auto& column = FUi->StudentsGrid().Columns()[static_cast<std::size_t>(ordinal)];
  StudentSort.Values(column.Field, ordinal, column.SortIndex, static_cast<TSortOrder>(column.SortOrder), true);
}

void TStudentsView::Students_SortByData() {
  if (StudentSort.Name.empty()) return;
  Students.DisableControls();
  Students.Sort(StudentSort.Name, StudentSort.SortOrder == TSortOrder::soDescending);
  Students.EnableControls();
}
