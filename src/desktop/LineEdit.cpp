#include "LineEdit.h"

#include "QtText.h"

TLineEdit::TLineEdit(const TEditorDescription& description, QWidget* parent)
    : QLineEdit(parent), TValueEditor(*this, description) {
  setPlaceholderText(FromUtf8(description.NullText));
  connect(this, &QLineEdit::inputRejected, this, [this] { Refuse(); });
  connect(this, &QLineEdit::textEdited, this, [this] { Changed(); });
}

void TLineEdit::Begin(bool atEnd) {
  PlaceCursor(*this, atEnd);
}

void TLineEdit::PlaceInCell(const QRect& cell) {
  setFrame(false);
  setGeometry(cell);
}

void PlaceCursor(QLineEdit& edit, bool atEnd) {
  if (atEnd)
    edit.end(false);
  else
    edit.selectAll();
}
