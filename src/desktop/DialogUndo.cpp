#include "DialogUndo.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <QShortcut>
#include <QTextDocument>

#include "FieldEdit.h"

namespace {

/// A step of a text, which its document keeps. The document may have taken it back by itself.
class TTextChange final : public QUndoCommand {
 public:
  explicit TTextChange(QTextDocument& document) : FDocument(document), FPlace(document.availableUndoSteps()) {}
  void undo() override {
    if (FDocument.availableUndoSteps() >= FPlace) FDocument.undo();
  }
  void redo() override {
    if (FDocument.availableUndoSteps() < FPlace) FDocument.redo();
  }

 private:
  QTextDocument& FDocument;
  int FPlace;
};

class TFieldChange final : public QUndoCommand {
 public:
  TFieldChange(TFieldEdit& field, const TVariant& before) : FField(field), FBefore(before), FAfter(field.Value()) {}
  int id() const override { return 1; }
  bool mergeWith(const QUndoCommand* other) override {
    const auto* next = static_cast<const TFieldChange*>(other);
    if (&next->FField != &FField) return false;
    FAfter = next->FAfter;
    setObsolete(FAfter == FBefore);
    return true;
  }
  void undo() override { FField.SetValue(FBefore); }
  void redo() override {
    if (FField.Value() != FAfter) FField.SetValue(FAfter);
  }

 private:
  TFieldEdit& FField;
  TVariant FBefore, FAfter;
};

}  // namespace

TDialogUndo::TDialogUndo(QWidget& dialog) : FDialog(dialog) {
  const auto add = [&](const QList<QKeySequence>& keys, void (QUndoStack::*operation)()) {
    auto* shortcut = new QShortcut(&dialog);
    shortcut->setKeys(keys);
    connect(shortcut, &QShortcut::activated, &FSteps, operation);
    FKeys += keys;
  };
  add(QKeySequence::keyBindings(QKeySequence::Undo), &QUndoStack::undo);
  auto redo = QKeySequence::keyBindings(QKeySequence::Redo);
  // Not every desktop has this key for it.
  if (const QKeySequence key(Qt::CTRL | Qt::Key_Y); !redo.contains(key)) redo << key;
  add(redo, &QUndoStack::redo);
}

void TDialogUndo::Follow(QTextDocument& document) {
  for (auto* part : FDialog.findChildren<QWidget*>()) part->installEventFilter(this);
  FDocument = &document;
  connect(&document, &QTextDocument::undoCommandAdded, this,
          [this, &document] { FSteps.push(new TTextChange(document)); });
}

void TDialogUndo::Add(TFieldEdit& field, const TVariant& before) {
  // What is typed behind it is no part of what was typed before it.
  if (FDocument != nullptr) FDocument->setModified(false);
  FSteps.push(new TFieldChange(field, before));
}

void TDialogUndo::Join(const std::function<void()>& change) {
  FIsJoining = true;
  FSteps.beginMacro({});
  const auto end = qScopeGuard([this] {
    FSteps.endMacro();
    FIsJoining = false;
  });
  change();
}

bool TDialogUndo::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return QObject::eventFilter(watched, event);
  // The parts would deal with the key themselves.
  const QKeySequence key(static_cast<QKeyEvent*>(event)->keyCombination());
  if (!FKeys.contains(key)) return false;
  event->ignore();
  return true;
}
