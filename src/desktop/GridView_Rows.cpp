// The heights of rows that follow their content: measured when a row comes to be on show, or is on the way of a jump.
#include <QHeaderView>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <tuple>
#include <utility>

#include "CellText.h"
#include "GridDelegate.h"
#include "GridHeaders.h"
#include "GridView.h"

void TGridView::FitRows() {
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + TGridDelegate::LinePadding);
  ForgetHeights();
  updateGeometries();
}

void TGridView::ForgetHeights() {
  FIsFitted.assign(static_cast<std::size_t>(FModel.rowCount()), false);
}

int TGridView::HeightOf(int row) const {
  const int usual = fontMetrics().height();
  // No row fills the view: those around it say where one is. A low view shows some lines all the same.
  constexpr int someLines = 5;
  const int view = viewport()->height();
  const int most = std::max(view / 3, std::min(view / 2, someLines * usual + TGridDelegate::LinePadding));
  const int room = std::max(usual, most - TGridDelegate::LinePadding);
  const int line = showGrid() ? 1 : 0;
  int height = usual;
  for (int column = 0; column < FModel.columnCount() && FModel.RecordAt(row) >= 0; ++column) {
    if (isColumnHidden(column) || FModel.Data().Column(column).Editor.ValueKind != TValueKind::Text) continue;
    const QString text = ShownPart(FModel.Data().DisplayText(FModel.RecordAt(row), column));
    const int width = TGridDelegate::TextArea(QRect(0, 0, columnWidth(column) - line, usual)).width();
    if (!FitsInLine(text, fontMetrics(), width))
      height = std::max(height, TCellText(text, font(), width, room).Height());
  }
  return height + TGridDelegate::LinePadding;
}

bool TGridView::FitRow(int row) {
  if (std::ssize(FIsFitted) != FModel.rowCount()) ForgetHeights();
  if (FIsFitted[static_cast<std::size_t>(row)]) return false;
  FIsFitted[static_cast<std::size_t>(row)] = true;
  const int before = rowHeight(row);
  verticalHeader()->resizeSection(row, HeightOf(row));
  return rowHeight(row) != before;
}

bool TGridView::FitRowsFrom(int row, int step) {
  if (!FModel.Options().RowsFollowContent || row < 0 || row >= FModel.rowCount()) return false;
  bool changed = FitRow(row);
  int left = viewport()->height();
  for (row += step; row >= 0 && row < FModel.rowCount() && left > 0; row += step) {
    changed = FitRow(row) || changed;
    left -= rowHeight(row);
  }
  return changed;
}

void TGridView::FitRowsAround(int row) {
  const bool above = FitRowsFrom(row, -1);
  if (FitRowsFrom(row, 1) || above) updateGeometries();
}

bool TGridView::FitShownRows() {
  return FitRowsFrom(std::max(rowAt(0), 0), 1);
}

void TGridView::updateGeometries() {
  // Called from within: what has changed is dealt with by the call that is under way.
  if (FIsArranging) return;
  {
    const QScopedValueRollback arranging(FIsArranging, true);
    const auto state = [this] {
      return std::tuple(viewport()->size(), horizontalHeader()->length(), verticalHeader()->length());
    };
    // A scroll bar that comes or goes changes the widths, and these the heights, which it goes by.
    constexpr int mostRounds = 4;
    for (int round = 0; round < mostRounds; ++round) {
      FitRowsFrom(FModel.rowCount() - 1, -1);
      const auto before = state();
      QTableView::updateGeometries();
      if (FillRest()) ForgetHeights();
      FitShownRows();
      if (state() == before) break;
    }
  }
  BringBack(std::exchange(FBringsBack, TBringBack::None));
}

void TGridView::resizeEvent(QResizeEvent* event) {
  const auto& old = event->oldSize();
  const int row = currentIndex().row();
  const int bottom = rowViewportPosition(row) + rowHeight(row);
  const bool wasInSight = row >= 0 && bottom > 0 && bottom <= old.height();
  if (event->size().height() != old.height()) ForgetHeights();
  const auto wanted = event->size().width() != old.width() ? TBringBack::Cell
                      : wasInSight                         ? TBringBack::Row
                                                           : TBringBack::None;
  FBringsBack = std::max(FBringsBack, wanted);
  QTableView::resizeEvent(event);
}

void TGridView::BringBack(TBringBack what) {
  if (what == TBringBack::None || IsEditing()) return;
  auto* bar = horizontalScrollBar();
  // The leading columns say what a row is: no further to the right than the focused cell needs.
  const int left = what == TBringBack::Cell ? 0 : bar->value();
  bar->setValue(left);
  if (currentIndex().isValid()) scrollTo(currentIndex());
  if (what == TBringBack::Row) bar->setValue(left);
}

void TGridView::verticalScrollbarValueChanged(int value) {
  QTableView::verticalScrollbarValueChanged(value);
  if (FitShownRows()) updateGeometries();
}

QModelIndex TGridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MovePageUp || action == MovePageDown) FitRowsAround(currentIndex().row());
  return QTableView::moveCursor(action, modifiers);
}

void TGridView::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
  QTableView::dataChanged(first, last, roles);
  if (!FModel.Options().RowsFollowContent || std::ssize(FIsFitted) != FModel.rowCount()) return;
  std::fill(FIsFitted.begin() + first.row(), FIsFitted.begin() + last.row() + 1, false);
  if (!FitShownRows()) return;
  updateGeometries();
  if (currentIndex().row() >= first.row() && currentIndex().row() <= last.row()) BringBack(TBringBack::Row);
}
