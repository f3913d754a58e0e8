#include "MemoEdit.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextBlock>
#include <algorithm>

#include "QtText.h"

TMemoEdit::TMemoEdit(const TEditorDescription& description, QWidget* parent)
    : QPlainTextEdit(parent), TValueEditor(*this, description) {
  setTabChangesFocus(true);
  document()->setDocumentMargin(2);
  setPlaceholderText(FromUtf8(description.NullText));
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    Fit();
    Changed();
  });
}

void TMemoEdit::Begin(bool atEnd) {
  if (atEnd)
    moveCursor(QTextCursor::End);
  else
    selectAll();
}

TVariant TMemoEdit::Entered() const {
  // Block by block: the text as a whole has blanks for U+00A0 and breaks for U+2028.
  QString text;
  for (auto block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockNumber() > 0) text += FLineEnds.value(std::max(block.userState(), 0), "\r\n");
    text += block.text();
  }
  return text.isEmpty() ? TVariant::Null() : TVariant(ToUtf8(text));
}

void TMemoEdit::Show(const TVariant& value, const QString&) {
  static const QRegularExpression lineEnd("\r\n|[\r\n\u2029]");
  const QSignalBlocker silent(this);
  const auto text = FromUtf8(value.AsTextOrEmpty());
  setPlainText(text);
  FLineEnds.clear();
  auto block = document()->begin();
  for (auto ends = lineEnd.globalMatch(text); ends.hasNext();) {
    block = block.next();
    block.setUserState(static_cast<int>(FLineEnds.size()));
    FLineEnds << ends.next().captured();
  }
}

void TMemoEdit::PlaceInCell(const QRect& cell) {
  setFrameShape(NoFrame);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  FCell = cell;
  Fit();
}

void TMemoEdit::Fit() {
  if (FCell.isEmpty()) return;
  resize(FCell.size());
  const auto* lines = document()->documentLayout();
  const int wanted = static_cast<int>(lines->documentSize().height()) * fontMetrics().lineSpacing() + 6;
  const int room = parentWidget()->height();
  const int high = std::clamp(wanted, FCell.height(), std::max(room, FCell.height()));
  setGeometry(FCell.x(), std::clamp(FCell.y(), 0, std::max(room - high, 0)), FCell.width(), high);
  setVerticalScrollBarPolicy(wanted > high ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

QPoint TMemoEdit::StepsOf(const QKeyEvent& key) const {
  const bool isUp = key.key() == Qt::Key_Up;
  if (key.modifiers() != Qt::NoModifier || (!isUp && key.key() != Qt::Key_Down)) return {};
  auto cursor = textCursor();
  if (cursor.movePosition(isUp ? QTextCursor::Up : QTextCursor::Down)) return {};
  return {0, isUp ? -1 : 1};
}

bool TMemoEdit::BreaksLine(const QKeyEvent& key) const {
  const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  return isEnter && (key.modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) != 0;
}

void TMemoEdit::keyPressEvent(QKeyEvent* event) {
  const bool breaks = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (breaks && !event->modifiers().testFlag(Qt::ControlModifier)) {
    textCursor().insertBlock();
    return ensureCursorVisible();
  }
  // Not every desktop has this key for it.
  if (event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier) return redo();
  // Alt and a letter that is bound to nothing is no text.
  const auto modifiers = event->modifiers() & (Qt::AltModifier | Qt::ControlModifier);
  if (modifiers == Qt::AltModifier && !event->text().isEmpty()) return event->ignore();
  QPlainTextEdit::keyPressEvent(event);
}
