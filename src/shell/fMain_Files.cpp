// The main window and its files: how a project is opened, saved and left.

#include <fmt/format.h>

#include <filesystem>

#include "ShellTexts.h"
#include "SystemFolders.h"
#include "VantrelDateTime.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelPaths.h"
#include "VantrelText.h"
#include "ViewTexts.h"
#include "fMain.h"
#include "uFileNames.h"
#include "uLoadReport.h"

namespace {

constexpr const char* DefaultExtension = "kvr7";

bool IsModified() {
  return CurrentProject != nullptr && CurrentProject->Modified();
}

bool FileIsThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(System::PathOf(path), ignored);
}

/// The whole name for one that was chosen in the save dialog: without final dots, of a kind of its own or of the usual.
std::string TargetOf(std::string path) {
  while (path.ends_with('.') && !path.ends_with("/.")) path.pop_back();
  std::string extension;
  GetProjectFileExtension(TProjectFileKind::pfkEncryptedXml, extension);
  return TVantrelFilePath::HasExtension(path) ? path : TVantrelFilePath::AddExtension(path, extension);
}

/// A name beside the file that is free: "NAME (2).kvrx".
std::string FreeName(const std::string& path) {
  const auto file = System::PathOf(path);
  const auto start = System::NameOf(file.parent_path() / file.stem());
  const auto numbered = [&](int number) {
    return fmt::format("{} ({}){}", start, number, System::NameOf(file.extension()));
  };
  return System::FirstFreeName(numbered(2), [&](int number) { return numbered(number + 1); });
}

/// What went wrong with a file; of one that must not be written, why.
std::string ReasonOf(const std::string& path, const std::exception& error) {
  const auto* refused = dynamic_cast<const EVantrelFileHandleError*>(&error);
  if (refused != nullptr && refused->ErrorCode() == static_cast<std::uint32_t>(TVantrelErrorCode::SharingViolation) &&
      CurrentProject != nullptr && System::IsSameFile(path, CurrentProject->FileName()))
    return ResourceText(ShellTexts::OpenHere);
  if (refused == nullptr || refused->ErrorCode() != static_cast<std::uint32_t>(TVantrelErrorCode::AccessDenied) ||
      TVantrelFileSystem::GetFileMode(path) != TVantrelFileMode::fmodeReadOnly)
    return error.what();
  return FormatText(ShellTexts::WriteProtectedKind, error.what(), ResourceText(ViewTexts::WriteProtected));
}

}  // namespace

TVantrelPtr<TMyTessaronProject> TMainForm::CreateProject() {
  auto project = CreateVantrel<TMyTessaronProject>();
  project->OnLoadFile = [this](TMyTessaronProject& sender, TFileLoadTimeType time) {
    if (time == TFileLoadTimeType::lfBefore)
      FLookups.BeforeLoad();
    else
      FLookups.AfterLoad(sender);
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
  FRecovery.Leave();
  CurrentProject = nullptr;
  FHistory.reset();
  FSavedAt = 0;
  FProject = std::move(project);
  CurrentProject = FProject.get();
  if (FProject != nullptr) {
    FHistory.emplace(*FProject).OnChange = [this] { UpdateHistoryCommands(); };
    FRecovery.Follow(*FProject);
  }
  FLookups.SetOpen(CurrentProject);
  ShowStandingNote();
}

void TMainForm::AfterProjectLoaded() {
  ShowView(TMyTessaronViews::viewWelcome, true);
  UpdateAll();
  UpdateCommands();
  if (const auto report = LoadReport(*CurrentProject); !report.empty())
    MsgBoxWarning(ResourceText(ShellTexts::NoteCaption), report);
  OfferRecovery();
}

void TMainForm::OfferRecovery() {
  FRecoveryTimer->Start(1, [this] {
    FRecoveryTimer->Stop();
    RunForUser([this] { FRecovery.Offer([this] { return FPorts.Dialogs.AskPassword(); }); });
  });
}

/// The welcome view is built anew with each open project, so that only the status text is left.
void TMainForm::UpdateAll() {
  UpdateStatusText();
}

TVantrelMsgBoxResult TMainForm::AskToSave() {
  FRecovery.Flush();
  // No costs the entries: that takes more than Escape.
  return MsgBoxAsk(ResourceText(ShellTexts::NoteCaption), ResourceText(ShellTexts::SaveQuestion), false,
                   TVantrelMsgBoxParent::mbpActiveWindow, 2, false);
}

void TMainForm::OpenFile() {
  OnForm(&TBaseForm::PostEdits);
  // The question is put, and the answer changes nothing.
  if (IsModified()) AskToSave();
  FOpenFileDialog.Filter = ResourceText(ShellTexts::OpenFilter);
  FOpenFileDialog.DefaultExtension = DefaultExtension;
  FOpenFileDialog.FileName.clear();
  FOpenFileDialog.Accepts = [](const std::string& path) {
    const auto refusal = RefusalToOpen(path);
    if (!refusal.empty()) MsgBoxError(refusal);
    return refusal.empty();
  };
  if (!FPorts.Dialogs.OpenFile(FOpenFileDialog)) return;
  const TVantrelWaitScope wait(FWaitCursor);
  const std::string path = FOpenFileDialog.FileName;
  FOpenFileDialog.InitialDir = System::FolderOf(path);
  try {
    LoadChosenFile(path);
  } catch (const std::exception& error) {
    MsgBoxError(FormatText(ShellTexts::LoadError, path, ReasonOf(path, error)));
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
  OpenFileOfUser(std::string(FRecentFiles.Items()[place].StoredText));
}

void TMainForm::OpenFileOfUser(const std::string& path) {
  OnForm(&TBaseForm::PostEdits);
  if (IsModified()) AskToSave();
  OpenNamedFile(path);
}

void TMainForm::OpenCommandLineFile() {
  if (!FArguments.empty() && FileIsThere(FArguments.front()))
    OpenNamedFile(System::NameOf(std::filesystem::absolute(System::PathOf(FArguments.front())).lexically_normal()));
  UpdateCommands();
}

void TMainForm::OpenNamedFile(const std::string& path) {
  if (const auto refusal = RefusalToOpen(path); !refusal.empty()) return ShowLoadError(path, refusal);
  if (!FileIsThere(path)) return ShowLoadError(path, {});
  try {
    auto project = CreateProject();
    project->LoadFile(path);
    if (CostsEntries(*project) || !CheckProjectPassword(project) || project->FileName().empty()) return;
    SetCurrentProject(std::move(project));
    AfterProjectLoaded();
  } catch (const std::exception& error) {
    ShowLoadError(path, ReasonOf(path, error));
  }
}

void TMainForm::ShowLoadError(const std::string& path, const std::string& message) {
  MsgBoxError(FormatText(ShellTexts::LoadError, RepairUtf8(path),
                         message.empty() ? ResourceText(ShellTexts::FileNotFound) : message));
  FRecentFiles.RemoveRecentFile(path);
  ShowRecentFiles();
}

/// Qt gives U+FFFD for what it cannot read of a name, and then finds no such file.
std::string TMainForm::RefusalToOpen(const std::string& path) {
  const auto name = ShownFileName(path);
  const bool isMisread = name.find("\uFFFD") != std::string::npos && !FileIsThere(path);
  if (isMisread || RepairUtf8(path) != path) return FormatText(ShellTexts::IllFormedName, name);
  if (GetProjectFileKind(path) != TProjectFileKind::pfkUnknown) return {};
  return FormatText(ShellTexts::OpenUnknownKind, name);
}

bool TMainForm::AcceptsTarget(const std::string& path) {
  const auto target = TargetOf(path);
  if (GetProjectFileKind(target) == TProjectFileKind::pfkUnknown) {
    MsgBoxError(FormatText(ShellTexts::SaveUnknownKind, ShownFileName(path)));
    return false;
  }
  const bool isOwn = System::IsSameFile(target, CurrentProject->FileName()) && !CurrentProject->IsFileChanged();
  return isOwn || !TVantrelFileSystem::Exists(target) ||
         MsgBoxAsk(ResourceText(ShellTexts::NoteCaption),
                   FormatText(ShellTexts::OverwriteQuestion, ShownFileName(target))) == TVantrelMsgBoxResult::mbrYes;
}

void TMainForm::ShowRecentFiles() {
  FWindow.SetRecentItems(FRecentFiles.Items());
  OnForm(&TBaseForm::RecentFilesChanged);
}

void TMainForm::SaveFile() {
  // What the screen shows is what is saved.
  OnForm(&TBaseForm::PostEdits);
  SaveUnlessChanged(true);
}

bool TMainForm::SaveUnlessChanged(bool withCancel) {
  if (CurrentProject == nullptr) return false;
  if (CurrentProject->FileName().empty()) return SaveFileAs();
  if (CurrentProject->IsFileChanged()) {
    auto text = FormatText(ShellTexts::ChangedQuestion, ShownFileName(CurrentProject->FileName()));
    if (withCancel) text += ResourceText(ShellTexts::ChangedCancel);
    const auto answer = MsgBoxAsk(ResourceText(ShellTexts::NoteCaption), text, withCancel);
    if (withCancel && answer == TVantrelMsgBoxResult::mbrCancel) return false;
    if (answer != TVantrelMsgBoxResult::mbrYes) return SaveUnder(FreeName(CurrentProject->FileName()));
  }
  return StoreProject();
}

bool TMainForm::StoreProject() {
  try {
    CurrentProject->SaveFile({});
    FSavedAt = CurrentDateTime();
    const auto now = DecodeDateTime(FSavedAt);
    FWindow.SetStatusNote(FormatText(ShellTexts::SavedAt, now.Hour, now.Minute));
    return true;
  } catch (const std::exception& error) {
    const std::string text = FormatText(ShellTexts::SaveError, error.what());
    MsgBoxError(CurrentProject->KeepsOriginal() ? FormatText(ShellTexts::OriginalNotKept, text) : text);
    return false;
  }
}

void TMainForm::ShowStandingNote() {
  const bool isProtected = CurrentProject != nullptr && CurrentProject->IsWriteProtected();
  FWindow.SetStatusNote(isProtected    ? ResourceText(ViewTexts::WriteProtected)
                        : IsModified() ? NotSavedText()
                                       : std::string());
}

std::string TMainForm::NotSavedText() const {
  auto text = ResourceText(ShellTexts::NotSaved);
  if (FSavedAt != 0) {
    const auto saved = DecodeDateTime(FSavedAt);
    text = FormatText(ShellTexts::NotSavedSince, saved.Hour, saved.Minute);
  }
  return FRecovery.IsResting() ? FormatText(ShellTexts::RecoveryRests, text) : text;
}

bool TMainForm::SaveFileAs() {
  OnForm(&TBaseForm::PostEdits);
  return CurrentProject != nullptr && SaveUnder(CurrentProject->FileName());
}

bool TMainForm::SaveUnder(const std::string& proposal) {
  FSaveDialog.FileName = proposal;
  FSaveDialog.Accepts = AcceptsTarget;
  if (!FPorts.Dialogs.SaveFile(FSaveDialog)) return false;
  const std::string former = CurrentProject->FileName();
  CurrentProject->SetFileName(TargetOf(FSaveDialog.FileName));
  const bool isSaved = StoreProject();
  if (!isSaved) CurrentProject->SetFileName(former);
  UpdateStatusText();
  OnForm(&TBaseForm::FileChanged);
  return isSaved;
}

void TMainForm::CheckClose() {
  OnForm(&TBaseForm::PostEdits);
  if (!IsModified() || AskToSave() != TVantrelMsgBoxResult::mbrYes) return;
  // What another program has written stands in the way of a plain save: its question comes until the entries are safe.
  while (!SaveUnlessChanged(false) && CurrentProject->IsFileChanged()) {
  }
}
