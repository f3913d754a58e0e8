#pragma once

#include <QLineEdit>

#include "ValueEditor.h"

/// One line of text.
class TPlainEdit : public QLineEdit, public TValueEditor {
 public:
  TPlainEdit(const TEditorDescription& description, QWidget* parent);
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  void SetAlignment(Qt::Alignment alignment) override { setAlignment(alignment); }
  QPoint StepsOf(const QKeyEvent& key) const override;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;

 private:
  qsizetype FLength = 0;
};

/// The cursor behind the text, or all of it to be replaced.
void PlaceCursor(QLineEdit& edit, bool atEnd);
