#include <QLineEdit>

#include "ScreenReader.h"
#include "TextDialogFixture.h"

namespace {

TEST_F(TextDialogTest, AnAssessmentEndsInOneBreakHoweverOftenItIsSaved) {
  const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                       {"\r\n", ""},
                                                       {"eins", "eins\r\n"},
                                                       {"eins\r\n", "eins\r\n"},
                                                       {"eins\nzwei\n", "eins\r\nzwei\r\n"},
                                                       {"eins\rzwei", "eins\r\nzwei\r\n"},
                                                       {"eins\r\n\r\n", "eins\r\n\r\n"},
                                                       {"a\u00A0b\u2028c", "a\u00A0b\u2028c\r\n"}};
  for (const auto& [before, after] : cases) {
    FText = before;
    for (int i = 0; i < 2; ++i) {
      EXPECT_TRUE(EditAssessment(SaveAndClose));
      EXPECT_EQ(FText, after) << before;
    }
  }
  EXPECT_FALSE(EditAssessment([] {}));
}

TEST_F(TextDialogTest, ARemarkKeepsWhatWasNotTouched) {
  FPosition = -5;
  FAttribute = "länger als acht";
  FText = "eins\nzwei\u2028\n";
  EXPECT_TRUE(EditRemark([this] {
    FDialog->Item(TTextDialogItem::PositionEdit).SetFocus();
    EXPECT_EQ(Focus()->findChild<QLineEdit*>()->placeholderText(), "0");
    SaveAndClose();
  }));
  EXPECT_EQ(FPosition, -5);
  EXPECT_EQ(FAttribute, "länger als acht");
  EXPECT_EQ(FText, "eins\nzwei\u2028\n");
  EXPECT_TRUE(EditRemark([] {
    Type("drei");
    SaveAndClose();
  }));
  EXPECT_EQ(FPosition, -5);
  EXPECT_EQ(FText, "eins\r\nzwei\u2028\r\ndrei");
  const auto type = [this](const char* position, bool isRefused) {
    FDialog->Item(TTextDialogItem::PositionEdit).SetFocus();
    Type(position);
    EXPECT_EQ(dynamic_cast<TValueEditor&>(*Focus()).HasRefused(), isRefused) << position;
  };
  EXPECT_TRUE(EditRemark([type] {
    type("0", false);
    SaveAndClose();
  }));
  EXPECT_EQ(FPosition, 0) << "what is typed is meant, also where it stood there";
  FPosition = 3;
  EXPECT_TRUE(EditRemark([this, type] {
    for (const char* tooLong : {"21474836471", "00000000000"}) type(tooLong, true);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Tab);
    Key(Qt::Key_End);
    Type("x");
    Key(Qt::Key_Return);
  }));
  EXPECT_EQ(FPosition, 0);
  EXPECT_EQ(FAttribute, "länger als acht") << "no more than eight can be typed";
  EXPECT_TRUE(EditRemark([this] {
    FDialog->Item(TTextDialogItem::AttributeEdit).SetFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    SaveAndClose();
  }));
  EXPECT_EQ(FAttribute, "");
}

TEST_F(TextDialogTest, RowsAreAddedInTheOrderOfTheClicks) {
  EXPECT_TRUE(EditRemark([this] {
    Press("Hinzufügen");
    EXPECT_EQ(ItemText(TTextDialogItem::Text), "") << "no row is selected";
    Click(2);
    Click(1, Qt::ControlModifier);
    Click(0, Qt::ControlModifier);
    Key(Qt::Key_Return);
    EXPECT_TRUE(FDialog->isVisible());
    EXPECT_EQ(ItemText(TTextDialogItem::PositionEdit), "7");
    Click(2);
    Key(Qt::Key_Home, Qt::ControlModifier);
    Key(Qt::Key_Down);
    Key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(Catalog().SelectedCount(), 1);
    EXPECT_EQ(Catalog().SelectedRecord(0), 0) << "what has the frame is selected";
    Click(1);
    Press("Hinzufügen");
    Memo().setFocus();
    Key(Qt::Key_X, Qt::AltModifier);
    SaveAndClose();
  }));
  EXPECT_EQ(FText, "Dritte Bemerkung\r\nZweite\r\nBemerkung\r\nErste Bemerkung\r\nZweite\r\nBemerkung");
  EXPECT_EQ(FPosition, 12);
  EXPECT_EQ(FAttribute, "langes Merkmal");
}

TEST_F(TextDialogTest, ReturnInAnEmptyCatalogueEndsNothing) {
  FProject->CertificateComments().Clear();
  FLookups.AfterLoad(*FProject);
  FLookups.SetOpen(FProject.get());
  EXPECT_FALSE(EditRemark([this] {
    Catalog().View().setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(FDialog->isVisible());
  }));
  FProject->CertificateComments().AddCertificateComment("A", "", "", 3);
  FProject->CertificateComments().AddCertificateComment("B", "b", "", 0);
  FLookups.AfterLoad(*FProject);
  FLookups.SetOpen(FProject.get());
  EXPECT_TRUE(EditRemark([this] {
    Catalog().View().setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(ItemText(TTextDialogItem::PositionEdit), "3") << "the row with the frame, though none is selected";
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Return);
    SaveAndClose();
  }));
  EXPECT_EQ(FText, "b") << "no break behind a row without a text";
}

TEST_F(TextDialogTest, TheSearchMovesTheFocusAndHidesNothing) {
  EXPECT_TRUE(EditRemark([this] {
    const auto focused = [this] { return Catalog().FocusedRecord(); };
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("merkung dri");
    EXPECT_EQ(focused(), 2);
    EXPECT_EQ(Catalog().ShownRows().size(), 3U);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type("bemerkung");
    std::vector<int> found{focused()};
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}) {
      Key(key);
      found.push_back(focused());
    }
    EXPECT_THAT(found, ElementsAre(2, 0, 1, 0, 2));
    Type("q");
    Key(Qt::Key_Return);
    EXPECT_EQ(ItemText(TTextDialogItem::Text), "") << "it is not found";
    Key(Qt::Key_Escape);
    Type("  ");
    Key(Qt::Key_Return);
    EXPECT_EQ(ItemText(TTextDialogItem::Text), "") << "nothing was looked for";
    Type("bemerkung");
    Key(Qt::Key_Return);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(FDialog->isVisible());
    // What was put together stays so; only what was looked for is taken.
    Click(0);
    Click(2, Qt::ControlModifier);
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("zweite");
    Key(Qt::Key_Return);
    EXPECT_EQ(Catalog().SelectedCount(), 2);
    SaveAndClose();
  }));
  EXPECT_EQ(FText, "Dritte Bemerkung\r\nZweite\r\nBemerkung");
}

TEST_F(TextDialogTest, TheLastStepIsTakenBackFirstWhereverTheKeyboardIs) {
  using enum TTextDialogItem;
  FText = "Text";
  EXPECT_TRUE(EditRemark([this] {
    const auto at = [this](TTextDialogItem item, const char* typed) {
      FDialog->Item(item).SetFocus();
      Type(typed);
    };
    const std::vector<TScript> steps{[&] { at(Text, "ab"); },
                                     [&] {
                                       Click(0);
                                       Press("Hinzufügen");
                                     },
                                     [&] { at(Text, "cd"); },
                                     [&] { at(PositionEdit, "34"); },
                                     [&] { at(AttributeEdit, "Y"); },
                                     [&] { at(PositionEdit, "5"); },
                                     [&] { at(Text, "e"); }};
    const auto shown = [this] { return ItemText(Text) + "|" + ItemText(PositionEdit) + "|" + ItemText(AttributeEdit); };
    std::vector<std::string> states;
    for (const auto& step : steps) {
      states.push_back(shown());
      step();
    }
    EXPECT_EQ(shown(), "Textab\r\nErste Bemerkungcde|7345|XY");
    states.push_back(shown());
    Catalog().SetFocus();
    for (std::size_t i = steps.size(); i > 0; --i) {
      Key(Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(shown(), states[i - 1]);
      Key(Qt::Key_Tab);
    }
    for (std::size_t i = 1; i <= steps.size(); ++i) {
      Key(Qt::Key_Y, Qt::ControlModifier);
      EXPECT_EQ(shown(), states[i]);
      Key(Qt::Key_Tab);
    }
    SaveAndClose();
  }));
  EXPECT_EQ(FPosition, 7345);
}

TEST_F(TextDialogTest, OnlyASlipIsAskedAbout) {
  const auto escape = [] { Key(Qt::Key_Escape); };
  const auto close = [this] { FDialog->close(); };
  const struct {
    bool Changes;
    TScript Leave;
    TVantrelMsgBoxResult Answer;
    bool Stays;
    std::size_t Questions;
  } cases[] = {{false, escape, TVantrelMsgBoxResult::mbrNo, false, 0},
               {true, escape, TVantrelMsgBoxResult::mbrNo, true, 1},
               {true, escape, TVantrelMsgBoxResult::mbrYes, false, 1},
               {true, close, TVantrelMsgBoxResult::mbrNo, true, 1},
               {true, [this] { Press("Schließen"); }, TVantrelMsgBoxResult::mbrNo, false, 0},
               {true, [this] { Press("Abbrechen"); }, TVantrelMsgBoxResult::mbrNo, false, 0},
               {true, [this] { Press("OK"); }, TVantrelMsgBoxResult::mbrNo, false, 0}};
  for (const auto& way : cases) {
    FBoxes.Texts.clear();
    FBoxes.Answer = way.Answer;
    FText = "Text";
    EditRemark([&] {
      if (way.Changes) Type("e");
      way.Leave();
      EXPECT_EQ(FDialog->isVisible(), way.Stays);
      EXPECT_EQ(FBoxes.Texts.size(), way.Questions);
    });
  }
  EXPECT_EQ(FText, "Texte") << "the last way out was OK";
}

TEST_F(TextDialogTest, EachDialogSaysWhatItIsFor) {
  FText = "für\nMila\n";
  EditAssessment([this] {
    EXPECT_EQ(FDialog->windowTitle(), "Zeugnisbeurteilung editieren");
    EXPECT_EQ(ItemText(TTextDialogItem::StudentText), "Mila Kowalski (6a), D");
    EXPECT_EQ(ItemText(TTextDialogItem::SubjectText), "D");
    EXPECT_EQ(ItemText(TTextDialogItem::CountText), "Zeichen: 7, Zeilen: 2");
    EXPECT_EQ(QApplication::focusWidget(), &Memo());
    EXPECT_TRUE(Memo().textCursor().atEnd());
    EXPECT_EQ(FDialog->maximumSize(), QSize(1024, 768));
    EXPECT_THAT(TabWalk(*FDialog),
                ElementsAre("EditableText Beurteilung", "EditableText Im Katalog suchen (Strg+F)",
                            "Table Katalog der Zeugnisbeurteilungen", "Button Speichern und Schließen",
                            "Button Schließen", "Button Hinzufügen"));
    EXPECT_THAT(Nameless(*FDialog), IsEmpty());
  });
  EditRemark([this] {
    EXPECT_EQ(FDialog->windowTitle(), "Zeugnisbemerkung");
    EXPECT_EQ(ItemText(TTextDialogItem::StudentText), "Mila Kowalski (6a)");
    EXPECT_THAT(TabWalk(*FDialog),
                ElementsAre("EditableText Text", "EditableText Im Katalog suchen (Strg+F)",
                            "Table Katalog der Zeugnisbemerkungen", "Button OK", "Button Abbrechen",
                            "Button Speichern und Schließen", "Button Schließen", "Button Hinzufügen",
                            "Button Rechtschreibung prüfen...", "SpinBox Position", "EditableText Merkmal"));
    EXPECT_THAT(Nameless(*FDialog), IsEmpty());
  });
  FText.clear();
  EditAssessment([this] {
    EXPECT_EQ(ItemText(TTextDialogItem::CountText), "Zeichen: 0, Zeilen: 0");
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("xxx");
    Key(Qt::Key_Return);
    EXPECT_EQ(ItemText(TTextDialogItem::CountText), "Zeichen: 400, Zeilen: 1");
    SaveAndClose();
  });
  EXPECT_EQ(FText, std::string(400, 'x') + "\r\n");
}

}  // namespace
