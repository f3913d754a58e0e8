#include "fWelcomeView.h"

#include <algorithm>

#include "SystemFolders.h"
#include "VantrelDateTime.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uMissingGrades.h"
#include "uProject.h"

using enum TWelcomeText;

namespace {

/// When the file was last written, for the reader; empty if there is no such file.
std::string FileTimeText(const std::string& path) {
  try {
    return DateTimeToGermanText(TVantrelFileSystem::GetLastWriteTime(path));
  } catch (const EVantrelException&) {
    return {};
  }
}

/// The line for the final grades in total gives the count of the first final grade, as the line before it does.
std::string MissingGradesText(const TMissingGrades& missing) {
  if (missing.IsNothingMissing()) return ResourceText(ViewTexts::NoGradesMissing);
  std::string text = ResourceText(ViewTexts::GradesMissing);
  const auto add = [&](const char* line, int count) {
    if (count > -1) text += "\n" + FormatText(line, count);
  };
  add(ViewTexts::MissingNoten, missing.Noten1To5Count);
  add(ViewTexts::MissingEndnoten, missing.Endnote1Count);
  add(ViewTexts::MissingEndnotenGesamt, missing.Endnote1Count);
  return text;
}

}  // namespace

TWelcomeView::TWelcomeView(TViewFrame& frame, std::unique_ptr<TWelcomeViewUi> ui)
    : TBaseView(frame, "WelcomeView"), FUi(std::move(ui)) {
  // Where the view is smaller than the panel it scrolls.
  FUi->OnResize = [this](int width, int height) {
    FUi->MoveCenterPanel(std::max(width / 2 - TWelcomeViewUi::CenterPanelWidth / 2, 0),
                         std::max(height / 2 - TWelcomeViewUi::CenterPanelHeight / 2, 0));
  };
  FUi->OnRecentClick = [this](int index) { FFrame.OpenRecentFile(index); };
}

void TWelcomeView::SetupView() {
  TBaseView::SetupView();
  WelcomeView = this;
  SetText(VersionText, FormatText(ViewTexts::ProgramVersion, FFrame.ProgramVersion));
  UpdateContent();
}

void TWelcomeView::TeardownView() {
  if (WelcomeView == this) WelcomeView = nullptr;
}

void TWelcomeView::RecentFilesChanged() {
  FUi->SetStart(CurrentProject == nullptr, FFrame.RecentFiles());
}

void TWelcomeView::UpdateContent() {
  const auto* project = CurrentProject;
  RecentFilesChanged();
  for (const auto text : {FileVersionText, FilenameText, StudentsText, CreatedOnText, ChangedOnText, FilepathText,
                          SignatureText, PeriodText, TenantText, DescriptionMemo})
    FUi->Text(text).SetVisible(project != nullptr);
  FUi->Text(WriteProtectedText).SetVisible(project != nullptr && project->IsWriteProtected());
  if (project == nullptr) return SetText(FilenameText, ResourceText(ViewTexts::FileGroup));

  const auto fileTime = FileTimeText(project->FileName());
  SetText(FileVersionText, FormatText(ViewTexts::FileVersion, project->ProductVersion()));
  SetText(FilepathText, FormatText(ViewTexts::Filepath, System::FolderOf(project->FileName())));
  SetText(WriteProtectedText, ResourceText(ViewTexts::WriteProtected));
  SetText(CreatedOnText, FormatText(ViewTexts::CreatedOn, fileTime));
  SetText(ChangedOnText, FormatText(ViewTexts::ChangedOn, fileTime));
  SetText(SignatureText, FormatText(ViewTexts::Signature, project->TeacherName, project->TeacherId.AsInt()));
  SetText(PeriodText, FormatText(ViewTexts::Period, project->TermName, project->TermId.AsInt()));
  SetText(TenantText, FormatText(ViewTexts::Tenant, project->TenantId.AsInt()));
  SetText(StudentsText, FormatText(ViewTexts::StudentCount, project->Students().Count()));
  SetText(DescriptionMemo, project->Description);
  // What is missing stands where the name of the file would.
  SetText(FilenameText, MissingGradesText(CountMissingGrades(*project)));
}
