#include "MsgBoxes.h"
#include "Testing.h"

namespace {

/// Answers every box with Yes and keeps what it was shown.
struct TFakePort : FakeBoxes {
  TVantrelMsgBoxResult ShowBox(const TVantrelMsgBox& box) override {
    Shown = fmt::format("{}|{}|{}|{}|{}|{}", static_cast<int>(box.Icon()), static_cast<int>(box.Buttons()),
                        box.DefaultButton(), static_cast<int>(box.Parent()), box.Caption(), box.ShownText());
    return TVantrelMsgBoxResult::mbrYes;
  }
  std::string Shown;
};

}  // namespace

TEST(VantrelMsgBox, BoxesReachThePort) {
  TFakePort port;
  MsgBoxError("Text");
  EXPECT_EQ(port.Shown, "3|0|1|2|Fehler|Text");
  MsgBoxWarning("Achtung", "Text {}");
  EXPECT_EQ(port.Shown, "1|0|1|2|Achtung|Text {}");
  MsgBoxInfo("Info", "Text", TVantrelMsgBoxParent::mbpMainWindow);
  EXPECT_EQ(port.Shown, "2|0|1|1|Info|Text");
  EXPECT_EQ(MsgBoxAsk("Frage", "Text"), TVantrelMsgBoxResult::mbrYes);
  EXPECT_EQ(port.Shown, "0|2|2|2|Frage|Text");
  MsgBoxAsk("Frage", "Text", true);
  EXPECT_EQ(port.Shown, "0|3|2|2|Frage|Text");

  TVantrelMsgBox box;
  box.MsgText() = {"Zeile {}", "Zeile {}"};
  box.Execute(1, "zwei");
  EXPECT_EQ(port.Shown, "3|0|1|0|Fehler|Zeile 1\nZeile zwei");
}

TEST(VantrelMsgBox, AnswersWithoutPort) {
  using enum TVantrelMsgBoxResult;
  testing::internal::CaptureStderr();
  EXPECT_EQ(MsgBoxAsk("Frage", "Wirklich?"), mbrNo);
  EXPECT_EQ(MsgBoxAsk("Frage", "Wirklich?", true), mbrCancel);
  TVantrelMsgBox box;
  EXPECT_EQ(box.Execute(), mbrOK);
  box.SetButtons(TVantrelMsgBoxBtns::mbbAbortRetryIgnore);
  box.SetDefaultButton(4);
  EXPECT_EQ(box.Execute(), mbrIgnore);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Frage: Wirklich?\nFrage: Wirklich?\nFehler: \nFehler: \n");
}
