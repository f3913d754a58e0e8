#include "FilterLine.h"

#include <QBoxLayout>
#include <QToolButton>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "ElidedLabel.h"
#include "QtText.h"

TFilterLine::TFilterLine(std::function<void()> onLift) : FLabel(new TElidedLabel(", ")), FLift(new QToolButton) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(3, 0, 0, 0);
  layout->addWidget(FLabel, 1);
  FLift->setText(UserText(DesktopTexts::FilterOff));
  FLift->setIcon(ThemeIcon("edit-clear"));
  FLift->setToolTip(FLift->text());
  FLift->setAccessibleName(FLift->text());
  FLift->setAutoRaise(true);
  // Menu and Escape do the same by key; Tab leads straight from grid to grid.
  FLift->setFocusPolicy(Qt::NoFocus);
  connect(FLift, &QToolButton::clicked, this, [onLift = std::move(onLift)] { onLift(); });
  layout->addWidget(FLift);
  hide();
}

void TFilterLine::Tell(const QString& text, bool canLift) {
  FLift->setVisible(canLift);
  FLabel->setText(text);
  FLabel->setToolTip(text);
  FLabel->setAccessibleName(text);
  setVisible(!text.isEmpty());
}
