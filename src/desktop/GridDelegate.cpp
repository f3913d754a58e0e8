#include "GridDelegate.h"

#include <QKeyEvent>
#include <QPainter>

#include "DesktopLook.h"
#include "GridModel.h"
#include "GridView.h"
#include "QtText.h"

namespace {
constexpr int textMargin = 4;
/// How much of the highlight a selected row keeps while the keyboard is elsewhere.
constexpr double faintShare = 0.35;
}  // namespace

TGridDelegate::TGridDelegate(TGridView& view) : QStyledItemDelegate(&view), FView(view) {}

TGridModel& TGridDelegate::Model() const {
  return FView.Model();
}

QRect TGridDelegate::TextArea(const QRect& cell) {
  return cell.adjusted(textMargin, 0, -textMargin, 0);
}

TCellText TGridDelegate::InArea(const QString& text, const QFont& font, const QRect& area, Qt::Alignment alignment) {
  // The grid line takes a pixel of the padding.
  return TCellText(text, font, area.width(), area.height() - LinePadding / 2, alignment);
}

void TGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (Model().IsGroup(index)) return;
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const bool bright = selected && FView.IsKeyboardIn();
  const auto group = !FView.isEnabled()     ? QPalette::Disabled
                     : FView.IsKeyboardIn() ? QPalette::Active
                                            : QPalette::Inactive;
  const auto colour = [&](QPalette::ColorRole role) { return option.palette.color(group, role); };
  QColor ground = colour(bright ? QPalette::Highlight : QPalette::Base);
  if (selected && !bright) ground = Blend(ground, colour(QPalette::Highlight), faintShare);
  if (!selected && FView.IsTinted(index.column())) ground = Blend(ground, colour(QPalette::Text), 0.05);
  painter->fillRect(option.rect, ground);

  const auto& column = Model().Data().Column(index.column());
  painter->setFont(option.font);
  painter->setPen(colour(bright ? QPalette::HighlightedText : QPalette::Text));
  const QRect area = TextArea(option.rect);
  const QString text = ShownPart(index.data().toString());
  const auto alignment = AlignmentOf(column);
  const bool fits = FitsInLine(text, option.fontMetrics, area.width());
  if (!fits && Model().Options().RowsFollowContent)
    InArea(text, option.font, area, alignment).Draw(*painter, area);
  else
    painter->drawText(area, static_cast<int>(alignment) | Qt::TextSingleLine,
                      fits ? text : option.fontMetrics.elidedText(InOneLine(text), Qt::ElideRight, area.width()));
  if (index != FView.currentIndex()) return;
  painter->setPen(Qt::NoPen);
  painter->setBrush(option.palette.color(QPalette::Active, bright ? QPalette::HighlightedText : QPalette::Highlight));
  const int thick = FView.IsKeyboardIn() && !selected ? 2 : 1;
  const QRect r = option.rect;
  painter->drawRect(r.left(), r.top(), r.width(), thick);
  painter->drawRect(r.left(), r.bottom() + 1 - thick, r.width(), thick);
  painter->drawRect(r.left(), r.top(), thick, r.height());
  painter->drawRect(r.right() + 1 - thick, r.top(), thick, r.height());
}

QSize TGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (Model().IsGroup(index)) return {0, option.fontMetrics.height() + LinePadding};
  const QSize text = option.fontMetrics.size(0, ShownPart(index.data().toString()));
  return {text.width() + 2 * textMargin + 6, text.height() + LinePadding};
}

QWidget* TGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const auto& column = Model().Data().Column(index.column());
  auto description = column.Editor;
  const bool isText = description.Kind == TEditorKind::Plain && !description.IsNumber();
  if (isText && Model().Options().RowsFollowContent) description.Kind = TEditorKind::Memo;
  auto& editor = MakeEditor(description, parent);
  editor.Widget().setAccessibleName(FromUtf8(column.Caption));
  editor.Widget().setAutoFillBackground(true);
  editor.SetAlignment(AlignmentOf(column));
  FView.CellEdit().SetEditor(editor);
  return &editor.Widget();
}

void TGridDelegate::setEditorData(QWidget*, const QModelIndex& index) const {
  FView.CellEdit().Load(index.data().toString());
}

void TGridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
  if (FView.CellEdit().IsOf(editor)) FView.CellEdit().Post();
}

void TGridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex&) const {
  // The frame of the focused cell stays in sight.
  if (FView.CellEdit().IsOf(editor)) FView.CellEdit().Editor()->PlaceInCell(option.rect.adjusted(2, 2, -2, -2));
}

void TGridDelegate::Finish(QWidget* editor, bool revert) {
  if (!revert) emit commitData(editor);
  emit closeEditor(editor, revert ? RevertModelCache : NoHint);
}

bool TGridDelegate::eventFilter(QObject* watched, QEvent* event) {
  // Other events come while the view goes as well.
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (isKey && FView.CellEdit().IsOf(watched)) {
    if (FView.CellEdit().Editor()->DecidesOn(*event)) return true;
    if (event->type() == QEvent::KeyPress && FView.EditorKey(*static_cast<QKeyEvent*>(event))) return true;
  }
  return QStyledItemDelegate::eventFilter(watched, event);
}
