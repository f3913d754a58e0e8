#include "FakeViews.h"
#include "SampleProject.h"
#include "uCXUtils.h"

namespace {

using enum TWelcomeText;

class WelcomeViewTest : public SampleProjectTest {
 protected:
  void Open() {
    FView.reset();
    FView = CreateVantrel<TWelcomeView>(FFrame, std::make_unique<FakeWelcomeUi>());
  }
  std::string Text(TWelcomeText text) { return FakeWelcomeUi::Last->Texts[text].Text(); }
  void Show(std::initializer_list<const char*> fields) {
    auto& columns = FProject->Options().Columns();
    for (int i = 0; i < columns.Count(); ++i) columns.GetItem(i)->Visible = false;
    for (const char* field : fields) columns.Find(field)->Visible = true;
  }

  FakeSettings FSettings;
  TVantrelCommands FCommands;
  TVantrelCommand& FCommand = FCommands.Add({});
  TViewFrame FFrame{FSettings, "10.2.0", FCommand, FCommand, FCommand, FCommand, FCommand, FCommand, {}, {}};
  TVantrelPtr<TWelcomeView> FView;
};

TEST_F(WelcomeViewTest, TellsFileAndMissingGrades) {
  CurrentProject = FProject.get();
  Show({"Note1", "Endnote1", "Endnote2"});
  for (int i = 0; i < 60; ++i) {
    FProject->Courses().GetItem(i)->Note1Id.SetAsInt(i == 0 ? -1 : 1);
    FProject->Courses().GetItem(i)->Endnote1Id.SetAsInt(i < 2 ? -1 : 1);
    FProject->Courses().GetItem(i)->Endnote2Id.SetAsInt(1);
  }
  Open();
  EXPECT_EQ(Text(FilenameText),
            "Folgende Noten sind noch einzugeben:\n  Noten 1-5:         1\n  Endnoten:          2\n"
            "  Endnoten (Gesamt): 2");
  EXPECT_EQ(Text(StudentsText), "Anzahl der Schüler: 12");
  EXPECT_EQ(Text(PeriodText).substr(Text(PeriodText).size() - 7), "ID = -1");
  EXPECT_EQ(Text(FilepathText), std::string("Verzeichnis: ") + FIXTURES);
  EXPECT_EQ(Text(ChangedOnText).substr(10), " " + Text(CreatedOnText).substr(10));
  EXPECT_EQ(Text(CreatedOnText).size(), std::string("Erstellt: dd.mm.yyyy hh:nn:ss").size());

  FProject->Courses().GetItem(0)->Note1Id.SetAsInt(5);
  FProject->Courses().GetItem(0)->Endnote1Id.SetAsInt(5);
  Open();
  EXPECT_NE(Text(FilenameText).find("Noten 1-5:         0\n  Endnoten:          1"), std::string::npos);
  FProject->Courses().GetItem(1)->Endnote1Id.SetAsInt(5);
  Open();
  EXPECT_EQ(Text(FilenameText), "Keine Noten einzugeben");

  FProject->Courses().GetItem(1)->Endnote2Id.SetNull();
  Show({"Endnote2"});
  Open();
  EXPECT_EQ(Text(FilenameText), "Folgende Noten sind noch einzugeben:");
}

TEST_F(WelcomeViewTest, GridHelpers) {
  TVantrelMemTable table;
  FakeGrid grid;
  table.AddField("ID", TVantrelFieldType::ftInteger);
  table.Open();
  grid.AddColumn({.Id = "id", .Caption = "Nr.", .Field = "ID"});
  grid.BindTable(&table);
  for (int i = 0; i < 3; ++i) {
    table.Append();
    table.FieldByName("ID").SetValue(i * 10);
    table.Post();
  }
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.SelectedCount(), 3);
  EXPECT_EQ(TCXUtils::GetSelectedRecord(grid, 1, "ID"), TVariant(10));
  EXPECT_TRUE(TCXUtils::GetSelectedRecord(grid, 3, "ID").IsNull());
  TCXUtils::SelectAll(grid, true);
  EXPECT_EQ(grid.SelectedCount(), 3);
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.SelectedCount(), 0);
  grid.Group = {1, 2};
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.Selected, grid.Group);

  using enum TDataMode;
  for (const auto& [mode, forceTo, expected] :
       {std::tuple(dmEdit, dmNone, dmBrowse), std::tuple(dmEdit, dmEdit, dmEdit), std::tuple(dmBrowse, dmNone, dmEdit),
        std::tuple(dmBrowse, dmBrowse, dmBrowse), std::tuple(dmNone, dmEdit, dmEdit)}) {
    TDataMode changed = mode;
    TCXUtils::SwitchEditMode(grid, {}, changed, FCommand, forceTo);
    EXPECT_EQ(changed, expected);
    EXPECT_EQ(grid.Options().ReadOnly, expected == dmBrowse);
    EXPECT_EQ(FCommand.Checked(), expected == dmEdit);
  }
}

}  // namespace
