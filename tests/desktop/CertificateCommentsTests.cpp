#include <fmt/format.h>

#include <QTabBar>
#include <QTabWidget>
#include <limits>

#include "QtText.h"
#include "StudentsViewFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using enum TStudentsPage;

/// The page of the remarks, turned to by its keys, with what the dialog answers.
class CertificateCommentsTest : public StudentsViewTest {
 protected:
  struct TAnswer {
    bool Ok = true;
    std::optional<int> Position = {};
    std::optional<std::string> Attribute = {}, Description = {};
  };

  void SetUp() override {
    StudentsViewTest::SetUp();
    FFrame.EditRemark = [this](int& position, std::string& attribute, std::string& description,
                               const std::string& student) {
      FAsked.push_back(fmt::format("{}|{}|{}|{}", position, attribute, description, student));
      if (!FAnswer.Ok) return false;
      position = FAnswer.Position.value_or(position);
      attribute = FAnswer.Attribute.value_or(attribute);
      description = FAnswer.Description.value_or(description);
      return true;
    };
    FProject->SetProductVersion("8.1");
    Student(0).SetLehrerTyp(0);
    FProject->SetModified(false);
  }

  void OpenPage(std::initializer_list<const char*> remarks) {
    FView.reset();
    auto& comments = Student(0).CertificateComments();
    comments.Clear();
    for (const char* text : remarks) comments.AddCertificateComment("T", text, "", comments.Count() + 1);
    Open();
    QTest::keyClick(&List().View(), Qt::Key_PageUp, Qt::ControlModifier);
    ASSERT_EQ(FUi->ActivePage(), CertificateCommentsSheet);
    Remarks().SetFocus();
  }
  TDesktopGrid& Remarks() { return dynamic_cast<TDesktopGrid&>(FUi->CertificateComments().Grid()); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&Remarks().View(), key, modifiers); }
  QToolButton& Button(const char* text) {
    for (auto* button : FWindow.findChildren<QToolButton*>())
      if (button->text() == text) return *button;
    throw std::runtime_error(text);
  }
  std::vector<bool> States() {
    std::vector<bool> states;
    for (const char* text : {"Hinzufügen", "Bearbeiten", "Löschen", "Alle Löschen"})
      states.push_back(Button(text).isEnabled());
    return states;
  }
  std::vector<std::string> Stored() {
    std::vector<std::string> texts;
    const auto& comments = Student(0).CertificateComments();
    for (int i = 0; i < comments.Count(); ++i) {
      const auto& comment = *comments.GetItem(i);
      texts.push_back(fmt::format("{}|{}|{}", comment.Position, comment.Attribute, comment.Description));
    }
    return texts;
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const auto& row : Remarks().ShownRows())
      texts.push_back(fmt::format("{}|{}|{}", Remarks().DisplayText(row.Record, 0),
                                  Remarks().DisplayText(row.Record, 1),
                                  ToUtf8(ShownPart(FromUtf8(Remarks().DisplayText(row.Record, 2))))));
    return texts;
  }
  std::string Count() { return FUi->CertificateComments().Status().Value().AsText(); }

  TAnswer FAnswer;
  std::vector<std::string> FAsked;
};

TEST_F(CertificateCommentsTest, EditionAndTeacherTypeSayWhatMayBeDone) {
  const struct {
    const char* Version;
    int Type;
    bool HasDialog;
    bool CanAdd, CanDelete, Edits;
  } cases[] = {{"8.1", 0, true, true, true, true},       {"8.1", 1, true, true, true, false},
               {"8.1", 2, true, true, true, true},       {"8.1", 3, true, false, false, false},
               {"8.1", 255, true, false, false, false},  {"10.2.1", 0, true, true, true, true},
               {"10.2.1", 1, true, false, false, false}, {"9", 2, true, true, true, true},
               {"", 255, true, false, false, false},     {"8.1", 0, false, false, true, false}};
  const auto dialog = FFrame.EditRemark;
  for (const auto& [version, type, hasDialog, canAdd, canDelete, edits] : cases) {
    FProject->SetProductVersion(version);
    Student(0).SetLehrerTyp(static_cast<std::uint8_t>(type));
    FFrame.EditRemark = hasDialog ? dialog : nullptr;
    OpenPage({"eins"});
    EXPECT_EQ(States(), (std::vector{canAdd, canAdd, canDelete, canDelete})) << version << ' ' << type;
    FAsked.clear();
    Key(Qt::Key_F2);
    Key(Qt::Key_Return);
    EXPECT_EQ(FAsked.size(), edits ? 2U : 0U) << version << ' ' << type;
  }
}

TEST_F(CertificateCommentsTest, TheDialogSaysWhatIsStored) {
  const int least = std::numeric_limits<int>::min();
  const struct {
    Qt::Key Pressed;
    TAnswer Answer;
    const char* Stored;
    bool Changes;
  } cases[] = {{Qt::Key_Insert, {.Ok = false, .Description = "neu"}, nullptr, false},
               {Qt::Key_Insert, {.Description = " \r\n\u00A0\u2028\u2003\u3000"}, nullptr, false},
               {Qt::Key_Insert, {.Position = -1, .Description = "\u200Bneu"}, "-1||\u200Bneu", true},
               {Qt::Key_Insert, {.Description = "neu"}, "0||neu", true},
               {Qt::Key_Insert,
                {.Position = 7, .Attribute = "mehr als acht", .Description = "neu"},
                "7|mehr als acht|neu",
                true},
               {Qt::Key_F2, {}, "-5|alt|eins\n", true},
               {Qt::Key_F2, {.Position = 0, .Attribute = "", .Description = "drei"}, "0||drei", true},
               {Qt::Key_F2, {.Position = least}, "-2147483648|alt|eins\n", true},
               {Qt::Key_F2, {.Position = 1, .Description = ""}, "-5|alt|eins\n", false},
               {Qt::Key_F2, {.Ok = false, .Position = 1}, "-5|alt|eins\n", false}};
  for (const auto& [pressed, answer, stored, changes] : cases) {
    OpenPage({"eins\n"});
    auto& remark = *Student(0).CertificateComments().GetItem(0);
    FProject->ChangeField(remark, "Position", -5);
    FProject->ChangeField(remark, "Attribute", "alt");
    FProject->SetModified(false);
    FAnswer = answer;
    Key(pressed);
    std::vector<std::string> expected{"-5|alt|eins\n"};
    if (pressed == Qt::Key_F2)
      expected = {stored};
    else if (stored != nullptr)
      expected.push_back(stored);
    EXPECT_EQ(Stored(), expected);
    EXPECT_EQ(FProject->Modified(), changes);
    for (auto& text : expected)
      if (text.ends_with('\n')) text.pop_back();
    EXPECT_EQ(Shown(), expected);
    EXPECT_EQ(Count(), fmt::format("Anzahl: {}", expected.size()));
    EXPECT_EQ(Remarks().FocusedRecord(), static_cast<int>(expected.size()) - 1);
    EXPECT_EQ(remark.Token, "T");
  }
  EXPECT_THAT(FAsked, Contains(fmt::format("-5|alt|eins\n|{}", Student(0).ViewDisplayName())));
}

TEST_F(CertificateCommentsTest, DeletingTakesWhatIsSelectedAndAsksBefore) {
  using enum TVantrelMsgBoxResult;
  const struct {
    std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> Keys;
    TVantrelMsgBoxResult Answer;
    std::vector<std::string> Left;
    bool IsChange;
  } cases[] = {{{{Qt::Key_A, Qt::ControlModifier}, {Qt::Key_Delete, {}}}, mbrNo, {"1||a", "2||b", "3||c"}, false},
               {{{Qt::Key_A, Qt::ControlModifier}, {Qt::Key_Delete, {}}}, mbrYes, {}, true},
               {{{Qt::Key_Down, {}}, {Qt::Key_Down, Qt::ShiftModifier}, {Qt::Key_Delete, {}}}, mbrYes, {"1||a"}, true},
               {{{Qt::Key_Delete, {}}}, mbrYes, {"2||b", "3||c"}, true},
               {{{Qt::Key_Delete, Qt::ControlModifier}}, mbrNo, {"1||a", "2||b", "3||c"}, false},
               {{{Qt::Key_Delete, Qt::ControlModifier}}, mbrYes, {}, true}};
  for (const auto& [keys, answer, left, isChange] : cases) {
    FBoxes.Answer = answer;
    OpenPage({"a", "b", "c"});
    FProject->SetModified(false);
    std::string told;
    const auto listening = FProject->Listen(
        [&](const auto&) { told += '-'; }, [&](auto mark) { told += mark == TChangeMark::Begin ? '{' : '}'; });
    for (const auto& [key, modifiers] : keys) Key(key, modifiers);
    EXPECT_EQ(Stored(), left);
    EXPECT_EQ(Shown(), left);
    EXPECT_EQ(told, isChange ? "{" + std::string(3 - left.size(), '-') + "}" : "");
    EXPECT_EQ(Remarks().SelectedCount(), isChange ? std::min<int>(1, static_cast<int>(left.size())) : 3);
  }
  EXPECT_THAT(FBoxes.Texts, Contains("Möchten Sie die ausgewählten Zeugnisbemerkungen wirklich löschen?"));
  EXPECT_THAT(FBoxes.Texts, Contains("Möchten Sie wirklich alle Zeugnisbemerkungen löschen?"));
  OpenPage({});
  FBoxes.Texts.clear();
  Key(Qt::Key_Delete);
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
}

TEST_F(CertificateCommentsTest, ChangesFromElsewhereShowAndTheNextStudentHasOthers) {
  OpenPage({"a", "b", "c"});
  auto& comments = Student(0).CertificateComments();
  for (int i = 0; i < 2; ++i) Key(Qt::Key_Down);
  FProject->DeleteItem(comments, 0);
  EXPECT_THAT(Shown(), ElementsAre("2||b", "3||c"));
  EXPECT_EQ(Remarks().FocusedRecord(), 1);
  EXPECT_EQ(Remarks().SelectedCount(), 1);
  FProject->MoveItem(comments, 0, 1);
  EXPECT_THAT(Shown(), ElementsAre("3||c", "2||b"));
  FProject->InsertItem(comments, 0, comments.NewComment("", "neu", "", 0));
  EXPECT_THAT(Shown(), ElementsAre("0||neu", "3||c", "2||b"));
  FProject->ChangeField(*comments.GetItem(2), "Description", "bb");
  EXPECT_THAT(Shown(), ElementsAre("0||neu", "3||c", "2||bb"));
  Student(1).CertificateComments().Clear();
  Student(1).SetLehrerTyp(255);
  FView->GotoNext();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(Count(), "Anzahl: 0");
  EXPECT_EQ(States(), std::vector<bool>(4, false));
}

TEST_F(CertificateCommentsTest, KeysTurnThePagesAndFindThem) {
  Open();
  auto& pages = *FWindow.findChild<QTabWidget*>();
  auto& list = List().View();
  FUi->SetPageVisible(CertificateDataSheet, false);
  const auto turn = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier); };
  const auto name = Student(0).ViewDisplayName();
  EXPECT_EQ(Title(), name + " - " + Course(0).SubjectName);
  turn(Qt::Key_PageDown);
  EXPECT_EQ(FUi->ActivePage(), CertificateCommentsSheet);
  EXPECT_EQ(Title(), name);
  EXPECT_TRUE(list.hasFocus());
  EXPECT_FALSE(FFrame.ExportToExcelCommand.Enabled());
  for (const auto key : {Qt::Key_Tab, Qt::Key_F6}) {
    list.setFocus();
    QTest::keyClick(&list, key);
    EXPECT_TRUE(Remarks().View().hasFocus());
  }
  Key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Button("Hinzufügen"));
  turn(Qt::Key_PageDown);
  EXPECT_EQ(FUi->ActivePage(), AchievementSheet);
  EXPECT_EQ(Title(), name + " - " + Course(0).SubjectName);
  EXPECT_TRUE(Grid().View().hasFocus());
  turn(Qt::Key_PageUp);
  EXPECT_EQ(FUi->ActivePage(), CertificateCommentsSheet);
  EXPECT_EQ(pages.tabBar()->focusPolicy(), Qt::NoFocus);

  // A page without a grid.
  FUi->SetPageVisible(CertificateDataSheet, true);
  list.setFocus();
  turn(Qt::Key_PageUp);
  EXPECT_EQ(FUi->ActivePage(), CertificateDataSheet);
  FUi->CertificateData().SetFocus("Mitarbeit");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Mitarbeit");
  FUi->SetPageVisible(CertificateDataSheet, false);
  FUi->SetActivePage(CertificateCommentsSheet);
  Filter(4712);
  list.setFocus();
  turn(Qt::Key_PageDown);
  EXPECT_EQ(FUi->ActivePage(), CertificateCommentsSheet);
}

}  // namespace
