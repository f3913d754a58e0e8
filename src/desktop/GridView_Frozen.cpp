// The leading columns that stay in sight while the others scroll sideways.
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "GridHeaders.h"
#include "GridView.h"

QRect TGridView::visualRect(const QModelIndex& index) const {
  const QRect rect = QTableView::visualRect(index);
  return Header().IsFrozen(index.column()) ? rect.translated(Header().offset(), 0) : rect;
}

QModelIndex TGridView::indexAt(const QPoint& place) const {
  return FModel.index(rowAt(place.y()), Header().SectionAt(place.x()));
}

void TGridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  auto* bar = horizontalScrollBar();
  const int before = bar->value();
  // A list shows its leading columns until the user goes to others.
  const bool stays = Header().IsFrozen(index.column()) || (FModel.Options().ReadOnly && !FHasMovedSideways);
  FitRowsAround(index.row());
  QTableView::scrollTo(index, hint);
  if (stays) return bar->setValue(before);
  const int covered = Header().FrozenWidth() - visualRect(index).left();
  if (covered > 0) bar->setValue(bar->value() - covered);
}

void TGridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (dx == 0 || Header().FrozenWidth() == 0) return;
  // What was on the screen has moved, and the frozen columns with it.
  viewport()->update();
  Header().viewport()->update();
}

void TGridView::PaintFrozen() {
  const int width = Header().FrozenWidth();
  if (width == 0) return;
  QPainter painter(viewport());
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  const auto line = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
  for (int row = std::max(rowAt(0), 0); row < FModel.rowCount(); ++row) {
    if (rowViewportPosition(row) > viewport()->height()) break;
    if (FModel.RecordAt(row) < 0) continue;
    for (int column = 0; column < FModel.columnCount(); ++column) {
      if (!Header().IsFrozen(column) || isColumnHidden(column)) continue;
      const QModelIndex index = FModel.index(row, column);
      option.rect = visualRect(index);
      option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
      itemDelegate()->paint(&painter, option, index);
      painter.setPen(QColor::fromRgba(static_cast<QRgb>(line)));
      painter.drawLine(option.rect.topRight() + QPoint(1, 0), option.rect.bottomRight() + QPoint(1, 1));
      painter.drawLine(option.rect.bottomLeft() + QPoint(0, 1), option.rect.bottomRight() + QPoint(1, 1));
    }
  }
}
