#pragma once

#include <QLabel>
#include <QPainter>

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
