#include "VantrelMsgBox.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <cstdio>

using enum TVantrelMsgBoxIcon;
using enum TVantrelMsgBoxBtns;
using enum TVantrelMsgBoxResult;

TVantrelMsgBoxPort* TVantrelMsgBox::FPort = nullptr;

std::span<const TVantrelMsgBoxResult> TVantrelMsgBox::ResultsOf(TVantrelMsgBoxBtns buttons) {
  static constexpr TVantrelMsgBoxResult ok[] = {mbrOK, mbrCancel}, yes[] = {mbrYes, mbrNo, mbrCancel},
                                        retry[] = {mbrRetry, mbrCancel}, abort[] = {mbrAbort, mbrRetry, mbrIgnore};
  switch (buttons) {
    case mbbOK:
      return std::span(ok).first(1);
    case mbbOKCancel:
      return ok;
    case mbbYesNo:
      return std::span(yes).first(2);
    case mbbYesNoCancel:
      return yes;
    case mbbRetryCancel:
      return retry;
    case mbbAbortRetryIgnore:
      return abort;
  }
  return {};
}

std::string TVantrelMsgBox::Text() const {
  return fmt::format("{}", fmt::join(FMsgText, "\n"));
}

TVantrelMsgBoxResult TVantrelMsgBox::Execute() {
  return Show(Text());
}

TVantrelMsgBoxResult TVantrelMsgBox::Show(std::string text) {
  FShownText = std::move(text);
  if (FPort != nullptr) return FPort->ShowBox(*this);
  fmt::print(stderr, "{}: {}\n", FCaption, FShownText);
  const auto results = ResultsOf(FButtons);
  if (std::ranges::find(results, mbrCancel) != results.end()) return mbrCancel;
  return results[static_cast<std::size_t>(std::clamp(FDefaultButton, 1, static_cast<int>(results.size()))) - 1];
}

namespace {

TVantrelMsgBoxResult ShowBox(TVantrelMsgBoxIcon icon, TVantrelMsgBoxBtns buttons, std::string_view caption,
                             std::string_view text, TVantrelMsgBoxParent parent, int defaultButton = 1,
                             bool escapeIsNo = false) {
  const auto box = CreateVantrel<TVantrelMsgBox>();
  box->SetIcon(icon);
  box->SetButtons(buttons);
  box->SetCaption(caption);
  box->SetDefaultButton(defaultButton);
  box->SetParent(parent);
  box->SetEscapeIsNo(escapeIsNo);
  box->MsgText() = {std::string(text)};
  return box->Execute();
}

}  // namespace

void MsgBoxError(std::string_view text, TVantrelMsgBoxParent parent) {
  ShowBox(mbiError, mbbOK, ResourceText(ToolkitTexts::MsgBoxError), text, parent);
}

void MsgBoxWarning(std::string_view caption, std::string_view text, TVantrelMsgBoxParent parent) {
  ShowBox(mbiExclamation, mbbOK, caption, text, parent);
}

void MsgBoxInfo(std::string_view caption, std::string_view text, TVantrelMsgBoxParent parent) {
  ShowBox(mbiInformation, mbbOK, caption, text, parent);
}

TVantrelMsgBoxResult MsgBoxAsk(std::string_view caption, std::string_view text, bool withCancel,
                               TVantrelMsgBoxParent parent, int defaultButton, bool escapeIsNo) {
  const bool defaultsToNo = defaultButton == 2;
  return ShowBox(mbiQuestion, withCancel ? mbbYesNoCancel : mbbYesNo, caption, text, parent, defaultButton,
                 escapeIsNo && defaultsToNo);
}
