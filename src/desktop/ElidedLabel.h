#pragma once

#include <QLabel>
#include <QPainter>

/// A line that ends at a whole word where the room is short, and takes no more room than it needs.
class TElidedLabel : public QLabel {
 public:
  /// What the last part of the text begins with that stays whole; empty where none does.
  explicit TElidedLabel(QString lastPart = {}) : FLastPart(std::move(lastPart)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  }
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  /// The text as far as it has room.
  QString ShownText() const {
    const QString whole = text();
    const int room = contentsRect().width();
    if (fontMetrics().horizontalAdvance(whole) <= room) return whole;
    const auto last = FLastPart.isEmpty() ? -1 : whole.lastIndexOf(FLastPart);
    const QString end = QChar(0x2026) + (last < 0 ? QString() : whole.mid(last));
    for (auto cut = whole.lastIndexOf(' ', last < 0 ? -1 : last - 1); cut > 0; cut = whole.lastIndexOf(' ', cut - 1)) {
      const QString shortened = whole.left(cut).trimmed() + end;
      if (fontMetrics().horizontalAdvance(shortened) <= room) return shortened;
    }
    return fontMetrics().elidedText(whole, Qt::ElideMiddle, room);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, ShownText());
  }

 private:
  const QString FLastPart;
};
