#pragma once

#include <QPlainTextEdit>

/// The whole text of a cell, over it, to be read and copied by keys. It ends with Escape, Return or F2, or with a click
/// elsewhere.
class TReadingPane : public QPlainTextEdit {
 public:
  /// `name` is what a screen reader calls it. It belongs to the owner, and deletes itself when it closes.
  TReadingPane(const QString& text, const QString& name, QWidget* owner);
  /// Over that part of the screen, as wide and as high as the text needs.
  void ShowOver(const QRect& cell);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};
