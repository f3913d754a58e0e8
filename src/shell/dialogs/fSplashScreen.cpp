#include "fSplashScreen.h"

#include <utility>

#include "ShellTexts.h"
#include "VantrelI18n.h"

namespace {
constexpr int ShownMilliseconds = 1000;
}

TSplashScreenWindow::TSplashScreenWindow(TVantrelDialogs& dialogs, const TProgramInfo& program)
    : FDialogs(dialogs), FTimer(dialogs.CreateTimer()) {
  FDialogs.ShowSplash(FormatText(ShellTexts::SplashVersion, program.Major, program.Minor, program.Release));
}

void TSplashScreenWindow::StartTimer() {
  FTimer->Start(ShownMilliseconds, [this] {
    Close();
    FTimer->Stop();
  });
}

void TSplashScreenWindow::Close() {
  if (std::exchange(FShown, false)) FDialogs.CloseSplash();
}
