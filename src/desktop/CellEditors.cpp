#include "CellEditors.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QTextBlock>
#include <algorithm>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelDateTime.h"

namespace {
/// The warning frame over an editor. It ends with the next key there.
class TRefusedSign : public QWidget {
 public:
  explicit TRefusedSign(QWidget& editor);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

TRefusedSign::TRefusedSign(QWidget& editor) : QWidget(&editor) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(editor.rect());
  editor.installEventFilter(this);
  raise();
  show();
}

bool TRefusedSign::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  // Gone at once: the key may be refused as well.
  if (event->type() == QEvent::KeyPress) delete this;
  return false;
}

void TRefusedSign::paintEvent(QPaintEvent*) {
  constexpr int thick = 2;
  QPainter painter(this);
  painter.setPen(QPen(WarningColour, 2 * thick, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(rect());
}

void PlaceCursor(QLineEdit& edit, bool atEnd) {
  if (atEnd)
    edit.end(false);
  else
    edit.selectAll();
}
}  // namespace

void TCellEditor::SetValue(const TVariant& value, const QString& shown) {
  FStored = value;
  FChanged = false;
  Show(value, shown);
}

void TCellEditor::Changed() {
  FChanged = true;
  if (OnChanged) OnChanged();
}

void TCellEditor::Refuse() {
  auto* editor = dynamic_cast<QWidget*>(this);
  QApplication::beep();
  if (FSign == nullptr) FSign = new TRefusedSign(*editor);
}

TPlainEdit::TPlainEdit(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  connect(this, &QLineEdit::textEdited, this, [this] { Changed(); });
}

void TPlainEdit::Begin(bool atEnd) {
  PlaceCursor(*this, atEnd);
}

TVariant TPlainEdit::Entered() const {
  return text().isEmpty() ? TVariant::Null() : TVariant(ToUtf8(text()));
}

void TPlainEdit::Show(const TVariant& value, const QString&) {
  setText(FromUtf8(value.AsTextOrEmpty()));
}

TMemoEdit::TMemoEdit(QWidget* parent) : QPlainTextEdit(parent) {
  setFrameShape(NoFrame);
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(2);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    Fit(FCell);
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
  static const QRegularExpression beginning("\\d{0,2}(\\.\\d{0,2}(\\.\\d{0,4})?)?");
  setValidator(new QRegularExpressionValidator(beginning, this));
  connect(this, &QLineEdit::inputRejected, this, [this] { Refuse(); });
  connect(this, &QLineEdit::textEdited, this, [this] { Changed(); });
}

void TDateEdit::Begin(bool atEnd) {
  PlaceCursor(*this, atEnd);
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
