#include <QApplication>

#include "DesktopDialogs.h"
#include "DesktopLook.h"
#include "DesktopMainWindow.h"
#include "DesktopMsgBox.h"
#include "DesktopStudentsView.h"
#include "DesktopWelcomeView.h"
#include "HeapPages.h"
#include "QtText.h"
#include "ShellTexts.h"
#include "VantrelI18n.h"
#include "fMain.h"
#include "mStorage.h"

namespace {

constexpr int ApplicationKind = 4;

std::vector<std::string> Arguments() {
  std::vector<std::string> arguments;
  for (const auto& argument : QApplication::arguments().mid(1)) arguments.push_back(ToUtf8(argument));
  return arguments;
}

}  // namespace

int main(int argc, char** argv) {
  TakeHeapInLargePages();
  QApplication application(argc, argv);
  PrepareApplication(application);
  TMyTessaronProject::RegisterClasses();
  QApplication::setApplicationDisplayName({});
  QApplication::setApplicationName(FromUtf8(ResourceText(ShellTexts::ApplicationTitle)));
  QApplication::setDesktopFileName("mytessaron");

  const TDesktopMsgBoxes boxes;
  TDesktopDialogs dialogs;
  const auto storageModule = CreateVantrel<TStorageModule>(ApplicationKind);
  auto& storage = storageModule->Storage();
  if (!storage.Damage().empty()) MsgBoxWarning(ResourceText(ShellTexts::SettingsCaption), storage.Damage());
  TDesktopMainWindow window;
  const auto form = CreateVantrel<TMainForm>(
      TMainFormPorts{window, dialogs, storage, [&] { return std::make_unique<TDesktopWelcomeView>(window); },
                     [&] { return std::make_unique<TDesktopStudentsView>(window); }},
      Arguments());
  window.show();
  return QApplication::exec();
}
