#include "DesktopDialogs.h"

#include <QApplication>
#include <QTimer>

#include "SplashWindow.h"

namespace {

class TDesktopTimer : public TVantrelTimer {
 public:
  TDesktopTimer() {
    // A handler may stop, start or end its timer.
    QObject::connect(&FTimer, &QTimer::timeout, &FTimer, [this] {
      const auto handler = FOnTimer;
      handler();
    });
  }
  void Start(int milliseconds, std::function<void()> onTimer) override {
    FOnTimer = std::move(onTimer);
    FTimer.start(milliseconds);
  }
  void Stop() override { FTimer.stop(); }

 private:
  QTimer FTimer;
  std::function<void()> FOnTimer;
};

}  // namespace

TDesktopDialogs::~TDesktopDialogs() {
  delete FSplash;
}

void TDesktopDialogs::ShowSplash(const std::string& versionText) {
  delete FSplash;
  FSplash = new TSplashWindow(versionText);
  FSplash->BlendIn();
}

void TDesktopDialogs::CloseSplash() {
  if (FSplash != nullptr) FSplash->BlendOut();
}

void TDesktopDialogs::SetWaitCursor(bool wait) {
  if (wait)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

std::unique_ptr<TVantrelTimer> TDesktopDialogs::CreateTimer() {
  return std::make_unique<TDesktopTimer>();
}
