#include "ApplicationMenu.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyleOptionToolButton>
#include <QToolButton>
#include <algorithm>

#include "QtText.h"
#include "RecentList.h"

namespace {
QFrame* Line(QFrame::Shape shape) {
  auto* line = new QFrame;
  line->setFrameShape(shape);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

/// Shows caption and shortcut, and hides the menu before it triggers: the command may show a dialog.
class TMenuButton : public QToolButton {
 public:
  TMenuButton(QAction* action, QWidget* parent) : QToolButton(parent) {
    setDefaultAction(action);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 8, 0);
    auto* shortcut = new QLabel(action->shortcut().toString(QKeySequence::NativeText));
    shortcut->setAttribute(Qt::WA_TransparentForMouseEvents);
    layout->addWidget(shortcut, 0, Qt::AlignRight | Qt::AlignVCenter);
  }
  QSize sizeHint() const override {
    constexpr int gap = 24;
    return QToolButton::sizeHint() + QSize(layout()->sizeHint().width() + gap, 0);
  }

 protected:
  /// The arrow keys are the menu's.
  void keyPressEvent(QKeyEvent* event) override {
    const bool arrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    arrow ? event->ignore() : QToolButton::keyPressEvent(event);
  }
  void initStyleOption(QStyleOptionToolButton* option) const override {
    QToolButton::initStyleOption(option);
    option->text = defaultAction()->text();
  }
  void nextCheckState() override {
    window()->hide();
    QToolButton::nextCheckState();
  }
};

QChar Mnemonic(const QString& caption) {
  const auto mark = caption.indexOf('&');
  return mark < 0 || mark + 1 >= caption.size() ? QChar() : caption[mark + 1].toLower();
}
}  // namespace

TApplicationMenu::TApplicationMenu(const TRibbonDescription& description, TCommandActions& actions, QWidget* parent)
    : QFrame(parent, Qt::Popup) {
  setFrameShape(QFrame::StyledPanel);
  auto* outer = new QVBoxLayout(this);
  auto* upper = new QHBoxLayout;
  outer->addLayout(upper, 1);

  auto* commands = new QVBoxLayout;
  upper->addLayout(commands);
  for (const auto& entry : description.ApplicationMenu) {
    if (entry.BeginsGroup) commands->addWidget(Line(QFrame::HLine));
    commands->addWidget(AddButton(actions.ActionOf(*entry.Command), QSize(32, 32)));
  }
  commands->addStretch();
  upper->addWidget(Line(QFrame::VLine));

  auto* pane = new QVBoxLayout;
  upper->addLayout(pane, 1);
  auto* heading = new QLabel(FromUtf8(description.PaneHeading));
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  pane->addWidget(heading);
  FRecent = new TRecentList(heading->text());
  FRecent->setMinimumSize(320, 240);
  pane->addWidget(FRecent);
  FRecent->OnChoose = [this](int index) {
    hide();
    if (OnRecentClick) OnRecentClick(index);
  };

  outer->addWidget(Line(QFrame::HLine));
  auto* row = new QHBoxLayout;
  outer->addLayout(row);
  row->addStretch();
  for (auto* command : description.ButtonRow)
    row->addWidget(AddButton(actions.ActionOf(*command), QSize(16, 16)), 0, Qt::AlignRight);
}

QToolButton* TApplicationMenu::AddButton(QAction* action, QSize icon) {
  auto* button = new TMenuButton(action, this);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setIconSize(icon);
  button->setAutoRaise(true);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  button->setFocusPolicy(Qt::StrongFocus);
  FButtons.push_back(button);
  return button;
}

void TApplicationMenu::ShowBelow(const QWidget& button) {
  adjustSize();
  move(button.mapToGlobal(QPoint(0, button.height())));
  show();
  const auto enabled = std::find_if(FButtons.begin(), FButtons.end(), [](auto* b) { return b->isEnabled(); });
  if (enabled != FButtons.end()) (*enabled)->setFocus(Qt::PopupFocusReason);
}

void TApplicationMenu::keyPressEvent(QKeyEvent* event) {
  const bool inList = FRecent->hasFocus();
  switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!inList) focusNextPrevChild(event->key() == Qt::Key_Down);
      return;
    case Qt::Key_Right:
      if (FRecent->count() == 0) return;
      FRecent->setFocus();
      if (FRecent->currentRow() < 0) FRecent->setCurrentRow(0);
      return;
    case Qt::Key_Left:
      FButtons.front()->setFocus();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* button = qobject_cast<QToolButton*>(focusWidget())) button->click();
      return;
    default:
      break;
  }
  for (auto* button : FButtons) {
    if (event->text().size() != 1 || Mnemonic(button->defaultAction()->text()) != event->text().front().toLower())
      continue;
    button->click();
    return;
  }
  QFrame::keyPressEvent(event);
}
