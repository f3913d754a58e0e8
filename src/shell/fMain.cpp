#include "fMain.h"

#include <algorithm>

#include "ShellTexts.h"
#include "SystemFolders.h"
#include "VantrelFileLauncher.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "ViewTexts.h"
#include "dialogs/fAboutDialog.h"
#include "dialogs/fBatchCertificateDataDialog.h"
#include "dialogs/fRechtschreibungDialog.h"
#include "mGridExport.h"
#include "uOptions.h"

using enum TMyTessaronViews;

namespace {
constexpr int EncryptedXmlFilter = 3;
}  // namespace

TMainForm::TMainForm(TMainFormPorts ports, std::vector<std::string> arguments)
    : TBaseMainForm(ports.Window, ports.Storage, "AppForm"),
      FPorts(std::move(ports)),
      FArguments(std::move(arguments)),
      FWaitCursor(FPorts.Dialogs),
      FCommands(Handlers()),
      FViewFrame{.Storage = FPorts.Storage,
                 .ProgramVersion = ProgramInfo().VersionText(),
                 .GotoFirstCommand = FCommands.GotoFirstCommand,
                 .GotoPrevCommand = FCommands.GotoPrevCommand,
                 .GotoNextCommand = FCommands.GotoNextCommand,
                 .GotoLastCommand = FCommands.GotoLastCommand,
                 .EditZeugnisbeurteilungenCommand = FCommands.EditZeugnisbeurteilungenCommand,
                 .ExportToExcelCommand = FCommands.ExportToExcelCommand,
                 .Lookups = [this]() -> TLookupTables& { return FLookups.OfOpen(); },
                 .ExportGrid = [this](TVantrelGrid& grid, const std::string& title) { ExportGrid(grid, title); },
                 .RecentFiles = [this] { return FRecentFiles.Items(); },
                 .OpenRecentFile = [this](int index) { FWindow.OnRecentClick(index); }},
      FRecovery(FPorts.RecoveryFolder),
      FRecoveryTimer(FPorts.Dialogs.CreateTimer()),
      FFormContainer(FPorts.Dialogs, FWaitCursor) {
  FOpenFileDialog.Title = ResourceText(ShellTexts::OpenTitle);
  FOpenFileDialog.FilterIndex = EncryptedXmlFilter;
  FSaveDialog.Title = ResourceText(ShellTexts::SaveTitle);
  FSaveDialog.Filter = ResourceText(ShellTexts::SaveFilter);
  FStorageLinks = {{&FOpenFileDialog, {{"InitialDir", "OpenFileDialog", "InitialDir"}}}};
  FOnLoadProperties = [this] { FormLoadProperties(); };
  FOnSaveProperties = [this] { FormSaveProperties(); };
  ConnectTextDialogs();
}

TMainHandlers TMainForm::Handlers() {
  TMainHandlers on;
  on.OpenFile = [this] { OpenFile(); };
  on.SaveFile = [this] { SaveFile(); };
  on.SaveFileAs = [this] { SaveFileAs(); };
  on.CloseApplication = [this] { FWindow.Close(); };
  on.Undo = [this] { TakeStep(false); };
  on.Redo = [this] { TakeStep(true); };
  for (const auto& entry : FPorts.Views)
    on.ShowView[entry.first] = [this, view = entry.first] { ShowView(view, false); };
  on.GotoFirst = ToForm(&TBaseForm::GotoFirst);
  on.GotoPrev = ToForm(&TBaseForm::GotoPrev);
  on.GotoNext = ToForm(&TBaseForm::GotoNext);
  on.GotoLast = ToForm(&TBaseForm::GotoLast);
  on.UpdateFilter = [this] { UpdateFilter(); };
  on.GotoOpenGrade = ToForm(&TBaseForm::GotoOpenGrade);
  on.EditZeugnisbeurteilungen = ToForm(&TBaseForm::EditZeugnisbeurteilungen);
  if (FPorts.Screens.BatchCertificateData) on.BatchCertificateData = [this] { BatchCertificateData(); };
  on.ExportToExcel = ToForm(&TBaseForm::ExportToExcel);
  on.ShowManual = [this] { ShowManual(); };
  if (FPorts.Screens.SpellingOptions) on.ShowSpellCheck = [this] { ShowSpellCheck(); };
  on.ShowVersion = [this] { FPorts.Dialogs.ShowAbout(AboutInfo(ProgramInfo(), *Session)); };
  return on;
}

void TMainForm::FormCreate() {
  FSplash = std::make_unique<TSplashScreenWindow>(FPorts.Dialogs, ProgramInfo());
  FWindow.OnShow = [this] { FormShow(); };
  FWindow.OnClose = [this] { CheckClose(); };
  FWindow.OnRecentClick = [this](int index) { RunForUser([&] { OpenFileFromPane(index); }); };
  FWindow.OnFileDropped = [this](const std::string& path) { RunForUser([&] { OpenFileOfUser(path); }); };
  TVantrelMsgBox::OnHelp = [this](int) { ShowManual(); };
  FWindow.SetTitle(ResourceText(ViewTexts::WindowTitle));
  FWindow.SetRibbon(FCommands.Ribbon());
  UpdateBars();
  LoadOptions();
  OpenCommandLineFile();
  UpdateStatusText();
}

void TMainForm::ConnectTextDialogs() {
  if (!FPorts.Screens.TextDialog) return;
  FViewFrame.EditAssessment = [this](const std::string& subject, std::string text, const std::string& student) {
    const bool ok = EditZeugnisbeurteilung(TextDialogFrame(), subject, text, student);
    return ok ? std::optional(text) : std::nullopt;
  };
  FViewFrame.EditRemark = [this](int& position, std::string& attribute, std::string& description,
                                 const std::string& student) {
    return EditCertificateCommentValues(TextDialogFrame(), position, attribute, description, student);
  };
}

TTextDialogFrame TMainForm::TextDialogFrame() {
  return {.CreateUi = FPorts.Screens.TextDialog,
          .CreateCorrectionUi = FPorts.Screens.Correction,
          .Lookups = FLookups.OfOpen(),
          .Options = *Options,
          .WaitCursor = FWaitCursor};
}

void TMainForm::ShowSpellCheck() {
  EditRechtschreibung(*FPorts.Screens.SpellingOptions(), *Options);
}

void TMainForm::BatchCertificateData() {
  if (CurrentProject == nullptr) return;
  OnForm(&TBaseForm::PostEdits);
  ExecuteBatchCertificateData(FPorts.Screens.BatchCertificateData, FLookups.OfOpen());
}

void TMainForm::ExportGrid(const TVantrelGrid& grid, const std::string& title) {
  TGridExportModule module(FPorts.Dialogs, [this](const std::string& name) {
    FWindow.SetStatusNote(FormatText(ViewTexts::Exported, name));
  });
  module.SaveDialog.InitialDir = System::FolderOf(CurrentProject->FileName());
  module.ExportCXGridToExcel(grid, title, true);
}

void TMainForm::LoadOptions() {
  if (Options == nullptr) return;
  if (const auto damage = Options->Load(); !damage.empty())
    MsgBoxWarning(ResourceText(ShellTexts::NoteCaption), damage);
}

void TMainForm::FormShow() {
  ShowView(viewWelcome, false);
  FSplash->StartTimer();
}

void TMainForm::FormDestroy() {
  FWindow.OnShow = FWindow.OnClose = nullptr;
  FWindow.OnRecentClick = nullptr;
  FWindow.OnFileDropped = nullptr;
  TVantrelMsgBox::OnHelp = nullptr;
  FWindow.SetRibbon({});
  SetCurrentProject(nullptr);
  FLookups.BeforeLoad();
  FFormContainer.ExtractEmbeddedForm();
  FFormContainer.ClearEmbeddedCache();
  SaveSettings();
}

void TMainForm::SaveSettings() {
  std::string failures = Options == nullptr ? std::string() : Options->Save();
  if (FStorage != nullptr) failures = Join(failures, FStorage->TryFlush(), "\r\n\r\n");
  if (!failures.empty()) MsgBoxWarning(ResourceText(ShellTexts::NoteCaption), failures);
}

void TMainForm::FormLoadProperties() {
  FRecentFiles.Load(*FStorage);
  ShowRecentFiles();
}

void TMainForm::FormSaveProperties() {
  FRecentFiles.Save(*FStorage);
}

void TMainForm::ShowView(TMyTessaronViews view, bool freeFirst) {
  try {
    if (freeFirst) FFormContainer.FreeEmbeddedForm();
    FFormContainer.CreateEmbeddedForm(FPorts.Views.at(view)(FViewFrame), false, true);
    FCurrentView = view;
    UpdateBars();
  } catch (const std::exception&) {
    // The bars stay as they were, and nothing is said.
    FCurrentView = viewWelcome;
  }
}

void TMainForm::UpdateBars() {
  const auto& view = *std::ranges::find(MainViews, FCurrentView, &TMainView::View);
  FWindow.SetGroupVisible(RibbonIds::NavigationBar, view.NavigationBar);
  FWindow.SetGroupVisible(RibbonIds::ExtrasBar, view.ExtrasBar);
  FWindow.SetGroupVisible(RibbonIds::BeurteilungBar, view.BeurteilungBar);
  if (FCurrentView == viewWelcome) FWindow.ActivateTab(RibbonIds::StartRibbonTab);
}

void TMainForm::UpdateCommands() {
  const bool loaded = CurrentProject != nullptr;
  const bool modified = loaded && CurrentProject->Modified();
  auto* form = FFormContainer.EmbeddedForm();
  TMainCommands::SetEnabled(FCommands.SaveFileCommand, modified || (loaded && form != nullptr && form->HasDraft()));
  if (modified) ShowStandingNote();
  UpdateHistoryCommands();
  TMainCommands::SetEnabled(FCommands.SaveFileAsCommand, loaded);
  for (const auto& view : MainViews)
    if (view.NeedsProject) TMainCommands::SetEnabled(FCommands.ViewCommand(view.View), loaded);
}

void TMainForm::UpdateHistoryCommands() {
  const auto show = [](TVantrelCommand& command, const char* hint, const std::string& text) {
    TMainCommands::SetEnabled(command, !text.empty());
    command.SetHint(text.empty() ? std::string() : FormatText(hint, text));
  };
  show(FCommands.UndoCommand, ShellTexts::UndoHint, FHistory ? FHistory->UndoText() : std::string());
  show(FCommands.RedoCommand, ShellTexts::RedoHint, FHistory ? FHistory->RedoText() : std::string());
}

void TMainForm::TakeStep(bool forwards) {
  if (!FHistory) return;
  OnForm(&TBaseForm::EndEdits);
  const auto text = forwards ? FHistory->RedoText() : FHistory->UndoText();
  if (text.empty()) return;
  ShowPlace(forwards ? FHistory->Redo() : FHistory->Undo());
  FWindow.SetStatusNote(FormatText(forwards ? ShellTexts::Redone : ShellTexts::Undone, text));
}

void TMainForm::ShowPlace(const TProjectPlace& place) {
  const auto shows = [&] {
    auto* form = FFormContainer.EmbeddedForm();
    return form != nullptr && form->ShowPlace(place);
  };
  if (place.Student == nullptr || shows()) return;
  ShowView(viewStudents, false);
  shows();
}

void TMainForm::UpdateStatusText() {
  FWindow.SetStatusText(CurrentProject == nullptr ? ResourceText(ShellTexts::NoProject) : CurrentProject->FileName());
}

void TMainForm::UpdateFilter() {
  int gradeType = -1;
  const TVantrelCommand* const choices[] = {&FCommands.Noten, &FCommands.Punkte, &FCommands.Beurteilungstexte};
  for (int i = 0; i < static_cast<int>(std::size(choices)); ++i)
    if (choices[i]->Checked()) gradeType = i;
  OnForm(&TBaseForm::UpdateFilter, gradeType, TVariant::Null());
}

void TMainForm::ShowManual() {
  TCommonUtils::FileExecute(ProgramInfo().Manual);
}
