#include <gmock/gmock.h>

#include "PrivateConfig.h"
#include "VantrelRegistryPreferences.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using TStore = TVantrelAbstractPreferences;
using enum TVantrelRegistryRoot;
using enum TVantrelRegistryAccess;

constexpr TDateTime Evening = 39571.75;
const TGuid SomeGuid = TextToGuid("{01234567-89AB-CDEF-0123-456789ABCDEF}");
const TVantrelFont SomeFont{"DejaVu, Sans", 255, 11, 3};

/// Reads "x" as every kind but binary.
void ExpectDefaults(TStore& store) {
  TVantrelFont font = SomeFont;
  store.ReadFont("x", font);
  EXPECT_TRUE(store.ReadBoolean("x", true));
  EXPECT_EQ(store.ReadChar("x", u'y'), u'y');
  EXPECT_EQ(store.ReadFloat("x", 2.5), 2.5);
  EXPECT_EQ(store.ReadCurrency("x", TCurrency{3}).Value, 3);
  EXPECT_EQ(store.ReadInteger("x", 4), 4);
  EXPECT_EQ(store.ReadDateTime("x", Evening), Evening);
  EXPECT_EQ(store.ReadString("x", "d"), "d");
  EXPECT_EQ(store.ReadGuid("x", SomeGuid), SomeGuid);
  EXPECT_EQ(font, SomeFont);
}

/// Both stores, each closed and opened again between writing and reading.
class PreferencesTest : public testing::TestWithParam<bool> {
 protected:
  std::unique_ptr<TStore> Open() {
    if (GetParam()) return std::make_unique<TVantrelRegistryPreferences>(HKEY_CURRENT_USER, Full);
    return std::make_unique<TVantrelXMLPreferences>(FConfig.Folder / "ablage/store.pref", false);
  }
  PrivateConfig FConfig;
};

TEST_P(PreferencesTest, EveryKindOfValueComesBack) {
  {
    const auto store = Open();
    ASSERT_TRUE(store->OpenKey("Software\\Tessaron 10 - MyTessaron\\7", true));
    store->WriteBinary("Binary", std::array<std::uint8_t, 3>{0, 255, 7});
    store->WriteBoolean("Boolean", true);
    store->WriteChar("Char", u'ß');
    store->WriteFloat("Float", -0.125);
    store->WriteCurrency("Currency", TCurrency{-12345678});
    store->WriteInteger("Integer", INT32_MIN);
    store->WriteDateTime("DateTime", Evening);
    store->WriteString("String", "a\r\n\t<\"&'ü\x01 \xF0\x9F\x98\x80");
    store->WriteGuid("Guid", SomeGuid);
    store->WriteColor("Color", 0x00FF8000);
    store->WriteFont("Font", SomeFont);
  }
  const auto store = Open();
  ASSERT_TRUE(store->OpenKey("\\software\\TESSARON 10 - mytessaron\\7", false));
  std::array<std::uint8_t, 2> buffer{};
  EXPECT_EQ(store->ReadBinary("binary", buffer), 2U);
  EXPECT_EQ(buffer[1], 255);
  EXPECT_TRUE(store->ReadBoolean("BOOLEAN", false));
  EXPECT_EQ(store->ReadChar("Char", u'x'), u'ß');
  EXPECT_EQ(store->ReadFloat("Float", 1), -0.125);
  EXPECT_EQ(store->ReadCurrency("Currency", {}).Value, -12345678);
  EXPECT_EQ(store->ReadInteger("Integer", 1), INT32_MIN);
  EXPECT_EQ(store->ReadDateTime("DateTime", 1), Evening);
  EXPECT_EQ(store->ReadString("String", ""), "a\r\n\t<\"&'ü \xF0\x9F\x98\x80");
  EXPECT_EQ(store->ReadGuid("Guid", {}), SomeGuid);
  EXPECT_EQ(store->ReadColor("Color", 1), 0x00FF8000);
  TVantrelFont font;
  store->ReadFont("Font", font);
  EXPECT_EQ(font, SomeFont);
}

TEST_P(PreferencesTest, KeysAndValuesAreListedAndDeleted) {
  const auto store = Open();
  std::vector<std::string> names;
  EXPECT_FALSE(store->OpenKey("A", false));
  EXPECT_TRUE(store->CreateKey("A\\b c\\_x0020_"));
  EXPECT_TRUE(store->CreateKey("\\A\\9ü"));
  EXPECT_TRUE(store->OpenKey("a", false));
  EXPECT_TRUE(store->HasSubKeys());
  store->WriteString("Entry", "1");
  store->WriteString("zwei", "2");
  store->GetKeyNames(names);
  EXPECT_THAT(names, ElementsAre("b c", "9ü"));
  store->GetValueNames(names);
  EXPECT_THAT(names, ElementsAre("Entry", "zwei"));
  EXPECT_TRUE(store->DeleteValue("ENTRY"));
  EXPECT_FALSE(store->DeleteValue("Entry"));
  EXPECT_TRUE(store->KeyExists("b c\\_x0020_"));
  EXPECT_TRUE(store->OpenKey("b c", true));
  EXPECT_TRUE(store->DeleteKey("\\A"));
  EXPECT_FALSE(store->DeleteKey("\\A"));
  EXPECT_FALSE(store->DeleteKey(""));
  store->GetValueNames(names);
  EXPECT_THAT(names, IsEmpty());
  std::string deep;
  for (int i = 0; i < 300; ++i) deep += "k\\";
  EXPECT_FALSE(store->CreateKey(deep));
}

INSTANTIATE_TEST_SUITE_P(Stores, PreferencesTest, testing::Bool());

TEST(XmlPreferences, KeepsTheToldLayout) {
  const TempFolder folder;
  const auto name = folder / "a.pref";
  const std::string told =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Preferences>\n  <Logs>\n    <TextLog>\n"
      "      <Entry Name=\"Limit\" Value=\"7\"/>\n      <Entry Name=\"Bytes\">AAE=</Entry>\n"
      "    </TextLog>\n  </Logs>\n</Preferences>\n";
  {
    TVantrelXMLPreferences store(name, false);
    EXPECT_FALSE(store.HasSubKeys());
    store.OpenKey("/Logs//TextLog", true);
    store.WriteInteger("Limit", 7);
    store.WriteBinary("Bytes", std::array<std::uint8_t, 2>{0, 1});
    EXPECT_FALSE(std::filesystem::exists(name));
  }
  EXPECT_EQ(ReadFileText(name), told);
  std::filesystem::last_write_time(name, {});
  {
    TVantrelXMLPreferences store(name, false);
    EXPECT_TRUE(store.OpenKey("logs", true));
    EXPECT_TRUE(store.OpenKey("textlog/", false));
    EXPECT_EQ(store.CurrentKey(), "textlog/");
    EXPECT_TRUE(store.HasSubKeys());
    EXPECT_EQ(store.ReadInteger("LIMIT", 0), 7);
    EXPECT_FALSE(store.Modified());
  }
  EXPECT_EQ(std::filesystem::last_write_time(name), std::filesystem::file_time_type());
  TVantrelXMLPreferences store(name, false);
  store.OpenKey("Logs\\TextLog", false);
  EXPECT_TRUE(store.DeleteKey("\\Logs"));
  EXPECT_EQ(store.CurrentKey(), "");
  store.FlushBuffer();
  EXPECT_THAT(ReadFileText(name), testing::HasSubstr("<Preferences/>"));
}

TEST(RegistryPreferences, AWrongKindIsTheDefault) {
  const PrivateConfig config;
  TVantrelRegistryPreferences store(HKEY_CURRENT_USER, Full);
  std::array<std::uint8_t, 3> bytes{1, 2, 3};
  store.WriteBinary("x", bytes);
  store.WriteString("text", "12");
  store.WriteString("empty", "");
  ExpectDefaults(store);
  EXPECT_EQ(store.ReadInteger("text", 1), 1);
  EXPECT_EQ(store.ReadBinary("text", bytes), 0U);
  EXPECT_EQ(store.ReadString("empty", "d"), "");
  EXPECT_EQ(store.ReadChar("empty", u'd'), u'\0');
  EXPECT_TRUE(store.CreateKey("Entry\\a/b"));
  std::vector<std::string> names;
  store.GetKeyNames(names);
  EXPECT_THAT(names, ElementsAre("Entry"));
}

TEST(RegistryPreferences, TheMachineHasItsOwnAndReadersChangeNothing) {
  PrivateConfig config;
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

}  // namespace
