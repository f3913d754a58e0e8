#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "CommandActions.h"
#include "VantrelMainWindow.h"

class QListWidget;
class QToolButton;

/// What the application button opens: the commands on the left, the recent documents on the right, the button row
/// below.
class TApplicationMenu : public QFrame {
 public:
  TApplicationMenu(const TRibbonDescription& description, TCommandActions& actions, QWidget* parent);

  std::function<void(int index)> OnRecentClick;
  void SetRecentItems(const std::vector<TRecentItem>& items);
  void ShowBelow(const QWidget& button);
  QListWidget& Recent() { return *FRecent; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* AddButton(QAction* action, QSize icon);

  QListWidget* FRecent;
  std::vector<QToolButton*> FButtons;
};
