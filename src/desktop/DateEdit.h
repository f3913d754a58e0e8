#pragma once

#include <QLineEdit>

#include "ValueEditor.h"

/// A date or nothing: typed as d.m.yy or d.m.yyyy, stepped by day with the arrow keys, or picked from a calendar with
/// buttons for today and for none.
class TDateEdit : public QLineEdit, public TValueEditor {
 public:
  TDateEdit(const TEditorDescription& description, QWidget* parent);
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  void SetAlignment(Qt::Alignment alignment) override { setAlignment(alignment); }
  void OpenCalendar();

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Take(const QDate& date);
};
