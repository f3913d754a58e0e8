#include "HostedPanel.h"

#include "DesktopMainWindow.h"

THostedPanel::~THostedPanel() {
  SetVisible(false);
  FPanel->deleteLater();
}

void THostedPanel::SetVisible(bool visible) {
  if (visible == FVisible) return;
  FVisible = visible;
  if (visible)
    FWindow.SetHosted(FPanel, FRegions);
  else
    FWindow.SetHosted(nullptr, {});
  if (visible) FPanel->setFocus(Qt::OtherFocusReason);
}
