#include "CommandActions.h"

#include <QApplication>
#include <QWidget>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {
void ShowState(const TVantrelCommand& command, QAction& action) {
  action.setEnabled(command.Enabled());
  action.setVisible(command.Visible());
  action.setChecked(command.Checked());
  const QString hint = FromUtf8(command.Hint()), key = action.shortcut().toString(QKeySequence::NativeText);
  action.setToolTip(key.isEmpty() ? hint : UserText(DesktopTexts::HintWithShortcut).arg(hint, key));
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
  action->setIconText(FromUtf8(info.Caption).remove('&'));
  auto keys = QKeySequence::listFromString(FromUtf8(info.Shortcut), QKeySequence::PortableText);
  // The number pad has a key of the same name.
  for (const auto& key : QList(keys))
    if (const auto name = key.toString(QKeySequence::PortableText); name.endsWith("+Return"))
      keys.append(QKeySequence(QString(name).replace("Return", "Enter")));
  action->setShortcuts(keys);
  action->setCheckable(!info.RadioGroup.empty());
  ShowState(command, *action);
  QObject::connect(action, &QAction::triggered, action, [this, &command, &state = *action] {
    // A key may come while a dialog is being shown that does not take the keys yet.
    const auto* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == FWindow.window()) command.Execute();
    ShowState(command, state);
  });
  command.OnChanged = [&command, &state = *action] { ShowState(command, state); };
  FWindow.addAction(action);
  return action;
}
