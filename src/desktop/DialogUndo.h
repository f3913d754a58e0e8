#pragma once

#include <QKeySequence>
#include <QUndoStack>
#include <functional>

#include "VantrelVariant.h"

class QTextDocument;
class TFieldEdit;

/// What was done in the fields of a dialog, to be taken back and done again step by step, by the same keys wherever in
/// the dialog the keyboard is.
class TDialogUndo : public QObject {
 public:
  explicit TDialogUndo(QWidget& dialog);

  /// Called when all parts of the dialog are there: they leave the keys to it, and what the document, which outlives
  /// it, calls a step is one.
  void Follow(QTextDocument& document);
  /// The field has its value instead of this one. Changes of one field that follow one another are one step.
  void Add(TFieldEdit& field, const TVariant& before);
  /// All that happens meanwhile is one step.
  void Join(const std::function<void()>& change);
  bool IsJoining() const { return FIsJoining; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& FDialog;
  QTextDocument* FDocument = nullptr;
  QUndoStack FSteps;
  QList<QKeySequence> FKeys;
  bool FIsJoining = false;
};
