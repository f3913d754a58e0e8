#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "CommandActions.h"
#include "VantrelMainWindow.h"

class QLabel;
class TRibbon;

/// The main window: ribbon, the view that is on show, status bar. F6 and Shift+F6 go round its regions, Shift+F10 opens
/// the menu of what has the focus.
class TDesktopMainWindow : public QMainWindow, public TVantrelMainWindow {
 public:
  TDesktopMainWindow();
  ~TDesktopMainWindow() override;

  void SetRibbon(const TRibbonDescription& description) override;
  void SetGroupVisible(const std::string& groupId, bool visible) override;
  void ActivateTab(const std::string& tabId) override;
  void SetRecentItems(const std::vector<TRecentItem>& items) override;
  void SetTitle(const std::string& title) override;
  void SetStatusText(const std::string& text) override;
  void SetStatusNote(const std::string& text) override;
  TWindowPlacement Placement() const override;
  void SetPlacement(const TWindowPlacement& placement) override;
  void SetRedraw(bool redraw) override { setUpdatesEnabled(redraw); }
  void ShowTopMost() override;
  void Close() override { close(); }

  /// Fills the client area with the view; none empties it. The widgets stay their owner's. The regions are the parts of
  /// the view that F6 goes to, in its order; it passes those that cannot be used at the moment.
  void SetHosted(QWidget* view, std::vector<QWidget*> regions);
  TRibbon& Ribbon() { return *FRibbon; }

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void GotoRegion(int step);

  std::unique_ptr<TCommandActions> FActions;
  TRibbon* FRibbon = nullptr;
  QWidget* FHost;
  std::vector<QWidget*> FRegions;
  QLabel* FStatus;
  QLabel* FNote;
  bool FShown = false;
};
