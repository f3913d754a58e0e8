#pragma once

#include <QWidget>
#include <vector>

#include "CommandActions.h"

class QPushButton;

/// A row of buttons for commands, each with icon and caption. Tab reaches them, and so do their access keys.
class TCommandBar : public QWidget {
 public:
  /// The actions outlive the bar.
  TCommandBar(const std::vector<TVantrelCommand*>& commands, TCommandActions& actions);
};

/// A push button for the action, which it follows; to be put into a window.
QPushButton* MakePushButton(QAction& action);
