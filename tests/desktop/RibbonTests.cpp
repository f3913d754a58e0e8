#include "Ribbon.h"

#include <QDialog>
#include <QLabel>
#include <QTest>

#include "ApplicationMenu.h"
#include "Collected.h"
#include "DesktopMainWindow.h"
#include "Testing.h"

/// A window with two tabs; the first has three groups of three buttons, of which the second is a radio group.
struct RibbonTest : testing::Test {
  RibbonTest() {
    TRibbonDescription description{
        "Datei", {{Add("Öff&nen...", "", "Ctrl+O")}}, {Add("Beenden", "", "F12")}, "Dokumente", {}};
    description.Tabs = {{"Start", "Start", {Group("A", "", true), Group("B", "radio", false), Group("C", "", true)}},
                        {"Hilfe", "Hilfe", {Group("D", "", true)}}};
    Window.SetRibbon(description);
    Window.setMinimumSize(100, 100);
    Window.resize(1400, 400);
    Window.show();
    QTest::qWait(1);
  }

  TVantrelCommand* Add(const std::string& caption, const std::string& radio = "", const std::string& shortcut = "") {
    return &Commands.Add({.Caption = caption,
                          .Icon = "document-open",
                          .Shortcut = shortcut,
                          .OnExecute = [this, caption] { Executed.push_back(caption); },
                          .RadioGroup = radio});
  }
  TRibbonGroup Group(const std::string& id, const std::string& radio, bool large) {
    TRibbonGroup group{id, "Gruppe " + id, {}};
    for (const char* name : {"Eins lang", "Zwei lang", "Drei lang..."})
      group.Buttons.push_back({Add(id + " " + name, radio), large});
    return group;
  }
  TRibbon& Ribbon() { return Window.Ribbon(); }
  QTabBar& Tabs() { return Ribbon().Tabs(); }
  TRibbonToolButton* Button(std::size_t group, std::size_t button) {
    return Ribbon().Page(0).Groups()[group]->Buttons()[button];
  }
  std::vector<TRibbonLevel> Levels() {
    return Collected(Ribbon().Page(0).Groups(), [](const auto* group) { return group->Level(); });
  }
  void ClickTab(int tab) { QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(tab).center()); }

  TVantrelCommands Commands;
  std::vector<std::string> Executed;
  TDesktopMainWindow Window;
};

TEST_F(RibbonTest, ShrinksFromTheRightAndLosesNothing) {
  using enum TRibbonLevel;
  EXPECT_EQ(Levels(), (std::vector{Full, Full, Full}));
  std::vector<std::vector<TRibbonLevel>> stages{Levels()};
  for (int width = 1400; width > 200; width -= 20) {
    Window.resize(width, 400);
    QTest::qWait(1);
    if (Levels() != stages.back()) stages.push_back(Levels());
  }
  for (std::size_t i = 1; i < stages.size(); ++i)
    for (std::size_t group = 0; group < 3; ++group) EXPECT_GE(stages[i][group], stages[i - 1][group]);
  EXPECT_EQ(stages[1], (std::vector{Full, Full, Small}));
  EXPECT_EQ(stages.back(), (std::vector{IconsOnly, IconsOnly, IconsOnly}));
  for (std::size_t group = 0; group < 3; ++group)
    for (std::size_t button = 0; button < 3; ++button) EXPECT_TRUE(Button(group, button)->isVisible());
  Window.resize(1400, 400);
  EXPECT_EQ(Levels(), (std::vector{Full, Full, Full}));
}

TEST_F(RibbonTest, ButtonsFollowTheirCommands) {
  Commands.All()[2]->SetEnabled(false);
  EXPECT_FALSE(Button(0, 0)->isEnabled());
  QTest::mouseClick(Button(0, 0), Qt::LeftButton);
  EXPECT_TRUE(Executed.empty());
  Commands.All()[3]->SetVisible(false);
  EXPECT_FALSE(Button(0, 1)->isVisible());
  Window.SetGroupVisible("A", false);
  EXPECT_FALSE(Button(0, 2)->isVisible());
  EXPECT_EQ(Ribbon().Page(0).Groups()[1]->x(), 0);
}

TEST_F(RibbonTest, CaptionsKeepTheirDotsAndMenuEntriesShowTheirKeys) {
  EXPECT_EQ(Button(0, 2)->text(), "A Drei lang...");
  EXPECT_EQ(Button(0, 2)->toolTip(), "A Drei lang");
  EXPECT_THAT(Collected(Ribbon().Menu().findChildren<QLabel*>(), &QLabel::text), testing::Contains("Strg+O"));
}

TEST_F(RibbonTest, KeysThatComeBeforeADialogTakesThemOpenNothing) {
  QDialog dialog(&Window);
  dialog.setModal(true);
  dialog.show();
  Button(0, 0)->defaultAction()->trigger();
  EXPECT_TRUE(Executed.empty());
  dialog.close();
  Button(0, 0)->defaultAction()->trigger();
  EXPECT_EQ(Executed.size(), 1U);
}

TEST_F(RibbonTest, OneOfARadioGroupIsDown) {
  QTest::mouseClick(Button(1, 0), Qt::LeftButton);
  QTest::mouseClick(Button(1, 2), Qt::LeftButton);
  QTest::mouseClick(Button(1, 2), Qt::LeftButton);
  EXPECT_FALSE(Button(1, 0)->isChecked());
  EXPECT_TRUE(Button(1, 2)->isChecked());
  EXPECT_EQ(Executed, (std::vector<std::string>{"B Eins lang", "B Drei lang...", "B Drei lang..."}));
}

TEST_F(RibbonTest, FoldsAndOpensOverTheView) {
  const int open = Window.centralWidget()->y();
  const int page = Ribbon().Page(0).height();
  QTest::mouseDClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(0).center());
  EXPECT_TRUE(QTest::qWaitFor([&] { return Ribbon().IsFolded() && Window.centralWidget()->y() < open - page / 2; }));
  EXPECT_FALSE(Button(0, 0)->isVisible());

  ClickTab(1);
  ClickTab(0);
  EXPECT_TRUE(Ribbon().IsOpenedOver());
  QTest::mouseClick(Button(0, 0), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Ribbon().IsOpenedOver(); }));
  EXPECT_EQ(Executed.size(), 1U);
  ClickTab(0);
  QTest::mouseClick(Window.centralWidget(), Qt::LeftButton);
  EXPECT_FALSE(Ribbon().IsOpenedOver());

  QTest::keyClick(&Window, Qt::Key_F1, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Window.centralWidget()->y() == open; }));
  EXPECT_TRUE(Button(0, 0)->isVisible());
}

TEST_F(RibbonTest, KeyTipsReachEveryCommand) {
  QTest::keyClick(&Window, Qt::Key_Alt);
  ASSERT_EQ(Ribbon().KeyTips().Letters(), (QStringList{"D", "S", "H"}));
  QTest::keyClick(&Window, Qt::Key_S);
  ASSERT_EQ(Ribbon().KeyTips().Letters().size(), 9);
  EXPECT_EQ(Ribbon().KeyTips().Letters().front(), "A");
  QTest::keyClick(&Window, Qt::Key_A);
  EXPECT_EQ(Executed, std::vector<std::string>{"A Eins lang"});
  EXPECT_FALSE(Ribbon().KeyTips().IsShown());

  QTest::keyClick(&Window, Qt::Key_Alt);
  QTest::keyClick(&Window, Qt::Key_Escape);
  EXPECT_FALSE(Ribbon().KeyTips().IsShown());

  // Other shortcuts go through.
  for (const auto& [key, modifiers] :
       {std::pair(Qt::Key_F12, Qt::KeyboardModifiers()), {Qt::Key_O, Qt::ControlModifier}}) {
    Executed.clear();
    QTest::keyClick(&Window, Qt::Key_Alt);
    ASSERT_TRUE(Ribbon().KeyTips().IsShown());
    QTest::keyClick(&Window, key, modifiers);
    EXPECT_EQ(Executed.size(), 1U);
    EXPECT_FALSE(Ribbon().KeyTips().IsShown());
  }
}

TEST_F(RibbonTest, AKeyTipNeverChangesItsMeaning) {
  const auto tips = [this] {
    QTest::keyClick(&Window, Qt::Key_S, Qt::AltModifier);
    return Ribbon().KeyTips().Letters();
  };
  const auto letters = tips();
  ASSERT_EQ(letters.size(), 9);
  Ribbon().KeyTips().Hide();
  Commands.All()[2]->SetEnabled(false);
  Window.SetGroupVisible("B", false);
  ASSERT_EQ(tips(), letters);
  for (const int place : {0, 4, 6}) {
    EXPECT_TRUE(Executed.empty());
    QTest::keyClick(&Window, letters[place].front().toLatin1());
  }
  EXPECT_EQ(Executed, std::vector<std::string>{"C Eins lang"});
  QTest::keyClick(&Window, Qt::Key_X, Qt::AltModifier);
  EXPECT_FALSE(Ribbon().KeyTips().IsShown());
  QTest::keyClick(&Window, Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(Ribbon().Menu().isVisible());
}

TEST(KeyTipsTest, LettersAreDistinct) {
  EXPECT_EQ(AssignKeyTips({"Sichern", "&Schüler", "Sso", "SS", "S"}), (QStringList{"I", "S", "O", "1", "2"}));
}
