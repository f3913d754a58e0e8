#include "FilterLine.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {

/// A line that loses its middle where the room is short: its end tells how much is shown.
class TElidedLabel : public QLabel {
 public:
  TElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()));
  }
};

}  // namespace

TFilterLine::TFilterLine(std::function<void()> onLift) : FLabel(new TElidedLabel) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(3, 0, 0, 0);
  layout->addWidget(FLabel, 1);
  auto* lift = new QToolButton;
  lift->setText(UserText(DesktopTexts::FilterOff));
  lift->setIcon(ThemeIcon("edit-clear"));
  lift->setToolTip(lift->text());
  lift->setAccessibleName(lift->text());
  lift->setAutoRaise(true);
  // Menu and Escape do the same by key; Tab leads straight from grid to grid.
  lift->setFocusPolicy(Qt::NoFocus);
  connect(lift, &QToolButton::clicked, this, [onLift = std::move(onLift)] { onLift(); });
  layout->addWidget(lift);
  hide();
}

void TFilterLine::Tell(const QString& text) {
  FLabel->setText(text);
  FLabel->setToolTip(text);
  FLabel->setAccessibleName(text);
  setVisible(!text.isEmpty());
}
