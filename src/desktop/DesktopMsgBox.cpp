#include "DesktopMsgBox.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelMainWindow.h"

using enum TVantrelMsgBoxResult;

namespace {

struct TButton {
  TVantrelMsgBoxResult Result;
  QMessageBox::StandardButton Standard;
  const char* Text;
};
constexpr TButton Buttons[] = {{mbrOK, QMessageBox::Ok, DesktopTexts::BoxOK},
                               {mbrCancel, QMessageBox::Cancel, DesktopTexts::BoxCancel},
                               {mbrYes, QMessageBox::Yes, DesktopTexts::BoxYes},
                               {mbrNo, QMessageBox::No, DesktopTexts::BoxNo},
                               {mbrRetry, QMessageBox::Retry, DesktopTexts::BoxRetry},
                               {mbrAbort, QMessageBox::Abort, DesktopTexts::BoxAbort},
                               {mbrIgnore, QMessageBox::Ignore, DesktopTexts::BoxIgnore}};

const TButton& ButtonOf(TVantrelMsgBoxResult result) {
  return *std::find_if(std::begin(Buttons), std::end(Buttons), [&](const auto& b) { return b.Result == result; });
}

/// Closes without an answer only where there is a harmless one: Cancel, or OK alone.
class TBox : public QMessageBox {
 public:
  explicit TBox(QWidget* parent) : QMessageBox(parent) {}
  bool Closable = false;
  QPushButton* AnswerOfEscape = nullptr;  ///< where it is not closable; null for none

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (Closable) return QMessageBox::closeEvent(event);
    event->ignore();
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (Closable || event->key() != Qt::Key_Escape) return QMessageBox::keyPressEvent(event);
    event->accept();
    if (AnswerOfEscape != nullptr) AnswerOfEscape->click();
  }
};

QMessageBox::Icon IconOf(TVantrelMsgBoxIcon icon) {
  switch (icon) {
    case TVantrelMsgBoxIcon::mbiQuestion:
      return QMessageBox::Question;
    case TVantrelMsgBoxIcon::mbiExclamation:
      return QMessageBox::Warning;
    case TVantrelMsgBoxIcon::mbiInformation:
      return QMessageBox::Information;
    case TVantrelMsgBoxIcon::mbiError:
      break;
  }
  return QMessageBox::Critical;
}

/// The application has no window beside the main window.
QWidget* ParentOf(const TVantrelMsgBox& box) {
  using enum TVantrelMsgBoxParent;
  auto* owner = dynamic_cast<QWidget*>(box.Owner());
  if (box.Parent() == mbpOwner && owner != nullptr) return owner;
  return box.Parent() == mbpApplication || box.Parent() == mbpMainWindow ? MainWindow() : ActiveWindow();
}

/// A button that leaves the box open.
QPushButton* AddHelpButton(TBox& shown, int helpContext) {
  auto* help = shown.addButton(UserText(DesktopTexts::BoxHelp), QMessageBox::HelpRole);
  QObject::disconnect(help, &QPushButton::clicked, nullptr, nullptr);
  QObject::connect(help, &QPushButton::clicked, &shown, [helpContext] {
    if (TVantrelMsgBox::OnHelp) TVantrelMsgBox::OnHelp(helpContext);
  });
  return help;
}

void AddButtons(TBox& shown, const TVantrelMsgBox& box) {
  const auto results = TVantrelMsgBox::ResultsOf(box.Buttons());
  int place = 0;
  for (const auto result : results) {
    auto* button = shown.addButton(ButtonOf(result).Standard);
    button->setText(UserText(ButtonOf(result).Text));
    if (++place == box.DefaultButton()) shown.setDefaultButton(button);
    if (result == mbrCancel) shown.setEscapeButton(button);
    if (result == mbrNo && box.EscapeIsNo()) shown.AnswerOfEscape = button;
  }
  if (box.HelpButton()) {
    auto* help = AddHelpButton(shown, box.HelpContext());
    if (++place == box.DefaultButton()) shown.setDefaultButton(help);
  }
  shown.Closable = results.size() == 1 || std::find(results.begin(), results.end(), mbrCancel) != results.end();
  if (!shown.Closable) shown.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
}

}  // namespace

TVantrelMsgBoxResult TDesktopMsgBoxes::ShowBox(const TVantrelMsgBox& box) {
  const TDialogScope scope;
  TBox shown(ParentOf(box));
  shown.setWindowTitle(FromUtf8(box.Caption()));
  shown.setTextFormat(Qt::PlainText);
  shown.setText(FromUtf8(box.ShownText()));
  shown.setIcon(IconOf(box.Icon()));
  AddButtons(shown, box);
  shown.exec();
  const auto pressed = shown.standardButton(shown.clickedButton());
  for (const auto& button : Buttons)
    if (button.Standard == pressed) return button.Result;
  return mbrCancel;
}
