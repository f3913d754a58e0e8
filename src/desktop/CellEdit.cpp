#include "CellEdit.h"

#include <utility>

void TCellEdit::Begin(const QModelIndex& index) {
  if (auto* editor = Editor()) editor->SetOwner(nullptr);
  FEditor = nullptr;
  FWidget = nullptr;
  FIndex = index;
  FBefore = FModel.Read(index);
  FLoaded = FTouched = FPosted = false;
}

void TCellEdit::SetEditor(TValueEditor& editor) {
  FEditor = &editor;
  FWidget = &editor.Widget();
  editor.SetOwner(this);
}

void TCellEdit::Load(const QString& shown) {
  // Later changes of the model are those that the editor itself made.
  if (!std::exchange(FLoaded, true)) FEditor->SetValue(FBefore, shown);
}

void TCellEdit::Open(bool atEnd) {
  if (FEvents.OnEditStarted) FEvents.OnEditStarted();
  if (auto* editor = Editor()) editor->Begin(atEnd);
}

void TCellEdit::EditorChanged() {
  FTouched = true;
  // What was posted on the way to a text that cannot be stored was not meant.
  if (!FEditor->IsComplete()) return WriteBack();
  if (FEvents.OnEditChanged && FEvents.OnEditChanged(Ordinal()) && TakeValue()) FModel.Write(FIndex, FValue);
}

void TCellEdit::EditorAccepted() {
  if (OnAccepted) OnAccepted();
}

void TCellEdit::Post() {
  if (TakeValue()) FModel.Write(FIndex, FValue);
}

bool TCellEdit::TakeValue() {
  if (Editor() == nullptr || !FIndex.isValid() || !FTouched || !FEditor->IsComplete()) return false;
  FValue = FEditor->Value();
  const TVariant stored = FModel.Read(FIndex);
  if (stored == FValue || (stored.IsEmpty() && FValue.IsEmpty())) return false;
  FPosted = true;
  return true;
}

void TCellEdit::Revert() {
  FTouched = false;
  WriteBack();
}

void TCellEdit::WriteBack() {
  if (!std::exchange(FPosted, false) || !FIndex.isValid()) return;
  FModel.Write(FIndex, FBefore);
  if (FEvents.OnEditReverted) FEvents.OnEditReverted();
}
