#include "CellEdit.h"

#include <QScopedValueRollback>
#include <utility>

void TCellEdit::Begin(const QModelIndex& index) {
  End();
  if (auto* editor = Editor()) editor->SetOwner(nullptr);
  FEditor = nullptr;
  FWidget = nullptr;
  FIndex = index;
  FBefore = FStored = FModel.Read(index);
  FLoaded = FTouched = FPosted = false;
}

void TCellEdit::SetEditor(TValueEditor& editor) {
  FEditor = &editor;
  FWidget = &editor.Widget();
  editor.SetOwner(this);
}

void TCellEdit::Load(const QString& shown) {
  if (!std::exchange(FLoaded, true)) return FEditor->SetValue(FBefore, shown);
  const TVariant stored = FModel.Read(FIndex);
  if (FWriting || stored == FStored) return;
  FBefore = FStored = stored;
  FPosted = false;
  if (!FTouched) FEditor->SetValue(FBefore, shown);
}

void TCellEdit::Open(bool atEnd) {
  FIsOpen = true;
  if (FEvents.OnEditStarted) FEvents.OnEditStarted();
  if (auto* editor = Editor()) editor->Begin(atEnd);
}

void TCellEdit::End() {
  if (std::exchange(FIsOpen, false) && FEvents.OnEditEnded) FEvents.OnEditEnded();
}

void TCellEdit::EditorChanged() {
  FTouched = true;
  // What was posted on the way to a text that cannot be stored was not meant.
  if (!FEditor->IsComplete()) return WriteBack();
  if (FEvents.OnEditChanged && FEvents.OnEditChanged(Ordinal()) && TakeValue()) Write(FValue);
}

void TCellEdit::EditorAccepted() {
  if (OnAccepted) OnAccepted();
}

void TCellEdit::Post() {
  if (!FWriting && TakeValue()) Write(FValue);
}

void TCellEdit::Save() {
  Post();
  if (!FEditor->IsComplete()) return FEditor->Refuse();
  FBefore = FStored;
  FPosted = false;
}

void TCellEdit::Write(const TVariant& value) {
  const QScopedValueRollback writing(FWriting, true);
  FModel.Write(FIndex, value);
  FStored = FModel.Read(FIndex);
}

bool TCellEdit::HasDraft() const {
  if (Editor() == nullptr || !FIndex.isValid() || !FTouched || !FEditor->IsComplete()) return false;
  const TVariant value = FEditor->Value(), stored = FModel.Read(FIndex);
  return stored != value && !(stored.IsEmpty() && value.IsEmpty());
}

bool TCellEdit::TakeValue() {
  if (!HasDraft()) return false;
  FValue = FEditor->Value();
  FPosted = true;
  return true;
}

void TCellEdit::Revert() {
  FTouched = false;
  WriteBack();
}

void TCellEdit::WriteBack() {
  if (!std::exchange(FPosted, false) || !FIndex.isValid()) return;
  Write(FBefore);
  if (FEvents.OnEditReverted) FEvents.OnEditReverted();
}
