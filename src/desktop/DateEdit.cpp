#include "DateEdit.h"

#include <QAction>
#include <QBoxLayout>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <algorithm>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelDateTime.h"

namespace {
const QDate epoch(1899, 12, 30);

// Two-digit years are those of this century.
QDate DateOf(const QString& text) {
  const QDate full = QDate::fromString(text, "d.M.yyyy");
  if (full.isValid() && full.year() > 999) return full;
  const QDate brief = QDate::fromString(text, "d.M.yy");
  return brief.isValid() ? brief.addYears(100) : QDate();
}

/// The beginning of a date. The number pad has a comma for the point.
class TDateValidator : public QRegularExpressionValidator {
 public:
  explicit TDateValidator(QObject* parent)
      : QRegularExpressionValidator(QRegularExpression("\\d{0,2}(\\.\\d{0,2}(\\.\\d{0,4})?)?"), parent) {}
  State validate(QString& input, int& place) const override {
    input.replace(',', '.').replace('-', '.');
    return QRegularExpressionValidator::validate(input, place);
  }
};
}  // namespace

TDateEdit::TDateEdit(const TEditorDescription& description, QWidget* parent) : TLineEdit(description, parent) {
  auto* open = addAction(ThemeIcon("view-calendar"), QLineEdit::TrailingPosition);
  open->setToolTip(UserText(DesktopTexts::OpenCalendar));
  connect(open, &QAction::triggered, this, [this] { OpenCalendar(); });
  setValidator(new TDateValidator(this));
}

bool TDateEdit::CanStore() const {
  return text().isEmpty() || DateOf(text()).isValid();
}

TVariant TDateEdit::Entered() const {
  const QDate date = DateOf(text());
  return date.isValid() ? TVariant::DateTime(static_cast<double>(epoch.daysTo(date))) : TVariant::Null();
}

void TDateEdit::Show(const TVariant& value, const QString&) {
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
  // Return presses them though this is no dialog.
  for (auto* button : {today, clear}) button->setAutoDefault(true);
  row->addWidget(today);
  row->addWidget(clear);
  const QRect room = screen()->availableGeometry();
  const QSize size = popup->sizeHint();
  const QPoint below = mapToGlobal(QPoint(0, height())), above = mapToGlobal(QPoint(0, -size.height()));
  const bool fitsBelow = below.y() + size.height() <= room.bottom() + 1;
  popup->move(std::clamp(below.x(), room.left(), std::max(room.left(), room.right() + 1 - size.width())),
              fitsBelow ? below.y() : std::max(room.top(), above.y()));
  popup->show();
  calendar->setFocus();
}

void TDateEdit::keyPressEvent(QKeyEvent* event) {
  const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
  if (event->key() == Qt::Key_F4 || (alt && event->key() == Qt::Key_Down)) return OpenCalendar();
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    const QDate date = DateOf(text());
    return date.isValid() ? Take(date.addDays(event->key() == Qt::Key_Up ? 1 : -1)) : Refuse();
  }
  QLineEdit::keyPressEvent(event);
}
