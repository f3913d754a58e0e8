#include "DesktopMainWindow.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>
#include <iterator>
#include <utility>

#include "ApplicationMenu.h"
#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "MenuKey.h"
#include "QtText.h"
#include "RecentList.h"
#include "Ribbon.h"

namespace {
constexpr QSize toldMinimum(1280, 800);
constexpr QSize designSize(1463, 1216);

/// A line of text that shows when it has the keyboard.
class TStatusLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
};

/// Where the keyboard goes in a region: to where it was last, else to its first place, else to the region itself. Null
/// where it can go nowhere.
QWidget* PlaceIn(QWidget& region) {
  const auto takesKeys = [&](const QWidget* widget) {
    return widget != &region && region.isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
           (widget->focusPolicy() & Qt::TabFocus) != 0;
  };
  if (!region.isVisible() || !region.isEnabled()) return nullptr;
  if (auto* last = region.focusWidget(); last != nullptr && takesKeys(last)) return last;
  for (auto* next = region.nextInFocusChain(); next != &region; next = next->nextInFocusChain())
    if (takesKeys(next)) return next;
  return region.focusPolicy() == Qt::NoFocus ? nullptr : &region;
}

/// The path of the one file that is dragged; empty for anything else.
QString DraggedFile(const QDropEvent& event) {
  const auto urls = event.mimeData()->urls();
  return urls.size() == 1 && QApplication::activeModalWidget() == nullptr ? urls.front().toLocalFile() : QString();
}
}  // namespace

TDesktopMainWindow::TDesktopMainWindow()
    : FHost(new QWidget(this)), FStatus(new TStatusLabel(this)), FNote(new QLabel(this)) {
  auto* layout = new QVBoxLayout(FHost);
  layout->setContentsMargins(0, 0, 0, 0);
  setCentralWidget(FHost);
  setAcceptDrops(true);
  statusBar()->addWidget(FStatus, 1);
  statusBar()->setAccessibleName(UserText(DesktopTexts::StatusBar));
  FStatus->setFocusPolicy(Qt::TabFocus);
  FStatus->setTextFormat(Qt::PlainText);
  FStatus->setContentsMargins(4, 0, 4, 0);
  FStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  FNote->setTextFormat(Qt::PlainText);
  FNote->setContentsMargins(0, 0, 6, 0);
  statusBar()->addPermanentWidget(FNote);
  for (const int step : {1, -1}) {
    auto* shortcut = new QShortcut(step > 0 ? QKeySequence(Qt::Key_F6) : QKeySequence(Qt::SHIFT | Qt::Key_F6), this);
    connect(shortcut, &QShortcut::activated, this, [this, step] { GotoRegion(step); });
  }
  connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
    if (OnFocusChanged && now != nullptr && isAncestorOf(now)) OnFocusChanged();
  });
  connect(qApp, &QGuiApplication::commitDataRequest, this, [this] {
    if (OnQueryEndSession) OnQueryEndSession();
  });
  const QSize room = screen()->availableSize();
  setMinimumSize(toldMinimum.boundedTo(room - QSize(0, 40)));
  resize(designSize.boundedTo(room - QSize(0, 40)));
  move(screen()->availableGeometry().center() - rect().center());
}

TDesktopMainWindow::~TDesktopMainWindow() = default;

void TDesktopMainWindow::SetRibbon(const TRibbonDescription& description) {
  setMenuWidget(nullptr);
  FRibbon = nullptr;
  FActions = std::make_unique<TCommandActions>(*this);
  if (description.Tabs.empty()) return;
  FRibbon = new TRibbon(description, *FActions, *this);
  FRibbon->Menu().OnRecentClick = [this](int index) {
    if (OnRecentClick) OnRecentClick(index);
  };
  setMenuWidget(FRibbon);
}

void TDesktopMainWindow::SetGroupVisible(const std::string& groupId, bool visible) {
  FRibbon->SetGroupVisible(groupId, visible);
}

void TDesktopMainWindow::ActivateTab(const std::string& tabId) {
  FRibbon->ActivateTab(tabId);
}

void TDesktopMainWindow::SetRecentItems(const std::vector<TRecentItem>& items) {
  FRibbon->Menu().Recent().SetItems(items);
}

void TDesktopMainWindow::SetTitle(const std::string& title) {
  setWindowTitle(FromUtf8(title));
}

void TDesktopMainWindow::SetStatusText(const std::string& text) {
  FStatus->setText(FromUtf8(text));
  FStatus->setToolTip(FStatus->text());
}

void TDesktopMainWindow::SetStatusNote(const std::string& text) {
  FNote->setText(FromUtf8(text));
}

TWindowPlacement TDesktopMainWindow::Placement() const {
  const bool isNormal = (windowState() & (Qt::WindowMaximized | Qt::WindowMinimized)) == 0;
  const QRect normal = isNormal ? geometry() : normalGeometry();
  return {normal.left(), normal.top(), normal.left() + normal.width(), normal.top() + normal.height(),
          isNormal        ? TWindowState::Normal
          : isMinimized() ? TWindowState::Minimized
                          : TWindowState::Maximized};
}

void TDesktopMainWindow::SetPlacement(const TWindowPlacement& placement) {
  QRect wanted(placement.Left, placement.Top, placement.Right - placement.Left, placement.Bottom - placement.Top);
  const QScreen* target = QApplication::screenAt(wanted.center());
  QRect room = (target != nullptr ? target : screen())->availableGeometry();
  // What has to move to be seen whole leaves room for its title.
  if (!room.contains(wanted)) room.setTop(room.top() + style()->pixelMetric(QStyle::PM_TitleBarHeight));
  wanted.setSize(wanted.size().boundedTo(room.size()).expandedTo(minimumSize()));
  wanted.moveLeft(std::clamp(wanted.left(), room.left(), std::max(room.left(), room.right() + 1 - wanted.width())));
  wanted.moveTop(std::clamp(wanted.top(), room.top(), std::max(room.top(), room.bottom() + 1 - wanted.height())));
  setGeometry(wanted);
  if (placement.State == TWindowState::Maximized) setWindowState(windowState() | Qt::WindowMaximized);
  if (placement.State == TWindowState::Minimized) setWindowState(windowState() | Qt::WindowMinimized);
}

void TDesktopMainWindow::ShowTopMost() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void TDesktopMainWindow::SetHosted(QWidget* view, std::vector<QWidget*> regions) {
  FRegions = std::move(regions);
  while (auto* item = FHost->layout()->takeAt(0)) {
    if (item->widget() != nullptr) item->widget()->setParent(nullptr);
    delete item;
  }
  if (view == nullptr) return;
  FHost->layout()->addWidget(view);
  view->show();
}

void TDesktopMainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (std::exchange(FShown, true)) return;
  if (OnShow) OnShow();
}

void TDesktopMainWindow::closeEvent(QCloseEvent* event) {
  if (OnClose) OnClose();
  event->accept();
}

void TDesktopMainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DraggedFile(*event).isEmpty()) event->acceptProposedAction();
}

// The program that the file comes from waits until the drop is over: boxes have to come behind it.
void TDesktopMainWindow::dropEvent(QDropEvent* event) {
  const QString path = DraggedFile(*event);
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  activateWindow();
  QMetaObject::invokeMethod(
      this,
      [this, path] {
        if (OnFileDropped) OnFileDropped(ToUtf8(path));
      },
      Qt::QueuedConnection);
}

void TDesktopMainWindow::keyPressEvent(QKeyEvent* event) {
  if (!OpensMenu(*event, *this)) QMainWindow::keyPressEvent(event);
}

void TDesktopMainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) FollowPalette(palette());
}

void TDesktopMainWindow::GotoRegion(int step) {
  std::vector<QWidget*> regions;
  if (FRibbon != nullptr) regions.push_back(&FRibbon->Tabs());
  std::ranges::copy_if(FRegions, std::back_inserter(regions), [](auto* region) { return PlaceIn(*region) != nullptr; });
  regions.push_back(FStatus);
  const auto* focus = QApplication::focusWidget();
  const auto at = std::find_if(regions.begin(), regions.end(), [focus, this](const QWidget* region) {
    return region == focus || region->isAncestorOf(focus) ||
           (FRibbon != nullptr && region == &FRibbon->Tabs() && FRibbon->isAncestorOf(focus));
  });
  const int count = static_cast<int>(regions.size());
  const int next = at == regions.end() ? 0 : (static_cast<int>(at - regions.begin()) + step + count) % count;
  auto& region = *regions[static_cast<std::size_t>(next)];
  if (auto* place = PlaceIn(region)) place->setFocus(Qt::TabFocusReason);
}
