#pragma once

#include <QPlainTextEdit>

#include "ValueEditor.h"

/// Text of any number of lines; in a cell Shift or Alt with Enter begins a new one. In a cell it grows with its text as
/// far as the room above and below allows. Line ends are written as they were read, new ones like the first, CRLF where
/// there is none.
class TMemoEdit : public QPlainTextEdit, public TValueEditor {
 public:
  TMemoEdit(const TEditorDescription& description, QWidget* parent);
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  /// Up and down leave the text at its first and last line.
  QPoint StepsOf(const QKeyEvent& key) const override;
  bool BreaksLine(const QKeyEvent& key) const override;
  bool HasLines() const override { return true; }
  bool CanTakeBack(bool again) const override {
    return again ? document()->isRedoAvailable() : document()->isUndoAvailable();
  }

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Fit();

  QRect FCell;
  /// The line ends of the text as it was read; a block's state is the place of the one before it.
  QStringList FLineEnds;
};
