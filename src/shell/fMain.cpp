#include "fMain.h"

#include "ShellTexts.h"
#include "VantrelFileLauncher.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "ViewTexts.h"
#include "dialogs/fAboutDialog.h"
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
      FViewFrame{FPorts.Storage,
                 ProgramInfo().VersionText(),
                 FCommands.GotoFirstCommand,
                 FCommands.GotoPrevCommand,
                 FCommands.GotoNextCommand,
                 FCommands.GotoLastCommand,
                 FCommands.EditZeugnisbeurteilungenCommand,
                 FCommands.ExportToExcelCommand,
                 {},
                 {},
                 [this] { return FRecentFiles.Items(); },
                 [this](int index) { FWindow.OnRecentClick(index); }},
      FFormContainer(FPorts.Dialogs, FWaitCursor) {
  FOpenFileDialog.Title = ResourceText(ShellTexts::OpenTitle);
  FOpenFileDialog.FilterIndex = EncryptedXmlFilter;
  FSaveDialog.Title = ResourceText(ShellTexts::SaveTitle);
  FSaveDialog.Filter = ResourceText(ShellTexts::SaveFilter);
  FStorageLinks = {{&FOpenFileDialog, {{"InitialDir", "OpenFileDialog", "InitialDir"}}}};
  FOnLoadProperties = [this] { FormLoadProperties(); };
  FOnSaveProperties = [this] { FormSaveProperties(); };
}

TMainHandlers TMainForm::Handlers() {
  TMainHandlers on;
  on.OpenFile = [this] { OpenFile(); };
  on.SaveFile = [this] { SaveFile(); };
  on.SaveFileAs = [this] { SaveFileAs(); };
  on.CloseApplication = [this] { FWindow.Close(); };
  on.ShowStudents = [this] { ShowView(viewStudents, false); };
  on.ShowWelcome = [this] { ShowView(viewWelcome, false); };
  on.GotoFirst = [this] { Goto(&TBaseForm::GotoFirst); };
  on.GotoPrev = [this] { Goto(&TBaseForm::GotoPrev); };
  on.GotoNext = [this] { Goto(&TBaseForm::GotoNext); };
  on.GotoLast = [this] { Goto(&TBaseForm::GotoLast); };
  on.EditZeugnisbeurteilungen = [this] { EditZeugnisbeurteilungen(); };
  on.ExportToExcel = [this] { ExportToExcel(); };
  on.ShowManual = [this] { ShowManual(); };
  on.ShowVersion = [this] { FPorts.Dialogs.ShowAbout(AboutInfo(ProgramInfo(), *Session)); };
  return on;
}

void TMainForm::FormCreate() {
  MainForm = this;
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
  FLookupModule.reset();
  FFormContainer.ExtractEmbeddedForm();
  FFormContainer.ClearEmbeddedCache();
  SaveSettings();
  MainForm = nullptr;
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

TVantrelFormClass TMainForm::ClassOf(TMyTessaronViews view) {
  if (view == viewStudents)
    return VantrelFormClass<TStudentsView>(
        [this] { return CreateVantrel<TStudentsView>(FViewFrame, FPorts.CreateStudentsUi()); });
  return VantrelFormClass<TWelcomeView>(
      [this] { return CreateVantrel<TWelcomeView>(FViewFrame, FPorts.CreateWelcomeUi()); });
}

void TMainForm::ShowView(TMyTessaronViews view, bool freeFirst) {
  try {
    if (freeFirst) FFormContainer.FreeEmbeddedForm();
    FFormContainer.CreateEmbeddedForm(ClassOf(view), false, true);
    FCurrentView = view;
    UpdateBars();
  } catch (const std::exception&) {
    // The bars stay as they were, and nothing is said.
    FCurrentView = viewWelcome;
  }
}

void TMainForm::UpdateBars() {
  const bool welcome = FCurrentView == viewWelcome;
  FWindow.SetGroupVisible(RibbonIds::NavigationBar, !welcome);
  FWindow.SetGroupVisible(RibbonIds::ExtrasBar, !welcome);
  FWindow.SetGroupVisible(RibbonIds::BeurteilungBar, FCurrentView == viewSubjects);
  if (welcome) FWindow.ActivateTab(RibbonIds::StartRibbonTab);
}

void TMainForm::UpdateCommands() {
  const bool loaded = CurrentProject != nullptr;
  const bool modified = loaded && CurrentProject->Modified();
  TMainCommands::SetEnabled(FCommands.SaveFileCommand, modified);
  if (modified) ShowStandingNote();
  for (auto* command : {&FCommands.SaveFileAsCommand, &FCommands.StudentsViewCommand, &FCommands.SubjectsViewCommand,
                        &FCommands.ClassesViewCommand})
    TMainCommands::SetEnabled(*command, loaded);
}

void TMainForm::UpdateStatusText() {
  FWindow.SetStatusText(CurrentProject == nullptr ? ResourceText(ShellTexts::NoProject) : CurrentProject->FileName());
}

void TMainForm::PostEdits() {
  if (auto* form = FFormContainer.EmbeddedForm()) form->PostEdits();
}

void TMainForm::Goto(void (TBaseForm::*where)()) {
  if (auto* form = FFormContainer.EmbeddedForm()) (form->*where)();
}

void TMainForm::EditZeugnisbeurteilungen() {
  if (StudentsView != nullptr) StudentsView->EditZeugnisbeurteilungen();
}

void TMainForm::ExportToExcel() {
  if (StudentsView != nullptr) StudentsView->ExportToExcel();
}

void TMainForm::ShowManual() {
  TCommonUtils::FileExecute(ProgramInfo().Manual);
}
