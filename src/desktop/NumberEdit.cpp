#include "NumberEdit.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <optional>

#include "LineEdit.h"
#include "QtText.h"

namespace {

/// What is left of a text after a piece of it was taken out.
bool IsShortened(const QString& text, const QString& rest) {
  if (rest.size() > text.size()) return false;
  const auto [inRest, inText] = std::mismatch(rest.begin(), rest.end(), text.begin());
  return text.endsWith(QStringView(inRest, rest.end()));
}

std::optional<double> ReadNumber(const QString& text) {
  bool isNumber = false;
  const double number = QLocale().toDouble(text, &isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace

TNumberEdit::TNumberEdit(const TEditorDescription& description, QWidget* parent)
    : QAbstractSpinBox(parent),
      TValueEditor(*this, description),
      FMinimum(description.Minimum),
      FMaximum(description.Maximum),
      FDecimals(description.Decimals) {
  if (description.Kind != TEditorKind::Spin) setButtonSymbols(NoButtons);
  lineEdit()->setPlaceholderText(FromUtf8(description.NullText));
  connect(lineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) { FText = text; });
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { Changed(); });
  connect(lineEdit(), &QLineEdit::inputRejected, this, [this] {
    FKeyRefused = true;
    Refuse();
  });
}

bool TNumberEdit::CanTakeBack(bool again) const {
  return again ? lineEdit()->isRedoAvailable() : lineEdit()->isUndoAvailable();
}

void TNumberEdit::Begin(bool atEnd) {
  PlaceCursor(*lineEdit(), atEnd);
}

void TNumberEdit::PlaceInCell(const QRect& cell) {
  setFrame(false);
  setGeometry(cell);
}

bool TNumberEdit::CanStore() const {
  if (lineEdit()->text().isEmpty()) return true;
  const auto number = ReadNumber(lineEdit()->text());
  return number && *number >= FMinimum && *number <= FMaximum;
}

TVariant TNumberEdit::Entered() const {
  const auto number = ReadNumber(lineEdit()->text());
  return number && CanStore() ? NumberOf(*number) : TVariant::Null();
}

TVariant TNumberEdit::NumberOf(double number) const {
  return FDecimals > 0 ? TVariant(number) : TVariant(static_cast<std::int32_t>(number));
}

void TNumberEdit::Show(const TVariant& value, const QString&) {
  FKeyRefused = FCommaRefused = false;
  SetText(value);
}

void TNumberEdit::SetText(const TVariant& value) {
  FText = NumberText(value, Description().RoundsShown ? FDecimals : -1);
  lineEdit()->setText(FText);
}

void TNumberEdit::stepBy(int steps) {
  const auto number = ReadNumber(lineEdit()->text());
  SetText(NumberOf(number ? std::clamp(*number + steps, FMinimum, FMaximum) : std::max(0.0, FMinimum)));
  selectAll();
  Changed();
}

bool TNumberEdit::Takes(const QString& text) const {
  static const QRegularExpression form("^(-?)(\\d*)(,(\\d*))?$");
  const auto match = form.match(text);
  if (!match.hasMatch()) return false;
  if (match.hasCaptured(1) && !match.captured(1).isEmpty() && FMinimum >= 0) return false;
  // Leading zeros make no number too large.
  if (match.captured(2).size() > QString::number(static_cast<std::int64_t>(FMaximum)).size()) return false;
  if (match.hasCaptured(3) && (FDecimals == 0 || match.captured(4).size() > FDecimals)) return false;
  const double number = ReadNumber(text).value_or(0);
  return number <= FMaximum && number >= std::min(FMinimum, 0.0);
}

QValidator::State TNumberEdit::validate(QString& input, int&) const {
  if (IsShortened(FText, input)) return QValidator::Acceptable;
  input.replace('.', ',');
  return Takes(input) ? QValidator::Acceptable : QValidator::Invalid;
}

void TNumberEdit::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const bool isComma = typed == "," || typed == ".";
  const bool isDigit = !typed.isEmpty() && typed.front().isDigit();
  // Digits behind a comma that was refused are places that the field does not have.
  if (FCommaRefused && isDigit) return Refuse();
  FKeyRefused = false;
  QAbstractSpinBox::keyPressEvent(event);
  FCommaRefused = isComma && FKeyRefused && !lineEdit()->text().contains(',');
}

void TNumberEdit::wheelEvent(QWheelEvent* event) {
  event->ignore();
}
