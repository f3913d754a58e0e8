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

TDesktopGridPane::TDesktopGridPane(const char* heading, bool fits)
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
  if (fits) status->addWidget(MakeFitButton());
  FCount->setMargin(3);
  if (fits) FCount->setMinimumWidth(countWidth);
  status->addWidget(FCount);
  status->addWidget(FNoteLabel, 2);
  status->addWidget(&FGrid->FilterLine(), 1);
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

QWidget* TDesktopGridPane::MakeFitButton() {
  auto* fit = new QToolButton;
  fit->setText(UserText(ViewTexts::FitColumns));
  fit->setIcon(ThemeIcon("zoom-fit-width"));
  fit->setToolTip(fit->text());
  fit->setAccessibleName(fit->text());
  fit->setAutoRaise(true);
  fit->setFocusPolicy(Qt::StrongFocus);
  // The pane may end within the handler, and the handler with it.
  QObject::connect(fit, &QToolButton::clicked, &FReceiver, [this] {
    if (const auto handler = OnFit) handler();
  });
  return fit;
}
