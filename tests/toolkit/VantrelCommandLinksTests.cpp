#include "VantrelCommandLinks.h"

#include <gtest/gtest.h>

using enum TDBEnableType;

TEST(VantrelCommandLinks, EveryTestFollowsTheTable) {
  TVantrelCommands commands;
  TVantrelCommand& command = commands.Add({});
  TVantrelMemTable table;
  table.AddField("A", TVantrelFieldType::ftInteger);
  const auto link = [&](TDBEnableTypes types, const char* field = "A") {
    TDBTools::UpdateLink(command, &table, true, types, field);
    return command.Enabled();
  };
  EXPECT_FALSE(link({dbtIsActive}));
  EXPECT_FALSE(link({dbtCanModify}));
  table.Open();
  EXPECT_TRUE(link({dbtIsActive, dbtCanModify, dbtNotInEdit, dbtIsNotModified}));
  EXPECT_FALSE(link({dbtHasRecords}));

  for (int i = 0; i < 3; ++i) {
    table.Append();
    if (i == 1) table.FieldByName("A").SetValue(i);
    table.Post();
  }
  const struct {
    int RecNo;
    bool NotFirst, NotLast, NotNull;
  } cases[] = {{1, false, true, false}, {2, true, true, true}, {3, true, false, false}};
  for (const auto& expected : cases) {
    table.SetRecNo(expected.RecNo);
    EXPECT_EQ(link({dbtNotBOF, dbtHasRecords}), expected.NotFirst);
    EXPECT_EQ(link({dbtNotEOF, dbtHasRecords}), expected.NotLast);
    EXPECT_EQ(link({dbtFieldNotNull}), expected.NotNull);
  }
  EXPECT_FALSE(link({dbtFieldNotNull}, "B"));

  table.Edit();
  EXPECT_TRUE(link({dbtInEdit, dbtIsNotModified}));
  table.FieldByName("A").SetValue(7);
  EXPECT_TRUE(link({dbtIsModified}));
  EXPECT_FALSE(link({dbtNotInEdit}));
  EXPECT_TRUE(link({dbtDisabled}));
  EXPECT_FALSE(link({dbtDisabled}));
  EXPECT_FALSE(link({dbtEnabled}));

  TDBTools::UpdateLink(command, nullptr, true, {dbtEnabled});
  EXPECT_TRUE(command.Enabled());
  TDBTools::UpdateLink(command, &table, false, {});
  EXPECT_FALSE(command.Enabled());
}
