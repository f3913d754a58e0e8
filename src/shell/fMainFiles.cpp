// The main window and its files: how a project is opened, saved and left.

#include <filesystem>

#include "ShellTexts.h"
#include "VantrelDateTime.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelPaths.h"
#include "fMain.h"
#include "uLoadReport.h"

namespace {

constexpr const char* DefaultExtension = "kvr7";

bool IsModified() {
  return CurrentProject != nullptr && CurrentProject->Modified();
}

bool FileIsThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored);
}

TVantrelMsgBoxResult AskToSave() {
  return MsgBoxAsk(ResourceText(ShellTexts::SaveQuestionCaption), ResourceText(ShellTexts::SaveQuestion));
}

/// Why a project cannot be saved under that name; empty if it can.
std::string RefuseName(const std::string& path) {
  if (!TVantrelFilePath::HasExtension(path) || GetProjectFileKind(path) != TProjectFileKind::pfkUnknown) return {};
  return FormatText(ShellTexts::SaveUnknownKind, TVantrelFilePath::GetFileName(path));
}

}  // namespace

TVantrelPtr<TMyTessaronProject> TMainForm::CreateProject() {
  auto project = CreateVantrel<TMyTessaronProject>();
  project->OnLoadFile = [this](TMyTessaronProject& sender, TFileLoadTimeType time) {
    FLookupModule.reset();
    if (time == TFileLoadTimeType::lfAfter) FLookupModule = CreateLookupModule(sender);
  };
  project->OnModified = [this] { UpdateCommands(); };
  return project;
}

bool TMainForm::CheckProjectPassword(TVantrelPtr<TMyTessaronProject>& project) {
  if (project == nullptr) return false;
  if (!project->PasswordProtected || project->CheckPassword(FPorts.Dialogs.AskPassword())) return true;
  MsgBoxError(ResourceText(ShellTexts::WrongPassword));
  project->CloseFile();
  project.reset();
  return false;
}

/// A file that was not read whole does not take the place of entries that are not saved: says so, then.
bool TMainForm::CostsEntries(const TMyTessaronProject& project) const {
  if (!IsModified() || (!project.FileName().empty() && !project.IsDamaged())) return false;
  MsgBoxError(ResourceText(ShellTexts::DamagedKeepsEntries));
  return true;
}

/// The view goes before the project that it shows.
void TMainForm::SetCurrentProject(TVantrelPtr<TMyTessaronProject> project) {
  FFormContainer.FreeEmbeddedForm();
  CurrentProject = nullptr;
  FProject = std::move(project);
  FWindow.SetStatusNote({});
  CurrentProject = FProject.get();
}

void TMainForm::AfterProjectLoaded() {
  ShowView(TMyTessaronViews::viewWelcome, true);
  UpdateAll();
  UpdateCommands();
  if (const auto report = LoadReport(*CurrentProject); !report.empty())
    MsgBoxWarning(ResourceText(ShellTexts::LoadReportCaption), report);
}

/// The welcome view is built anew with each open project, so that only the status text is left.
void TMainForm::UpdateAll() {
  UpdateStatusText();
}

void TMainForm::OpenFile() {
  PostEdits();
  // The question is put, and the answer changes nothing.
  if (IsModified()) AskToSave();
  FOpenFileDialog.Filter = ResourceText(ShellTexts::OpenFilter);
  FOpenFileDialog.DefaultExtension = DefaultExtension;
  FOpenFileDialog.FileName.clear();
  if (!FPorts.Dialogs.OpenFile(FOpenFileDialog)) return;
  const TVantrelWaitScope wait(FWaitCursor);
  const std::string path = FOpenFileDialog.FileName;
  FOpenFileDialog.InitialDir = TVantrelFilePath::GetDirectoryName(path);
  try {
    LoadChosenFile(path);
  } catch (const std::exception& error) {
    MsgBoxError(FormatText(ShellTexts::LoadError, path, error.what()));
  }
}

void TMainForm::LoadChosenFile(const std::string& path) {
  auto project = CreateProject();
  try {
    project->LoadFile(path);
  } catch (const EVantrelDataObjectReaderError& error) {
    MsgBoxError(error.Message());
  }
  if (CostsEntries(*project) || !CheckProjectPassword(project)) return;
  FRecentFiles.AddRecentFile(path);
  ShowRecentFiles();
  SetCurrentProject(std::move(project));
  AfterProjectLoaded();
}

void TMainForm::OpenFileFromPane(int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place >= FRecentFiles.Items().size()) return;
  const std::string path = FRecentFiles.Items()[place].StoredText;
  PostEdits();
  if (IsModified()) AskToSave();
  OpenNamedFile(path);
}

void TMainForm::OpenCommandLineFile() {
  if (!FArguments.empty() && FileIsThere(FArguments.front()))
    OpenNamedFile(std::filesystem::absolute(FArguments.front()).lexically_normal().string());
  UpdateCommands();
}

void TMainForm::OpenNamedFile(const std::string& path) {
  if (!FileIsThere(path)) return ShowLoadError(path, {});
  try {
    auto project = CreateProject();
    project->LoadFile(path);
    if (CostsEntries(*project) || !CheckProjectPassword(project) || project->FileName().empty()) return;
    SetCurrentProject(std::move(project));
    AfterProjectLoaded();
  } catch (const std::exception& error) {
    ShowLoadError(path, error.what());
  }
}

void TMainForm::ShowLoadError(const std::string& path, const std::string& message) {
  MsgBoxError(
      FormatText(ShellTexts::LoadError, path, message.empty() ? ResourceText(ShellTexts::FileNotFound) : message));
  FRecentFiles.RemoveRecentFile(path);
  ShowRecentFiles();
}

void TMainForm::SaveFile() {
  if (CurrentProject == nullptr) return;
  if (CurrentProject->FileName().empty()) return SaveFileAs();
  try {
    CurrentProject->SaveFile({});
    const auto now = DecodeDateTime(CurrentDateTime());
    FWindow.SetStatusNote(FormatText(ShellTexts::SavedAt, now.Hour, now.Minute));
  } catch (const std::exception& error) {
    MsgBoxError(FormatText(ShellTexts::SaveError, error.what()));
  }
}

void TMainForm::SaveFileAs() {
  if (CurrentProject == nullptr) return;
  FSaveDialog.FileName = CurrentProject->FileName();
  FSaveDialog.Refuse = RefuseName;
  if (!FPorts.Dialogs.SaveFile(FSaveDialog)) return;
  std::string extension;
  GetProjectFileExtension(TProjectFileKind::pfkEncryptedXml, extension);
  const auto& path = FSaveDialog.FileName;
  CurrentProject->SetFileName(TVantrelFilePath::HasExtension(path) ? path
                                                                   : TVantrelFilePath::AddExtension(path, extension));
  if (!CurrentProject->FileName().empty()) SaveFile();
  UpdateStatusText();
}

void TMainForm::CheckClose() {
  PostEdits();
  if (IsModified() && AskToSave() == TVantrelMsgBoxResult::mbrYes) SaveFile();
}
