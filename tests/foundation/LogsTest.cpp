#include "VantrelLogs.h"

#include <gtest/gtest.h>

#include <map>

#include "TempFolder.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

namespace {
using enum TVantrelLogEventType;

constexpr TDateTime Evening = 39571.75;

class TMemoryLog final : public TVantrelAbstractLog {
 public:
  explicit TMemoryLog(std::string& lines) : FLines(lines) {}

 protected:
  void WriteEntry(const TVantrelLogEntry& entry) override {
    if (entry.EventText == "fail") throw EVantrelException("kaputt");
    FLines += entry.EventText + ';';
  }
  void WriteLimitReached() override { FLines += "full;"; }

 private:
  std::string& FLines;
};

class TFakePreferences final : public TVantrelLogPreferences {
 public:
  std::map<std::string, std::map<std::string, std::string>, std::less<>> Keys;

  bool OpenKey(std::string_view path) override {
    FKey = Keys.find(path);
    return FKey != Keys.end();
  }
  int ReadInteger(std::string_view name) override { return std::atoi(ReadString(name).c_str()); }
  bool ReadBoolean(std::string_view name) override { return ReadInteger(name) != 0; }
  std::string ReadString(std::string_view name) override { return FKey->second[std::string(name)]; }
  std::vector<std::string> GetValueNames() override {
    std::vector<std::string> names;
    for (const auto& [name, value] : FKey->second) names.push_back(name);
    return names;
  }

 private:
  decltype(Keys)::iterator FKey;
};

TEST(Logs, TargetsTakeWhatTheyAreSetTo) {
  std::string lines;
  TMemoryLog log(lines);
  log.SetEntryLimit(2);
  log.AddEntry({letDebugInfo, "hidden", "", Evening, ""});
  log.SetEnabled(false);
  log.AddEntry({letError, "off", "", Evening, ""});
  log.SetEnabled(true);
  log.SetShowDebugInfo(true);
  for (const char* text : {"a", "b", "c"}) log.AddEntry({letDebugInfo, text, "", Evening, ""});
  EXPECT_EQ(lines, "a;b;full;");
}

TEST(Logs, ManagerPassesKnownNamespacesToEveryTarget) {
  std::string first, second, errors;
  TVantrelLogManager manager;
  manager.AddLog(CreateVantrel<TMemoryLog>(first));
  manager.AddLog(CreateVantrel<TMemoryLog>(second));
  manager.SetOnError([&](const std::string& message) { errors += message; });
  manager.AddEntry(letInfo, "nobody listens", "Projekt");
  manager.AddNamespace("projekt");
  manager.AddEntry(letInfo, "a", "PROJEKT");
  manager.AddEntry(letInfo, "b", "Sitzung");
  manager.AddEntry(letInfo, "fail", "Projekt");
  EXPECT_EQ(first, "a;");
  EXPECT_EQ(second, "a;");
  EXPECT_EQ(errors, "kaputtkaputt");
}

TEST(Logs, ConsoleAndDebuggerGetLines) {
  TVantrelLogManager manager;
  auto console = CreateVantrel<TVantrelConsoleLog>();
  console->SetEntryLimit(1);
  manager.AddLog(std::move(console));
  manager.AddLog(CreateVantrel<TVantrelDebuggerLog>());
  manager.AddNamespace("Projekt");
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  for (const char* text : {"eins", "zwei"}) manager.AddEntry(letError, text, "Projekt", Evening, "beck");
  manager.ClearNamespaces();
  manager.AddEntry(letError, "drei", "Projekt");
  const std::string head = "03.05.2008 18:00.00 - [Projekt] [beck] [ERROR] ";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), head + "eins\n*** Log limit reached ***\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), head + "eins\n" + head + "zwei\n");
}

TEST(Logs, ConfigurationMakesTargetsAndNamespaces) {
  const TempFolder folder;
  TFakePreferences preferences;
  preferences.Keys["\\Logs\\CSVLog"] = {{"FileName", folder / "rows.csv"}, {"EntryLimit", "2"}};
  preferences.Keys["\\Logs\\TextLog"] = {{"FileName", folder / "lines.log"}, {"EntryLimit", "2"}, {"BufferLimit", "4"}};
  preferences.Keys["\\Namespaces"] = {{"Projekt", ""}};
  TVantrelLogManager manager;
  manager.SelfConfiguration(preferences);
  for (const char* text : {"eins", "zw;ei", "drei"}) manager.AddEntry(letWarning, text, "Projekt", Evening, "beck");

  const auto find = [&](const char* mask) {
    return ReadFileText(TVantrelFileSystem::GetFiles(folder.Path(), mask).at(0));
  };
  EXPECT_EQ(find("rows*.csv"),
            "03.05.2008;18:00:00;Projekt;beck;WARNING;eins\r\n03.05.2008;18:00:00;Projekt;beck;WARNING;\"zw;ei\"");
  EXPECT_EQ(find("lines*.log"), "");
  manager.ClearLogs();
  EXPECT_EQ(find("lines*.log"),
            "03.05.2008 18:00.00 - [Projekt] [beck] [WARNING] eins\r\n"
            "03.05.2008 18:00.00 - [Projekt] [beck] [WARNING] zw;ei\r\n*** Log limit reached ***\r\n");
}
}  // namespace
