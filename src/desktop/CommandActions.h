#pragma once

#include <QAction>
#include <map>

#include "VantrelCommands.h"

class QWidget;

/// One QAction per command, kept in step with it. The actions live on a window, so that their shortcuts act there.
class TCommandActions {
 public:
  explicit TCommandActions(QWidget& window) : FWindow(window) {}
  TCommandActions(const TCommandActions&) = delete;
  TCommandActions& operator=(const TCommandActions&) = delete;
  ~TCommandActions();

  QAction* ActionOf(TVantrelCommand& command);

 private:
  QWidget& FWindow;
  std::map<TVantrelCommand*, QAction*> FActions;
};
