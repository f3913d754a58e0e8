#pragma once

#include <QLabel>
#include <QPlainTextEdit>

#include "ElidedLabel.h"
#include "QtText.h"
#include "VantrelDialogs.h"

/// A part of a form that shows a text and cannot be edited. The widget belongs to its window.
class TDesktopTextItem : public TVantrelFormItem {
 public:
  explicit TDesktopTextItem(QWidget& widget) : FWidget(widget) {}

  TVariant Value() const override { return FValue; }
  void SetValue(const TVariant& value) override {
    FValue = value;
    ShowText(FromUtf8(value.AsTextOrEmpty()));
  }
  void SetEnabled(bool enabled) override { FWidget.setEnabled(enabled); }
  void SetVisible(bool visible) override { FWidget.setVisible(visible); }
  void SetFocus() override { FWidget.setFocus(); }

 protected:
  virtual void ShowText(const QString& text) = 0;

 private:
  QWidget& FWidget;
  TVariant FValue;
};

/// A label, which screen readers read as it stands.
class TDesktopLabelItem : public TDesktopTextItem {
 public:
  explicit TDesktopLabelItem(QLabel& label) : TDesktopTextItem(label), FLabel(label) {
    FLabel.setTextFormat(Qt::PlainText);
  }

 protected:
  void ShowText(const QString& text) override {
    FLabel.setText(text);
    FLabel.setAccessibleName(text);
    if (dynamic_cast<TElidedLabel*>(&FLabel) != nullptr) FLabel.setToolTip(text);
  }

  QLabel& FLabel;
};

/// A text of several lines.
class TDesktopMemoItem : public TDesktopTextItem {
 public:
  explicit TDesktopMemoItem(QPlainTextEdit& memo) : TDesktopTextItem(memo), FMemo(memo) {}

 protected:
  void ShowText(const QString& text) override { FMemo.setPlainText(text); }

 private:
  QPlainTextEdit& FMemo;
};
