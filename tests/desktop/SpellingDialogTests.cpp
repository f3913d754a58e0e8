#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>

#include "ScreenReader.h"
#include "TextDialogFixture.h"
#include "dialogs/fRechtschreibungDialog.h"

namespace {

using TWords = std::vector<std::string>;

struct SpellingDialogTest : TextDialogTest {
  void SetUp() override {
    TextDialogTest::SetUp();
    FOptions->RechtschreibungAktiv = true;
  }
  /// The words with a wavy line.
  TWords Marked() {
    QTest::qWait(1);
    TWords words;
    for (auto block = Memo().document()->begin(); block.isValid(); block = block.next())
      for (const auto& format : block.layout()->formats())
        if (format.format.underlineStyle() == QTextCharFormat::WaveUnderline)
          words.push_back(block.text().mid(format.start, format.length).toStdString());
    return words;
  }
  QLineEdit& Replacement() { return *FCorrection->findChild<QLineEdit*>(); }
};

TEST_F(SpellingDialogTest, MistakesAreMarkedAndNothingIsChanged) {
  FProject->Students().GetItem(0)->Nachname = "Qwrtzer";
  FText = "Sören arbeitet fleisig mit\nfür Qwrtzer gans gut";
  EditRemark([this] {
    EXPECT_THAT(Marked(), ElementsAre("fleisig", "gans"));
    EXPECT_FALSE(Memo().document()->isUndoAvailable());
    Type(" abe");
    EXPECT_THAT(Marked(), ElementsAre("fleisig", "gans")) << "the word is being typed";
    Key(Qt::Key_Home);
    EXPECT_THAT(Marked(), ElementsAre("fleisig", "gans", "abe"));
    Key(Qt::Key_End);
    Type("r");
    Key(Qt::Key_Space);
    EXPECT_THAT(Marked(), ElementsAre("fleisig", "gans"));
  });
  EXPECT_TRUE(EditRemark([this] {
    EXPECT_THAT(Marked(), ElementsAre("fleisig", "gans"));
    SaveAndClose();
  }));
  EXPECT_EQ(FText, "Sören arbeitet fleisig mit\nfür Qwrtzer gans gut");
  FOptions->RechtschreibungEingabe = false;
  EditRemark([this] { EXPECT_THAT(Marked(), IsEmpty()); });
}

TEST_F(SpellingDialogTest, EachOptionHasItsOwnWords) {
  FProject->Courses().GetItem(0)->SubjectName = "Jklqwrtz";
  FText = "Jklqwrtz QWRTZ 10qx irina@qwrtz.qq www.jkl.qq";
  const std::pair<bool TMyTessaronOptions::*, TWords> cases[] = {
      {&TMyTessaronOptions::RechtschreibungMischfaelle, {}},
      {&TMyTessaronOptions::RechtschreibungGross, {"QWRTZ"}},
      {&TMyTessaronOptions::RechtschreibungZahl, {"10qx"}},
      {&TMyTessaronOptions::RechtschreibungEmail, {"irina", "qwrtz", "qq"}},
      {&TMyTessaronOptions::RechtschreibungURL, {"www", "jkl", "qq"}}};
  for (const auto& [option, marked] : cases) {
    (*FOptions).*option = false;
    EditRemark([&] { EXPECT_EQ(Marked(), marked); });
    (*FOptions).*option = true;
  }
}

TEST_F(SpellingDialogTest, AnAddedWordIsKeptWhereTheUserMayWrite) {
  UserDictionaryFileName = FFolder / "fehlt/User.dic";
  FText = "gans";
  FCorrectionScript = [this] { Press(*FCorrection, "Hinzufügen"); };
  for (const bool mayWrite : {false, true}) {
    UserDataFolder = mayWrite ? FFolder / "eigene" : "";
    EditRemark([] { Key(Qt::Key_F7); });
  }
  UserDataFolder.clear();
  const auto complete = "Die Rechtschreibprüfung ist abgeschlossen.";
  EXPECT_THAT(FBoxes.Texts, ElementsAre(testing::HasSubstr("gans"), complete, complete));
  EXPECT_EQ(ReadFileText(FFolder / "eigene/User.dic"), "gans\n");
}

TEST_F(SpellingDialogTest, TheCheckGoesRoundFromTheCursor) {
  const char *const change = "Ändern", *const changeAll = "Alle ändern", *const ignore = "Ignorieren",
                    *const ignoreAll = "Alle ignorieren", *const add = "Hinzufügen";
  const std::string text = "fleisig gans\nfleisig und abre fleisig";
  const struct {
    int Cursor;
    std::vector<const char*> Buttons;
    const char* Words;  ///< in the order in which they are asked about
    const char* After;
  } cases[] = {{0,
                {change, ignore, ignore, ignore, ignore},
                "fleisig gans fleisig abre fleisig",
                "fleißig gans\r\nfleisig und abre fleisig\r\n"},
               {15,
                {ignore, ignore, ignore, change, ignore},
                "fleisig abre fleisig fleisig gans",
                "fleißig gans\r\nfleisig und abre fleisig\r\n"},
               {37, {changeAll, ignore, ignore}, "fleisig gans abre", "fleißig gans\r\nfleißig und abre fleißig\r\n"},
               {22, {ignore, changeAll, ignore}, "abre fleisig gans", "fleißig gans\r\nfleißig und abre fleißig\r\n"},
               {0, {ignoreAll, ignore, add}, "fleisig gans abre", "fleisig gans\r\nfleisig und abre fleisig\r\n"},
               {0, {ignoreAll, ignore}, "fleisig gans", "fleisig gans\r\nfleisig und abre fleisig\r\n"}};
  for (const auto& round : cases) {
    FText = text;
    FBoxes.Texts.clear();
    QStringList words;
    FCorrectionScript = [&] {
      for (const auto* button : round.Buttons) {
        words << Memo().textCursor().selectedText();
        Press(*FCorrection, button);
      }
    };
    EXPECT_TRUE(EditAssessment([&] {
      auto cursor = Memo().textCursor();
      cursor.setPosition(round.Cursor);
      Memo().setTextCursor(cursor);
      Key(Qt::Key_F7);
      SaveAndClose();
    }));
    EXPECT_EQ(words.join(' ').toStdString(), round.Words);
    EXPECT_EQ(FText, round.After);
    EXPECT_THAT(FBoxes.Texts, ElementsAre("Die Rechtschreibprüfung ist abgeschlossen."));
    EXPECT_FALSE(FDialogs.Waiting);
  }
  EXPECT_EQ(ReadFileText(FFolder / "User.dic"), "abre\n") << "known from then on";
  FCorrectionScript = [&] { Press(*FCorrection, changeAll); };
  FText = "fleisig, fleisig";
  EditRemark([this] {
    Type("!");
    Key(Qt::Key_Home);
    Key(Qt::Key_F7);
    EXPECT_EQ(ItemText(TTextDialogItem::Text), "fleißig, fleißig!");
    Key(Qt::Key_End);
    Type("!");
    for (const char* before : {"fleißig, fleißig!", "fleisig, fleisig!", "fleisig, fleisig"}) {
      Key(Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(ItemText(TTextDialogItem::Text), before);
    }
  });
}

TEST_F(SpellingDialogTest, TheReplacementIsWhatStandsInItsLine) {
  FText = "Er ist fleisig";
  FCorrectionScript = [this] {
    EXPECT_EQ(Replacement().text(), "fleißig");
    auto& suggestions = *FCorrection->findChild<QListWidget*>();
    ASSERT_GT(suggestions.count(), 1);
    Type("xx");
    const auto click = [&](int row) {
      QTest::mouseClick(suggestions.viewport(), Qt::LeftButton, {},
                        suggestions.visualItemRect(suggestions.item(row)).center());
    };
    for (const int row : {0, 1}) {
      click(row);
      EXPECT_EQ(Replacement().text(), suggestions.item(row)->text());
    }
    Replacement().setFocus();
    EXPECT_EQ(Focus(), &Replacement());
    EXPECT_THAT(TabWalk(*FCorrection),
                ElementsAre("EditableText Ersetzen durch", "List Vorschläge", "Button Ändern", "Button Alle ändern",
                            "Button Ignorieren", "Button Alle ignorieren", "Button Hinzufügen", "Button Schließen"));
    EXPECT_THAT(Nameless(*FCorrection), IsEmpty());
    Type("sehr laut");
    Key(Qt::Key_Return);
  };
  EXPECT_TRUE(EditRemark([this] {
    Key(Qt::Key_F7);
    EXPECT_THAT(Marked(), IsEmpty());
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(Marked(), ElementsAre("fleisig"));
    Key(Qt::Key_Y, Qt::ControlModifier);
    SaveAndClose();
  }));
  EXPECT_EQ(FText, "Er ist sehr laut");
  FText = "fleisig gans";
  FBoxes.Texts.clear();
  FCorrectionScript = [] { Key(Qt::Key_Escape); };
  EditRemark([] { Key(Qt::Key_F7); });
  EXPECT_THAT(FBoxes.Texts, IsEmpty()) << "the check was broken off";
}

TEST_F(SpellingDialogTest, WhatComesBehindTheCheckCostsNoWord) {
  for (const bool completes : {true, false}) {
    FText = "Schühler*innen xyzzq";
    FCorrectionScript = [&] {
      EXPECT_EQ(Replacement().text(), "Schühler*innen") << "a suggestion would lose the sign";
      Press(*FCorrection, "Ignorieren");
      completes ? Press(*FCorrection, "Ignorieren") : Key(Qt::Key_Escape);
    };
    EXPECT_TRUE(EditRemark([this] {
      Key(Qt::Key_Home);
      Key(Qt::Key_F7);
      Type("!");
      Key(Qt::Key_Enter, Qt::ControlModifier);
    }));
    EXPECT_EQ(FText, completes ? "!Schühler*innen xyzzq" : "Schühler*innen xyzzq!");
  }
}

TEST_F(SpellingDialogTest, WithoutDictionaryOnlyTheRemarkHasTheCommand) {
  FText = "fleisig";
  FOptions->RechtschreibungAktiv = false;
  EditRemark([this] {
    EXPECT_THAT(Marked(), IsEmpty());
    Key(Qt::Key_F7);
  });
  EXPECT_THAT(FBoxes.Texts, ElementsAre("Kein Wörterbuch geladen; der Text wurde nicht geprüft."));
  EditAssessment([this] {
    EXPECT_THAT(Marked(), IsEmpty());
    Key(Qt::Key_F7);
  });
  EXPECT_EQ(FBoxes.Texts.size(), 1U);
  // Neither in the environment nor in the system, though the user wants the check.
  FOptions->RechtschreibungAktiv = true;
  ::setenv("XDG_DATA_DIRS", (FFolder / "all").c_str(), 1);
  EditAssessment([this] {
    EXPECT_THAT(Marked(), IsEmpty());
    Key(Qt::Key_F7);
  });
  ::unsetenv("XDG_DATA_DIRS");
  EXPECT_EQ(FBoxes.Texts.size(), 2U);
}

TEST_F(SpellingDialogTest, TheOptionsFollowTheFirstBox) {
  FOptions->RechtschreibungAktiv = false;
  const auto edit = [this](const TScript& script) {
    TDesktopTickDialog ui;
    QTimer::singleShot(0, &ui, [&] {
      script();
      if (ui.isVisible()) ui.done(QDialog::Rejected);
    });
    return EditRechtschreibung(ui, *FOptions);
  };
  std::vector<QString> captions;
  const auto boxes = [] { return QApplication::activeModalWidget()->findChildren<QCheckBox*>(); };
  EXPECT_FALSE(edit([&] {
    for (const auto* box : boxes()) captions.push_back(box->text());
    boxes().front()->setFocus();
    EXPECT_THAT(TabWalk(*QApplication::activeModalWidget()),
                ElementsAre("CheckBox  Rechtschreibprüfung aktiv  ", "Button OK", "Button Abbrechen"));
    EXPECT_THAT(Nameless(*QApplication::activeModalWidget()), IsEmpty());
    for (const auto* box : boxes().mid(1)) EXPECT_FALSE(box->isEnabled());
    QTest::keyClick(boxes().front(), Qt::Key_Space);
    for (const auto* box : boxes().mid(1))
      EXPECT_EQ(box->isChecked(), box->text() != " Wiederholte Wörter ignorieren ");
    for (const auto* box : boxes().mid(1)) EXPECT_TRUE(box->isEnabled());
  }));
  EXPECT_EQ(captions.at(3), " Wörter in MiScHfÄlLeN ignorieren ");
  EXPECT_FALSE(FOptions->RechtschreibungAktiv);
  EXPECT_TRUE(edit([&] {
    QTest::keyClick(boxes().front(), Qt::Key_Space);
    QTest::keyClick(boxes().at(5), Qt::Key_Space);
    QTest::keyClick(boxes().at(7), Qt::Key_Space);
    QTest::keyClick(boxes().front(), Qt::Key_Return);
  }));
  EXPECT_TRUE(FOptions->RechtschreibungAktiv && FOptions->RechtschreibungWiederholt);
  EXPECT_FALSE(FOptions->RechtschreibungURL);
}

}  // namespace
