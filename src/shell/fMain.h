#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "VantrelFormContainer.h"
#include "VantrelMsgBox.h"
#include "dialogs/fSplashScreen.h"
#include "dialogs/fTextDialog.h"
#include "fBaseMainForm.h"
#include "uMainCommands.h"
#include "uMainDialogs.h"
#include "uMainViews.h"
#include "uOpenFileDialog.h"
#include "uProjectHistory.h"
#include "uProjectLookups.h"
#include "uRecentFiles.h"
#include "uRecovery.h"

/// What the main window is built on. All of it outlives it.
struct TMainFormPorts {
  TVantrelMainWindow& Window;
  TVantrelDialogs& Dialogs;
  TVantrelStorage& Storage;
  TViewClasses Views;
  TMainDialogs Screens = {};
  /// Where entries are kept until they are saved; empty for nowhere.
  std::string RecoveryFolder = {};
};

/// The spine of the program: owns the open project, opens, saves and closes it, and changes the views. Made before the
/// window shows, with the arguments of the command line behind the program's name; to be destroyed after it has closed.
class TMainForm final : public TBaseMainForm {
 public:
  TMainForm(TMainFormPorts ports, std::vector<std::string> arguments);

  TMainCommands& Commands() { return FCommands; }
  /// Changes the view; the one that is shown already stays, unless `freeFirst`. What goes wrong is swallowed.
  void ShowView(TMyTessaronViews view, bool freeFirst);
  void UpdateCommands();
  void UpdateStatusText();

  void OpenFile();
  void OpenFileFromPane(int index);
  void SaveFile();
  /// False if the user cancelled, or it failed.
  bool SaveFileAs();

 protected:
  void FormCreate() override;
  void FormDestroy() override;

 private:
  void FormLoadProperties();
  void FormSaveProperties();
  TMainHandlers Handlers();
  void FormShow();
  void UpdateBars();
  void UpdateAll();
  /// Calls the operation of the form on show; nothing where there is none.
  template <class... TArgs>
  void OnForm(void (TBaseForm::*operation)(TArgs...), std::type_identity_t<TArgs>... arguments) {
    if (auto* form = FFormContainer.EmbeddedForm()) (form->*operation)(arguments...);
  }
  std::function<void()> ToForm(void (TBaseForm::*operation)()) {
    return [this, operation] { OnForm(operation); };
  }
  void UpdateFilter();
  void UpdateHistoryCommands();
  void TakeStep(bool forwards);
  void ShowPlace(const TProjectPlace& place);
  void ShowManual();
  void ShowSpellCheck();
  void ConnectTextDialogs();
  TTextDialogFrame TextDialogFrame();
  void BatchCertificateData();
  void ExportGrid(const TVantrelGrid& grid, const std::string& title);

  TVantrelPtr<TMyTessaronProject> CreateProject();
  bool CheckProjectPassword(TVantrelPtr<TMyTessaronProject>& project);
  bool CostsEntries(const TMyTessaronProject& project) const;
  void SetCurrentProject(TVantrelPtr<TMyTessaronProject> project);
  void AfterProjectLoaded();
  /// Once the view has been painted.
  void OfferRecovery();
  TVantrelMsgBoxResult AskToSave();
  void LoadOptions();
  /// What cannot be saved is told once for all of it: the program ends in any case.
  void SaveSettings();
  void OpenCommandLineFile();
  void OpenNamedFile(const std::string& path);
  /// A file that the user has chosen without the dialog.
  void OpenFileOfUser(const std::string& path);
  void LoadChosenFile(const std::string& path);
  void ShowLoadError(const std::string& path, const std::string& message);
  void ShowRecentFiles();
  void CheckClose();
  /// Why a file cannot be opened by its name; empty if it can.
  static std::string RefusalToOpen(const std::string& path);
  /// Whether the project may be saved there: tells why not, or asks where a file would be lost.
  static bool AcceptsTarget(const std::string& path);
  /// Saves the project to its file; one that another program has changed is asked about, with the way back where the
  /// program does not end. False if nothing was saved.
  bool SaveUnlessChanged(bool withCancel);
  /// As SaveFileAs, with a name to begin with.
  bool SaveUnder(const std::string& proposal);
  /// False if that failed, which has been told then.
  bool StoreProject();
  /// What the end of the status bar says while nothing else has to be said.
  void ShowStandingNote();
  std::string NotSavedText() const;

  TMainFormPorts FPorts;
  std::vector<std::string> FArguments;
  TVantrelWaitCursor FWaitCursor;
  TMainCommands FCommands;
  TViewFrame FViewFrame;
  TOpenFileDialog FOpenFileDialog;
  TFileDialog FSaveDialog;
  TRecentFiles FRecentFiles;
  std::unique_ptr<TSplashScreenWindow> FSplash;
  TMyTessaronViews FCurrentView = TMyTessaronViews::viewWelcome;
  TVantrelPtr<TMyTessaronProject> FProject;
  std::optional<TProjectHistory> FHistory;
  TRecovery FRecovery;
  std::unique_ptr<TVantrelTimer> FRecoveryTimer;
  /// When the open project was saved last, in days; 0 while it was not.
  double FSavedAt = 0;
  TProjectLookups FLookups;
  TVantrelFormContainer FFormContainer;
};
