#include <gmock/gmock.h>

#include "ErrorOf.h"
#include "InChild.h"
#include "TempFolder.h"
#include "VantrelPreferenceFile.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TPreferenceEntry Text(std::string text) {
  return {.Value = std::move(text)};
}

class PreferenceFileTest : public testing::Test {
 protected:
  std::string ValueOf(const char* key, const char* name) {
    const auto entry = TVantrelPreferenceFile(FName, false).Read({key}, name);
    return entry ? entry->Value.value_or("") : "-";
  }
  TempFolder FFolder;
  std::string FName = FFolder / "a.pref";
};

TEST_F(PreferenceFileTest, TwoProgramsKeepEachOthersValues) {
  std::string values;
  TVantrelPreferenceFile one(FName, false);
  one.Write({"both"}, "old", Text("1"));
  one.Flush();
  TVantrelPreferenceFile two(FName, false);
  one.Write({"both"}, "first", Text("1"));
  one.Write({"both"}, "shared", Text("1"));
  two.Write({"BOTH"}, "second", Text("2"));
  two.Write({"two"}, "own", Text("2"));
  two.DeleteValue({"both"}, "old");
  one.Flush();
  two.Write({"both"}, "shared", Text("2"));
  two.Flush();
  for (const char* name : {"first", "second", "shared", "old"}) values += ValueOf("both", name);
  EXPECT_EQ(values + ValueOf("two", "own"), "122-2");
  EXPECT_EQ(two.Read({"both"}, "first")->Value, "1");
}

TEST_F(PreferenceFileTest, ADamagedFileIsTheDefaultsAndIsKept) {
  for (const std::string damaged : {"", "<Preferences><Entry", "<Other/>", "<!DOCTYPE a><Preferences/>", "\xFF\xFE"}) {
    WriteFileText(FName, damaged);
    TVantrelPreferenceFile file(FName, false);
    EXPECT_THAT(file.Damage(), HasSubstr(FName));
    EXPECT_THAT(file.KeyTags({}), IsEmpty());
    file.Flush();
    EXPECT_EQ(ReadFileText(FName), damaged);
    file.Write({}, "a", Text("neu"));
    file.Flush();
    EXPECT_EQ(TVantrelPreferenceFile(FName, false).Damage(), "");
    EXPECT_EQ(ReadFileText(FName + ".beschaedigt"), damaged);
    std::filesystem::remove(FName + ".beschaedigt");
  }
}

TEST_F(PreferenceFileTest, WhatCannotBeReadIsNotReplaced) {
  WriteFileText(FName, "<Preferences><Entry Name='a' Value='alt'/></Preferences>");
  std::filesystem::permissions(FName, std::filesystem::perms::none);
  const auto write = [&] {
    TVantrelPreferenceFile file(FName, false);
    file.Write({}, "a", Text("neu"));
    const auto code = FileErrorOf([&] { file.Flush(); });
    return file.Damage().empty() || !file.Modified() ? 1 : static_cast<int>(code);
  };
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), write), 5);
  std::filesystem::permissions(FName, std::filesystem::perms::owner_all);
  EXPECT_THAT(ReadFileText(FName), HasSubstr("alt"));
}

TEST(KeyTags, EveryNameIsATagAndComesBack) {
  const std::vector<std::pair<std::string, std::string>> cases{{"Ansichten", "Ansichten"},
                                                               {"Straße_1.2-x", "Straße_1.2-x"},
                                                               {"Tessaron 10", "Tessaron_x0020_10"},
                                                               {"7", "_x0037_"},
                                                               {"-a", "_x002D_a"},
                                                               {"a:b", "a_x003A_b"},
                                                               {"_x0041_", "_x005F_x0041_"},
                                                               {"😀", "_xD83D__xDE00_"},
                                                               {"_x12", "_x12"}};
  for (const auto& [name, tag] : cases) {
    EXPECT_EQ(EncodeKeyTag(name), tag);
    EXPECT_EQ(DecodeKeyTag(tag), name);
  }
}

}  // namespace
