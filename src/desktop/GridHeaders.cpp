#include "GridHeaders.h"

#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>
#include <algorithm>

#include "GridModel.h"
#include "QtText.h"

TGridHeader::TGridHeader(const TGridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), FModel(model) {
  setDefaultAlignment(Qt::AlignCenter);
  setSectionsClickable(true);
  setHighlightSections(false);
  setMinimumSectionSize(24);
}

void TGridHeader::FitHeight() {
  int height = fontMetrics().height();
  if (FModel.Options().HeaderFollowsContent) {
    for (int section = 0; section < count(); ++section) {
      if (isSectionHidden(section)) continue;
      const QRect room(0, 0, sectionSize(section) - 8, 1000);
      const QString caption = FromUtf8(FModel.Data().Column(section).Caption);
      const int wanted = fontMetrics().boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, caption).height();
      height = std::max(height, wanted);
    }
  }
  setFixedHeight(height + 10);
}

void TGridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  const auto order = FModel.Data().Column(section).SortOrder;
  option->sortIndicator = order == TGridSortOrder::Ascending    ? QStyleOptionHeader::SortDown
                          : order == TGridSortOrder::Descending ? QStyleOptionHeader::SortUp
                                                                : QStyleOptionHeader::None;
}

TGridIndicator::TGridIndicator(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionResizeMode(QHeaderView::Fixed);
  setMinimumSectionSize(1);
}

void TGridIndicator::paintSection(QPainter* painter, const QRect& rect, int section) const {
  QHeaderView::paintSection(painter, rect, section);
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
