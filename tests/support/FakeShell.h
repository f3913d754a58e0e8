#pragma once

#include <list>
#include <map>

#include "FakeViews.h"
#include "VantrelMainWindow.h"

/// The main window and the small windows of the program, without a screen.

class FakeWindow : public TVantrelMainWindow {
 public:
  void SetRibbon(const TRibbonDescription& description) override { Ribbon = description; }
  void SetGroupVisible(const std::string& groupId, bool visible) override { Groups[groupId] = visible; }
  void ActivateTab(const std::string& tabId) override { Tab = tabId; }
  void SetRecentItems(const std::vector<TRecentItem>& items) override { Recent = items; }
  void SetTitle(const std::string&) override {}
  void SetStatusText(const std::string& text) override { Status = text; }
  void SetStatusNote(const std::string& text) override { Note = text; }
  TWindowPlacement Placement() const override { return Place; }
  void SetPlacement(const TWindowPlacement& placement) override { Place = placement; }
  void SetRedraw(bool) override {}
  void ShowTopMost() override {}
  void Close() override { OnClose(); }

  TRibbonDescription Ribbon;
  std::map<std::string, bool> Groups;
  std::string Tab, Status, Note;
  std::vector<TRecentItem> Recent;
  TWindowPlacement Place;
};

class FakeTimer : public TVantrelTimer {
 public:
  explicit FakeTimer(std::function<void()>& pending) : FPending(pending) {}
  void Start(int, std::function<void()> onTimer) override { FPending = std::move(onTimer); }
  void Stop() override { FPending = nullptr; }

 private:
  std::function<void()>& FPending;
};

/// Answers the file dialogs with FileName, or cancels them where that is empty.
class FakeDialogs : public TVantrelDialogs {
 public:
  bool OpenFile(TFileDialog& dialog) override { return Answer(dialog); }
  bool SaveFile(TFileDialog& dialog) override { return Answer(dialog); }
  std::string AskPassword() override { return Password; }
  void ShowAbout(const TAboutInfo& about) override { About = about; }
  void ShowSplash(const std::string& versionText) override { Splash = versionText; }
  void CloseSplash() override { Splash.clear(); }
  void SetWaitCursor(bool wait) override { Waiting = wait; }
  std::unique_ptr<TVantrelTimer> CreateTimer() override { return std::make_unique<FakeTimer>(Timers.emplace_back()); }
  /// Lets all running timers fire once.
  void FireTimers() {
    for (auto& timer : Timers)
      if (const auto fire = timer) fire();
  }

  std::string FileName, Password, Splash;
  TFileDialog Last;
  int FilterIndex = 0;  ///< which the user chooses; 0 leaves it
  TAboutInfo About;
  bool Waiting = false;
  std::list<std::function<void()>> Timers;

 private:
  bool Answer(TFileDialog& dialog) {
    Last = dialog;
    if (FilterIndex > 0) dialog.FilterIndex = FilterIndex;
    if (FileName.empty() || (dialog.Accepts && !dialog.Accepts(FileName))) return false;
    dialog.FileName = FileName;
    return true;
  }
};
