#pragma once

#include <fmt/format.h>

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ToolkitTexts.h"
#include "VantrelClasses.h"
#include "VantrelI18n.h"

enum class TVantrelMsgBoxIcon { mbiQuestion, mbiExclamation, mbiInformation, mbiError };
enum class TVantrelMsgBoxBtns { mbbOK, mbbOKCancel, mbbYesNo, mbbYesNoCancel, mbbRetryCancel, mbbAbortRetryIgnore };
enum class TVantrelMsgBoxResult { mbrOK, mbrCancel, mbrYes, mbrNo, mbrRetry, mbrAbort, mbrIgnore };
enum class TVantrelMsgBoxParent { mbpApplication, mbpMainWindow, mbpActiveWindow, mbpOwner };

class TVantrelMsgBox;
class TVantrelPlacedWindow;

/// Shows message boxes; the user interface implements it.
class TVantrelMsgBoxPort {
 public:
  virtual ~TVantrelMsgBoxPort() = default;
  /// Shows the box until the user answers. An answer that is none of the box's buttons is mbrCancel.
  virtual TVantrelMsgBoxResult ShowBox(const TVantrelMsgBox& box) = 0;
};

/// A message box: a text with an icon and one to three buttons.
class TVantrelMsgBox : public TVantrelObject {
 public:
  /// The port is not owned. Without one, boxes go to the standard error output and are answered by Cancel where they
  /// have that button, else by their default button.
  static void SetPort(TVantrelMsgBoxPort* port) { FPort = port; }
  /// What the help button of a box does: shows the help of that context. The box stays.
  static inline std::function<void(int helpContext)> OnHelp;
  /// The answers that a set of buttons gives, from left to right.
  static std::span<const TVantrelMsgBoxResult> ResultsOf(TVantrelMsgBoxBtns buttons);

  TVantrelMsgBoxBtns Buttons() const { return FButtons; }
  void SetButtons(TVantrelMsgBoxBtns value) { FButtons = value; }
  const std::string& Caption() const { return FCaption; }
  void SetCaption(std::string_view value) { FCaption = value; }
  /// The button that Enter presses, 1 to 4; the help button counts as the last.
  int DefaultButton() const { return FDefaultButton; }
  void SetDefaultButton(int value) { FDefaultButton = value; }
  bool HelpButton() const { return FHelpButton; }
  void SetHelpButton(bool value) { FHelpButton = value; }
  int HelpContext() const { return FHelpContext; }
  void SetHelpContext(int value) { FHelpContext = value; }
  TVantrelMsgBoxIcon Icon() const { return FIcon; }
  void SetIcon(TVantrelMsgBoxIcon value) { FIcon = value; }
  std::vector<std::string>& MsgText() { return FMsgText; }
  TVantrelMsgBoxParent Parent() const { return FParent; }
  void SetParent(TVantrelMsgBoxParent value) { FParent = value; }
  /// The window whose box it is, for mbpOwner; none if it is no window's.
  TVantrelPlacedWindow* Owner() const { return FOwner; }
  void SetOwner(TVantrelPlacedWindow* value) { FOwner = value; }
  /// Whether Escape answers No where there is no Cancel: only where No leaves everything as it is.
  bool EscapeIsNo() const { return FEscapeIsNo; }
  void SetEscapeIsNo(bool value) { FEscapeIsNo = value; }
  /// What is shown: the lines of MsgText, with the format arguments of Execute.
  const std::string& ShownText() const { return FShownText; }

  TVantrelMsgBoxResult Execute();
  /// MsgText is a format for the arguments.
  template <class... TArgs>
  requires(sizeof...(TArgs) > 0) TVantrelMsgBoxResult Execute(const TArgs&... args) {
    return Show(fmt::format(fmt::runtime(Text()), args...));
  }

 private:
  std::string Text() const;
  TVantrelMsgBoxResult Show(std::string text);

  static TVantrelMsgBoxPort* FPort;

  TVantrelMsgBoxBtns FButtons = TVantrelMsgBoxBtns::mbbOK;
  bool FEscapeIsNo = false;
  std::string FCaption = ResourceText(ToolkitTexts::MsgBoxError);
  int FDefaultButton = 1;
  bool FHelpButton = false;
  int FHelpContext = 0;
  TVantrelMsgBoxIcon FIcon = TVantrelMsgBoxIcon::mbiError;
  std::vector<std::string> FMsgText;
  TVantrelMsgBoxParent FParent = TVantrelMsgBoxParent::mbpApplication;
  TVantrelPlacedWindow* FOwner = nullptr;
  std::string FShownText;
};

/// Each makes a box, shows it and waits for the answer.
void MsgBoxError(std::string_view text, TVantrelMsgBoxParent parent = TVantrelMsgBoxParent::mbpActiveWindow);
void MsgBoxWarning(std::string_view caption, std::string_view text,
                   TVantrelMsgBoxParent parent = TVantrelMsgBoxParent::mbpActiveWindow);
void MsgBoxInfo(std::string_view caption, std::string_view text,
                TVantrelMsgBoxParent parent = TVantrelMsgBoxParent::mbpActiveWindow);
/// A question with Yes and No, and Cancel if asked for. The default button is No unless told otherwise, and so is the
/// answer of Escape where there is no Cancel; `escapeIsNo` is false for a question whose No costs something.
TVantrelMsgBoxResult MsgBoxAsk(std::string_view caption, std::string_view text, bool withCancel = false,
                               TVantrelMsgBoxParent parent = TVantrelMsgBoxParent::mbpActiveWindow,
                               int defaultButton = 2, bool escapeIsNo = true);
