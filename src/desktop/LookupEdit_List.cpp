// The drop-down of a lookup: its rows, its place beside the editor, and the mouse over it.
#include <QHeaderView>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSizeGrip>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <algorithm>
#include <utility>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "LookupEdit.h"
#include "QtText.h"

namespace {
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
}  // namespace

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
  const bool isLong = rows > ShownRows;
  if (isLong) wanted += FList->verticalScrollBar()->sizeHint().width();
  FList->setVerticalScrollBarPolicy(isLong ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
  const int head = FList->isHeaderHidden() ? 0 : FList->header()->sizeHint().height();
  const int rowHeight = std::max(FList->sizeHintForRow(0), 1);
  int high = 2 * FList->frameWidth() + head + rowHeight * std::min(rows, ShownRows);
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
