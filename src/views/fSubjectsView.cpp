#include "fSubjectsView.h"

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uOpenGrades.h"
#include "uProjectHistory.h"
#include "uSubjectsList.h"
#include "uUpdates.h"

namespace {

int OrdinalOf(std::string_view column) {
  return TCourseColumns::Of(TCourseGrid::Subjects).OrdinalOf(column);
}

const char* FilterText(std::int32_t gradeType) {
  constexpr const char* texts[] = {ViewTexts::FilteredByGrades, ViewTexts::FilteredByPoints,
                                   ViewTexts::FilteredByTexts};
  return gradeType >= 0 && gradeType < static_cast<int>(std::size(texts)) ? texts[gradeType] : nullptr;
}

}  // namespace

TSubjectsView::TSubjectsView(TViewFrame& frame, std::unique_ptr<TListViewUi> ui)
    : TBaseView(frame, "SubjectsView"), FUi(std::move(ui)) {
  FSubjects.emplace(FUi->List(), SubjectsList());
  FAchievements.emplace(FUi->Achievements(), FFrame.Lookups(),
                        TAchievementsSettings{.Grid = TCourseGrid::Subjects,
                                              .MovesByCells = false,
                                              .SortsByCase = true,
                                              .FitsColumns = true,
                                              .GradesFollowRow = true});
  FAchievements->MayEdit = [this] { return !LastFilter.IsNull(); };
  FAchievements->AcceptedGradeTypes = [this] { return AcceptedGradeTypes(); };
  FAchievements->OnCourseChanged = [this] { UpdateTitle(); };
  FAchievements->OnShownChanged = [this] { UpdateNote(); };
  FSubjects->OnChange = [this](TListChange change) { Handle_SubjectsChange(change); };
  FUi->Achievements().OnFit = [this] { FAchievements->Fit(); };
  FListener = CurrentProject->Listen([this](const auto& change) { Handle_ProjectChange(change); },
                                     [this](auto mark) { Handle_ChangeMark(mark); });
}

TSubjectsView::~TSubjectsView() {
  TSubjectsView::TeardownView();
}

void TSubjectsView::CreateData() {
  RunForUser([this] {
    FSubjects->Fill([](auto& table) { CurrentProject->PopulateSubjects(table); });
    UpdateOpenGrades();
    UpdateContent();
  });
}

void TSubjectsView::SetupView() {
  TBaseView::SetupView();
  FStorageKey = FStorageFormdir + "\\" + FName;
  FOnLoadProperties = [this] { FSubjects->RestoreLayout(StoredLayout()); };
  FOnSaveProperties = [this] { StoreLayout(FSubjects->Layout()); };
  ApplyFilter(TVariant::Null(), TVariant::Null());
  SubjectsView = this;
}

void TSubjectsView::TeardownView() {
  if (SubjectsView == this) SubjectsView = nullptr;
}

void TSubjectsView::UpdateStatus(const TVantrelMemTable* dataSet) {
  if (dataSet == &FSubjects->Table()) return FSubjects->UpdateCount();
  FAchievements->UpdateCount();
}

void TSubjectsView::UpdateViewCommands() {
  UpdateGotoCommands();
  FFrame.EditZeugnisbeurteilungenCommand.SetEnabled(FFrame.EditAssessment != nullptr);
  FFrame.ExportToExcelCommand.SetEnabled(FFrame.ExportGrid != nullptr);
}

void TSubjectsView::UpdateContent() {
  PostEdits();
  {
    const TGridUpdate update(Grid());
    FShownSubject = FSubjects->FocusedValue();
    FAchievements->Show(std::make_unique<TSubjectCoursesSource>(CurrentProject->CoursesBySubject(FShownSubject)),
                        false);
    ApplyFilter(LastFilter, LastClassFilter);
  }
  UpdateTitle();
  UpdateViewCommands();
}

void TSubjectsView::ApplyFilter(const TVariant& gradeType, const TVariant& classValue) {
  if (!FAchievements->HasContent()) return;
  const bool isAll = gradeType.IsNull() || gradeType == TVariant(-1);
  const TGridUpdate update(Grid());
  Grid().ClearFilter();
  if (const auto* text = isAll ? nullptr : FilterText(gradeType.AsInteger()))
    Grid().AddFilter(OrdinalOf(CourseColumnNames::ClassGradeType), gradeType, ResourceText(text));
  if (!classValue.IsNull())
    Grid().AddFilter(OrdinalOf(CourseColumnNames::Class), classValue, ResourceText(ViewTexts::FilteredByClass));
  LastFilter = isAll ? TVariant::Null() : gradeType;
  LastClassFilter = classValue;
  // A class alone hides nothing.
  Grid().SetFilterActive(!isAll);
}

void TSubjectsView::UpdateFilter(const TVariant& gradeType, const TVariant& classValue) {
  PostEdits();
  const int focused = Grid().FocusedRecord();
  ApplyFilter(gradeType, classValue);
  // Where the focused row has gone the first key begins anew: no entry lands with whoever stands beside it.
  if (Grid().FocusedRecord() != focused) FAchievements->Unfocus();
  FAchievements->ReapplyGradeFilter();
  UpdateOpenGrades();
  UpdateTitle();
  UpdateNote();
  Grid().SetFocus();
}

TAchievementsPane::TGradeTypeList TSubjectsView::AcceptedGradeTypes() const {
  const auto* course = LastFilter.IsNull() || LastFilter.AsInteger() < 0 ? nullptr : FAchievements->FocusedCourse();
  const auto* schoolClass =
      course == nullptr ? nullptr : CurrentProject->Classes().Find(course->RequireStudent().ClassId.Value);
  if (schoolClass == nullptr) return {};
  return {schoolClass->GradeType(), TGradeTypes::gtFill};
}

void TSubjectsView::Handle_SubjectsChange(TListChange change) {
  if (change == TListChange::Rows || FSubjects->FocusedValue() == FShownSubject) return UpdateViewCommands();
  RunForUser([this] { UpdateContent(); });
}

void TSubjectsView::UpdateTitle() {
  std::string title = ResourceText(ViewTexts::SubjectsTitle);
  if (const auto* course = FAchievements->FocusedCourse())
    title = course->RequireStudent().ViewDisplayName() + " - " + course->SubjectName;
  else if (FSubjects->RecordCount() > 0)
    title = FSubjects->FocusedValue("Name").AsTextOrEmpty();
  FUi->TitleLabel().SetValue(title);
}

bool TSubjectsView::ShowPlace(const TProjectPlace& place) {
  return place.Course != nullptr && FSubjects->FocusId(place.Course->SubjectId.Value) &&
         FAchievements->ShowPlace(*place.Course, place.Key);
}
