#pragma once

#include <QLineEdit>

#include "ValueEditor.h"

/// What the editors of one line have in common.
class TLineEdit : public QLineEdit, public TValueEditor {
 public:
  TLineEdit(const TEditorDescription& description, QWidget* parent);
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  bool CanTakeBack(bool again) const override { return again ? isRedoAvailable() : isUndoAvailable(); }
  void SetAlignment(Qt::Alignment alignment) override { setAlignment(alignment); }
};

/// The cursor behind the text, or all of it to be replaced.
void PlaceCursor(QLineEdit& edit, bool atEnd);
