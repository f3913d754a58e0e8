#include <algorithm>

#include "DesktopApplication.h"
#include "DesktopBatchDialog.h"
#include "DesktopDialogs.h"
#include "DesktopListView.h"
#include "DesktopLook.h"
#include "DesktopMainWindow.h"
#include "DesktopMsgBox.h"
#include "DesktopSpelling.h"
#include "DesktopStudentsView.h"
#include "DesktopTextDialog.h"
#include "DesktopWelcomeView.h"
#include "Environment.h"
#include "Memory.h"
#include "ProductNames.h"
#include "QtText.h"
#include "ShellTexts.h"
#include "VantrelI18n.h"
#include "VantrelRegistry.h"
#include "ViewTexts.h"
#include "fClassesView.h"
#include "fMain.h"
#include "fStudentsView.h"
#include "fSubjectsView.h"
#include "fWelcomeView.h"
#include "mStorage.h"
#include "uOptions.h"
#include "uTessaron.h"
#include "uTessaronStart.h"

namespace {

/// As the system gave them, since the name of a file may be no valid text; behind those that Qt took for itself.
std::vector<std::string> ArgumentsOf(int argc, char** argv) {
  return {argv + std::min(argc, 1), argv + argc};
}

TViewClasses ViewsOn(TDesktopMainWindow& window) {
  using enum TMyTessaronViews;
  return {
      {viewWelcome, ViewClass<TWelcomeView>([&] { return std::make_unique<TDesktopWelcomeView>(window); })},
      {viewSubjects,
       ViewClass<TSubjectsView>([&] { return std::make_unique<TDesktopListView>(window, ViewTexts::SubjectsLabel); })},
      {viewClasses,
       ViewClass<TClassesView>([&] { return std::make_unique<TDesktopListView>(window, ViewTexts::ClassesLabel); })},
      {viewStudents, ViewClass<TStudentsView>([&] { return std::make_unique<TDesktopStudentsView>(window); })}};
}

TMainDialogs DialogScreens() {
  return {.TextDialog = [] { return std::make_unique<TDesktopTextDialog>(); },
          .Correction = [] { return std::make_unique<TDesktopCorrection>(); },
          .SpellingOptions = [] { return std::make_unique<TDesktopTickDialog>(); },
          .BatchCertificateData = [] { return std::make_unique<TDesktopBatchDialog>(); }};
}

std::string RecoveryFolder() {
  return System::UserFolder(System::TFolderKind::State) + '/' +
         ProductNames::Path({ProductNames::Vendor, ProductNames::OwnName}, '/');
}

}  // namespace

int main(int argc, char** argv) {
  System::TakeHeapInLargePages();
  TDesktopApplication application(argc, argv);
  PrepareApplication(application);
  TVantrelClassRegistry classes;
  RegisterLibraryClasses(classes);
  TMyTessaronProject::RegisterClasses();
  const TDesktopMsgBoxes boxes;
  const auto arguments = ArgumentsOf(argc, argv);
  const TTessaronStart start(arguments);
  TMyTessaronProject::NewProductVersion = ProductVersion;
  const auto options = CreateVantrel<TMyTessaronOptions>(OptionsFileName, UserDataFolder);

  QApplication::setApplicationDisplayName({});
  QApplication::setApplicationName(FromUtf8(ResourceText(ShellTexts::ApplicationTitle)));
  QApplication::setDesktopFileName("mytessaron");
  // The storage module chooses its path by the kind.
  Session->FModule = TApplicationKind::akMyTessaron;
  TDesktopDialogs dialogs;
  const auto storageModule = CreateVantrel<TStorageModule>(static_cast<int>(Session->FModule));
  auto& storage = storageModule->Storage();
  if (!storage.Damage().empty()) MsgBoxWarning(ResourceText(ShellTexts::NoteCaption), storage.Damage());
  TDesktopMainWindow window;
  const auto form = CreateVantrel<TMainForm>(TMainFormPorts{.Window = window,
                                                            .Dialogs = dialogs,
                                                            .Storage = storage,
                                                            .Views = ViewsOn(window),
                                                            .Screens = DialogScreens(),
                                                            .RecoveryFolder = RecoveryFolder()},
                                             arguments);
  window.show();
  return QApplication::exec();
}
