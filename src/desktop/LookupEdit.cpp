#include "LookupEdit.h"

#include <QAccessibleWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSizeGrip>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelMemTable.h"

namespace {
constexpr int shownRows = 12;
constexpr int noTarget = std::numeric_limits<int>::min();

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

TLookupEdit::TLookupEdit(const TEditorDescription& description, QWidget* parent)
    : QLineEdit(parent),
      TValueEditor(*this, description),
      FEntries(ReadEntries()),
      FList(new QTreeWidget(this)),
      FGrip(new QSizeGrip(FList)) {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(MakeAccess), true);
  // What is typed picks an entry: keys go through keyPressEvent.
  setReadOnly(true);
  setPlaceholderText(FromUtf8(description.NullText));
  auto* open = addAction(ThemeIcon("arrow-down"), QLineEdit::TrailingPosition);
  open->setToolTip(UserText(DesktopTexts::OpenList));
  connect(open, &QAction::triggered, this, [this] {
    if (!CloseList()) OpenList();
  });
  MakeList();
  FillList();
  connect(FList, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    const bool changes = MarkByUser(FList->indexOfTopLevelItem(item), {});
    CloseList();
    if (changes) Tell();
    Accepted();
  });
}

std::vector<TLookupEdit::TEntry> TLookupEdit::ReadEntries() const {
  std::vector<TEntry> entries;
  if (Description().Kind == TEditorKind::List) {
    for (const auto& item : Description().Items) entries.push_back({item.Value, FromUtf8(item.Text), {}});
    return entries;
  }
  const auto& lookup = Description().Lookup;
  const auto* table = lookup.Table;
  if (table == nullptr || !table->Active()) return entries;
  const auto fieldOf = [table](const std::string& name) {
    const auto* field = table->FindField(name);
    return field == nullptr ? -1 : field->Index();
  };
  const int key = fieldOf(lookup.KeyField);
  const int shown = fieldOf(lookup.ShownField);
  const int description = fieldOf(lookup.DescriptionField);
  for (int record = 0; record < table->RecordCount(); ++record) {
    entries.push_back({table->ValueAt(record, key), FromUtf8(table->ValueAt(record, shown).AsTextOrEmpty()),
                       FromUtf8(table->ValueAt(record, description).AsTextOrEmpty())});
  }
  return entries;
}

void TLookupEdit::Reload() {
  FEntries = ReadEntries();
  FillList();
  if (FTyped.isEmpty()) Mark(EntryOf(Value()), {}, text());
}

void TLookupEdit::MakeList() {
  // A tool-tip window: it stands above all without ever taking the keyboard. No window manager would size it.
  FList->setWindowFlags(Qt::ToolTip | Qt::X11BypassWindowManagerHint);
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
}

void TLookupEdit::FillList() {
  FList->clear();
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

void TLookupEdit::PlaceInCell(const QRect& cell) {
  setFrame(false);
  setGeometry(cell);
}

QPoint TLookupEdit::StepsOf(const QKeyEvent& key) const {
  return {key.key() == Qt::Key_Left ? -1 : key.key() == Qt::Key_Right ? 1 : 0, 0};
}

TVariant TLookupEdit::Entered() const {
  return FMarked < 0 ? TVariant::Null() : FEntries[static_cast<std::size_t>(FMarked)].Key;
}

int TLookupEdit::EntryOf(const TVariant& value) const {
  const auto at = std::ranges::find(FEntries, value, &TEntry::Key);
  return at == FEntries.end() ? -1 : static_cast<int>(at - FEntries.begin());
}

void TLookupEdit::Show(const TVariant& value, const QString& shown) {
  const int entry = EntryOf(value);
  Mark(entry, {}, entry < 0 ? shown : FEntries[static_cast<std::size_t>(entry)].Shown);
  if (!hasFocus()) deselect();
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

bool TLookupEdit::MarkByUser(int entry, const QString& typed) {
  const bool changes = entry != FMarked || !IsComplete();
  Mark(entry, typed, FEntries[static_cast<std::size_t>(entry)].Shown);
  if (changes) SetChanged();
  return changes;
}

bool TLookupEdit::Type(const QString& typed) {
  OpenList();
  if (FTyped.isEmpty()) FBefore = {FMarked, text(), IsChanged()};
  if (const int entry = Find(typed); entry >= 0) return MarkByUser(entry, typed);
  Mark(-1, typed, typed);
  SetChanged();
  RefuseText();
  return true;
}

bool TLookupEdit::Shorten() {
  if (FTyped.size() > 1) return Type(FTyped.chopped(1));
  if (!IsComplete()) return TakeBack();
  const bool changes = !Value().IsEmpty();
  Mark(-1, {}, {});
  if (changes) SetChanged();
  return changes;
}

bool TLookupEdit::TakeBack() {
  // The one letter named nothing: what it would have replaced stands there again.
  if (FBefore.IsChanged)
    Mark(FBefore.Entry, {}, FBefore.Text);
  else
    Restore();
  return true;
}

bool TLookupEdit::IsListOpen() const {
  return FList->isVisible();
}

void TLookupEdit::OpenList() {
  SelectRest();
  if (FEntries.empty()) return;
  PlaceList();
  FList->show();
  if (auto* item = FList->currentItem())
    FList->scrollToItem(item);
  else
    FList->scrollToTop();
  // Whatever it stands in may move.
  for (auto* around = parentWidget(); around != nullptr; around = around->isWindow() ? nullptr : around->parentWidget())
    around->installEventFilter(this);
}

bool TLookupEdit::CloseList() {
  const bool wasOpen = IsListOpen();
  KeepSize();
  FList->hide();
  for (auto* around = parentWidget(); around != nullptr; around = around->isWindow() ? nullptr : around->parentWidget())
    around->removeEventFilter(this);
  return wasOpen;
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

void TLookupEdit::KeepSize() {
  if (IsListOpen() && FList->size() != FPlaced) FSized = FList->size();
}

void TLookupEdit::PlaceList() {
  KeepSize();
  int wanted = 2 * FList->frameWidth() + 4;
  for (int column = 0; column < FList->columnCount(); ++column) {
    const int needed = std::max(static_cast<const QAbstractItemView*>(FList)->sizeHintForColumn(column),
                                FList->header()->sectionSizeHint(column));
    FList->setColumnWidth(column, needed + 12);
    wanted += needed + 12;
  }
  const int rows = static_cast<int>(FEntries.size());
  const bool isLong = rows > shownRows;
  if (isLong) wanted += FList->verticalScrollBar()->sizeHint().width();
  FList->setVerticalScrollBarPolicy(isLong ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
  const int head = FList->isHeaderHidden() ? 0 : FList->header()->sizeHint().height();
  const int rowHeight = std::max(FList->sizeHintForRow(0), 1);
  int high = 2 * FList->frameWidth() + head + rowHeight * std::min(rows, shownRows);
  if (isLong && FSized.isValid()) {
    wanted = FSized.width();
    high = FSized.height();
  }

  const QRect room = screen()->availableGeometry();
  const QPoint cell = mapToGlobal(QPoint(0, 0));
  const int below = room.bottom() + 1 - (cell.y() + height());
  const int above = cell.y() - room.top();
  const bool upwards = high > below && above > below;
  high = std::min(high, upwards ? above : below);
  const int wide = std::min(std::max(wanted, width()), room.width());
  const int left = std::clamp(cell.x(), room.left(), room.right() + 1 - wide);
  FList->setGeometry(left, upwards ? cell.y() - high : cell.y() + height(), wide, high);
  FList->addScrollBarWidget(FGrip, upwards ? Qt::AlignTop : Qt::AlignBottom);
  FPlaced = FList->size();
}

int TLookupEdit::TargetOf(const QKeyEvent& key) const {
  const int last = static_cast<int>(FEntries.size()) - 1;
  if (key.key() == Qt::Key_Up) return FMarked - 1;
  if (key.key() == Qt::Key_Down) return FMarked + 1;
  if (!IsListOpen() || key.modifiers() != Qt::NoModifier) return noTarget;
  switch (key.key()) {
    case Qt::Key_PageUp:
      return FMarked - shownRows + 1;
    case Qt::Key_PageDown:
      return FMarked + shownRows - 1;
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return last;
    default:
      return noTarget;
  }
}

void TLookupEdit::keyPressEvent(QKeyEvent* event) {
  const bool isAlt = (event->modifiers() & Qt::AltModifier) != 0;
  const bool upOrDown = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  const bool turnsList = event->key() == Qt::Key_F4 || (upOrDown && isAlt);
  const int last = static_cast<int>(FEntries.size()) - 1;
  const int target = TargetOf(*event);
  bool changes = false;
  if (turnsList) {
    if (!CloseList()) OpenList();
  } else if (target != noTarget) {
    if (last >= 0) changes = MarkByUser(std::clamp(target, 0, last), {});
  } else if (event->matches(QKeySequence::Undo)) {
    changes = !IsComplete() && TakeBack();
  } else if (event->key() == Qt::Key_Backspace) {
    changes = Shorten();
  } else if (!event->text().isEmpty() && event->text().front().isPrint()) {
    changes = Type(FTyped + event->text());
  } else {
    return QLineEdit::keyPressEvent(event);
  }
  if (changes) Tell();
}

void TLookupEdit::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && !IsListOpen()) OpenList();
}

void TLookupEdit::wheelEvent(QWheelEvent* event) {
  event->setAccepted(IsListOpen());
}

void TLookupEdit::focusOutEvent(QFocusEvent* event) {
  CloseList();
  QLineEdit::focusOutEvent(event);
}

void TLookupEdit::hideEvent(QHideEvent* event) {
  CloseList();
  QLineEdit::hideEvent(event);
}
