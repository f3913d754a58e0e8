// The keys of a grid, with and without an open editor.
#include <QApplication>
#include <QKeyEvent>
#include <utility>

#include "CellEditors.h"
#include "GridDelegate.h"
#include "GridView.h"

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

// Up and down leave a line of text; left and right leave what has no text cursor of its own.
int StepsOf(const QWidget& editor, int key) {
  const bool isLookup = dynamic_cast<const TLookupEdit*>(&editor) != nullptr;
  if (isLookup && (key == Qt::Key_Left || key == Qt::Key_Right)) return key == Qt::Key_Left ? -1 : 1;
  return 0;
}
}  // namespace

bool TGridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool asks = trigger == AllEditTriggers || (trigger & editTriggers()) != 0;
  if (asks && (!index.isValid() || !MayEditCell(index))) return false;
  const bool wasEditing = IsEditing();
  if (asks && !wasEditing) {
    FBefore = FModel.Read(index);
    FTouched = FPosted = false;
    FEdited = index;
    FEditor = nullptr;
  }
  const bool edits = QTableView::edit(index, trigger, trigger == AnyKeyPressed ? nullptr : event);
  if (!edits || wasEditing || !IsEditing()) return edits;
  FEditor = indexWidget(index);
  if (FEditor == nullptr) return edits;
  if (FEvents.OnEditStarted) FEvents.OnEditStarted();
  dynamic_cast<TCellEditor*>(FEditor.data())->Begin(trigger == EditKeyPressed);
  // Only now: the key is a change that the view hears of.
  if (trigger == AnyKeyPressed && event != nullptr) QApplication::sendEvent(FEditor, event);
  return edits;
}

void TGridView::EditorChanged(QWidget* editor) {
  if (editor != FEditor) return;
  FTouched = true;
  // What was posted on the way to a text that cannot be stored was not meant.
  if (!dynamic_cast<TCellEditor*>(editor)->IsComplete()) return Restore();
  if (FEvents.OnEditChanged) FEvents.OnEditChanged(FEdited.column());
}

void TGridView::PostEditor() {
  if (FEditor != nullptr && IsEditing()) commitData(FEditor);
}

void TGridView::Post(const QModelIndex& index, const TCellEditor& editor) {
  if (!FTouched || !editor.IsComplete()) return;
  const TVariant value = editor.Value();
  const TVariant stored = FModel.Read(index);
  if (stored == value || (stored.IsEmpty() && value.IsEmpty())) return;
  FPosted = true;
  FModel.Write(index, value);
}

void TGridView::Restore() {
  if (!std::exchange(FPosted, false) || !FEdited.isValid()) return;
  FModel.Write(FEdited, FBefore);
  if (FEvents.OnEditReverted) FEvents.OnEditReverted();
}

bool TGridView::Leave(TGridKey key, bool backwards) {
  const auto& options = FModel.Options();
  if (key == TGridKey::Tab) return options.TabMovesCells && MoveCell(backwards ? -1 : 1, true);
  return options.EnterMovesToNextCell && MoveCell(1);
}

bool TGridView::EditorKey(QWidget* editor, QKeyEvent* event) {
  const TGridKey key = KeyOf(*event);
  const auto* memo = dynamic_cast<const TMemoEdit*>(editor);
  const bool newLine = key == TGridKey::Enter && (event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) != 0;
  if (memo != nullptr && newLine) return false;
  const int steps = StepsOf(*editor, event->key());
  auto& cell = *dynamic_cast<TCellEditor*>(editor);
  if ((key == TGridKey::Enter || key == TGridKey::Tab || steps != 0) && cell.KeepsOpen()) {
    cell.Refuse();
    return true;
  }
  if (FEvents.OnKeyDown && FEdited.isValid()) {
    switch (FEvents.OnKeyDown(FEdited.column(), key)) {
      case TGridKeyAction::MoveDown:
        FDelegate->Finish(editor, false);
        MoveRow(1);
        return true;
      case TGridKeyAction::Swallow:
        return true;
      case TGridKeyAction::Pass:
        break;
    }
  }
  if (key == TGridKey::Escape) {
    Restore();
    FTouched = false;
    FDelegate->Finish(editor, true);
    return true;
  }
  if (key == TGridKey::Enter || key == TGridKey::Tab) {
    FDelegate->Finish(editor, false);
    const bool backwards = event->key() == Qt::Key_Backtab;
    if (!Leave(key, backwards) && key == TGridKey::Tab && !FModel.Options().TabMovesCells)
      QTableView::focusNextPrevChild(!backwards);
    return true;
  }
  const bool upOrDown = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  const bool leaves = memo != nullptr ? memo->IsAtEdge(event->key()) : dynamic_cast<TPlainEdit*>(editor) != nullptr;
  if (upOrDown && leaves && event->modifiers() == Qt::NoModifier) {
    FDelegate->Finish(editor, false);
    MoveRow(event->key() == Qt::Key_Up ? -1 : 1);
    return true;
  }
  if (steps != 0) {
    FDelegate->Finish(editor, false);
    MoveCell(steps);
    return true;
  }
  return false;
}

bool TGridView::focusNextPrevChild(bool next) {
  if (currentIndex().isValid() && Leave(TGridKey::Tab, !next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void TGridView::keyPressEvent(QKeyEvent* event) {
  if (TakeGroupKey(event) || TakeSearchKey(event) || TakeKey(event)) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

bool TGridView::TakeKey(QKeyEvent* event) {
  const TGridKey key = KeyOf(*event);
  const QModelIndex current = currentIndex();
  if (key == TGridKey::Escape && FModel.Options().ReadOnly && OnLiftFilter && OnLiftFilter()) return true;
  if (!current.isValid()) return key == TGridKey::Other && event->key() == Qt::Key_Down && MoveRow(1);
  if (FEvents.OnKeyDown && !FModel.IsGroup(current)) {
    const auto action = FEvents.OnKeyDown(current.column(), key);
    if (action == TGridKeyAction::MoveDown) MoveRow(1);
    if (action != TGridKeyAction::Pass) return true;
  }
  if (key == TGridKey::Enter) {
    const bool asDoubleClick = FModel.Options().ReadOnly && FEvents.OnDoubleClick && !FModel.IsGroup(current);
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
