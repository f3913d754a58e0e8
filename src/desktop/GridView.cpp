#include "GridView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "DesktopLook.h"
#include "GridDelegate.h"
#include "GridHeaders.h"

TGridView::TGridView(TGridModel& model, const TVantrelGrid& events)
    : FModel(model), FEvents(events), FDelegate(new TGridDelegate(*this)), FEdit(model, events) {
  FEdit.OnAccepted = [this] { Finish(false); };
  setHorizontalHeader(new TGridHeader(model, this));
  setVerticalHeader(new TGridIndicator(this));
  setCornerButtonEnabled(false);
  setModel(&model);
  setItemDelegate(FDelegate);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setWordWrap(false);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int ordinal, int, int width) { ColumnResized(ordinal, width); });
  ApplyOptions();
}

void TGridView::ApplyOptions() {
  const auto& options = FModel.Options();
  verticalHeader()->setVisible(options.RowIndicator);
  horizontalHeader()->setSectionsMovable(options.MovingColumns);
  setSelectionBehavior(SelectRows);
  setSelectionMode(!options.ReadOnly ? NoSelection : options.MultiSelect ? ExtendedSelection : SingleSelection);
  setTabKeyNavigation(false);
}

TGridHeader& TGridView::Header() const {
  return *static_cast<TGridHeader*>(horizontalHeader());
}

void TGridView::ApplyColumns() {
  auto& header = Header();
  FApplying = true;
  for (int ordinal = 0; ordinal < FModel.columnCount(); ++ordinal) {
    const auto& column = FModel.Data().Column(ordinal);
    if (!column.TakesRest || !column.Visible)
      header.resizeSection(ordinal, std::max(ToPixels(column.Width), header.minimumSectionSize()));
    header.setSectionHidden(ordinal, !column.Visible);
  }
  FApplying = false;
  FillRest();
  header.FitHeight();
  FitRows();
}

bool TGridView::FillRest() {
  auto& header = Header();
  bool changed = false;
  FApplying = true;
  for (int ordinal = 0; ordinal < FModel.columnCount(); ++ordinal) {
    const auto& column = FModel.Data().Column(ordinal);
    if (!column.TakesRest || !column.Visible) continue;
    const int before = header.sectionSize(ordinal);
    const int rest = viewport()->width() - (header.length() - before);
    header.resizeSection(ordinal, std::max(ToPixels(column.Width), rest));
    changed = changed || header.sectionSize(ordinal) != before;
  }
  FApplying = false;
  return changed;
}

void TGridView::ColumnResized(int ordinal, int width) {
  if (FApplying || width == 0) return;
  auto& column = FModel.Data().Column(ordinal);
  column.Width = FromPixels(width);
  column.TakesRest = false;
  FitRows();
}

int TGridView::ToPixels(int width) const {
  return static_cast<int>(std::lround(width * FontScale(*this)));
}

int TGridView::FromPixels(int pixels) const {
  return static_cast<int>(std::lround(pixels / FontScale(*this)));
}

int TGridView::WidthOfColumns() const {
  int width = verticalHeader()->isHidden() ? 0 : verticalHeader()->sizeHint().width();
  for (int ordinal = 0; ordinal < FModel.columnCount(); ++ordinal) {
    const auto& column = FModel.Data().Column(ordinal);
    // What takes the rest needs no more than it was given.
    if (column.Visible) width += column.TakesRest ? ToPixels(column.Width) : columnWidth(ordinal);
  }
  return width + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void TGridView::SetGroupClosed(int row, bool closed) {
  if (!FModel.IsGroup(FModel.index(row, 0)) || FModel.IsClosed(row) == closed) return;
  FModel.SetClosed(row, closed);
  const int column = currentIndex().column();
  if (OnRowsChange) OnRowsChange();
  GotoCell(row, column);
}

int TGridView::VisibleColumn(int from) const {
  const auto* header = horizontalHeader();
  const int begin = from >= 0 && from < FModel.columnCount() ? header->visualIndex(from) : 0;
  int last = -1;
  for (int visual = 0; visual < header->count(); ++visual) {
    if (header->isSectionHidden(header->logicalIndex(visual))) continue;
    last = header->logicalIndex(visual);
    if (visual >= begin) break;
  }
  return last;
}

void TGridView::GotoCell(int row, int column) {
  const QModelIndex target = FModel.index(row, VisibleColumn(column));
  if (target.isValid()) setCurrentIndex(target);
}

int TGridView::NextRow(int from, int step) const {
  for (int row = from + step; row >= 0 && row < FModel.rowCount(); row += step)
    if (FModel.RecordAt(row) >= 0) return row;
  return -1;
}

bool TGridView::MoveRow(int step) {
  const int row = NextRow(currentIndex().row(), step);
  if (row >= 0) GotoCell(row, currentIndex().column());
  return row >= 0;
}

bool TGridView::MoveCell(int step, bool toEditable) {
  const auto* header = horizontalHeader();
  const auto fits = [&](int row, int column) {
    if (header->isSectionHidden(column)) return false;
    return !toEditable || (FModel.RecordAt(row) >= 0 && MayEdit(column));
  };
  int visual = header->visualIndex(currentIndex().column());
  for (int row = currentIndex().row(); row >= 0; row = NextRow(row, step)) {
    for (visual += step; visual >= 0 && visual < header->count(); visual += step) {
      const int column = header->logicalIndex(visual);
      if (!fits(row, column)) continue;
      setCurrentIndex(FModel.index(row, column));
      return true;
    }
    if (!FModel.Options().WrapAtRowEnd) return false;
    visual = step > 0 ? -1 : header->count();
  }
  return false;
}

bool TGridView::IsKeyboardIn() const {
  return hasFocus() || IsEditing();
}

bool TGridView::MayEdit(int ordinal) const {
  if (FModel.Options().ReadOnly || !FModel.Data().Column(ordinal).Editing) return false;
  return !FEvents.OnEditing || FEvents.OnEditing(ordinal);
}

bool TGridView::MayEditCell(const QModelIndex& index) const {
  return !FModel.IsGroup(index) && MayEdit(index.column()) && FModel.IsReadable(index);
}

bool TGridView::IsTinted(int ordinal) const {
  if (FModel.Options().ReadOnly) return false;
  if (FTints.empty()) return !MayEdit(ordinal);
  auto& tint = FTints[static_cast<std::size_t>(ordinal)];
  if (!tint) tint = !MayEdit(ordinal);
  return *tint;
}

void TGridView::selectAll() {
  if (selectionMode() == ExtendedSelection && OnSelectAll) OnSelectAll();
}

QItemSelectionModel::SelectionFlags TGridView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  auto command = QTableView::selectionCommand(index, event);
  if (event != nullptr && event->type() == QEvent::KeyPress && selectionMode() == ExtendedSelection) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool jumps = key.key() == Qt::Key_Home || key.key() == Qt::Key_End;
    // To the first and the last row as with the arrows: what has the frame is what is deleted.
    if (jumps && key.modifiers() == Qt::ControlModifier)
      command = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
  }
  FSelectsRange = command.testFlag(QItemSelectionModel::Current);
  return command;
}

void TGridView::focusInEvent(QFocusEvent* event) {
  if (FModel.RecordAt(currentIndex().row()) < 0 && !currentIndex().isValid()) {
    // The table view would focus a cell of its own choice.
    if (FEvents.OnFirstKey) {
      QAbstractScrollArea::focusInEvent(event);
      return viewport()->update();
    }
    MoveRow(1);
  }
  QTableView::focusInEvent(event);
}

void TGridView::mousePressEvent(QMouseEvent* event) {
  const auto index = indexAt(event->position().toPoint());
  FEnd = QModelIndex();
  FClickedCurrent = hasFocus() && index.isValid() && index == currentIndex();
  EndSearch();
  QTableView::mousePressEvent(event);
  if (FModel.IsGroup(index) && event->button() == Qt::LeftButton)
    SetGroupClosed(index.row(), !FModel.IsClosed(index.row()));
}

void TGridView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  // A click on the cell that had the focus before opens its editor.
  if (std::exchange(FClickedCurrent, false) && event->button() == Qt::LeftButton && !IsEditing())
    edit(currentIndex(), AllEditTriggers, nullptr);
}

void TGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto index = indexAt(event->position().toPoint());
  const bool isCell = index.isValid() && !FModel.IsGroup(index);
  if (isCell && FEvents.OnDoubleClick) FEvents.OnDoubleClick(index.column());
  QTableView::mouseDoubleClickEvent(event);
  if (isCell && ReadsAtOnce()) Read(index);
}

void TGridView::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint place = byKey ? visualRect(currentIndex()).bottomLeft() : event->pos();
  if (OnMenu) OnMenu(place);
}

void TGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  FHasMovedSideways = FHasMovedSideways || (FModel.Options().ReadOnly && previous.isValid() && current.isValid() &&
                                            previous.column() != current.column());
  QTableView::currentChanged(current, previous);
  verticalHeader()->viewport()->update();
  // A heading goes across all cells; without a focused cell the whole grid has the frame.
  const bool areCells =
      previous.isValid() && current.isValid() && !FModel.IsGroup(previous) && !FModel.IsGroup(current);
  if (!areCells) viewport()->update();
  if (OnCurrent) OnCurrent(current);
}

void TGridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  ApplyColumns();
}

void TGridView::paintEvent(QPaintEvent* event) {
  // The veto is asked once a column while painting.
  FTints.assign(static_cast<std::size_t>(FModel.columnCount()), std::nullopt);
  QTableView::paintEvent(event);
  PaintFrozen();
  FTints.clear();
  PaintGroups();
  if (!hasFocus() || currentIndex().isValid()) return;
  // The keyboard is here, in no cell yet.
  QPainter painter(viewport());
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void TGridView::PaintGroups() {
  QPainter painter(viewport());
  for (int row = std::max(rowAt(0), 0); row < FModel.rowCount(); ++row) {
    const int top = rowViewportPosition(row);
    if (top > viewport()->height()) break;
    if (FModel.RecordAt(row) >= 0) continue;
    const QRect line(0, top, viewport()->width(), rowHeight(row));
    const bool current = row == currentIndex().row();
    painter.fillRect(line, Blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.09));
    const int left = 8 + FModel.Row(row).Level * 18;
    QStyleOption arrow;
    arrow.initFrom(this);
    arrow.rect = QRect(left, line.center().y() - 5, 11, 11);
    style()->drawPrimitive(FModel.IsClosed(row) ? QStyle::PE_IndicatorArrowRight : QStyle::PE_IndicatorArrowDown,
                           &arrow, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(line.adjusted(left + 18, 0, 0, 0), Qt::AlignVCenter, InOneLine(FModel.Row(row).Text));
    if (!current) continue;
    painter.setPen(QPen(palette().color(QPalette::Highlight), IsKeyboardIn() ? 2 : 1));
    painter.drawRect(line.adjusted(1, 1, -1, -2));
  }
}
