#pragma once

#include <QPointer>

#include "VantrelDialogs.h"

class TSplashWindow;

/// The small windows of the program, its wait cursor and its timers.
class TDesktopDialogs : public TVantrelDialogs {
 public:
  TDesktopDialogs() = default;
  TDesktopDialogs(const TDesktopDialogs&) = delete;
  TDesktopDialogs& operator=(const TDesktopDialogs&) = delete;
  ~TDesktopDialogs() override;

  bool OpenFile(TFileDialog& dialog) override;
  bool SaveFile(TFileDialog& dialog) override;
  std::string AskPassword() override;
  void ShowAbout(const TAboutInfo& about) override;
  void ShowSplash(const std::string& versionText) override;
  void CloseSplash() override;
  void SetWaitCursor(bool wait) override;
  std::unique_ptr<TVantrelTimer> CreateTimer() override;

 private:
  QPointer<TSplashWindow> FSplash;
};
