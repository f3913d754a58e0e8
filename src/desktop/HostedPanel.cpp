#include "HostedPanel.h"

#include "DesktopMainWindow.h"

THostedPanel::~THostedPanel() {
  SetVisible(false);
  FPanel->deleteLater();
}

void THostedPanel::SetVisible(bool visible) {
  if (visible == FVisible) return;
  FVisible = visible;
  FWindow.SetHosted(visible ? FPanel : nullptr);
  if (visible) FPanel->setFocus(Qt::OtherFocusReason);
}
