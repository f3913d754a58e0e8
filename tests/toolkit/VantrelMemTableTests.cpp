#include "VantrelMemTable.h"

#include "Testing.h"
#include "VantrelCommandLinks.h"

namespace {

using enum TDBEnableType;
using enum TVantrelFieldType;

struct TCountingListener : TVantrelTableListener {
  void RecordMoved() override { ++Moves; }
  void DataChanged() override { ++Changes; }
  int Moves = 0, Changes = 0;
};

struct VantrelMemTable : testing::Test {
  void SetUp() override {
    Table.AddField("ID", ftInteger);
    Table.AddField("Name", ftText, 5, "Kürzel");
    Table.AddField("Datum", ftDateTime);
    Table.Open();
  }
  void Add(int id, const TVariant& name) {
    Table.Append();
    Table.FieldByName("ID").SetValue(id);
    Table.FieldByName("Name").SetValue(name);
    Table.Post();
  }
  /// Names from first to last, by the loop that the views use.
  std::string Names() {
    std::string result;
    for (Table.First(); !Table.Eof(); Table.Next()) result += Table.FieldByName("Name").Value().AsTextOrEmpty() + ",";
    return result;
  }
  void Rename(const char* name) {
    Table.Edit();
    Table.FieldByName("Name").SetValue(name);
  }
  /// The number of the record with the value, 0 where there is none.
  int Located(const char* field, const TVariant& value) { return Table.Locate(field, value) ? Table.RecNo() : 0; }
  int Id() const { return Table.FieldByName("ID").Value().AsInteger(); }

  TVantrelMemTable Table;
};

}  // namespace

TEST_F(VantrelMemTable, ValuesTakeTheFieldsType) {
  Table.Append();
  Table.FieldByName("ID").SetValue("17");
  Table.FieldByName("Name").SetValue("Größ\xF0\x9F\x98\x80");
  Table.FieldByName("Datum").SetValue(36526);
  EXPECT_THROW(Table.FieldByName("ID").SetValue("x"), EConvertError);
  Table.Post();
  EXPECT_EQ(Table.FieldByName("ID").Value().Kind(), TVariantKind::Integer);
  EXPECT_EQ(Table.FieldByName("Name").Value().AsText(), "Größ");
  const auto& date = Table.FieldByName("Datum");
  EXPECT_EQ(date.DisplayTextOf(date.Value()), "01.01.2000");
  Table.FieldByName("ID").OnGetText = [](const TVariant& value) { return "Nr. " + value.AsText(); };
  EXPECT_EQ(Table.FieldByName("ID").DisplayTextOf(17), "Nr. 17");
  EXPECT_EQ(Table.FieldByName("Name").DisplayLabel(), "Kürzel");
  EXPECT_EQ(Table.FieldByName("ID").DisplayLabel(), "ID");
}

TEST_F(VantrelMemTable, EditsArePostedOrDropped) {
  Add(1, "a");
  Add(2, "b");
  Table.Append();
  EXPECT_EQ(Table.State(), TVantrelTableState::tsInsert);
  EXPECT_TRUE(Table.FieldByName("ID").IsNull());
  Table.First();
  EXPECT_EQ(Table.RecordCount(), 2);
  Rename("c");
  EXPECT_TRUE(Table.Modified());
  Table.Cancel();
  EXPECT_EQ(Names(), "a,b,");
  Table.First();
  Rename("c");
  Table.Next();
  EXPECT_EQ(Id(), 2);
  EXPECT_EQ(Names(), "c,b,");
  Table.First();
  Table.Delete();
  EXPECT_EQ(Id(), 2);
  Table.Close();
  Table.Open();
  EXPECT_EQ(Table.RecordCount(), 0);
  EXPECT_TRUE(Table.Bof() && Table.Eof());
}

TEST_F(VantrelMemTable, LocateFollowsEveryChange) {
  for (int i = 0; i < 5; ++i) Add(i * 10, std::to_string(i));
  EXPECT_EQ(Located("ID", 30), 4);
  EXPECT_FALSE(Table.Locate("ID", 31) || Table.Locate("ID", TVariant::Null()));
  EXPECT_EQ(Table.RecNo(), 4);
  Add(31, "x");
  EXPECT_TRUE(Table.Locate("ID", 31.0));
  Table.Edit();
  Table.FieldByName("ID").SetValue(32);
  Table.Post();
  EXPECT_TRUE(!Table.Locate("ID", 31) && Table.Locate("ID", "32"));
  Table.First();
  Table.Delete();
  EXPECT_EQ(Located("ID", 30), 3);
  Table.Sort("ID", true);
  EXPECT_EQ(Table.RecNo(), 3);
  EXPECT_EQ(Located("ID", 32), 2);
  EXPECT_TRUE(Table.Locate("Name", "4"));
  EXPECT_EQ(Id(), 40);
}

TEST_F(VantrelMemTable, SortIsStableAndIgnoresCase) {
  for (const char* name : {"b", "A", "B", "ä", "a"}) Add(Table.RecordCount(), name);
  Add(9, TVariant());
  Table.Sort("Name");
  EXPECT_EQ(Id(), 9);
  EXPECT_EQ(Names(), ",A,a,ä,b,B,");
  Table.Sort("Name", true);
  EXPECT_EQ(Names(), "b,B,ä,A,a,,");
  Table.SetKeptSortedBy("Name");
  Add(10, "Aa");
  EXPECT_EQ(Names(), ",A,a,ä,Aa,b,B,");
  EXPECT_TRUE(Table.Locate("ID", 10));
}

TEST_F(VantrelMemTable, FilterActsWhenItIsTurnedOn) {
  for (int i = 1; i <= 4; ++i) Add(i, std::to_string(i));
  int rest = 0;
  Table.SetOnFilterRecord([&rest](const TVantrelMemTable::TRow& row) { return row[0].AsInteger() % 2 == rest; });
  EXPECT_EQ(Names(), "1,2,3,4,");
  Table.Locate("ID", 4);
  Table.SetFiltered(true);
  EXPECT_EQ(Id(), 4);
  EXPECT_FALSE(Table.Locate("ID", 3));
  EXPECT_EQ(Table.Lookup("ID", 3, "Name").AsText(), "3");
  EXPECT_TRUE(Table.Lookup("ID", 5, "Name").IsNull());
  rest = 1;
  EXPECT_EQ(Names(), "2,4,");
  Table.SetFiltered(false);
  Table.SetFiltered(true);
  EXPECT_EQ(Names(), "1,3,");
  Add(5, "5");
  Add(6, "6");
  EXPECT_EQ(Names(), "1,3,5,");
}

TEST_F(VantrelMemTable, ListenersHearChangesOutsideTheBracket) {
  TCountingListener listener;
  Table.AddListener(&listener);
  Add(1, "a");
  Add(2, "b");
  EXPECT_EQ(listener.Changes, 2);
  Table.First();
  Table.First();
  EXPECT_EQ(listener.Moves, 1);
  Table.DisableControls();
  Table.DisableControls();
  Table.SetRecNo(2);
  Table.Sort("ID", true);
  Table.EnableControls();
  EXPECT_EQ(listener.Moves + listener.Changes, 3);
  Table.EnableControls();
  EXPECT_EQ(listener.Changes, 3);
  Table.DisableControls();
  Table.EnableControls();
  EXPECT_EQ(listener.Changes, 3);
  Table.RemoveListener(&listener);
  Table.Close();
  EXPECT_EQ(listener.Changes, 3);
}

TEST(VantrelCommandLinks, EveryTestFollowsTheTable) {
  TVantrelCommands commands;
  TVantrelCommand& command = commands.Add({});
  TVantrelMemTable table;
  table.AddField("A", TVantrelFieldType::ftInteger);
  const auto link = [&](TDBEnableTypes types, const char* field = "A") {
    TDBTools::UpdateLink(command, &table, true, types, field);
    return command.Enabled();
  };
  EXPECT_FALSE(link({dbtIsActive}) || link({dbtCanModify}));
  table.Open();
  EXPECT_TRUE(link({dbtIsActive, dbtCanModify, dbtNotInEdit, dbtIsNotModified}) && !link({dbtHasRecords}));

  for (int i = 0; i < 3; ++i) {
    table.Append();
    if (i == 1) table.FieldByName("A").SetValue(i);
    table.Post();
  }
  const std::tuple<int, bool, bool, bool> cases[] = {
      {1, false, true, false}, {2, true, true, true}, {3, true, false, false}};
  for (const auto& [recNo, notFirst, notLast, notNull] : cases) {
    table.SetRecNo(recNo);
    EXPECT_EQ(link({dbtNotBOF, dbtHasRecords}), notFirst);
    EXPECT_EQ(link({dbtNotEOF, dbtHasRecords}), notLast);
    EXPECT_EQ(link({dbtFieldNotNull}), notNull);
  }
  EXPECT_FALSE(link({dbtFieldNotNull}, "B"));

  table.Edit();
  EXPECT_TRUE(link({dbtInEdit, dbtIsNotModified}));
  table.FieldByName("A").SetValue(7);
  EXPECT_TRUE(link({dbtIsModified}) && !link({dbtNotInEdit}) && link({dbtDisabled}) && !link({dbtDisabled}));
  EXPECT_FALSE(link({dbtEnabled}));

  TDBTools::UpdateLink(command, nullptr, true, {dbtEnabled});
  EXPECT_TRUE(command.Enabled());
  TDBTools::UpdateLink(command, &table, false, {});
  EXPECT_FALSE(command.Enabled());
}
