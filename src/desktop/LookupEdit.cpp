#include <QAccessibleWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>
#include <optional>
#include <utility>

#include "CellEditors.h"
#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {
constexpr int shownRows = 12;

/// The value of a text that is a number without a sign.
std::optional<double> ValueOf(const QString& text) {
  static const QRegularExpression number("^\\d+([.,]\\d+)?$");
  if (!number.match(text).hasMatch()) return std::nullopt;
  return QString(text).replace(',', '.').toDouble();
}

/// The rows of the drop-down. The one under the mouse is marked lightly: the highlight stays with the value.
class TEntryDelegate : public QStyledItemDelegate {
 public:
  TEntryDelegate(QObject* parent, const int& underMouse) : QStyledItemDelegate(parent), FUnderMouse(underMouse) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.row() != FUnderMouse) return;
    option->backgroundBrush =
        Blend(option->palette.color(QPalette::Base), option->palette.color(QPalette::Highlight), 0.25);
  }

 private:
  const int& FUnderMouse;
};

/// To a screen reader it is a list to choose from, not a line that cannot be edited.
class TLookupAccess : public QAccessibleWidget {
 public:
  explicit TLookupAccess(TLookupEdit& edit) : QAccessibleWidget(&edit, QAccessible::ComboBox), FEdit(edit) {}
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? FEdit.text() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    auto state = QAccessibleWidget::state();
    state.editable = state.hasPopup = state.expandable = true;
    state.expanded = FEdit.IsListOpen();
    state.collapsed = !state.expanded;
    return state;
  }

 private:
  TLookupEdit& FEdit;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* edit = dynamic_cast<TLookupEdit*>(object);
  return edit == nullptr ? nullptr : new TLookupAccess(*edit);
}
}  // namespace

TLookupEdit::TLookupEdit(std::vector<TLookupEntry> entries, QWidget* parent)
    : QLineEdit(parent), FEntries(std::move(entries)), FList(new QTreeWidget(this)) {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(MakeAccess), true);
  setFrame(false);
  // What is typed picks an entry: keys go through keyPressEvent.
  setReadOnly(true);
  auto* open = addAction(ThemeIcon("arrow-down"), QLineEdit::TrailingPosition);
  open->setToolTip(UserText(DesktopTexts::OpenList));
  connect(open, &QAction::triggered, this, [this] { IsListOpen() ? CloseList() : OpenList(); });
  FillList();
  connect(FList, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    MarkByUser(FList->indexOfTopLevelItem(item), {});
    CloseList();
    if (OnAccepted) OnAccepted();
  });
}

TLookupEdit::~TLookupEdit() = default;

void TLookupEdit::FillList() {
  // A tool-tip window: it stands above all without ever taking the keyboard.
  FList->setWindowFlags(Qt::ToolTip);
  FList->setFocusPolicy(Qt::NoFocus);
  FList->setRootIsDecorated(false);
  FList->setUniformRowHeights(true);
  FList->setAllColumnsShowFocus(true);
  FList->setAnimated(false);
  FList->setItemDelegate(new TEntryDelegate(FList, FUnderMouse));
  FList->setMouseTracking(true);
  FList->viewport()->installEventFilter(this);
  FList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QPalette colours = FList->palette();
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
    colours.setColor(QPalette::Inactive, role, colours.color(QPalette::Active, role));
  FList->setPalette(colours);
  const bool described =
      std::any_of(FEntries.begin(), FEntries.end(), [](const auto& entry) { return !entry.Description.isEmpty(); });
  FList->setColumnCount(described ? 2 : 1);
  FList->setHeaderLabels({UserText(DesktopTexts::LookupToken), UserText(DesktopTexts::LookupDescription)});
  FList->setHeaderHidden(!described);
  for (const auto& entry : FEntries) {
    auto* item = new QTreeWidgetItem(QStringList{entry.Shown, entry.Description});
    item->setSizeHint(0, QSize(fontMetrics().horizontalAdvance(entry.Shown) + 12, fontMetrics().height() + 8));
    FList->addTopLevelItem(item);
  }
}

void TLookupEdit::Begin(bool) {
  OpenList();
}

TVariant TLookupEdit::Entered() const {
  return FMarked < 0 ? TVariant::Null() : FEntries[static_cast<std::size_t>(FMarked)].Key;
}

void TLookupEdit::Show(const TVariant& value, const QString& shown) {
  const auto at = std::find_if(FEntries.begin(), FEntries.end(), [&](const auto& entry) { return entry.Key == value; });
  if (at == FEntries.end()) return Mark(-1, {}, shown);
  Mark(static_cast<int>(at - FEntries.begin()), {}, at->Shown);
}

int TLookupEdit::Find(const QString& typed) const {
  const auto value = ValueOf(typed);
  const auto rank = [&](const QString& shown) {
    if (shown == typed) return 4;
    if (shown.compare(typed, Qt::CaseInsensitive) == 0) return 3;
    if (value && ValueOf(shown) == value) return 2;
    return shown.startsWith(typed, Qt::CaseInsensitive) ? 1 : 0;
  };
  int best = -1, bestRank = 0;
  for (std::size_t i = 0; i < FEntries.size(); ++i) {
    const int its = rank(FEntries[i].Shown);
    if (its <= bestRank) continue;
    best = static_cast<int>(i);
    bestRank = its;
  }
  return best;
}

void TLookupEdit::Mark(int entry, const QString& typed, const QString& text) {
  FMarked = entry;
  FTyped = typed;
  setText(text);
  SelectRest();
  QAccessibleValueChangeEvent told(this, text);
  QAccessible::updateAccessibility(&told);
  auto* item = FList->topLevelItem(entry);
  FList->clearSelection();
  FList->setCurrentItem(item);
  if (item != nullptr) FList->scrollToItem(item);
}

void TLookupEdit::SelectRest() {
  const auto length = static_cast<int>(text().size());
  const bool starts = text().startsWith(FTyped, Qt::CaseInsensitive);
  setSelection(length, (starts ? static_cast<int>(FTyped.size()) : 0) - length);
}

void TLookupEdit::MarkByUser(int entry, const QString& typed) {
  const bool changes = entry != FMarked || !IsComplete();
  Mark(entry, typed, FEntries[static_cast<std::size_t>(entry)].Shown);
  if (changes) Changed();
}

void TLookupEdit::Type(const QString& typed) {
  OpenList();
  if (const int entry = Find(typed); entry >= 0) return MarkByUser(entry, typed);
  Mark(-1, typed, typed);
  Refuse();
  Changed();
}

void TLookupEdit::Clear() {
  const bool changes = !Value().IsEmpty() || !IsComplete();
  Mark(-1, {}, {});
  if (changes) Changed();
}

bool TLookupEdit::IsListOpen() const {
  return FList->isVisible();
}

void TLookupEdit::OpenList() {
  SelectRest();
  if (FEntries.empty()) return;
  PlaceList();
  FList->show();
  if (auto* item = FList->currentItem()) FList->scrollToItem(item);
  window()->installEventFilter(this);
}

void TLookupEdit::CloseList() {
  FList->hide();
  window()->removeEventFilter(this);
}

bool TLookupEdit::eventFilter(QObject* watched, QEvent* event) {
  if (watched != FList->viewport()) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) PlaceList();
  } else if (event->type() == QEvent::MouseMove) {
    MarkUnderMouse(FList->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint()).row());
  } else if (event->type() == QEvent::Leave || event->type() == QEvent::Hide) {
    MarkUnderMouse(-1);
  }
  return QLineEdit::eventFilter(watched, event);
}

void TLookupEdit::MarkUnderMouse(int entry) {
  if (std::exchange(FUnderMouse, entry) != entry) FList->viewport()->update();
}

void TLookupEdit::moveEvent(QMoveEvent* event) {
  QLineEdit::moveEvent(event);
  if (IsListOpen()) PlaceList();
}

void TLookupEdit::PlaceList() {
  int wanted = 2 * FList->frameWidth() + 4;
  for (int column = 0; column < FList->columnCount(); ++column) {
    const int needed = std::max(static_cast<const QAbstractItemView*>(FList)->sizeHintForColumn(column),
                                FList->header()->sectionSizeHint(column));
    FList->setColumnWidth(column, needed + 12);
    wanted += needed + 12;
  }
  const int rows = static_cast<int>(FEntries.size());
  if (rows > shownRows) wanted += FList->verticalScrollBar()->sizeHint().width();
  const int head = FList->isHeaderHidden() ? 0 : FList->header()->sizeHint().height();
  const int rowHeight = std::max(FList->sizeHintForRow(0), 1);
  int high = 2 * FList->frameWidth() + head + rowHeight * std::min(rows, shownRows);

  const QRect room = screen()->availableGeometry();
  const QPoint cell = mapToGlobal(QPoint(0, 0));
  const int below = room.bottom() + 1 - (cell.y() + height());
  const int above = cell.y() - room.top();
  const bool upwards = high > below && above > below;
  high = std::min(high, upwards ? above : below);
  const int wide = std::min(std::max(wanted, width()), room.width());
  const int left = std::clamp(cell.x(), room.left(), room.right() + 1 - wide);
  FList->setGeometry(left, upwards ? cell.y() - high : cell.y() + height(), wide, high);
}

void TLookupEdit::keyPressEvent(QKeyEvent* event) {
  const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
  const int last = static_cast<int>(FEntries.size()) - 1;
  switch (event->key()) {
    case Qt::Key_F4:
      IsListOpen() ? CloseList() : OpenList();
      return;
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (alt) {
        IsListOpen() ? CloseList() : OpenList();
      } else if (last >= 0) {
        MarkByUser(std::clamp(FMarked + (event->key() == Qt::Key_Down ? 1 : -1), 0, last), {});
      }
      return;
    case Qt::Key_Delete:
      return Clear();
    case Qt::Key_Backspace:
      return FTyped.size() > 1 ? Type(FTyped.chopped(1)) : Clear();
    default:
      break;
  }
  if (event->text().isEmpty() || !event->text().front().isPrint()) return QLineEdit::keyPressEvent(event);
  Type(FTyped + event->text());
}

void TLookupEdit::wheelEvent(QWheelEvent* event) {
  event->accept();
}

void TLookupEdit::focusOutEvent(QFocusEvent* event) {
  CloseList();
  QLineEdit::focusOutEvent(event);
}

void TLookupEdit::hideEvent(QHideEvent* event) {
  CloseList();
  QLineEdit::hideEvent(event);
}
