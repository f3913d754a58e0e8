#include "DesktopStudentsView.h"

#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

#include "DesktopFieldForm.h"
#include "DesktopGrid.h"
#include "QtText.h"
#include "ViewTexts.h"

TDesktopStudentsView::TDesktopStudentsView(TDesktopMainWindow& window)
    : FScreen(window),
      FStudents(ViewTexts::StudentsLabel, TPaneButton::None),
      FAchievements("", TPaneButton::Fit),
      FData(new TDesktopFieldForm),
      FComments("", TPaneButton::Fit),
      FPages(new QTabWidget) {
  auto* data = Scrolled(FData);
  FScreen.SetContent(
      FStudents, FPages,
      {&FStudents.DesktopGrid().View(), &FAchievements.DesktopGrid().View(), data, &FComments.DesktopGrid().View()});
  FPages->setDocumentMode(true);
  FPages->tabBar()->setFocusPolicy(Qt::NoFocus);
  FPages->addTab(&FAchievements.Panel(), UserText(ViewTexts::AchievementSheet));
  FPages->addTab(data, UserText(ViewTexts::CertificateDataSheet));
  FPages->addTab(&FComments.Panel(), UserText(ViewTexts::CertificateCommentsSheet));
  AddPageKeys();
  // The view may end within its handler, and the handler with it.
  QObject::connect(FPages, &QTabWidget::currentChanged, &FScreen.Receiver(), [this] {
    if (const auto handler = OnPageChanged) handler();
  });
}

TDesktopStudentsView::~TDesktopStudentsView() {
  FData->Release();
}

TVantrelFieldForm& TDesktopStudentsView::CertificateData() {
  return *FData;
}

void TDesktopStudentsView::AddPageKeys() {
  for (const int step : {1, -1}) {
    const QKeySequence keys(Qt::CTRL | (step > 0 ? Qt::Key_PageDown : Qt::Key_PageUp));
    // In the list and in the pages.
    auto* shortcut = new QShortcut(keys, FPages->parentWidget());
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &FScreen.Receiver(), [this, step] { TurnPage(step); });
  }
}

void TDesktopStudentsView::TurnPage(int step) {
  if (!FPages->isEnabled()) return;
  int page = FPages->currentIndex();
  do page = (page + step + FPages->count()) % FPages->count();
  while (!FPages->isTabVisible(page));
  FPages->setCurrentIndex(page);
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
}
