#include "RibbonGroup.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

#include "DesktopLook.h"
#include "QtText.h"

namespace {
constexpr int margin = 6;
constexpr int smallRows = 3;

// The break that makes the wider of the two lines as narrow as possible.
QString InTwoLines(const QString& text, const QFontMetrics& metrics) {
  QString best = text;
  int bestWidth = metrics.horizontalAdvance(text);
  for (qsizetype at = text.indexOf(' '); at >= 0; at = text.indexOf(' ', at + 1)) {
    const int width = std::max(metrics.horizontalAdvance(text.left(at)), metrics.horizontalAdvance(text.mid(at + 1)));
    if (width >= bestWidth) continue;
    bestWidth = width;
    best = text;
    best[at] = '\n';
  }
  return best;
}
}  // namespace

TRibbonToolButton::TRibbonToolButton(QAction* action, bool large, bool beginsGroup, QWidget* parent)
    : QToolButton(parent), FLarge(large), FBeginsGroup(beginsGroup) {
  setDefaultAction(action);
  setAutoRaise(true);
  setAccessibleName(action->iconText());
}

void TRibbonToolButton::SetLevel(TRibbonLevel level) {
  const bool large = FLarge && level == TRibbonLevel::Full;
  setToolButtonStyle(large                              ? Qt::ToolButtonTextUnderIcon
                     : level == TRibbonLevel::IconsOnly ? Qt::ToolButtonIconOnly
                                                        : Qt::ToolButtonTextBesideIcon);
  setIconSize(large ? QSize(32, 32) : QSize(16, 16));
}

void TRibbonToolButton::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  if (IsLarge()) option->text = InTwoLines(option->text, option->fontMetrics);
  // The pressed radio button is drawn in the accent, not as a sunken button.
  option->state &= ~QStyle::State_On;
}

void TRibbonToolButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  if (isChecked()) {
    QColor accent = palette().color(QPalette::Highlight);
    painter.setPen(accent);
    accent.setAlphaF(0.2F);
    painter.setBrush(accent);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  QStyleOptionToolButton option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ToolButton, option);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

TRibbonGroupBox::TRibbonGroupBox(const TRibbonGroup& group, TCommandActions& actions, QWidget* parent)
    : QWidget(parent), FId(group.Id), FCaption(FromUtf8(group.Caption)) {
  setAccessibleName(FCaption);
  for (const auto& button : group.Buttons) {
    FButtons.push_back(
        new TRibbonToolButton(actions.ActionOf(*button.Command), button.Large, button.BeginsGroup, this));
    FButtons.back()->installEventFilter(this);
  }
  SetLevel(TRibbonLevel::Full);
}

int TRibbonGroupBox::RowHeight() const {
  return std::max(24, fontMetrics().height() + 6);
}

int TRibbonGroupBox::CaptionHeight() const {
  return fontMetrics().height() + 2;
}

int TRibbonGroupBox::Arrange(TRibbonLevel level) {
  int left = margin;
  int row = 0;
  int columnWidth = 0;
  FSeparators.clear();
  const auto nextColumn = [&] {
    if (columnWidth > 0) left += columnWidth + 2;
    row = columnWidth = 0;
  };
  bool first = true;
  for (auto* button : FButtons) {
    if (button->defaultAction() == nullptr || !button->defaultAction()->isVisible()) continue;
    button->SetLevel(level);
    const bool large = button->IsLarge();
    if (large || row == smallRows || button->BeginsGroup()) nextColumn();
    if (button->BeginsGroup() && !first) {
      FSeparators.push_back(left + margin / 2);
      left += margin + 1;
    }
    first = false;
    const int width = std::max(button->sizeHint().width(), large ? 48 : RowHeight());
    button->setGeometry(left, 2 + row * RowHeight(), width, large ? smallRows * RowHeight() : RowHeight());
    columnWidth = std::max(columnWidth, width);
    if (large)
      nextColumn();
    else
      ++row;
  }
  nextColumn();
  return std::max(left - 2 + margin, fontMetrics().horizontalAdvance(FCaption) + 2 * margin) + 1;
}

int TRibbonGroupBox::WidthAt(TRibbonLevel level) {
  const int width = Arrange(level);
  Arrange(FLevel);
  return width;
}

void TRibbonGroupBox::SetLevel(TRibbonLevel level) {
  FLevel = level;
  Arrange(level);
  update();
}

QSize TRibbonGroupBox::sizeHint() const {
  return {80, 2 + smallRows * RowHeight() + CaptionHeight() + 2};
}

void TRibbonGroupBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor text = palette().color(QPalette::WindowText);
  const QColor line = Blend(palette().color(QPalette::Window), text, 0.18);
  painter.setPen(line);
  painter.drawLine(width() - 1, 6, width() - 1, height() - 6);
  for (const int separator : FSeparators) painter.drawLine(separator, 6, separator, height() - CaptionHeight() - 6);
  painter.setPen(Blend(palette().color(QPalette::Window), text, 0.75));
  painter.drawText(QRect(0, height() - CaptionHeight() - 1, width() - 1, CaptionHeight()), Qt::AlignCenter, FCaption);
}

void TRibbonGroupBox::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) updateGeometry();
}

bool TRibbonGroupBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ActionChanged) {
    auto* button = static_cast<TRibbonToolButton*>(watched);
    if (button->isHidden() == button->defaultAction()->isVisible()) {
      button->setVisible(button->defaultAction()->isVisible());
      updateGeometry();
    }
  }
  return QWidget::eventFilter(watched, event);
}
