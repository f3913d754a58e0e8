#include "DesktopStudentsView.h"

#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>

#include "DesktopGrid.h"
#include "DesktopLook.h"
#include "DesktopMainWindow.h"
#include "QtText.h"
#include "ViewTexts.h"

namespace {

constexpr QSize toldMinimum(1264, 616);
constexpr int listWidth = 300;
constexpr int windowParts = 260;  // title bar, ribbon, status bar and taskbar

/// The view may end within its handler, and the handler with it.
void Tell(const std::function<void()>& event) {
  if (const auto handler = event) handler();
}

QVBoxLayout* Column(QWidget* parent) {
  auto* layout = new QVBoxLayout(parent);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  return layout;
}

QLabel* StatusLabel() {
  auto* label = new QLabel;
  label->setMargin(3);
  return label;
}

/// List and pages side by side. At the told minimum the list is as wide as told; a wider window shows more of the
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
QScrollArea* Scrolled(QWidget* content, const QWidget& window) {
  const QSize room = window.screen()->availableSize();
  content->setMinimumSize(toldMinimum.boundedTo({room.width(), room.height() - windowParts}));
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(content);
  return area;
}

}  // namespace

TDesktopStudentsView::TDesktopStudentsView(TDesktopMainWindow& window)
    : FStudents(new TDesktopGrid),
      FAchievements(new TDesktopGrid),
      FTitleLabel(new QLabel),
      FStudentsCount(StatusLabel()),
      FAchievementsCount(StatusLabel()),
      FPages(new QTabWidget),
      FTitle(*FTitleLabel),
      FStudentsStatus(*FStudentsCount),
      FAchievementsStatus(*FAchievementsCount),
      FPanel(window, Scrolled(new QWidget, window)) {
  auto* area = static_cast<QScrollArea*>(&FPanel.Panel());
  auto* layout = Column(area->widget());
  QFont font = FTitleLabel->font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  font.setBold(true);
  FTitleLabel->setFont(font);
  FTitleLabel->setMargin(6);
  // A long name never makes the view wider.
  FTitleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  layout->addWidget(FTitleLabel);

  auto* splitter = new TListSplitter(*FStudents);
  splitter->addWidget(MakeStudentsPanel());
  MakePages();
  splitter->addWidget(FPages);
  layout->addWidget(splitter, 1);
  area->setFocusProxy(&FStudents->View());
}

TDesktopStudentsView::~TDesktopStudentsView() {
  FStudents->Release();
  FAchievements->Release();
}

QWidget* TDesktopStudentsView::MakeStudentsPanel() {
  auto* panel = new QWidget;
  auto* layout = Column(panel);
  auto* label = new QLabel(UserText(ViewTexts::StudentsLabel));
  label->setMargin(6);
  label->setBuddy(FStudents);
  layout->addWidget(label);
  layout->addWidget(FStudents, 1);
  auto* status = new QHBoxLayout;
  layout->addLayout(status);
  status->addWidget(FStudentsCount);
  status->addWidget(&FStudents->FilterLine(), 1);
  status->addStretch();
  return panel;
}

QWidget* TDesktopStudentsView::MakeAchievementSheet() {
  auto* sheet = new QWidget;
  auto* layout = Column(sheet);
  layout->addWidget(FAchievements, 1);
  auto* status = new QHBoxLayout;
  layout->addLayout(status);
  auto* fit = new QToolButton;
  fit->setText(UserText(ViewTexts::FitColumns));
  fit->setIcon(ThemeIcon("zoom-fit-width"));
  fit->setToolTip(fit->text());
  fit->setAccessibleName(fit->text());
  fit->setAutoRaise(true);
  fit->setFocusPolicy(Qt::StrongFocus);
  QObject::connect(fit, &QToolButton::clicked, &FPanel.Receiver(), [this] { Tell(OnFit); });
  status->addWidget(fit);
  status->addWidget(FAchievementsCount);
  status->addWidget(&FAchievements->FilterLine(), 1);
  status->addStretch();
  return sheet;
}

void TDesktopStudentsView::MakePages() {
  FPages->setDocumentMode(true);
  FPages->addTab(MakeAchievementSheet(), UserText(ViewTexts::AchievementSheet));
  FPages->addTab(new QWidget, UserText(ViewTexts::CertificateDataSheet));
  FPages->addTab(new QWidget, UserText(ViewTexts::CertificateCommentsSheet));
  QObject::connect(FPages, &QTabWidget::currentChanged, &FPanel.Receiver(), [this] { Tell(OnPageChanged); });
}

TVantrelGrid& TDesktopStudentsView::StudentsGrid() {
  return *FStudents;
}

TVantrelGrid& TDesktopStudentsView::AchievementsGrid() {
  return *FAchievements;
}

TStudentsPage TDesktopStudentsView::ActivePage() const {
  return static_cast<TStudentsPage>(FPages->currentIndex());
}

void TDesktopStudentsView::SetActivePage(TStudentsPage page) {
  const QSignalBlocker silent(FPages);
  FPages->setCurrentIndex(static_cast<int>(page));
}

void TDesktopStudentsView::SetPagesEnabled(bool enabled) {
  FPages->setEnabled(enabled);
}

void TDesktopStudentsView::SetPageVisible(TStudentsPage page, bool visible) {
  const QSignalBlocker silent(FPages);
  FPages->setTabVisible(static_cast<int>(page), visible);
  // Ctrl+Tab goes through all that are enabled.
  FPages->setTabEnabled(static_cast<int>(page), visible);
  int visiblePages = 0;
  for (int i = 0; i < FPages->count(); ++i) visiblePages += FPages->isTabVisible(i) ? 1 : 0;
  // Where there is nothing to choose the keyboard goes past the tabs.
  FPages->tabBar()->setFocusPolicy(visiblePages > 1 ? Qt::TabFocus : Qt::NoFocus);
}
