// The keys of a grid, with and without an open editor.
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "GridDelegate.h"
#include "GridView.h"
#include "QtText.h"
#include "ReadingPane.h"

namespace {
TGridKey KeyOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return TGridKey::Enter;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return TGridKey::Tab;
    case Qt::Key_Escape:
      return TGridKey::Escape;
    case Qt::Key_Delete:
      return TGridKey::Delete;
    default:
      return TGridKey::Other;
  }
}
}  // namespace

bool TGridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool asks = trigger == AllEditTriggers || (trigger & editTriggers()) != 0;
  if (asks && (!index.isValid() || !MayEditCell(index))) return false;
  const bool begins = asks && !IsEditing();
  if (begins) FEdit.Begin(index);
  const bool edits = QTableView::edit(index, trigger, trigger == AnyKeyPressed ? nullptr : event);
  if (edits && begins && IsEditing()) FEdit.Open(trigger == EditKeyPressed);
  return edits;
}

void TGridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, hint);
  FEdit.End();
}

void TGridView::PostEditor() {
  if (IsEditing()) FEdit.Post();
}

void TGridView::SaveEditor() {
  if (IsEditing()) FEdit.Save();
}

void TGridView::EndEditor() {
  if (!IsEditing()) return;
  FEdit.Save();
  Finish(false);
}

void TGridView::MoveDown() {
  if (MoveRow(1)) return;
  QApplication::beep();
  FEnd = currentIndex();
}

bool TGridView::IsCut(const QModelIndex& index) const {
  const QString shown = ShownPart(index.data().toString());
  const QRect area = TGridDelegate::TextArea(visualRect(index));
  if (FitsInLine(shown, fontMetrics(), area.width())) return false;
  return !FModel.Options().RowsFollowContent || TGridDelegate::InArea(shown, font(), area, Qt::AlignLeft).IsCut();
}

bool TGridView::Read(const QModelIndex& index) {
  if (!index.isValid() || FModel.IsGroup(index)) return false;
  const auto hasMore = [&](int column) { return !isColumnHidden(column) && IsCut(index.siblingAtColumn(column)); };
  int column = index.column();
  // Where whole rows are chosen any of their texts may be meant.
  for (int visual = 0; FModel.Options().ReadOnly && visual < FModel.columnCount() && !hasMore(column); ++visual)
    column = horizontalHeader()->logicalIndex(visual);
  if (!hasMore(column)) return false;
  const auto cell = index.siblingAtColumn(column);
  const QRect place = visualRect(cell);
  auto* pane = new TReadingPane(cell.data().toString(), FromUtf8(FModel.Data().Column(column).Caption), this);
  pane->ShowOver(QRect(viewport()->mapToGlobal(place.topLeft()), place.size()));
  return true;
}

bool TGridView::ReadsAtOnce() const {
  // Return goes on from where rows are chosen.
  return FModel.Options().ReadOnly && !FModel.Options().MultiSelect && !FEvents.OnDoubleClick;
}

bool TGridView::TakeReadingKey(const QKeyEvent& event) {
  const QModelIndex current = currentIndex();
  if (event.key() == Qt::Key_F2) {
    const bool isAny = event.modifiers() == Qt::ShiftModifier;
    return (isAny || (event.modifiers() == Qt::NoModifier && !MayEditCell(current))) && Read(current);
  }
  return KeyOf(event) == TGridKey::Enter && ReadsAtOnce() && Read(current);
}

bool TGridView::TakesLetterBehindEnd(const QKeyEvent& event) {
  const bool isPlain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  const bool isLetter = isPlain && !event.text().isEmpty() && event.text().front().isPrint();
  const bool isRefused = isLetter && FEnd.isValid() && FEnd == currentIndex();
  if (isRefused)
    QApplication::beep();
  else
    FEnd = QModelIndex();
  return isRefused;
}

void TGridView::Finish(bool revert) {
  FDelegate->Finish(&FEdit.Editor()->Widget(), revert);
}

bool TGridView::Leave(TGridKey key, bool backwards) {
  const auto& options = FModel.Options();
  if (key == TGridKey::Tab) return options.TabMovesCells && MoveCell(backwards ? -1 : 1, true);
  return options.EnterMovesToNextCell && MoveCell(1);
}

bool TGridView::TakeViewKey(TGridKey key) {
  if (!FEvents.OnKeyDown || FEdit.Ordinal() < 0) return false;
  const auto action = FEvents.OnKeyDown(FEdit.Ordinal(), key);
  if (action == TGridKeyAction::MoveDown) {
    Finish(false);
    MoveDown();
  }
  return action != TGridKeyAction::Pass;
}

bool TGridView::EditorKey(const QKeyEvent& event) {
  auto& editor = *FEdit.Editor();
  if (editor.BreaksLine(event)) return false;
  const TGridKey key = KeyOf(event);
  const QPoint steps = editor.StepsOf(event);
  const bool leaves = key == TGridKey::Enter || key == TGridKey::Tab;
  if ((leaves || !steps.isNull()) && editor.KeepsOpen()) {
    editor.Refuse();
    return true;
  }
  if (TakeViewKey(key)) return true;
  if (key == TGridKey::Escape) {
    FEdit.Revert();
    Finish(true);
  } else if (leaves) {
    Finish(false);
    const bool backwards = event.key() == Qt::Key_Backtab;
    if (!Leave(key, backwards) && key == TGridKey::Tab && !FModel.Options().TabMovesCells)
      QTableView::focusNextPrevChild(!backwards);
  } else if (!steps.isNull()) {
    Finish(false);
    steps.y() != 0 ? MoveRow(steps.y()) : MoveCell(steps.x());
  } else {
    return editor.TakeKey(event);
  }
  return true;
}

bool TGridView::focusNextPrevChild(bool next) {
  if (currentIndex().isValid() && Leave(TGridKey::Tab, !next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void TGridView::keyPressEvent(QKeyEvent* event) {
  if (TakesLetterBehindEnd(*event) || TakeFirstKey(*event) || TakeGroupKey(event) || TakeSearchKey(event) ||
      TakeReadingKey(*event) || TakeKey(event)) {
    event->accept();
    return;
  }
  const bool wasEditing = IsEditing();
  QTableView::keyPressEvent(event);
  // A key that opened the editor is its first: only now, since it is a change that the view hears of.
  auto* editor = wasEditing || !IsEditing() || event->key() == Qt::Key_F2 ? nullptr : FEdit.Editor();
  if (editor != nullptr) static_cast<QObject&>(editor->Widget()).event(event);
}

bool TGridView::TakeKey(QKeyEvent* event) {
  const TGridKey key = KeyOf(*event);
  const QModelIndex current = currentIndex();
  if (key == TGridKey::Escape && FModel.Options().ReadOnly && OnLiftFilter && OnLiftFilter()) return true;
  const bool takesEnter = key == TGridKey::Enter && FModel.Options().ReadOnly && FEvents.OnDoubleClick;
  if (!current.isValid()) return takesEnter || (event->key() == Qt::Key_Down && MoveRow(1));
  if (FEvents.OnKeyDown && !FModel.IsGroup(current)) {
    const auto action = FEvents.OnKeyDown(current.column(), key);
    if (action == TGridKeyAction::MoveDown) MoveDown();
    if (action != TGridKeyAction::Pass) return true;
  }
  if (key == TGridKey::Enter) {
    const bool asDoubleClick = takesEnter && !FModel.IsGroup(current);
    if (asDoubleClick) FEvents.OnDoubleClick(current.column());
    return asDoubleClick || Leave(key, false) || !FModel.Options().ReadOnly;
  }
  if (key == TGridKey::Delete && !FModel.Options().ReadOnly) {
    // A text is emptied in its editor: one key shall not cost an assessment.
    if (MayEditCell(current) && FModel.Data().Column(current.column()).Editor.DeleteClears &&
        !FModel.Read(current).IsEmpty())
      FModel.Write(current, TVariant::Null());
    return true;
  }
  const bool opens =
      event->key() == Qt::Key_F4 || ((event->modifiers() & Qt::AltModifier) != 0 && event->key() == Qt::Key_Down);
  return opens && edit(current, AllEditTriggers, nullptr);
}

bool TGridView::TakeFirstKey(const QKeyEvent& event) {
  if (currentIndex().isValid() || !FEvents.OnFirstKey) return false;
  const auto isOneOf = [&](std::initializer_list<int> keys) {
    return std::ranges::find(keys, event.key()) != keys.end();
  };
  const bool moves = isOneOf({Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                              Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter});
  const bool plain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  const bool types = plain && !event.text().isEmpty() && event.text().front().isPrint();
  if (moves || types || isOneOf({Qt::Key_Delete, Qt::Key_F2, Qt::Key_F4})) FEvents.OnFirstKey();
  return moves;
}

bool TGridView::TakeGroupKey(QKeyEvent* event) {
  const int row = currentIndex().row();
  if (!FModel.IsGroup(currentIndex())) return false;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Minus:
      SetGroupClosed(row, true);
      return true;
    case Qt::Key_Right:
    case Qt::Key_Plus:
      SetGroupClosed(row, false);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      SetGroupClosed(row, !FModel.IsClosed(row));
      return true;
    default:
      return false;
  }
}

bool TGridView::TakeSearchKey(QKeyEvent* event) {
  if (!FModel.Options().ReadOnly || !FModel.Options().IncrementalSearch) return false;
  const int row = currentIndex().row();
  if (event->key() == Qt::Key_Escape && !FSearch.isEmpty()) {
    EndSearch();
    return true;
  }
  if (event->key() == Qt::Key_Backspace && !FSearch.isEmpty()) {
    Search(FSearch.chopped(1), 0);
    return true;
  }
  const bool control = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (control && event->key() == Qt::Key_Down && !FSearch.isEmpty()) return Search(FSearch, row + 1);
  const bool prints = !control && !event->text().isEmpty() && event->text().front().isPrint();
  if (!prints) {
    if (event->key() != Qt::Key_Shift) EndSearch();
    return false;
  }
  Search(FSearch + event->text(), std::max(row, 0));
  return true;
}

bool TGridView::Search(const QString& text, int fromRow) {
  const int column = VisibleColumn(currentIndex().column());
  for (int i = 0; i < FModel.rowCount() && column >= 0; ++i) {
    const int row = (fromRow + i) % FModel.rowCount();
    const int record = FModel.RecordAt(row);
    if (record < 0 || !FModel.Data().DisplayText(record, column).startsWith(text, Qt::CaseInsensitive)) continue;
    FSearch = text;
    GotoCell(row, column);
    if (OnSearch) OnSearch();
    return true;
  }
  return false;
}

void TGridView::EndSearch() {
  if (FSearch.isEmpty()) return;
  FSearch.clear();
  if (OnSearch) OnSearch();
}
