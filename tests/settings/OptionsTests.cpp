#include "InChild.h"
#include "Testing.h"
#include "VantrelFileSystem.h"
#include "VantrelLogSettings.h"
#include "uOptions.h"

namespace {

struct OptionsTest : testing::Test {
  auto Create() { return CreateVantrel<TMyTessaronOptions>(FCommon, FFolder / "own"); }

  TempFolder FFolder;
  std::string FCommon = FFolder / "common/MyTessaron.opt";
  std::string FOwn = FFolder / "own/MyTessaron.opt";
};

TEST_F(OptionsTest, DefaultsBecomeAFileOfTheToldForm) {
  auto options = Create();
  EXPECT_EQ(Options, options.get());
  EXPECT_THAT(options->Load(), IsEmpty());
  options->Save();
  std::string told =
      "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\n<Storage>\n  <Version>700</Version>\n";
  for (const char* name : {"Aktiv", "Eingabe", "Gross", "Zahl", "Email", "URL", "Mischfaelle", "Wiederholt"})
    told += fmt::format("  <Rechtschreibung{0}>{1}</Rechtschreibung{0}>\n", name, name[0] == 'W' ? 0 : 1);
  EXPECT_EQ(ReadFileText(FCommon), told + "</Storage>");
  options->RechtschreibungWiederholt = true;
  options->RechtschreibungGross = false;
  options->Save();
  options.reset();
  EXPECT_EQ(Options, nullptr);
  options = Create();
  EXPECT_THAT(options->Load(), IsEmpty());
  EXPECT_TRUE(options->RechtschreibungWiederholt && options->RechtschreibungAktiv && !options->RechtschreibungGross);
}

TEST_F(OptionsTest, AreNotSavedWhileAnotherProgramSavesThem) {
  using namespace std::chrono_literals;
  const auto options = Create();
  EXPECT_EQ(TVantrelFolderLock::Patience, 5s);
  {
    const TVantrelFolderLock other(FCommon);
    EXPECT_THAT(options->Save(0ms), HasSubstr(FCommon));
    EXPECT_FALSE(std::filesystem::exists(FCommon));
  }
  EXPECT_THAT(options->Save(0ms), IsEmpty());
  EXPECT_TRUE(std::filesystem::exists(FCommon));
  const TVantrelFileHandle shared(FCommon, TVantrelFileAccessMode::famShareDenyNone,
                                  TVantrelFileOpenMode::fomOpenReadWrite);
  EXPECT_THAT(options->Load() + options->Save(0ms), IsEmpty());
}

TEST_F(OptionsTest, DamageIsToldAndKept) {
  std::filesystem::create_directory(FFolder / "common");
  for (const std::string damaged : {"kaputt",
                                    "<Storage><RechtschreibungZahl>0</RechtschreibungZahl>"
                                    "<RechtschreibungEmail>vielleicht</RechtschreibungEmail></Storage>"}) {
    WriteFileText(FCommon, damaged);
    const auto options = Create();
    EXPECT_THAT(options->Load(), HasSubstr(FCommon));
    EXPECT_TRUE(options->RechtschreibungZahl);
    options->Save();
    EXPECT_EQ(ReadFileText(FCommon + ".beschaedigt"), damaged);
    EXPECT_THAT(Create()->Load(), IsEmpty());
    std::filesystem::remove(FCommon + ".beschaedigt");
  }
}

TEST_F(OptionsTest, AFileThatCannotBeOpenedIsNotReplaced) {
  constexpr auto text = "<Storage><RechtschreibungZahl>0</RechtschreibungZahl></Storage>";
  std::filesystem::create_directory(FFolder / "common");
  WriteFileText(FCommon, text);
  for (const bool changed : {false, true}) {
    const auto options = Create();
    {
      const TVantrelFileHandle foreign(FCommon, TVantrelFileAccessMode::famShareExclusive,
                                       TVantrelFileOpenMode::fomOpenReadWrite);
      EXPECT_THAT(options->Load(), HasSubstr(FCommon));
    }
    options->RechtschreibungEmail = !changed;
    EXPECT_EQ(options->Save().empty(), !changed);
    EXPECT_EQ(ReadFileText(FCommon), text);
  }
}

TEST_F(OptionsTest, AFolderThatForbidsWritingIsWhereTheUsersOwnBegin) {
  std::filesystem::create_directory(FFolder / "common");
  std::filesystem::create_directory(FFolder / "own");
  WriteFileText(FCommon, "<Storage><RechtschreibungZahl>0</RechtschreibungZahl></Storage>");
  std::filesystem::permissions(FCommon, static_cast<std::filesystem::perms>(0444));
  std::filesystem::permissions(FFolder / "common", static_cast<std::filesystem::perms>(0555));
  const auto run = [&](bool email) {
    return InChildAsOrdinaryUser(FFolder.Path(), [&] {
      const auto options = Create();
      if (!options->Load().empty() || options->RechtschreibungZahl || !options->RechtschreibungEmail) return 1;
      options->RechtschreibungEmail = email;
      options->Save();
      return 0;
    });
  };
  EXPECT_EQ(run(true), 0);
  EXPECT_THAT(ReadFileText(FOwn), HasSubstr("<RechtschreibungZahl>0"));
  EXPECT_EQ(run(false), 0);
  EXPECT_EQ(run(false), 1);
}

TEST(LogSettings, AFileBesideTheProgramSwitchesTargetsOn) {
  EXPECT_TRUE(TVantrelLogManager::ConfigurationFileName().ends_with("settings_tests.log.config"));
  const TempFolder folder;
  WriteFileText(
      folder / "log.config",
      fmt::format("<Preferences><Logs><DebuggerLog/>"
                  "<ConsoleLog><Entry Name='EntryLimit' Value='2'/>{0}</ConsoleLog>"
                  "<TextLog><Entry Name='FileName' Value='{1}'/><Entry Name='EntryLimit' Value='1'/>"
                  "<Entry Name='BufferLimit' Value='3'/></TextLog>"
                  "<CSVLog><Entry Name='FileName' Value='{2}'/><Entry Name='EntryLimit' Value='2'/>{0}</CSVLog>"
                  "</Logs><Namespaces><Entry Name='Anderes'/><Entry Name='Projekt'/></Namespaces></Preferences>",
                  "<Entry Name='ShowDebugInfo' Value='1'/>", folder / "lines.log", folder / "rows.csv"));
  auto& manager = LogManager();
  const auto printed = [&] {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const auto type : {TVantrelLogEventType::letDebugInfo, TVantrelLogEventType::letAuditFailure})
      manager.AddEntry(type, "a;b", "projekt", 39571.75, "beck");
    return testing::internal::GetCapturedStdout() + "/" + testing::internal::GetCapturedStderr();
  };
  const auto content = [&](const char* mask) {
    return ReadFileText(TVantrelFileSystem::GetFiles(folder.Path(), mask).at(0));
  };
  ConfigureLogs(manager);
  EXPECT_EQ(printed(), "/");
  ConfigureLogs(manager, folder / "log.config");
  const std::string head = "03.05.2008 18:00.00 - [projekt] [beck] ", row = "03.05.2008;18:00:00;projekt;beck;";
  const std::string limit = "*** Log limit reached ***", failure = head + "[AUDIT FAILURE] a;b";
  EXPECT_EQ(printed(), head + "[DEBUG INFO] a;b\n" + failure + "\n" + limit + "\n/" + failure + "\n");
  EXPECT_EQ(content("rows*.csv"), row + "DEBUG INFO;\"a;b\"\r\n" + row + "AUDIT FAILURE;\"a;b\"");
  EXPECT_EQ(content("lines*.log"), "");
  manager.ClearNamespaces();
  EXPECT_EQ(printed(), "/");
  manager.ClearLogs();
  EXPECT_EQ(content("lines*.log"), failure + "\r\n" + limit + "\r\n");
}

}  // namespace
