#include <gtest/gtest.h>

#include "TempFolder.h"
#include "VantrelLogSettings.h"

namespace {
TEST(LogSettings, AFileBesideTheProgramSwitchesTargetsOn) {
  EXPECT_TRUE(TVantrelLogManager::ConfigurationFileName().ends_with("settings_tests.log.config"));
  const TempFolder folder;
  WriteFileText(folder / "log.config",
                "<Preferences><Logs><ConsoleLog><Entry Name='EntryLimit' Value='2'/>"
                "<Entry Name='ShowDebugInfo' Value='1'/></ConsoleLog></Logs>"
                "<Namespaces><Entry Name='Projekt'/></Namespaces></Preferences>");
  for (const bool configured : {true, false}) {
    TVantrelLogManager manager;
    if (configured)
      ConfigureLogs(manager, folder / "log.config");
    else
      ConfigureLogs(manager);
    testing::internal::CaptureStdout();
    for (int i = 0; i < 3; ++i) manager.AddEntry(TVantrelLogEventType::letDebugInfo, "x", "projekt", 39571.75, "beck");
    const std::string line = "03.05.2008 18:00.00 - [projekt] [beck] [DEBUG INFO] x\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              configured ? line + line + "*** Log limit reached ***\n" : std::string());
  }
}
}  // namespace
