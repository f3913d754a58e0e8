#include "PlainEdit.h"

#include <QKeyEvent>
#include <QValidator>
#include <algorithm>

#include "QtText.h"

namespace {
/// Refuses what would make a line longer than can be typed. A longer one that was set can be shortened.
class TLengthValidator : public QValidator {
 public:
  /// `length` is that of the line before a change.
  TLengthValidator(QLineEdit& edit, qsizetype most, const qsizetype& length)
      : QValidator(&edit), FMost(most), FLength(length) {}
  State validate(QString& input, int&) const override {
    return input.size() <= std::max(FMost, FLength) ? Acceptable : Invalid;
  }

 private:
  qsizetype FMost;
  const qsizetype& FLength;
};
}  // namespace

TPlainEdit::TPlainEdit(const TEditorDescription& description, QWidget* parent) : TLineEdit(description, parent) {
  if (description.MaxLength > 0) setValidator(new TLengthValidator(*this, description.MaxLength, FLength));
  connect(this, &QLineEdit::textChanged, this, [this](const QString& now) { FLength = now.size(); });
}

QPoint TPlainEdit::StepsOf(const QKeyEvent& key) const {
  if (key.modifiers() != Qt::NoModifier) return {};
  return {0, key.key() == Qt::Key_Up ? -1 : key.key() == Qt::Key_Down ? 1 : 0};
}

TVariant TPlainEdit::Entered() const {
  return text().isEmpty() ? TVariant::Null() : TVariant(ToUtf8(text()));
}

void TPlainEdit::Show(const TVariant& value, const QString&) {
  const QString shown = FromUtf8(value.AsTextOrEmpty());
  FLength = shown.size();
  setText(shown);
}
