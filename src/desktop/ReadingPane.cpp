#include "ReadingPane.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "CellText.h"
#include "GridData.h"

namespace {
constexpr int lineLength = 60;  // characters that are read with ease
}

TReadingPane::TReadingPane(const QString& text, const QString& name, QWidget* owner) : QPlainTextEdit(owner) {
  setWindowFlag(Qt::Popup);
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(name);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setPlainText(text);
}

void TReadingPane::ShowOver(const QRect& cell) {
  const QRect room = screen()->availableGeometry();
  const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  const int lines = fontMetrics().averageCharWidth() * lineLength;
  const int width = std::min(std::max(cell.width(), lines + margins), room.width());
  const TCellText text(ShownPart(toPlainText()), font(), width - margins, room.height() / 2);
  const int height = std::max(cell.height(), text.Height() + margins + fontMetrics().height() / 2);
  // The bar of a size that the pane has no more would break the lines elsewhere.
  setVerticalScrollBarPolicy(text.IsCut() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  setGeometry(std::clamp(cell.x(), room.left(), room.left() + room.width() - width),
              std::clamp(cell.y(), room.top(), room.top() + std::max(0, room.height() - height)), width, height);
  show();
  setFocus();
}

void TReadingPane::keyPressEvent(QKeyEvent* event) {
  const auto ends = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2};
  if (std::ranges::find(ends, event->key()) != ends.end())
    close();
  else
    QPlainTextEdit::keyPressEvent(event);
}
