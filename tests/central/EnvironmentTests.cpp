#include "MsgBoxes.h"
#include "PrivateConfig.h"
#include "Testing.h"
#include "VantrelRegistryPreferences.h"
#include "uTessaron.h"
#include "uTessaronStart.h"

namespace {

/// A machine of the test's own, at first with nothing on it.
struct EnvironmentTest : testing::Test {
  EnvironmentTest() {
    ::setenv("XDG_DATA_DIRS", ("relative:" + (FFolder / "fehlt") + ":" + (FFolder / "daten")).c_str(), 1);
    ::setenv("XDG_DATA_HOME", (FFolder / "eigene").c_str(), 1);
  }
  ~EnvironmentTest() override {
    ::unsetenv("XDG_DATA_DIRS");
    ::unsetenv("XDG_DATA_HOME");
  }
  std::string Common() const { return FFolder / "daten/Orvenda Labs/Tessaron 10"; }
  void InstallCommonData(std::string_view environment) const {
    std::filesystem::create_directories(Common());
    WriteFileText(Common() + "/Tessaron.evm", environment);
  }
  void Register(std::string_view key, std::string_view name, const std::string& value) const {
    TVantrelRegistryPreferences registry(TVantrelRegistryRoot::HKEY_LOCAL_MACHINE, TVantrelRegistryAccess::Full);
    registry.OpenKey(key, true);
    registry.WriteString(name, value);
  }

  const PrivateConfig FConfig;
  const TempFolder FFolder;
  const FakeBoxes FBoxes;
};

TEST_F(EnvironmentTest, AMachineWithoutTheCentralSystemIsNoError) {
  EXPECT_EQ(Session, nullptr);
  {
    const TTessaronStart start({});
    EXPECT_EQ(BinFolder + MyTessaronVersion + ProductSetupType + ProductVersion, "10.x");
    EXPECT_EQ(PathsFileName + "/" + LogFileName, "Tessaron.paths/Tessaron.log");
    EXPECT_EQ(OptionsFileName, FFolder / "fehlt/Orvenda Labs/Tessaron 10/MyTessaron.opt");
    EXPECT_EQ(UserDataFolder, FFolder / "eigene/Orvenda Labs/Tessaron 10");
    ASSERT_NE(Session, nullptr);
    EXPECT_EQ(Session->FModule, TApplicationKind::akNone);
    ASSERT_NE(Environment, nullptr);
    EXPECT_FALSE(Environment->ExistConnection());
    EXPECT_EQ(Environment->FileName(), FFolder / "fehlt/Orvenda Labs/Tessaron 10/Tessaron.evm");
  }
  EXPECT_TRUE(Session == nullptr && Environment == nullptr);
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
}

TEST_F(EnvironmentTest, InstallationAndPathsFileSayWhereThingsLie) {
  const auto bin = FFolder / "bin";
  std::filesystem::create_directories(bin);
  std::filesystem::create_directories(Common());
  Register("Software\\Orvenda Labs\\Tessaron 10", "ProductVersion", "10.3.1");
  Register("Software\\Orvenda Labs\\Tessaron 10", "BinFolder", bin);
  Register("Software\\Orvenda Labs\\Tessaron 10", "DatabaseFolder", "/db");
  Register("Software\\Orvenda Labs\\Tessaron 10 - MyTessaron", "ProductVersion", "10.3.2");
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"<Paths><Entry Name='TessaronEnvironmentFolder' Value='/umgebung'/><Entry Name='TessaronOptionsFolder' "
       "Value=''/><Entry Name='TessaronEnvironmentFolder' Value='/zweite'/></Paths>",
       "/umgebung", Common()},
      {"<Paths><Other Name='TessaronOptionsFolder' Value='/x'/><Entry/><Entry Name='TessaronOptionsFolder' "
       "Value='/optionen'/></Paths>",
       Common(), "/optionen"},
      {"<Paths><Entry Name='TessaronOptionsFolder' Value='/optionen'/>", Common(), Common()},
  };
  for (const auto& [paths, dictionary, options] : cases) {
    WriteFileText(bin + "/Tessaron.paths", paths);
    const TTessaronStart start({});
    EXPECT_EQ(ProductVersion + MyTessaronVersion + DatabaseFolder, "10.3.110.3.2/db");
    EXPECT_EQ(DictionaryFileName, dictionary + "/de_DE_frami.dic");
    EXPECT_EQ(OptionsFileName, options + "/MyTessaron.opt");
  }
  EXPECT_THAT(FBoxes.Texts, ElementsAre(StartsWith("Fehler beim Laden der Systemumgebung!\r\n")));
}

TEST_F(EnvironmentTest, NoPathsFileIsReadFromTheCurrentFolder) {
  const auto current = std::filesystem::current_path();
  std::filesystem::create_directory(FFolder / "bin");
  for (const char* planted : {"Tessaron.paths", "bin/Tessaron.paths", "C:\\Tessaron\\Tessaron.paths"})
    WriteFileText(FFolder / planted, "<Paths><Entry Name='TessaronOptionsFolder' Value='/fremd'/></Paths>");
  std::filesystem::current_path(FFolder.Path());
  for (const char* bin : {"", "bin", "C:\\Tessaron"}) {
    Register("Software\\Orvenda Labs\\Tessaron 10", "BinFolder", bin);
    const TTessaronStart start({});
    EXPECT_EQ(OptionsFolder, CommonDataFolder) << bin;
  }
  std::filesystem::current_path(current);
}

TEST_F(EnvironmentTest, EnvironmentIsLoadedAndSorted) {
  InstallCommonData(
      "<Storage><Version>1</Version><Connections><Items>"
      "<Item Class='TTessaronConnection' ID='{01F80DBF-A444-4C89-B72D-EA2E7A0CA3F7}'><Alias>Schule</Alias>"
      "<FileName>/db/schule.fdb</FileName><Protocol>1</Protocol><Server>zentrale</Server></Item>"
      "<Item Class='TTessaronConnection' ID='{78272132-B1AD-4972-8B3B-0FCDE048AD6A}'><Alias>archiv</Alias>"
      "<FileName>/db/archiv.fdb</FileName><Protocol>1</Protocol><Server>localhost</Server><Region>3</Region></Item>"
      "<Item Class='TTessaronConnection' ID='{3596001B-2E1E-4503-9E79-C1D578000000}'/>"
      "</Items></Connections><DefaultAlias>Schule</DefaultAlias></Storage>");
  const TTessaronStart start({"datei.kvrx", "-debug"});
  EXPECT_TRUE(DebugFlag);
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
  EXPECT_EQ(Environment->DefaultAlias, "Schule");
  const auto& connections = Environment->Connections();
  ASSERT_EQ(connections.Count(), 3);
  using TText = std::string;
  const std::tuple<TText, TText, TText, TText, TText, int> cases[] = {
      {"archiv", "/db/archiv.fdb", "LOCALHOST:/db/archiv.fdb", "Local", "Local", 3},
      {"Schule", "/db/schule.fdb", "ZENTRALE:/db/schule.fdb", "TCP/IP", "TCPIP", -2},
      {"Tessaron", "", "", "Local", "Local", -2}};
  for (int i = 0; i < connections.Count(); ++i) {
    const auto& connection = *connections.GetItem(i);
    EXPECT_EQ(std::tuple(connection.Alias, connection.DatabaseName(false), connection.DatabaseName(true),
                         connection.GetProtocolAsString(), connection.GetProtocolForFireDAC(), connection.Region),
              cases[i]);
    EXPECT_EQ(connection.ODBCDataSource, "Tessaron-CR");
    EXPECT_EQ(connection.OptFileName, Common() + "/Tessaron.opt");
  }
  EXPECT_EQ(Environment->GetIndexOfAlias("SCHULE"), 1);
  EXPECT_FALSE(Environment->ExistAlias("neu"));
  const auto* added = Environment->Connections().AddConnection("neu");
  EXPECT_EQ(Environment->Connections().FindConnection("Neu"), added);
  EXPECT_EQ(Environment->GetIndexOfAlias("neu"), 1);
  EXPECT_EQ(dynamic_cast<TTessaronConnection&>(*added->Clone()).Alias, "neu");

  Environment->SaveToFile(TVantrelDataStorageFormat::dsfXml);
  const auto again = CreateVantrel<TTessaronEnvironment>();
  again->LoadFromFile(again->GetDefaultFileName(), TVantrelDataStorageFormat::dsfXml);
  ASSERT_EQ(again->Connections().Count(), 4);
  EXPECT_EQ(again->Connections().FindConnection("archiv")->Server, "localhost");
}

TEST_F(EnvironmentTest, ADamagedRegistryOfTheMachineIsToldAndEmpty) {
  const auto file = RegistryFileName(TVantrelRegistryRoot::HKEY_LOCAL_MACHINE);
  std::filesystem::create_directories(std::filesystem::path(file).parent_path());
  WriteFileText(file, "<Preferences>");
  const TTessaronStart start({});
  EXPECT_EQ(ProductVersion, "10.x");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr(file)));
}

TEST_F(EnvironmentTest, ADamagedEnvironmentIsToldAndEmpty) {
  InstallCommonData("<Storage><Connections><Items><Item Class='TStrange'/></Items></Connections></Storage>");
  const TTessaronStart start({"Debugger"});
  EXPECT_FALSE(DebugFlag);
  EXPECT_THAT(FBoxes.Texts, ElementsAre(StartsWith("Fehler beim Laden der Systemumgebung!\r\n")));
  EXPECT_FALSE(Environment->ExistConnection());
}
}  // namespace
