#pragma once

#include <QAbstractButton>
#include <QTest>
#include <QTimer>

#include "DesktopGrid.h"
#include "DesktopSpelling.h"
#include "DesktopTextDialog.h"
#include "FakeShell.h"
#include "SampleProjectTest.h"
#include "dialogs/fTextDialog.h"
#include "uProjectLookups.h"
#include "uTessaron.h"

/// The text dialogs in their real window, over a catalogue of three texts in which two rows share a token.
class TextDialogTest : public SampleProjectTest {
 protected:
  using TScript = std::function<void()>;

  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    UserDictionaryFileName = FFolder / "User.dic";
    FProject->CertificateComments().Clear();
    FProject->CertificateComments().AddCertificateComment("A", "Erste Bemerkung", "X", 7);
    FProject->CertificateComments().AddCertificateComment("A", "Zweite\nBemerkung", "langes Merkmal", 12);
    FProject->CertificateComments().AddCertificateComment("C", "Dritte Bemerkung", "", 0);
    FProject->Zeugnisbeurteilungen().AddCatalog("lang", std::string(400, 'x'));
    FLookups.AfterLoad(*FProject);
    FLookups.SetOpen(FProject.get());
    FOptions->RechtschreibungAktiv = false;
  }

  /// Each opens the dialog, lets the script use it, and closes it in vain if the script has not.
  bool EditRemark(const TScript& script) {
    FScript = script;
    return EditCertificateCommentValues(FFrame, FPosition, FAttribute, FText, "Mila Kowalski (6a)");
  }
  bool EditAssessment(const TScript& script) {
    FScript = script;
    return EditZeugnisbeurteilung(FFrame, "D", FText, "Mila Kowalski (6a)");
  }

  /// What has the keyboard in the dialog on top.
  static QWidget* Focus() {
    auto* window = QApplication::activeModalWidget();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return window->focusWidget();
  }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Focus(), key, modifiers); }
  static void Type(const char* text) { QTest::keyClicks(Focus(), text); }
  static void SaveAndClose() { Key(Qt::Key_Return, Qt::ControlModifier); }
  TMemoEdit& Memo() { return *FDialog->findChild<TMemoEdit*>(); }
  TDesktopGrid& Catalog() { return FDialog->DesktopCatalog(); }
  static void Press(const QWidget& window, const char* name) {
    for (auto* button : window.findChildren<QAbstractButton*>())
      if (button->text().remove('&') == name && button->isEnabled()) QTest::keyClick(button, Qt::Key_Return);
  }
  void Press(const char* name) { Press(*FDialog, name); }
  void Click(int row, Qt::KeyboardModifiers modifiers = {}) {
    auto& view = Catalog().View();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers,
                      view.visualRect(view.model()->index(row, 0)).center());
  }
  std::string ItemText(TTextDialogItem item) { return FDialog->Item(item).Value().AsTextOrEmpty(); }

  TempFolder FFolder;
  FakeBoxes FBoxes;
  FakeDialogs FDialogs;
  TVantrelWaitCursor FWaitCursor{FDialogs};
  TProjectLookups FLookups;
  TVantrelPtr<TMyTessaronOptions> FOptions = CreateVantrel<TMyTessaronOptions>(FFolder / "MyTessaron.opt", "");
  TScript FScript, FCorrectionScript;
  TDesktopTextDialog* FDialog = nullptr;
  TDesktopCorrection* FCorrection = nullptr;
  int FPosition = -1;
  std::string FAttribute, FText;

 private:
  const std::function<std::unique_ptr<TTextDialogUi>()> FCreateUi = [this] {
    auto ui = std::make_unique<TDesktopTextDialog>();
    FDialog = ui.get();
    QTimer::singleShot(0, FDialog, [this] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(FDialog));
      FScript();
      FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
      if (FDialog->isVisible()) FDialog->done(QDialog::Rejected);
    });
    return ui;
  };
  const std::function<std::unique_ptr<TCorrectionUi>()> FCreateCorrectionUi = [this] {
    auto ui = std::make_unique<TDesktopCorrection>();
    FCorrection = ui.get();
    QTimer::singleShot(0, FCorrection, [this] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(FCorrection));
      FCorrectionScript();
      EXPECT_FALSE(FCorrection->isVisible());
      if (FCorrection->isVisible()) FCorrection->done(QDialog::Rejected);
    });
    return ui;
  };

 protected:
  struct TFrame {
    TextDialogTest& Test;
    operator TTextDialogFrame() const {
      return {Test.FCreateUi, Test.FCreateCorrectionUi, Test.FLookups.OfOpen(), *Test.FOptions, Test.FWaitCursor};
    }
  };
  const TFrame FFrame{*this};
};
