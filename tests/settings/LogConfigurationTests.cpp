#include "VantrelLogConfiguration.h"

#include <gtest/gtest.h>

#include "TempFolder.h"

namespace {

TEST(LogConfiguration, ThePreferenceFileSaysWhatIsLogged) {
  const TempFolder folder;
  std::filesystem::create_directory(folder / "logs");
  WriteFileText(folder / "log.config", "<Preferences><Logs><csvlog><Entry Name='FileName' Value='" +
                                           (folder / "logs/rows.csv") +
                                           "'/><Entry Name='entrylimit' Value='1'/>"
                                           "<Entry Name='ShowDebugInfo' Value='1'/></csvlog></Logs>"
                                           "<Namespaces><Entry Name='Projekt'/></Namespaces></Preferences>");
  TVantrelLogManager manager;
  TVantrelXMLLogPreferences none(folder / "gone.config");
  manager.SelfConfiguration(none);
  TVantrelXMLLogPreferences preferences(folder / "log.config");
  manager.SelfConfiguration(preferences);
  for (const char* text : {"eins", "zwei"})
    manager.AddEntry(TVantrelLogEventType::letDebugInfo, text, "projekt", 39571.75, "beck");
  manager.AddEntry(TVantrelLogEventType::letInfo, "drei", "Sitzung", 39571.75, "beck");
  manager.ClearLogs();
  std::string rows;
  for (const auto& file : std::filesystem::directory_iterator(folder / "logs")) rows += ReadFileText(file.path());
  EXPECT_EQ(rows, "03.05.2008;18:00:00;projekt;beck;DEBUG INFO;eins");
}

}  // namespace
