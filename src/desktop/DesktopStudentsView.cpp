#include "DesktopStudentsView.h"

#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

#include "DesktopGrid.h"
#include "QtText.h"
#include "ViewTexts.h"

TDesktopStudentsView::TDesktopStudentsView(TDesktopMainWindow& window)
    : FScreen(window), FStudents(ViewTexts::StudentsLabel, false), FAchievements("", true), FPages(new QTabWidget) {
  FScreen.SetContent(FStudents, FPages, {&FStudents.DesktopGrid().View(), &FAchievements.DesktopGrid().View()});
  FPages->setDocumentMode(true);
  FPages->addTab(&FAchievements.Panel(), UserText(ViewTexts::AchievementSheet));
  FPages->addTab(new QWidget, UserText(ViewTexts::CertificateDataSheet));
  FPages->addTab(new QWidget, UserText(ViewTexts::CertificateCommentsSheet));
  // The view may end within its handler, and the handler with it.
  QObject::connect(FPages, &QTabWidget::currentChanged, &FScreen.Receiver(), [this] {
    if (const auto handler = OnPageChanged) handler();
  });
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
