#pragma once

#include "LineEdit.h"

/// One line of text.
class TPlainEdit : public TLineEdit {
 public:
  TPlainEdit(const TEditorDescription& description, QWidget* parent);
  QPoint StepsOf(const QKeyEvent& key) const override;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;

 private:
  qsizetype FLength = 0;
};
