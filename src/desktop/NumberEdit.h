#pragma once

#include <QAbstractSpinBox>

#include "ValueEditor.h"

/// A number or nothing, typed or stepped by key or button. With places it gives floats, without integers. A point is
/// typed as a comma. What is shown can always be shortened; a number outside the limits is not stored.
class TNumberEdit : public QAbstractSpinBox, public TValueEditor {
 public:
  TNumberEdit(const TEditorDescription& description, QWidget* parent);
  bool KeepsOpen() const override { return false; }
  bool CanTakeBack(bool again) const override;
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  void SetAlignment(Qt::Alignment alignment) override { setAlignment(alignment); }
  void stepBy(int steps) override;
  QValidator::State validate(QString& input, int& position) const override;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override;
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool Takes(const QString& text) const;
  TVariant NumberOf(double number) const;
  void SetText(const TVariant& value);

  double FMinimum, FMaximum;
  int FDecimals;
  QString FText;  ///< as it was before the change that is being validated
  bool FKeyRefused = false;
  bool FCommaRefused = false;
};
