#include "GridHeaders.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>
#include <algorithm>

#include "GridModel.h"
#include "QtText.h"

namespace {
constexpr int captionPadding = 8;
}  // namespace

TGridHeader::TGridHeader(const TGridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), FModel(model) {
  setDefaultAlignment(Qt::AlignCenter);
  setSectionsClickable(true);
  setHighlightSections(false);
  setTextElideMode(Qt::ElideNone);
  setMinimumSectionSize(24);
}

int TGridHeader::Padding(int section) const {
  const bool sorted = FModel.Data().Column(section).SortOrder != TGridSortOrder::None;
  return captionPadding + (sorted ? ArrowWidth : 0);
}

QSize TGridHeader::sectionSizeFromContents(int section) const {
  QSize size = QHeaderView::sectionSizeFromContents(section);
  // The header is told of columns that have gone when the update ends.
  if (section >= FModel.Data().ColumnCount()) return size;
  // Widths are kept for scale 1: one pixel may go on the way there and back.
  size.setWidth(fontMetrics().horizontalAdvance(FromUtf8(FModel.Data().Column(section).Caption)) + 1 +
                Padding(section));
  return size;
}

QString TGridHeader::CaptionOf(int section) const {
  const QFontMetrics metrics = fontMetrics();
  const auto& column = FModel.Data().Column(section);
  const int room = sectionSize(section) - Padding(section);
  const QString caption = FromUtf8(column.Caption);
  if (!FModel.Options().HeaderFollowsContent) return metrics.elidedText(caption, Qt::ElideRight, room);
  // Broken here, not by the style, which knows nothing of the room that the arrow takes.
  QStringList lines;
  for (const QString& word : caption.split(' ')) {
    const QString joined = lines.isEmpty() ? word : lines.back() + ' ' + word;
    if (!lines.isEmpty() && metrics.horizontalAdvance(joined) <= room)
      lines.back() = joined;
    else
      lines << metrics.elidedText(word, Qt::ElideRight, room);
  }
  return lines.join('\n');
}

void TGridHeader::FitHeight() {
  int height = fontMetrics().height();
  for (int section = 0; section < count(); ++section)
    if (!isSectionHidden(section)) height = std::max(height, fontMetrics().size(0, CaptionOf(section)).height());
  setFixedHeight(height + 10);
}

void TGridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  option->text = CaptionOf(section);
  const auto order = FModel.Data().Column(section).SortOrder;
  option->sortIndicator = order == TGridSortOrder::Ascending    ? QStyleOptionHeader::SortDown
                          : order == TGridSortOrder::Descending ? QStyleOptionHeader::SortUp
                                                                : QStyleOptionHeader::None;
}

int TGridHeader::FrozenWidth() const {
  if (offset() == 0) return 0;
  int width = 0;
  for (int visual = 0; visual < count(); ++visual) {
    const int section = logicalIndex(visual);
    if (section >= FModel.Data().ColumnCount() || !FModel.Data().Column(section).Frozen) break;
    width += sectionSize(section);
  }
  return width > viewport()->width() / 2 ? 0 : width;
}

bool TGridHeader::IsFrozen(int section) const {
  const int place = sectionPosition(section);
  return place >= 0 && place < FrozenWidth();
}

// Qt finds the section under the mouse by its place in the row of columns.
bool TGridHeader::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QHelpEvent shifted(event->type(), help->pos() - QPoint(ShiftAt(help->pos().x()), 0), help->globalPos());
    return QHeaderView::viewportEvent(&shifted);
  }
  const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
                       event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
  if (!isMouse) return QHeaderView::viewportEvent(event);
  const auto* mouse = static_cast<QMouseEvent*>(event);
  const bool isHeld = event->type() == QEvent::MouseButtonRelease ||
                      (event->type() == QEvent::MouseMove && mouse->buttons() != Qt::NoButton);
  if (!isHeld) FPressedShift = ShiftAt(mouse->position().toPoint().x());
  QMouseEvent shifted(event->type(), mouse->position() - QPointF(FPressedShift, 0), mouse->globalPosition(),
                      mouse->button(), mouse->buttons(), mouse->modifiers());
  return QHeaderView::viewportEvent(&shifted);
}

void TGridHeader::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  for (int section = 0; section < count(); ++section) {
    if (!IsFrozen(section) || isSectionHidden(section)) continue;
    painter.save();
    paintSection(&painter, QRect(sectionPosition(section), 0, sectionSize(section), height()), section);
    painter.restore();
  }
}

TGridIndicator::TGridIndicator(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionResizeMode(QHeaderView::Fixed);
  setMinimumSectionSize(1);
}

void TGridIndicator::paintSection(QPainter* painter, const QRect& rect, int section) const {
  // The style leaves its clip behind.
  painter->save();
  QHeaderView::paintSection(painter, rect, section);
  painter->restore();
  const auto* view = static_cast<const QTableView*>(parentWidget());
  if (view->currentIndex().row() != section) return;
  const QPointF centre = QRectF(rect).center();
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(palette().color(QPalette::ButtonText));
  painter->drawPolygon(QPolygonF{centre + QPointF(-2.5, -4.5), centre + QPointF(2.5, 0), centre + QPointF(-2.5, 4.5)});
  painter->restore();
}

QSize TGridIndicator::sectionSizeFromContents(int) const {
  return {18, fontMetrics().height()};
}
