#pragma once

#include <memory>

#include "VantrelDialogs.h"
#include "uProgramInfo.h"

/// The window that greets while the program starts.
class TSplashScreenWindow {
 public:
  TSplashScreenWindow(TVantrelDialogs& dialogs, const TProgramInfo& program);
  TSplashScreenWindow(const TSplashScreenWindow&) = delete;
  TSplashScreenWindow& operator=(const TSplashScreenWindow&) = delete;
  ~TSplashScreenWindow() { Close(); }

  /// The window closes by itself a second later.
  void StartTimer();

 private:
  void Close();

  TVantrelDialogs& FDialogs;
  bool FShown = true;
  std::unique_ptr<TVantrelTimer> FTimer;
};
