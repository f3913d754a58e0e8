#include "FieldEdit.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

namespace {
/// The handler may end the form.
void Tell(const std::function<void()>& event) {
  if (const auto handler = event) handler();
}

/// The keyboard comes from another field, or goes to one.
bool IsBetweenFields(const QEvent& event) {
  const auto reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
}
}  // namespace

TFieldEdit::TFieldEdit(const TEditorDescription& description, QWidget* parent)
    : FEditor(MakeEditor(description, parent)) {
  setParent(&FEditor.Widget());
  FEditor.SetOwner(this);
  FEditor.Widget().installEventFilter(this);
}

void TFieldEdit::Release() {
  OnChange = OnType = OnLeave = nullptr;
  FEditor.Widget().removeEventFilter(this);
}

void TFieldEdit::SetValue(const TVariant& value) {
  FValue = FEntered = value;
  FEditor.CloseList();
  Show();
  SelectAll();
}

void TFieldEdit::SelectAll() {
  const bool isPicked = FEditor.Description().Picks() || FEditor.HasLines();
  if (FEditor.Widget().hasFocus() && !isPicked) QMetaObject::invokeMethod(&FEditor.Widget(), "selectAll");
}

void TFieldEdit::Show() {
  const auto text =
      FValue.IsEmpty() ? QString() : EditorText(FEditor.Description(), FValue).value_or(NumberText(FValue));
  FEditor.SetValue(FValue, text);
}

void TFieldEdit::EditorChanged() {
  Take(FEditor.IsComplete() ? FEditor.Value() : FEntered);
  Tell(OnType);
}

void TFieldEdit::Check() {
  if (!FEditor.IsComplete()) FEditor.RefuseText();
}

void TFieldEdit::Take(const TVariant& value) {
  if (value == FValue || (value.IsEmpty() && FValue.IsEmpty())) return;
  FBefore = std::exchange(FValue, value);
  Tell(OnChange);
}

void TFieldEdit::Enter() {
  if (!FEditor.IsComplete()) return;
  FEntered = FValue;
  // What was typed on an earlier visit is no beginning of what is typed next.
  Show();
  FEditor.Reload();
}

void TFieldEdit::Leave() {
  if (FEditor.IsComplete())
    Show();
  else if (FKeepsWrong)
    FEditor.RefuseText();
  else
    FEditor.Restore();
  Tell(OnLeave);
}

bool TFieldEdit::TakeBack() {
  const bool wasOpen = FEditor.CloseList();
  if (!FEditor.IsChanged()) return wasOpen;
  FEditor.Restore();
  SelectAll();
  Take(FEntered);
  Tell(OnType);
  return true;
}

bool TFieldEdit::TakeReturn() {
  if (FEditor.HasLines()) return false;
  const bool wasOpen = FEditor.CloseList();
  if (!FEditor.Description().ReturnMovesOn) return wasOpen;
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
  QCoreApplication::sendEvent(&FEditor.Widget(), &tab);
  return true;
}

bool TFieldEdit::TakeKey(const QKeyEvent& key) {
  const bool isReturn = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
  if ((isReturn || isTab) && !FEditor.IsComplete()) {
    FEditor.RefuseText();
    return true;
  }
  if (isReturn) return TakeReturn();
  if (key.key() == Qt::Key_Escape) return TakeBack();
  if (FEditor.TakeKey(key)) return true;
  if (key.key() != Qt::Key_Delete || !FEditor.Description().IsNumber()) return false;
  // A key shorter than Backspace for all of it would empty what Delete must not empty.
  const auto* line = FEditor.Widget().findChild<QLineEdit*>();
  const bool empties = line != nullptr && line->hasSelectedText() && line->selectedText() == line->text();
  if (empties) FEditor.Refuse();
  return empties;
}

bool TFieldEdit::eventFilter(QObject* watched, QEvent* event) {
  if (FEditor.DecidesOn(*event)) return true;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
      // What there is to choose from may be another since the keyboard came.
      if (!FEditor.IsChanged()) FEditor.Reload();
      if (event->type() == QEvent::MouseButtonPress) break;
      return TakeKey(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
      if (IsBetweenFields(*event)) Enter();
      break;
    case QEvent::FocusOut:
      if (IsBetweenFields(*event)) Leave();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}
