#include "Ribbon.h"

#include <QApplication>
#include <QBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <algorithm>

#include "ApplicationMenu.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {
/// Flat tabs: the active one carries a line in the accent.
class TTabRow : public QTabBar {
 public:
  explicit TTabRow(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    setAccessibleName(UserText(DesktopTexts::Ribbon));
  }

 protected:
  QSize tabSizeHint(int index) const override {
    return {fontMetrics().horizontalAdvance(tabText(index)) + 28, fontMetrics().height() + 12};
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    for (int i = 0; i < count(); ++i) {
      const QRect tab = tabRect(i);
      painter.setPen(palette().color(QPalette::WindowText));
      painter.drawText(tab, Qt::AlignCenter, tabText(i));
      if (i != currentIndex()) continue;
      const QColor accent = palette().color(QPalette::Highlight);
      painter.fillRect(tab.adjusted(6, tab.height() - 3, -6, 0), accent);
      if (!hasFocus()) continue;
      painter.setPen(QPen(accent, 2));
      painter.drawRect(tab.adjusted(3, 2, -3, -5));
    }
  }
};
}  // namespace

TRibbonPage::TRibbonPage(const TRibbonTab& tab, TCommandActions& actions) {
  for (const auto& group : tab.Groups) FGroups.push_back(new TRibbonGroupBox(group, actions, this));
}

bool TRibbonPage::SetGroupVisible(const std::string& groupId, bool visible) {
  for (auto* group : FGroups) {
    if (group->Id() != groupId) continue;
    group->setVisible(visible);
    Fit();
    return true;
  }
  return false;
}

QSize TRibbonPage::sizeHint() const {
  return {400, FGroups.empty() ? 92 : FGroups.front()->sizeHint().height()};
}

void TRibbonPage::resizeEvent(QResizeEvent*) {
  Fit();
}

bool TRibbonPage::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) {
    updateGeometry();
    Fit();
  }
  return QWidget::event(event);
}

void TRibbonPage::Fit() {
  struct TPlace {
    TRibbonGroupBox* Group;
    TRibbonLevel Level;
    int Width;
  };
  std::vector<TPlace> places;
  int total = 0;
  for (auto* group : FGroups) {
    if (group->isHidden()) continue;
    places.push_back({group, TRibbonLevel::Full, group->WidthAt(TRibbonLevel::Full)});
    total += places.back().Width;
  }
  for (const auto level : {TRibbonLevel::Small, TRibbonLevel::IconsOnly}) {
    for (auto place = places.rbegin(); place != places.rend() && total > width(); ++place) {
      const int smaller = std::min(place->Group->WidthAt(level), place->Width);
      total -= place->Width - smaller;
      place->Width = smaller;
      place->Level = level;
    }
  }
  int left = 0;
  for (const auto& place : places) {
    place.Group->SetLevel(place.Level);
    place.Group->setGeometry(left, 0, place.Width, place.Group->sizeHint().height());
    left += place.Width;
  }
}

TRibbon::TRibbon(const TRibbonDescription& description, TCommandActions& actions, QWidget& window)
    : QWidget(&window), FWindow(window) {
  setAccessibleName(UserText(DesktopTexts::Ribbon));
  FLayout = new QVBoxLayout(this);
  FLayout->setContentsMargins(0, 0, 0, 0);
  FLayout->setSpacing(0);
  auto* top = new QHBoxLayout;
  top->setSpacing(4);
  top->setContentsMargins(4, 2, 4, 0);
  FLayout->addLayout(top);

  FMenu = new TApplicationMenu(description, actions, this);
  FButton = new QToolButton(this);
  FButton->setText(FromUtf8(description.ApplicationButton));
  FButton->setAutoRaise(true);
  FButton->setFocusPolicy(Qt::TabFocus);
  QFont bold = font();
  bold.setBold(true);
  FButton->setFont(bold);
  connect(FButton, &QToolButton::clicked, this, [this] { FMenu->ShowBelow(*FButton); });
  top->addWidget(FButton, 0, Qt::AlignVCenter);
  for (auto* command : description.QuickAccess) {
    auto* button = new TRibbonToolButton(actions.ActionOf(*command), false, false, this);
    button->SetLevel(TRibbonLevel::IconsOnly);
    button->setFocusPolicy(Qt::TabFocus);
    top->addWidget(button, 0, Qt::AlignVCenter);
  }

  FTabs = new TTabRow(this);
  top->addWidget(FTabs);
  top->addStretch();
  FBody = new QStackedWidget(this);
  FBody->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  FBody->setAutoFillBackground(true);
  FLayout->addWidget(FBody);
  for (const auto& tab : description.Tabs) {
    FTabIds.push_back(tab.Id);
    FPages.push_back(new TRibbonPage(tab, actions));
    FBody->addWidget(FPages.back());
    FTabs->addTab(FromUtf8(tab.Caption));
  }
  connect(FTabs, &QTabBar::currentChanged, FBody, &QStackedWidget::setCurrentIndex);
  // Queued: Qt tells the click of a double click after it.
  connect(
      FTabs, &QTabBar::tabBarDoubleClicked, this, [this] { SetFolded(!FFolded); }, Qt::QueuedConnection);
  connect(FTabs, &QTabBar::tabBarClicked, this, [this] {
    if (FFolded) OpenOver();
  });
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F1), &window), &QShortcut::activated, this,
          [this] { SetFolded(!FFolded); });
  FTabs->setToolTip(UserText(DesktopTexts::FoldRibbon));
  FKeyTips = new TKeyTips(
      window, [this] { return TabTargets(); }, [this] { return ButtonTargets(); });
  qApp->installEventFilter(this);
}

void TRibbon::SetGroupVisible(const std::string& groupId, bool visible) {
  for (auto* page : FPages)
    if (page->SetGroupVisible(groupId, visible)) return;
}

void TRibbon::ActivateTab(const std::string& tabId) {
  const auto at = std::find(FTabIds.begin(), FTabIds.end(), tabId);
  if (at != FTabIds.end()) FTabs->setCurrentIndex(static_cast<int>(at - FTabIds.begin()));
}

bool TRibbon::IsOpenedOver() const {
  return FFolded && !FBody->isHidden();
}

void TRibbon::SetFolded(bool folded) {
  if (folded == FFolded) return;
  FFolded = folded;
  if (folded) {
    FLayout->removeWidget(FBody);
    FBody->hide();
    FBody->setParent(&FWindow);
    FBody->hide();
  } else {
    FLayout->addWidget(FBody);
    FBody->show();
  }
}

void TRibbon::OpenOver() {
  const QPoint below = mapTo(&FWindow, QPoint(0, height()));
  FBody->setGeometry(below.x(), below.y(), width(), FBody->sizeHint().height());
  FBody->raise();
  FBody->show();
}

void TRibbon::CloseOver() {
  if (IsOpenedOver()) FBody->hide();
}

bool TRibbon::eventFilter(QObject* watched, QEvent* event) {
  if (!IsOpenedOver()) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return false;
  const bool inside = widget == FTabs || widget == FBody || FBody->isAncestorOf(widget);
  if (event->type() == QEvent::MouseButtonPress && !inside) CloseOver();
  if (event->type() == QEvent::MouseButtonRelease && qobject_cast<const QToolButton*>(widget) != nullptr && inside)
    QMetaObject::invokeMethod(
        this, [this] { CloseOver(); }, Qt::QueuedConnection);
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    CloseOver();
    return true;
  }
  return false;
}

std::vector<TKeyTipTarget> TRibbon::TabTargets() {
  std::vector<TKeyTipTarget> targets{{FButton, FButton->text(), [this] { FMenu->ShowBelow(*FButton); }, false}};
  for (int i = 0; i < FTabs->count(); ++i) {
    targets.push_back({FTabs, FTabs->tabText(i),
                       [this, i] {
                         FTabs->setCurrentIndex(i);
                         if (FFolded) OpenOver();
                       },
                       true});
    targets.back().Place = FTabs->tabRect(i);
  }
  return targets;
}

std::vector<TKeyTipTarget> TRibbon::ButtonTargets() {
  std::vector<TKeyTipTarget> targets;
  for (auto* group : FPages[static_cast<std::size_t>(FTabs->currentIndex())]->Groups()) {
    for (auto* button : group->Buttons()) {
      if (!button->defaultAction()->isVisible()) continue;
      targets.push_back({button, button->defaultAction()->text(),
                         [this, button] {
                           button->click();
                           CloseOver();
                         },
                         false});
      if (!button->IsLarge()) targets.back().Place = QRect(0, 0, 24, button->height());
    }
  }
  return targets;
}
