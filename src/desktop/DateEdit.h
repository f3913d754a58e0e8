#pragma once

#include "LineEdit.h"

/// A date or nothing: typed as d.m.yy or d.m.yyyy, stepped by day with the arrow keys, or picked from a calendar with
/// buttons for today and for none.
class TDateEdit : public TLineEdit {
 public:
  TDateEdit(const TEditorDescription& description, QWidget* parent);
  void OpenCalendar();

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Take(const QDate& date);
};
