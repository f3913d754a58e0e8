#include "CommandActions.h"

#include <QWidget>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {
void ShowState(const TVantrelCommand& command, QAction& action) {
  action.setEnabled(command.Enabled());
  action.setVisible(command.Visible());
  action.setChecked(command.Checked());
}
}  // namespace

TCommandActions::~TCommandActions() {
  for (auto& [command, action] : FActions) {
    command->OnChanged = nullptr;
    delete action;
  }
}

QAction* TCommandActions::ActionOf(TVantrelCommand& command) {
  auto& action = FActions[&command];
  if (action != nullptr) return action;
  const auto& info = command.Info();
  action = new QAction(ThemeIcon(info.Icon), FromUtf8(info.Caption), &FWindow);
  const QString hint = FromUtf8(command.Hint());
  action->setIconText(FromUtf8(info.Caption).remove('&'));
  action->setToolTip(hint);
  if (!info.Shortcut.empty()) {
    const auto keys = FromUtf8(info.Shortcut);
    action->setShortcut(QKeySequence(keys, QKeySequence::PortableText));
    // The number pad has a key of the same name.
    if (keys.endsWith("+Return"))
      action->setShortcuts({action->shortcut(), QKeySequence(QString(keys).replace("Return", "Enter"))});
    action->setToolTip(
        UserText(DesktopTexts::HintWithShortcut).arg(hint, action->shortcut().toString(QKeySequence::NativeText)));
  }
  action->setCheckable(!info.RadioGroup.empty());
  ShowState(command, *action);
  QObject::connect(action, &QAction::triggered, action, [&command, &state = *action] {
    command.Execute();
    ShowState(command, state);
  });
  command.OnChanged = [&command, &state = *action] { ShowState(command, state); };
  FWindow.addAction(action);
  return action;
}
