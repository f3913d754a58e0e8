#include "CommandBar.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace {
/// Return presses it, instead of the default button of its dialog.
class TBarButton final : public QToolButton {
 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QToolButton::keyPressEvent(event);
  }
};
}  // namespace

TCommandBar::TCommandBar(const std::vector<TVantrelCommand*>& commands, TCommandActions& actions) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  for (auto* command : commands) {
    auto* action = actions.ActionOf(*command);
    // Here the caption keeps its access key.
    action->setIconText(action->text());
    auto* button = new TBarButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(action->text().remove('&'));
    layout->addWidget(button);
  }
  layout->addStretch();
}

QPushButton* MakePushButton(QAction& action) {
  auto* button = new QPushButton(action.text());
  const auto follow = [button, &action] { button->setEnabled(action.isEnabled()); };
  follow();
  QObject::connect(&action, &QAction::changed, button, follow);
  QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
  return button;
}
