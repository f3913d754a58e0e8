#pragma once

#include "VantrelMsgBox.h"

/// Shows message boxes over the window that they name as their parent.
class TDesktopMsgBoxes : public TVantrelMsgBoxPort {
 public:
  TDesktopMsgBoxes() { TVantrelMsgBox::SetPort(this); }
  TDesktopMsgBoxes(const TDesktopMsgBoxes&) = delete;
  TDesktopMsgBoxes& operator=(const TDesktopMsgBoxes&) = delete;
  ~TDesktopMsgBoxes() override { TVantrelMsgBox::SetPort(nullptr); }

  TVantrelMsgBoxResult ShowBox(const TVantrelMsgBox& box) override;
};
