#include "GridFixture.h"
#include "uCXUtils.h"

TEST_F(ListTest, SelectingAllAndTheModeOfEditing) {
  FillGrades({"a", "b", "c"});
  TDesktopGrid& grid = Grid;
  TVantrelCommands commands;
  auto& command = commands.Add({});
  grid.SetOptions({.MultiSelect = true, .Grouping = true});
  grid.ClearSelection();
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.SelectedCount(), 3);
  EXPECT_EQ(TCXUtils::GetSelectedRecord(grid, 1, "ID"), TVariant(101));
  EXPECT_TRUE(TCXUtils::GetSelectedRecord(grid, 3, "ID").IsNull());
  TCXUtils::SelectAll(grid, true);
  EXPECT_EQ(grid.SelectedCount(), 3);
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.SelectedCount(), 0);
  Filter(0, "b", "");
  for (const int selected : {1, 0}) {
    TCXUtils::SelectAll(grid, false);
    EXPECT_EQ(grid.SelectedCount(), selected);
  }
  grid.SetFilterActive(false);
  grid.GroupColumn(0, 0);
  grid.FocusRecord(1);
  grid.ClearSelection();
  TCXUtils::SelectAll(grid, false);
  EXPECT_EQ(grid.SelectedCount(), 1);

  using enum TDataMode;
  for (const auto& [mode, forceTo, expected] :
       {std::tuple(dmEdit, dmNone, dmBrowse), std::tuple(dmEdit, dmEdit, dmEdit), std::tuple(dmBrowse, dmNone, dmEdit),
        std::tuple(dmBrowse, dmBrowse, dmBrowse), std::tuple(dmNone, dmEdit, dmEdit)}) {
    TDataMode changed = mode;
    TCXUtils::SwitchEditMode(grid, {}, changed, command, forceTo);
    EXPECT_EQ(changed, expected);
    EXPECT_EQ(grid.Options().ReadOnly, expected == dmBrowse);
    EXPECT_EQ(command.Checked(), expected == dmEdit);
  }
}
