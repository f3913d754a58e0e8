#pragma once

#include <QBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "DesktopModalForm.h"

/// A dialog of fixed size: a column of parts, then a row of buttons on the right.
class TSmallDialog : public TDesktopModalForm {
 public:
  explicit TSmallDialog(const QString& title = {}) : FParts(new QVBoxLayout), FButtons(new QHBoxLayout) {
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(7);
    layout->addLayout(FParts);
    layout->addStretch();
    layout->addLayout(FButtons);
    FButtons->addStretch();
  }
  QVBoxLayout& Parts() { return *FParts; }
  QPushButton* AddButton(const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    FButtons->addWidget(button);
    return button;
  }
  /// As large as its parts need, and `height` pixels high where that is enough for them.
  void FixSize(int height = 0) { setFixedSize(sizeHint().width(), std::max(sizeHint().height(), height)); }

 private:
  QVBoxLayout* FParts;
  QHBoxLayout* FButtons;
};
