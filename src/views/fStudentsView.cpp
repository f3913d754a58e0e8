#include "fStudentsView.h"

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uCertificateCommentsSheet.h"
#include "uCertificateDataSheet.h"
#include "uStudentsList.h"
#include "uUpdates.h"

using enum TStudentsPage;

TStudentsView::TStudentsView(TViewFrame& frame, std::unique_ptr<TStudentsViewUi> ui)
    : TBaseView(frame, "StudentsView"), FUi(std::move(ui)) {
  FStudents.emplace(FUi->Students(), StudentsList());
  auto achievements = std::make_unique<TAchievementSheet>(FUi->Achievements(), FFrame.Lookups());
  FAchievements = &achievements->Pane();
  FPages = {std::move(achievements), std::make_unique<TCertificateDataSheet>(*FUi, FFrame.Lookups()),
            std::make_unique<TCertificateCommentsSheet>(FUi->CertificateComments(), FFrame)};

  FAchievements->AcceptedGradeTypes = [this] {
    return CurrentClass == nullptr ? std::vector<TGradeTypes>() : ActivePage().GradeTypes(*CurrentClass);
  };
  FAchievements->OnCourseChanged = [this] { UpdateTitle(); };
  FStudents->OnChange = [this](TListChange change) { Handle_StudentsChange(change); };
  FUi->OnPageChanged = [this] { Handle_PageChanged(); };
}

TStudentsView::~TStudentsView() {
  TStudentsView::DestroyData();
  TStudentsView::TeardownView();
}

void TStudentsView::PostEdits() {
  for (const auto& page : FPages) page->PostEdits();
}

void TStudentsView::EndEdits() {
  for (const auto& page : FPages) page->EndEdits();
}

void TStudentsView::CreateData() {
  FStudents->Fill([](auto& table) { CurrentProject->Students().Populate(table); });
}

void TStudentsView::SetupView() {
  TBaseView::SetupView();
  FStorageKey = FStorageFormdir + "\\" + FName;
  FOnLoadProperties = [this] { FStudents->RestoreLayout(StoredLayout()); };
  FOnSaveProperties = [this] { StoreLayout(FStudents->Layout()); };
  FUi->SetActivePage(AchievementSheet);
  StudentsView = this;
}

void TStudentsView::DestroyData() {
  CurrentStudent = nullptr;
  CurrentClass = nullptr;
}

void TStudentsView::TeardownView() {
  if (StudentsView == this) StudentsView = nullptr;
}

void TStudentsView::UpdateStatus(const TVantrelMemTable* dataSet) {
  if (dataSet == &FStudents->Table()) return FStudents->UpdateCount();
  for (const auto& page : FPages) page->UpdateCount();
}

void TStudentsView::UpdateViewCommands() {
  UpdateGotoCommands();
  const bool onCourses = ActivePage().ShowsCourses();
  FFrame.EditZeugnisbeurteilungenCommand.SetEnabled(onCourses && CurrentStudent != nullptr &&
                                                    FFrame.EditAssessment != nullptr);
  FFrame.ExportToExcelCommand.SetEnabled(onCourses && FFrame.ExportGrid != nullptr);
  for (const auto& page : FPages) page->UpdateCommands();
}

void TStudentsView::UpdateContent() {
  if (FStudents->IsFilling()) return;
  PostEdits();
  const TGridUpdate update(FAchievements->Grid());
  CurrentStudent = FStudents->IsNobodyShown() ? nullptr : CurrentProject->Students().Find(FStudents->FocusedValue());
  if (CurrentStudent == nullptr && FStudents->RecordCount() == 0) return FUi->SetPagesEnabled(false);
  CurrentClass = CurrentStudent == nullptr ? nullptr : CurrentProject->Classes().Find(CurrentStudent->ClassId.Value);
  // A student without a number is found by nobody: no other one's courses stand beside the name.
  FUi->SetPagesEnabled(CurrentStudent != nullptr);
  for (const auto& page : FPages) page->ShowStudent(CurrentStudent, CurrentClass);
  UpdateTitle();
  UpdateViewCommands();
}

void TStudentsView::Handle_StudentsChange(TListChange change) {
  if (change == TListChange::Rows) return UpdateViewCommands();
  RunForUser([this] {
    UpdateContent();
    FAchievements->ReapplyGradeFilter();
    FAchievements->FocusWork();
    ActivePage().Fit();
  });
}

void TStudentsView::Handle_PageChanged() {
  PostEdits();
  UpdateTitle();
  UpdateViewCommands();
  if (ActivePage().OffersGrades()) FAchievements->ReapplyGradeFilter();
}

void TStudentsView::UpdateTitle() {
  std::string title = ResourceText(ViewTexts::StudentsTitle);
  if (FStudents->IsNobodyShown()) {
    title = ResourceText(ViewTexts::NobodyShown);
  } else if (CurrentStudent != nullptr) {
    title = CurrentStudent->ViewDisplayName();
    const auto* course = ActivePage().ShowsCourses() ? FAchievements->FocusedCourse() : nullptr;
    if (course != nullptr) title += " - " + course->SubjectName;
  }
  FUi->TitleLabel().SetValue(title);
}

void TStudentsView::EditZeugnisbeurteilungen() {
  FAchievements->EditAssessment(FFrame);
}

bool TStudentsView::ShowPlace(const TProjectPlace& place) {
  if (place.Student == nullptr || !FStudents->FocusId(place.Student->TessaronId.Value)) return false;
  const auto page = place.Course != nullptr ? AchievementSheet
                    : place.IsRemark        ? CertificateCommentsSheet
                                            : CertificateDataSheet;
  if (FUi->ActivePage() != page) {
    FUi->SetActivePage(page);
    Handle_PageChanged();
  }
  ActivePage().ShowPlace(place);
  return true;
}
