#include "DesktopListView.h"

#include "DesktopGrid.h"

TDesktopListView::TDesktopListView(TDesktopMainWindow& window, const char* heading)
    : FScreen(window), FList(heading, TPaneButton::None), FAchievements("", TPaneButton::Fit) {
  FScreen.SetContent(FList, &FAchievements.Panel(), {&FList.DesktopGrid().View(), &FAchievements.DesktopGrid().View()});
}
