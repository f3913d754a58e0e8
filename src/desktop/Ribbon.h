#pragma once

#include <QTabBar>
#include <QWidget>
#include <vector>

#include "KeyTips.h"
#include "RibbonGroup.h"

class QStackedWidget;
class QVBoxLayout;
class TApplicationMenu;

/// One tab's groups side by side. When the room is short its groups shrink from the right: large buttons become small
/// ones in every group first, then captions go.
class TRibbonPage : public QWidget {
 public:
  TRibbonPage(const TRibbonTab& tab, TCommandActions& actions);

  const std::vector<TRibbonGroupBox*>& Groups() const { return FGroups; }
  /// Shows or hides a group; false if it is not on this page.
  bool SetGroupVisible(const std::string& groupId, bool visible);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Fit();

  std::vector<TRibbonGroupBox*> FGroups;
};

/// Application button, tab row and the groups of the active tab. A double click on a tab (or Ctrl+F1) folds it; a click
/// on a tab then opens the groups over the view until something else is clicked.
class TRibbon : public QWidget {
 public:
  TRibbon(const TRibbonDescription& description, TCommandActions& actions, QWidget& window);

  void SetGroupVisible(const std::string& groupId, bool visible);
  void ActivateTab(const std::string& tabId);
  bool IsFolded() const { return FFolded; }
  void SetFolded(bool folded);
  /// Whether the groups stand over the view while the ribbon is folded.
  bool IsOpenedOver() const;

  QTabBar& Tabs() { return *FTabs; }
  TRibbonPage& Page(int index) { return *FPages[static_cast<std::size_t>(index)]; }
  TApplicationMenu& Menu() { return *FMenu; }
  TKeyTips& KeyTips() { return *FKeyTips; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void OpenOver();
  void CloseOver();
  std::vector<TKeyTipTarget> TabTargets();
  std::vector<TKeyTipTarget> ButtonTargets();

  QWidget& FWindow;
  QVBoxLayout* FLayout;
  QToolButton* FButton;
  QTabBar* FTabs;
  QStackedWidget* FBody;
  std::vector<TRibbonPage*> FPages;
  std::vector<std::string> FTabIds;
  TApplicationMenu* FMenu;
  TKeyTips* FKeyTips;
  bool FFolded = false;
};
