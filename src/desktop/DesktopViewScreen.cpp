#include "DesktopViewScreen.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <algorithm>

#include "DesktopGrid.h"
#include "DesktopGridPane.h"
#include "DesktopMainWindow.h"

namespace {

constexpr QSize toldMinimum(1264, 616);
constexpr int listWidth = 300;
constexpr int edge = 12;          // what stays around a field that is brought into sight
constexpr int windowParts = 260;  // title bar, ribbon, status bar and taskbar

/// List and rest side by side. At the told minimum the list is as wide as told; a wider window shows more of the
/// list's columns first. Once the user has moved the handle it stays there.
class TListSplitter : public QSplitter {
 public:
  explicit TListSplitter(TDesktopGrid& list) : FList(list) {
    setChildrenCollapsible(false);
    connect(this, &QSplitter::splitterMoved, this, [this] { FMoved = true; });
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QSplitter::resizeEvent(event);
    if (FMoved) return;
    const int columns = FList.View().WidthOfColumns();
    const int more = (width() - toldMinimum.width()) * 5 / 4;
    const int wide = std::clamp(listWidth + more, listWidth, std::max(columns, listWidth));
    setSizes({wide, width() - handleWidth() - wide});
  }

 private:
  TDesktopGrid& FList;
  bool FMoved = false;
};

/// What shows the screen: it scrolls where the window is smaller than the told minimum and the screen had more to give.
QScrollArea* ScreenOf(QWidget* content, const QWidget& window) {
  const QSize room = window.screen()->availableSize();
  content->setMinimumSize(toldMinimum.boundedTo({room.width(), room.height() - windowParts}));
  return Scrolled(content);
}

}  // namespace

QScrollArea* Scrolled(QWidget* content) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(content);
  // Qt brings no more than the cursor into sight.
  QObject::connect(qApp, &QApplication::focusChanged, area, [area, content](const QWidget*, const QWidget* place) {
    if (place == nullptr || !content->isAncestorOf(place)) return;
    const QRect whole(place->mapTo(content, QPoint(0, 0)), place->size());
    if (whole.width() > area->viewport()->width() || whole.height() > area->viewport()->height()) return;
    area->ensureVisible(whole.right(), whole.bottom(), edge, edge);
    area->ensureVisible(whole.left(), whole.top(), edge, edge);
  });
  return area;
}

TDesktopViewScreen::TDesktopViewScreen(TDesktopMainWindow& window)
    : FTitleLabel(new QLabel), FTitle(*FTitleLabel), FPanel(window, ScreenOf(new QWidget, window)) {
  auto* layout = new QVBoxLayout(static_cast<QScrollArea&>(FPanel.Panel()).widget());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  QFont font = FTitleLabel->font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  font.setBold(true);
  FTitleLabel->setFont(font);
  FTitleLabel->setMargin(6);
  // A long name never makes the view wider.
  FTitleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  layout->addWidget(FTitleLabel);
}

void TDesktopViewScreen::SetContent(TDesktopGridPane& list, QWidget* rest, const std::vector<QWidget*>& regions) {
  auto& area = static_cast<QScrollArea&>(FPanel.Panel());
  auto* splitter = new TListSplitter(list.DesktopGrid());
  splitter->addWidget(&list.Panel());
  splitter->addWidget(rest);
  static_cast<QVBoxLayout*>(area.widget()->layout())->addWidget(splitter, 1);
  area.setFocusProxy(&list.DesktopGrid().View());
  for (auto* region : regions) FPanel.AddRegion(*region);
}
