#include "InChild.h"
#include "PrivateConfig.h"
#include "Testing.h"
#include "VantrelStorage.h"
#include "VantrelText.h"

namespace {

using TStore = TVantrelAbstractPreferences;
using TBytes = std::array<std::uint8_t, 2>;
using enum TVantrelRegistryRoot;
using enum TVantrelRegistryAccess;

const TGuid SomeGuid = TextToGuid("{01234567-89AB-CDEF-0123-456789ABCDEF}");
const TVantrelFont SomeFont{"DejaVu, Sans", 255, 11, 3};

/// A kind of value: one such value, another one, and the text that the first is in an XML store.
#define KIND(Kind, value, other, text)                                                  \
  {                                                                                     \
#Kind, text, [](TStore& store) { store.Write##Kind(#Kind, value); },                  \
   [](TStore& store, std::string_view name, bool isThere) {                              \
     EXPECT_EQ(store.Read##Kind(name, other), isThere ? value : other) << name;          \
   },                                                                                    \
   [](TVantrelStorage& storage, std::string_view key, bool isThere) {                    \
     if (isThere) storage.Write##Kind(key, #Kind, value);                                \
     EXPECT_EQ(storage.Read##Kind(key, #Kind, other), isThere ? value : other) << #Kind; \
   } \
  }
const struct {
  const char *Name, *Text;
  void (*Write)(TStore& store);
  void (*Check)(TStore& store, std::string_view name, bool isThere);
  void (*CheckStorage)(TVantrelStorage& storage, std::string_view key, bool isThere);
} Kinds[] = {KIND(Boolean, true, false, "1"),
             KIND(Char, u'ß', u'x', "ß"),
             KIND(Float, 0.1 + 0.2, 1, "0.30000000000000004"),
             KIND(Currency, TCurrency{-1234567890123456}, TCurrency{}, "-123456789012.3456"),
             KIND(Integer, INT32_MIN, 1, "-2147483648"),
             KIND(DateTime, 39571.75, 1, "2008-05-03T18:00:00.000Z"),
             KIND(String, "a\r\n\t<\"&'ü \xF0\x9F\x98\x80", "x", "a\r\n\t<\"&'ü \xF0\x9F\x98\x80"),
             KIND(Guid, SomeGuid, TGuid(), "{01234567-89AB-CDEF-0123-456789ABCDEF}"),
             KIND(Color, 0x00FF8000, 1, "16744448")};

std::vector<std::string> Names(TStore& store, void (TStore::*get)(std::vector<std::string>&)) {
  std::vector<std::string> names{"old"};
  (store.*get)(names);
  return names;
}

/// Both stores, each closed and opened again between writing and reading.
struct PreferencesTest : testing::TestWithParam<bool> {
  std::unique_ptr<TStore> Open() {
    if (GetParam()) return std::make_unique<TVantrelRegistryPreferences>(HKEY_CURRENT_USER, Full);
    return std::make_unique<TVantrelXMLPreferences>(FConfig.Folder / "ablage/store.pref", false);
  }
  PrivateConfig FConfig;
};

TEST_P(PreferencesTest, EveryKindOfValueComesBack) {
  auto store = Open();
  ASSERT_TRUE(store->OpenKey("Software\\Tessaron 10 - MyTessaron\\7", true));
  for (const auto& kind : Kinds) kind.Write(*store);
  store->WriteString("No\x01 XML", "a\x01");
  store->WriteBinary("Binary", std::array<std::uint8_t, 3>{0, 255, 7});
  store->WriteFont("Font", SomeFont);
  store.reset();
  store = Open();
  ASSERT_TRUE(store->OpenKey("\\software\\TESSARON 10 - mytessaron\\7", false));
  for (const auto& kind : Kinds) {
    kind.Check(*store, UpperCase(kind.Name), true);
    kind.Check(*store, "missing", false);
  }
  EXPECT_TRUE(store->ValueExists("no\x01 xml") && !store->ValueExists("missing"));
  EXPECT_EQ(store->ReadString("no\x01 xml", ""), "a");
  TBytes buffer{};
  EXPECT_EQ(store->ReadBinary("missing", buffer), 0U);
  EXPECT_EQ(store->ReadBinary("binary", buffer), 2U);
  EXPECT_EQ(buffer[1], 255);
  TVantrelFont font;
  for (const char* name : {"Font", "missing", "String"}) store->ReadFont(name, font);
  EXPECT_EQ(font, SomeFont);
}

TEST_P(PreferencesTest, KeysAndValuesAreListedAndDeleted) {
  const auto store = Open();
  EXPECT_FALSE(store->OpenKey("A", false));
  EXPECT_TRUE(store->CreateKey("A\\b c\\_x0020_") && store->CreateKey("\\A\\9ü") && store->OpenKey("a", false));
  EXPECT_TRUE(store->HasSubKeys());
  for (const char* name : {"Entry", "zwei"}) store->WriteString(name, "1");
  EXPECT_THAT(Names(*store, &TStore::GetKeyNames), ElementsAre("b c", "9ü"));
  EXPECT_THAT(Names(*store, &TStore::GetValueNames), ElementsAre("Entry", "zwei"));
  EXPECT_TRUE(store->DeleteValue("ENTRY") && !store->DeleteValue("Entry"));
  EXPECT_TRUE(store->KeyExists("b c\\_x0020_") && store->OpenKey("b c\\_x0020_", true) && !store->HasSubKeys());
  store->WriteInteger("value", 1);
  EXPECT_EQ(store->HasSubKeys(), !GetParam());
  EXPECT_TRUE(store->DeleteKey("\\A"));
  EXPECT_FALSE(store->DeleteKey("\\A") || store->DeleteKey("") || store->ValueExists("value"));
  std::string deep;
  for (int i = 0; i < 300; ++i) deep += "k\\";
  EXPECT_FALSE(store->CreateKey(deep));
}

INSTANTIATE_TEST_SUITE_P(Stores, PreferencesTest, testing::Bool());

TEST(Storage, HandsEveryKindOn) {
  const PrivateConfig config;
  TVantrelStorage storage;
  storage.SetActive(true);
  TBytes buffer{1, 255};
  storage.WriteBinary("Key", "Binary", buffer);
  EXPECT_EQ(storage.ReadBinary("Gone", "Binary", buffer), 0U);
  EXPECT_EQ(storage.ReadBinary("Key", "Binary", buffer), 2U);
  storage.WriteFont("Key", "Font", SomeFont);
  TVantrelFont font;
  for (const char* key : {"Key", "Gone"}) {
    for (const auto& kind : Kinds) kind.CheckStorage(storage, key, *key == 'K');
    storage.ReadFont(key, "Font", font);
  }
  EXPECT_EQ(font, SomeFont);
}

struct PreferenceFileTest : testing::Test {
  std::string ValueOf(const char* key, const char* name) {
    const auto entry = TVantrelPreferenceFile(FName, false).Read({key}, name);
    return entry ? entry->Value.value_or("") : "-";
  }
  TempFolder FFolder;
  std::string FName = FFolder / "a.pref";
};

using XmlPreferences = PreferenceFileTest;

TEST_F(XmlPreferences, KeepsTheToldLayout) {
  {
    TVantrelXMLPreferences store(FName, false);
    store.OpenKey("/Logs//TextLog", true);
    store.WriteInteger("Limit", 7);
    store.WriteBinary("Bytes", TBytes{0, 1});
    EXPECT_FALSE(std::filesystem::exists(FName));
  }
  EXPECT_EQ(ReadFileText(FName),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Preferences>\n  <Logs>\n    <TextLog>\n"
            "      <Entry Name=\"Limit\" Value=\"7\"/>\n      <Entry Name=\"Bytes\">AAE=</Entry>\n"
            "    </TextLog>\n  </Logs>\n</Preferences>\n");
  std::filesystem::last_write_time(FName, {});
  TVantrelXMLPreferences store(FName, false);
  EXPECT_TRUE(store.OpenKey("logs", true) && store.OpenKey("textlog/", false));
  EXPECT_EQ(store.CurrentKey(), "textlog/");
  EXPECT_EQ(store.ReadInteger("LIMIT", 0), 7);
  store.FlushBuffer();
  EXPECT_EQ(std::filesystem::last_write_time(FName), std::filesystem::file_time_type());
  EXPECT_TRUE(store.OpenKey("\\Logs/TextLog", false) && store.DeleteKey("\\Logs") && store.Modified());
  EXPECT_EQ(store.CurrentKey(), "");
  store.FlushBuffer();
  EXPECT_THAT(ReadFileText(FName), HasSubstr("<Preferences/>"));
}

TEST_F(XmlPreferences, KindsAreTexts) {
  WriteFileText(FName,
                "<Preferences><Entry Name='none'/><Entry Name='empty' Value=''/><Entry Name='bad' Value='7x'/><Entry/>"
                "<a><!-- --></a><b/></Preferences>");
  TVantrelXMLPreferences store(FName, false);
  EXPECT_THROW(store.ReadBoolean("bad", true), EConvertError);
  EXPECT_THROW(store.ReadFloat("bad", 1), EConvertError);
  EXPECT_THROW(store.ReadCurrency("bad", {}), EConvertError);
  EXPECT_THROW(store.ReadGuid("bad", {}), EConvertError);
  EXPECT_THROW(store.ReadDateTime("bad", 1), EVantrelDateTimeError);
  EXPECT_TRUE(store.CreateKey("Entry"));
  EXPECT_THAT(Names(store, &TStore::GetKeyNames), ElementsAre("a", "b"));
  EXPECT_TRUE(store.OpenKey("a", false) && store.HasSubKeys() && store.OpenKey("\\b", false) && !store.HasSubKeys());
  store.CloseKey();
  TVantrelXMLPreferences anew(FName, true);
  EXPECT_FALSE(anew.HasSubKeys());
  for (const auto& kind : Kinds) {
    for (const char* missing : {"none", "empty"}) kind.Check(store, missing, false);
    kind.Write(anew);
    anew.FlushBuffer();
    EXPECT_EQ(TVantrelPreferenceFile(FName, false).Read({}, kind.Name)->Value, kind.Text);
  }
}

TEST(RegistryPreferences, AWrongKindIsTheDefault) {
  const PrivateConfig config;
  TVantrelRegistryPreferences store(HKEY_CURRENT_USER, Full);
  TBytes bytes{1, 2};
  store.WriteBinary("bytes", bytes);
  store.WriteString("text", "12");
  store.WriteString("empty", "");
  for (const auto& kind : Kinds) kind.Check(store, "bytes", false);
  EXPECT_EQ(store.ReadInteger("text", 1), 1);
  EXPECT_EQ(store.ReadGuid("text", SomeGuid), SomeGuid);
  EXPECT_EQ(store.ReadBinary("text", bytes), 0U);
  EXPECT_EQ(store.ReadString("empty", "d"), "");
  EXPECT_EQ(store.ReadChar("empty", u'd'), u'\0');
  EXPECT_TRUE(store.CreateKey("Entry\\a/b"));
  EXPECT_THAT(Names(store, &TStore::GetKeyNames), ElementsAre("Entry"));
}

TEST(RegistryPreferences, TheMachineHasItsOwnAndReadersChangeNothing) {
  const PrivateConfig config;
  EXPECT_EQ(RegistryFileName(HKEY_CURRENT_USER), config.Folder / "Orvenda Labs/Registry.pref");
  EXPECT_EQ(RegistryFileName(HKEY_LOCAL_MACHINE), config.Folder / "machine1/Orvenda Labs/Registry.pref");
  std::filesystem::create_directories(config.Folder / "machine2/Orvenda Labs");
  WriteFileText(config.Folder / "machine2/Orvenda Labs/Registry.pref",
                "<Preferences><Entry Name='by hand' Value='x'/></Preferences>");
  TVantrelRegistryPreferences store(HKEY_LOCAL_MACHINE, Read);
  EXPECT_EQ(store.ReadString("By Hand", ""), "x");
  EXPECT_FALSE(store.OpenKey("new", false));
  EXPECT_THROW(store.OpenKey("new", true), EVantrelPreferencesError);
  EXPECT_THROW(store.WriteInteger("a", 1), EVantrelPreferencesError);
  EXPECT_THROW(store.DeleteValue("by hand"), EVantrelPreferencesError);
}

TPreferenceEntry Text(std::string text) {
  return {.Value = std::move(text)};
}

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
  const char* names[] = {"Ansichten", "Straße_1.2-x", "Tessaron 10", "7", "-a", "a:b", "_x0041_", "😀", "_x12"};
  const char* tags[] = {"Ansichten", "Straße_1.2-x",  "Tessaron_x0020_10", "_x0037_", "_x002D_a",
                        "a_x003A_b", "_x005F_x0041_", "_xD83D__xDE00_",    "_x12"};
  for (std::size_t i = 0; i < std::size(names); ++i) {
    EXPECT_EQ(EncodeKeyTag(names[i]), tags[i]);
    EXPECT_EQ(DecodeKeyTag(tags[i]), names[i]);
  }
}

}  // namespace
