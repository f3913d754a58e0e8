#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "DesktopBatchDialog.h"
#include "DesktopFieldForm.h"
#include "DesktopGrid.h"
#include "MsgBoxes.h"
#include "SampleProjectTest.h"
#include "ScreenReader.h"
#include "dialogs/fBatchCertificateDataDialog.h"
#include "uProjectLookups.h"

namespace {

/// The batch dialog in its real window, with all columns of the file shown.
struct BatchDialogTest : SampleProjectTest {
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FLookups.AfterLoad(*FProject);
    FLookups.SetOpen(FProject.get());
    ShowColumns(true);
    FProject->SetModified(false);
  }
  void ShowColumns(bool shown) {
    auto& columns = FProject->Options().Columns();
    for (int i = 0; i < columns.Count(); ++i)
      if (!columns.GetItem(i)->GridColumn) columns.GetItem(i)->Visible = shown;
  }
  TStudent& Student(int index) { return *FProject->Students().GetItem(index); }

  /// Opens the dialog, lets the script use it, and closes it in vain if the script has not.
  void Run(const std::function<void()>& script) {
    ExecuteBatchCertificateData(
        [&] {
          auto ui = std::make_unique<TDesktopBatchDialog>();
          FDialog = ui.get();
          QTimer::singleShot(0, FDialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(FDialog));
            script();
            if (FDialog->isVisible()) FDialog->done(QDialog::Rejected);
          });
          return ui;
        },
        FLookups.OfOpen());
  }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  bool IsOpen(const char* editor) {
    for (const auto* widget : FDialog->findChildren<QWidget*>())
      if (widget->accessibleName() == editor) return widget->isEnabled();
    throw std::runtime_error(editor);
  }
  static void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
  /// The captions of the buttons that can be pressed.
  std::vector<std::string> Open() {
    std::vector<std::string> captions;
    for (const auto* button : FDialog->findChildren<QPushButton*>())
      if (button->isEnabled()) captions.push_back(button->text().toStdString());
    return captions;
  }
  void Click(const char* caption) {
    for (auto* button : FDialog->findChildren<QPushButton*>())
      if (button->text() == caption) QTest::mouseClick(button, Qt::LeftButton);
  }
  QCheckBox& Box(const char* caption) {
    for (auto* box : FDialog->findChildren<QCheckBox*>())
      if (box->text() == caption) return *box;
    throw std::runtime_error(caption);
  }
  void Tick(const char* caption) {
    Box(caption).setFocus();
    Key(Qt::Key_Space);
    Key(Qt::Key_Tab);
  }
  std::vector<std::string> Labels() {
    std::vector<std::string> texts;
    for (const auto* label : FDialog->findChildren<QLabel*>())
      if (label->isVisible()) texts.push_back(label->text().toStdString());
    return texts;
  }
  TDesktopGrid& Grid() { return dynamic_cast<TDesktopGrid&>(FDialog->Students().Grid()); }
  void SelectAll() {
    for (auto* button : FDialog->findChildren<QToolButton*>())
      if (button->accessibleName() == "Alle auswählen") QTest::mouseClick(button, Qt::LeftButton);
  }

  FakeBoxes FBoxes;
  TProjectLookups FLookups;
  TDesktopBatchDialog* FDialog = nullptr;
};

TEST_F(BatchDialogTest, ChangesTheSelectedStudentsInTheTickedFieldsAlone) {
  std::vector<std::string> changed;
  const auto token = FProject->Listen(
      [&](const TProjectChange& change) {
        changed.push_back(static_cast<TStudent&>(change.Record).Vorname + " " + std::string(change.Key));
      },
      [&](TChangeMark mark) { changed.push_back(mark == TChangeMark::Begin ? "{" : "}"); });
  const auto before = Student(0).Versetzungsart;
  FProject->Options().Columns().Find("Abschluss2")->Visible = false;
  Run([&] {
    EXPECT_EQ(FDialog->windowTitle(), "Sammelzuweisung \"Zeugnisdaten\"");
    EXPECT_THAT(Labels(), testing::Contains("Anzahl: 12"));
    EXPECT_THAT(Open(), ElementsAre("&Weiter", "&Schließen"));
    bool hasMenu = false;
    QTimer::singleShot(0, [&] {
      hasMenu = QApplication::activePopupWidget() != nullptr;
      if (hasMenu) QApplication::activePopupWidget()->close();
    });
    Key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(hasMenu);
    FDialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(FDialog));
    EXPECT_THAT(TabWalk(*FDialog),
                ElementsAre("Table Schüler", "Button Alle auswählen", "Button Weiter", "Button Schließen"));
    EXPECT_THAT(Nameless(*FDialog), IsEmpty());
    Grid().ClearSelection();
    EXPECT_THAT(Open(), ElementsAre("&Schließen"));
    Grid().SelectRecords({0, 2});
    Key(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return FDialog->ActivePage() == TBatchPage::SelectDataPage; }));
    EXPECT_THAT(Open(), ElementsAre("&Zurück", "&Schließen"));
    EXPECT_THAT(Labels(), testing::Contains("Es werden 2 Schüler geändert."));
    EXPECT_EQ(QApplication::focusWidget(), &Box("Abschluss 1"));
    EXPECT_FALSE(Box("Abschluss 2").isVisible());
    EXPECT_FALSE(IsOpen("Abschlussdatum 1"));
    Tick("Abschlussdatum 1");
    EXPECT_THAT(Open(), ElementsAre("&Zurück", "&Fertigstellen", "&Schließen"));
    Type("19.6.2026");
    Key(Qt::Key_Return);
    Tick("Zeugnisdatum");
    EXPECT_THAT(Labels(), testing::Contains("wird geleert"));
    Tick("Versetzt");
    Type("v");
    Key(Qt::Key_Return);
    ASSERT_TRUE(FDialog->isVisible());
    EXPECT_THAT(TabWalk(*FDialog),
                testing::IsSupersetOf({"CheckBox Abschluss 1", "EditableText Abschlussdatum 1", "ComboBox Versetzt",
                                       "CheckBox Leistungsanforderung", "Button Zurück", "Button Fertigstellen",
                                       "Button Schließen"}));
    EXPECT_THAT(Nameless(*FDialog), IsEmpty());
    EXPECT_THAT(changed, IsEmpty());
    Key(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !FDialog->isVisible(); }));
  });
  const auto fields = {"Abschluss1Datum", "Versetzt", "Zeugnisdatum"};
  std::vector<std::string> expected{"{"};
  for (const int i : {0, 2})
    for (const char* field : fields) expected.push_back(Student(i).Vorname + " " + field);
  expected.push_back("}");
  EXPECT_EQ(changed, expected);
  for (const int i : {0, 2}) {
    EXPECT_EQ(Student(i).Abschluss1Datum.AsDateTime(), 46192);
    EXPECT_TRUE(Student(i).Zeugnisdatum.IsNull());
    EXPECT_EQ(Student(i).Versetzt, "J");
  }
  EXPECT_EQ(Student(0).Versetzungsart, before);
  EXPECT_THAT(FBoxes.Texts, ElementsAre("Die Sammelzuweisung wurde erfolgreich beendet.\r\nMöchten Sie weitere "
                                        "Sammelzuweisungen durchführen?"));
}

TEST_F(BatchDialogTest, YesGoesOnWithWhatIsThere) {
  Student(1).ClassId.SetAsInt(4711);
  FBoxes.FirstAnswers = {TVantrelMsgBoxResult::mbrYes};
  Run([&] {
    EXPECT_EQ(Grid().DisplayText(1, 1), "");
    Grid().FilterByUser(1, FProject->Classes().GetItem(0)->TessaronId, "Klasse");
    SelectAll();
    const int shown = Grid().SelectedCount();
    ASSERT_GT(shown, 0);
    ASSERT_LT(shown, 12);
    Key(Qt::Key_Return);
    Tick("Abschlussnote 2");
    Type("2,5");
    Click("&Fertigstellen");
    ASSERT_TRUE(FDialog->isVisible());
    int changed = 0;
    for (int i = 0; i < 12; ++i) changed += Student(i).Abschluss2Note.Value == TVariant(2.5) ? 1 : 0;
    EXPECT_EQ(changed, shown);
    EXPECT_EQ(FDialog->ActivePage(), TBatchPage::SelectStudentsPage);
    EXPECT_EQ(Grid().SelectedCount(), shown);
    EXPECT_TRUE(FDialog->Fields().IsTicked("Abschluss2Note"));
    Grid().LiftFilter();
    SelectAll();
    EXPECT_EQ(Grid().SelectedCount(), 12);
    Click("&Weiter");
    Click("&Fertigstellen");
  });
  for (int i = 0; i < 12; ++i) EXPECT_EQ(Student(i).Abschluss2Note.Value, TVariant(2.5)) << i;
  EXPECT_EQ(FBoxes.Texts.size(), 2U);
}

TEST_F(BatchDialogTest, WhatIsNoValueWritesNothing) {
  Run([&] {
    Click("&Weiter");
    EXPECT_EQ(FDialog->Fields().Value("Abschluss1Note"), TVariant(1.0));
    Tick("Zeugnisdatum");
    EXPECT_TRUE(FDialog->Fields().Value("Abschluss1Note").IsNull());
    Type("31.2.2026");
    Click("&Fertigstellen");
    ASSERT_TRUE(FDialog->isVisible());
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Zeugnisdatum");
    Tick("Abschlussnote 2");
    Type("0,5");
    EXPECT_THAT(Labels(), testing::Not(testing::Contains("wird geleert")));
    Key(Qt::Key_Tab);
    Click("&Fertigstellen");
    Click("&Fertigstellen");
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Abschlussnote 2");
    Tick("Abschlussnote 2");
    EXPECT_FALSE(IsOpen("Abschlussnote 2"));
    Click("&Fertigstellen");
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Zeugnisdatum");
    Key(Qt::Key_Escape);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    Key(Qt::Key_Space);
    EXPECT_THAT(Open(), ElementsAre("&Zurück", "&Schließen"));
    Tick("Versetzt");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(FDialog->isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(FDialog->isVisible());
  });
  const auto note = HasSubstr("„Abschlussnote 2“ kann kein Wert unter 1 "), date = HasSubstr("„Zeugnisdatum“");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(date, note, note, date));
  EXPECT_FALSE(FProject->Modified());
}

TEST_F(BatchDialogTest, WhatIsRaisedIsShown) {
  const auto token =
      FProject->Listen([](const TProjectChange&) { throw std::runtime_error("nicht möglich"); }, nullptr);
  Run([&] {
    Click("&Weiter");
    Tick("Versetzt");
    Click("&Fertigstellen");
    EXPECT_TRUE(FDialog->isVisible());
    EXPECT_THAT(Open(), ElementsAre("&Zurück", "&Fertigstellen", "&Schließen"));
  });
  EXPECT_THAT(FBoxes.Texts, ElementsAre("nicht möglich"));
}

TEST_F(BatchDialogTest, WithoutRightsNoWindowOpens) {
  ShowColumns(false);
  FProject->Options().Columns().Find("Fehltage")->Visible = true;
  FProject->Options().Columns().AddColumn("Versetzt", "", true, true, true, 0);
  Run([] { FAIL(); });
  EXPECT_EQ(FDialog, nullptr);
  EXPECT_THAT(FBoxes.Texts, ElementsAre("Sie besitzen nicht die erforderlichen Rechte auf die Daten, die per "
                                        "Sammelzuweisung gesetzt werden können."));
}

}  // namespace
