#include "CellEditors.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QBoxLayout>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelDateTime.h"

TPlainEdit::TPlainEdit(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  connect(this, &QLineEdit::textEdited, this, [this] { Changed(); });
}

TVariant TPlainEdit::Value() const {
  return text().isEmpty() ? TVariant::Null() : TVariant(ToUtf8(text()));
}

void TPlainEdit::SetValue(const TVariant& value) {
  setText(FromUtf8(value.AsTextOrEmpty()));
}

TMemoEdit::TMemoEdit(QWidget* parent) : QPlainTextEdit(parent) {
  setFrameShape(NoFrame);
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(2);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    Fit(FCell);
    Changed();
  });
}

TVariant TMemoEdit::Value() const {
  auto text = toPlainText();
  if (FWindowsLines) text.replace('\n', "\r\n");
  return text.isEmpty() ? TVariant::Null() : TVariant(ToUtf8(text));
}

void TMemoEdit::SetValue(const TVariant& value) {
  const QSignalBlocker silent(this);
  const auto text = FromUtf8(value.AsTextOrEmpty());
  FWindowsLines = text.contains("\r\n");
  setPlainText(text);
  selectAll();
}

void TMemoEdit::Fit(const QRect& cell) {
  FCell = cell;
  if (cell.isEmpty()) return;
  resize(cell.size());
  const auto* lines = document()->documentLayout();
  const int wanted = static_cast<int>(lines->documentSize().height()) * fontMetrics().lineSpacing() + 6;
  const int room = parentWidget()->height();
  const int high = std::clamp(wanted, cell.height(), std::max(room, cell.height()));
  setGeometry(cell.x(), std::clamp(cell.y(), 0, std::max(room - high, 0)), cell.width(), high);
  setVerticalScrollBarPolicy(wanted > high ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

bool TMemoEdit::IsAtEdge(int key) const {
  auto cursor = textCursor();
  return !cursor.movePosition(key == Qt::Key_Up ? QTextCursor::Up : QTextCursor::Down);
}

void TMemoEdit::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return textCursor().insertBlock();
  QPlainTextEdit::keyPressEvent(event);
}

TSpinEdit::TSpinEdit(double minimum, double maximum, int decimals, QWidget* parent)
    : QAbstractSpinBox(parent), FMinimum(minimum), FMaximum(maximum), FDecimals(decimals) {
  setFrame(false);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { Changed(); });
}

TVariant TSpinEdit::Value() const {
  bool isNumber = false;
  const double number = QLocale().toDouble(lineEdit()->text(), &isNumber);
  if (!isNumber) return TVariant::Null();
  const double held = std::clamp(number, FMinimum, FMaximum);
  return FDecimals > 0 ? TVariant(held) : TVariant(static_cast<std::int32_t>(held));
}

void TSpinEdit::SetValue(const TVariant& value) {
  lineEdit()->setText(FromUtf8(value.AsTextOrEmpty()));
}

void TSpinEdit::stepBy(int steps) {
  const TVariant value = Value();
  const double next =
      value.IsEmpty() ? std::max(0.0, FMinimum) : std::clamp(value.AsFloat() + steps, FMinimum, FMaximum);
  SetValue(FDecimals > 0 ? TVariant(next) : TVariant(static_cast<std::int32_t>(next)));
  selectAll();
  Changed();
}

QValidator::State TSpinEdit::validate(QString& input, int&) const {
  const bool negative = input.startsWith('-');
  if (negative && FMinimum >= 0) return QValidator::Invalid;
  const QString digits = negative ? input.mid(1) : input;
  const auto comma = digits.indexOf(',');
  for (qsizetype i = 0; i < digits.size(); ++i)
    if (!digits[i].isDigit() && (i != comma || FDecimals == 0)) return QValidator::Invalid;
  if (comma >= 0 && digits.size() - comma - 1 > FDecimals) return QValidator::Invalid;
  return QLocale().toDouble(input) > FMaximum ? QValidator::Invalid : QValidator::Acceptable;
}

namespace {
const QDate epoch(1899, 12, 30);

// Two-digit years are those of this century.
QDate DateOf(const QString& text) {
  const QDate full = QDate::fromString(text, "d.M.yyyy");
  if (full.isValid() && full.year() > 999) return full;
  const QDate brief = QDate::fromString(text, "d.M.yy");
  return brief.isValid() ? brief.addYears(100) : QDate();
}
}  // namespace

TDateEdit::TDateEdit(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  auto* open = addAction(ThemeIcon("view-calendar"), QLineEdit::TrailingPosition);
  open->setToolTip(UserText(DesktopTexts::OpenCalendar));
  connect(open, &QAction::triggered, this, [this] { OpenCalendar(); });
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text.isEmpty() || DateOf(text).isValid()) Changed();
  });
}

TVariant TDateEdit::Value() const {
  const QDate date = DateOf(text());
  return date.isValid() ? TVariant::DateTime(static_cast<double>(epoch.daysTo(date))) : TVariant::Null();
}

void TDateEdit::SetValue(const TVariant& value) {
  setText(value.IsEmpty() ? QString() : FromUtf8(DateToGermanText(value.AsFloat())));
}

void TDateEdit::Take(const QDate& date) {
  setText(date.isValid() ? date.toString("dd.MM.yyyy") : QString());
  selectAll();
  Changed();
}

void TDateEdit::OpenCalendar() {
  auto* popup = new QFrame(this, Qt::Popup);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setFrameShape(QFrame::StyledPanel);
  auto* layout = new QVBoxLayout(popup);
  auto* calendar = new QCalendarWidget;
  const QDate date = DateOf(text());
  calendar->setSelectedDate(date.isValid() ? date : QDate::currentDate());
  layout->addWidget(calendar);
  auto* row = new QHBoxLayout;
  layout->addLayout(row);
  const auto choose = [this, popup](const QDate& chosen) {
    popup->close();
    Take(chosen);
  };
  connect(calendar, &QCalendarWidget::activated, this, choose);
  connect(calendar, &QCalendarWidget::clicked, this, choose);
  auto* today = new QPushButton(UserText(DesktopTexts::Today));
  auto* clear = new QPushButton(UserText(DesktopTexts::ClearDate));
  connect(today, &QPushButton::clicked, this, [choose] { choose(QDate::currentDate()); });
  connect(clear, &QPushButton::clicked, this, [choose] { choose({}); });
  row->addWidget(today);
  row->addWidget(clear);
  popup->move(mapToGlobal(QPoint(0, height())));
  popup->show();
  calendar->setFocus();
}

void TDateEdit::keyPressEvent(QKeyEvent* event) {
  const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
  if (event->key() == Qt::Key_F4 || (alt && event->key() == Qt::Key_Down)) return OpenCalendar();
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    const QDate date = DateOf(text());
    return Take(date.isValid() ? date.addDays(event->key() == Qt::Key_Up ? 1 : -1) : QDate::currentDate());
  }
  QLineEdit::keyPressEvent(event);
}
