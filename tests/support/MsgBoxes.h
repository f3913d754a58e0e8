#pragma once

#include <string>
#include <utility>

#include "VantrelMsgBox.h"

/// Answers message boxes and remembers the text of the last one.
class TBoxes final : public TVantrelMsgBoxPort {
 public:
  TBoxes() { TVantrelMsgBox::SetPort(this); }
  TBoxes(const TBoxes&) = delete;
  TBoxes& operator=(const TBoxes&) = delete;
  ~TBoxes() override { TVantrelMsgBox::SetPort(nullptr); }

  TVantrelMsgBoxResult ShowBox(const TVantrelMsgBox& box) override {
    Last = box.ShownText();
    return TVantrelMsgBoxResult::mbrOK;
  }

  std::string Last;
};
