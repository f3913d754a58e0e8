#include <fmt/format.h>
#include <gtest/gtest.h>

#include "TempFolder.h"
#include "VantrelFileSystem.h"
#include "VantrelLogSettings.h"

namespace {
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
