#include "GridDelegate.h"

#include <QKeyEvent>
#include <QPainter>

#include "CellEditors.h"
#include "DesktopLook.h"
#include "GridModel.h"
#include "GridView.h"
#include "QtText.h"
#include "VantrelMemTable.h"

namespace {
constexpr int textMargin = 4;

std::vector<TLookupEntry> EntriesOf(const TEditorDescription& editor) {
  std::vector<TLookupEntry> entries;
  if (editor.Kind == TEditorKind::List) {
    for (const auto& item : editor.Items) entries.push_back({item.Value, FromUtf8(item.Text), {}});
    return entries;
  }
  const auto* table = editor.Lookup.Table;
  if (table == nullptr || !table->Active()) return entries;
  const auto fieldOf = [table](const std::string& name) {
    const auto* field = table->FindField(name);
    return field == nullptr ? -1 : field->Index();
  };
  const int key = fieldOf(editor.Lookup.KeyField);
  const int shown = fieldOf(editor.Lookup.ShownField);
  const int description = fieldOf(editor.Lookup.DescriptionField);
  for (int record = 0; record < table->RecordCount(); ++record) {
    entries.push_back({table->ValueAt(record, key), FromUtf8(table->ValueAt(record, shown).AsTextOrEmpty()),
                       FromUtf8(table->ValueAt(record, description).AsTextOrEmpty())});
  }
  return entries;
}

QWidget* MakeEditor(const TEditorDescription& description, bool ofLines, QWidget* parent) {
  switch (description.Kind) {
    case TEditorKind::Lookup:
    case TEditorKind::List:
      return new TLookupEdit(EntriesOf(description), parent);
    case TEditorKind::Date:
      return new TDateEdit(parent);
    case TEditorKind::Spin:
      return new TNumberEdit(description.Minimum, description.Maximum, description.Decimals, parent);
    case TEditorKind::Memo:
      return new TMemoEdit(parent);
    case TEditorKind::Plain:
      break;
  }
  if (!description.IsNumber() && ofLines) return new TMemoEdit(parent);
  if (!description.IsNumber()) return new TPlainEdit(parent);
  auto* editor = new TNumberEdit(description.Minimum, description.Maximum, description.Decimals, parent);
  editor->setButtonSymbols(QAbstractSpinBox::NoButtons);
  return editor;
}
}  // namespace

TGridDelegate::TGridDelegate(TGridView& view) : QStyledItemDelegate(&view), FView(view) {}

TGridModel& TGridDelegate::Model() const {
  return FView.Model();
}

QRect TGridDelegate::TextArea(const QRect& cell) {
  return cell.adjusted(textMargin, 0, -textMargin, 0);
}

void TGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (Model().IsGroup(index)) return;
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const auto group = !FView.isEnabled()     ? QPalette::Disabled
                     : FView.IsKeyboardIn() ? QPalette::Active
                                            : QPalette::Inactive;
  const auto colour = [&](QPalette::ColorRole role) { return option.palette.color(group, role); };
  QColor ground = colour(selected ? QPalette::Highlight : QPalette::Base);
  if (!selected && FView.IsTinted(index.column())) ground = Blend(ground, colour(QPalette::Text), 0.05);
  painter->fillRect(option.rect, ground);

  const auto& column = Model().Data().Column(index.column());
  QFont font = option.font;
  painter->setFont(font);
  painter->setPen(colour(selected ? QPalette::HighlightedText : QPalette::Text));
  const QRect area = TextArea(option.rect);
  QString text = ShownPart(index.data().toString());
  if (Model().Options().RowsFollowContent) {
    painter->drawText(area, static_cast<int>(AlignmentOf(column)) | Wrapping, text);
  } else {
    text.replace('\n', ' ');
    painter->drawText(area, static_cast<int>(AlignmentOf(column)),
                      option.fontMetrics.elidedText(text, Qt::ElideRight, area.width()));
  }
  if (index != FView.currentIndex()) return;
  painter->setPen(Qt::NoPen);
  painter->setBrush(option.palette.color(QPalette::Active, selected ? QPalette::HighlightedText : QPalette::Highlight));
  const int thick = FView.IsKeyboardIn() && !selected ? 2 : 1;
  const QRect r = option.rect;
  painter->drawRect(r.left(), r.top(), r.width(), thick);
  painter->drawRect(r.left(), r.bottom() + 1 - thick, r.width(), thick);
  painter->drawRect(r.left(), r.top(), thick, r.height());
  painter->drawRect(r.right() + 1 - thick, r.top(), thick, r.height());
}

QSize TGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (Model().IsGroup(index)) return {0, option.fontMetrics.height() + 8};
  const QSize text = option.fontMetrics.size(0, ShownPart(index.data().toString()));
  return {text.width() + 2 * textMargin + 6, text.height() + 8};
}

QWidget* TGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const auto& column = Model().Data().Column(index.column());
  auto* editor = MakeEditor(column.Editor, Model().Options().RowsFollowContent, parent);
  editor->setAccessibleName(FromUtf8(column.Caption));
  editor->setAutoFillBackground(true);
  if (auto* line = qobject_cast<QLineEdit*>(editor)) line->setAlignment(AlignmentOf(column));
  if (auto* number = qobject_cast<QAbstractSpinBox*>(editor)) number->setAlignment(AlignmentOf(column));
  auto* cell = dynamic_cast<TCellEditor*>(editor);
  cell->OnChanged = [this, editor] { FView.EditorChanged(editor); };
  cell->OnAccepted = [this, editor] { const_cast<TGridDelegate*>(this)->Finish(editor, false); };
  return editor;
}

void TGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  // Later changes of the model are those that the editor itself made.
  if (!FView.IsNewEditor(editor)) return;
  dynamic_cast<TCellEditor*>(editor)->SetValue(Model().Read(index), index.data().toString());
}

void TGridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
  FView.Post(index, *dynamic_cast<const TCellEditor*>(editor));
}

void TGridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex&) const {
  // The frame of the focused cell stays in sight.
  const QRect inside = option.rect.adjusted(2, 2, -2, -2);
  if (auto* memo = dynamic_cast<TMemoEdit*>(editor)) return memo->Fit(inside);
  editor->setGeometry(inside);
}

void TGridDelegate::Finish(QWidget* editor, bool revert) {
  if (!revert) emit commitData(editor);
  emit closeEditor(editor, revert ? RevertModelCache : NoHint);
}

bool TGridDelegate::eventFilter(QObject* watched, QEvent* event) {
  auto* editor = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::KeyPress && editor != nullptr && FView.EditorKey(editor, static_cast<QKeyEvent*>(event)))
    return true;
  return QStyledItemDelegate::eventFilter(watched, event);
}
