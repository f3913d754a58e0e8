#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "CommandActions.h"

class QToolButton;
class TRecentList;

/// What the application button opens: the commands on the left, the recent documents on the right, the button row
/// below.
class TApplicationMenu : public QFrame {
 public:
  TApplicationMenu(const TRibbonDescription& description, TCommandActions& actions, QWidget* parent);

  std::function<void(int index)> OnRecentClick;
  void ShowBelow(const QWidget& button);
  TRecentList& Recent() { return *FRecent; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* AddButton(QAction* action, QSize icon);

  TRecentList* FRecent;
  std::vector<QToolButton*> FButtons;
};
