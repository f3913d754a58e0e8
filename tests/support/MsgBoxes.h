#pragma once

#include <string>
#include <vector>

#include "VantrelMsgBox.h"

/// Answers each box as told beforehand, else with No, and keeps its text.
class FakeBoxes : public TVantrelMsgBoxPort {
 public:
  FakeBoxes() { TVantrelMsgBox::SetPort(this); }
  FakeBoxes(const FakeBoxes&) = delete;
  FakeBoxes& operator=(const FakeBoxes&) = delete;
  ~FakeBoxes() override { TVantrelMsgBox::SetPort(nullptr); }
  TVantrelMsgBoxResult ShowBox(const TVantrelMsgBox& box) override {
    Texts.push_back(box.ShownText());
    return Texts.size() <= FirstAnswers.size() ? FirstAnswers[Texts.size() - 1] : Answer;
  }

  TVantrelMsgBoxResult Answer = TVantrelMsgBoxResult::mbrNo;
  /// Of the boxes before, as many as there are.
  std::vector<TVantrelMsgBoxResult> FirstAnswers;
  std::vector<std::string> Texts;
};
