#include "DesktopGridPane.h"

#include <QBoxLayout>
#include <QToolButton>
#include <string_view>

#include "CommandBar.h"
#include "DesktopGrid.h"
#include "DesktopLook.h"
#include "ElidedLabel.h"
#include "QtText.h"
#include "ViewTexts.h"

namespace {
constexpr int countWidth = 200;  // below a grid with many columns
}

TDesktopGridPane::TDesktopGridPane(const char* heading, TPaneButton button)
    : FPanel(new QWidget),
      FGrid(new TDesktopGrid),
      FCount(new QLabel),
      FNoteLabel(new TElidedLabel),
      FStatus(*FCount),
      FNote(*FNoteLabel) {
  auto* layout = new QVBoxLayout(FPanel);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  if (!std::string_view(heading).empty()) {
    auto* label = new QLabel(UserText(heading));
    label->setMargin(6);
    label->setBuddy(FGrid);
    layout->addWidget(label);
  }
  layout->addWidget(FGrid, 1);
  auto* status = new QHBoxLayout;
  layout->addLayout(status);
  if (button == TPaneButton::Fit) status->addWidget(MakeButton(ViewTexts::FitColumns, "zoom-fit-width", OnFit));
  if (button == TPaneButton::SelectAll)
    status->addWidget(MakeButton(ViewTexts::SelectAll, "edit-select-all", OnSelectAll));
  FCount->setMargin(3);
  if (button == TPaneButton::Fit) FCount->setMinimumWidth(countWidth);
  status->addWidget(FCount);
  status->addWidget(FNoteLabel);
  status->addWidget(&FGrid->FilterLine());
  status->addStretch();
}

TDesktopGridPane::~TDesktopGridPane() {
  FGrid->Release();
}

TVantrelGrid& TDesktopGridPane::Grid() {
  return *FGrid;
}

void TDesktopGridPane::SetCommands(const std::vector<TVantrelCommand*>& commands) {
  FActions = std::make_unique<TCommandActions>(*FPanel);
  for (auto* command : commands) FActions->ActionOf(*command)->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  auto* bar = new TCommandBar(commands, *FActions);
  bar->layout()->setContentsMargins(2, 2, 2, 2);
  static_cast<QVBoxLayout*>(FPanel->layout())->insertWidget(0, bar);
  // The keyboard comes to the grid first.
  QWidget* before = &FGrid->View();
  for (auto* button : bar->findChildren<QToolButton*>()) {
    QWidget::setTabOrder(before, button);
    before = button;
  }
}

QWidget* TDesktopGridPane::MakeButton(const char* text, const char* icon, const std::function<void()>& onClick) {
  auto* button = new QToolButton;
  button->setText(UserText(text));
  button->setIcon(ThemeIcon(icon));
  button->setToolTip(button->text());
  button->setAccessibleName(button->text());
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  // The pane may end within the handler, and the handler with it.
  QObject::connect(button, &QToolButton::clicked, &FReceiver, [&onClick] {
    if (const auto handler = onClick) handler();
  });
  return button;
}
