#include "VantrelLogs.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <thread>

#include "TempFolder.h"
#include "VantrelExceptions.h"

namespace {
using enum TVantrelLogEventType;

constexpr TDateTime Evening = 39571.75;

class TMemoryLog final : public TVantrelAbstractLog {
 public:
  TMemoryLog(std::string name, std::string& lines, TVantrelLogEntry* last = nullptr)
      : FName(std::move(name)), FLines(lines), FLast(last) {}

 protected:
  void WriteEntry(const TVantrelLogEntry& entry, bool isLast) override {
    if (entry.EventText == "fail") throw EVantrelException("kaputt");
    FLines += FName + entry.EventText + (isLast ? "!" : ";");
    if (FLast != nullptr) *FLast = entry;
  }

 private:
  std::string FName;
  std::string& FLines;
  TVantrelLogEntry* FLast;
};

TEST(Logs, TargetsTakeWhatTheyAreSetTo) {
  std::string lines;
  TMemoryLog log("", lines);
  log.SetEntryLimit(2);
  log.AddEntry({letDebugInfo, "hidden", "", Evening, ""});
  log.SetEnabled(false);
  log.AddEntry({letError, "off", "", Evening, ""});
  log.SetEnabled(true);
  log.SetShowDebugInfo(true);
  for (const char* text : {"a", "b", "c"}) log.AddEntry({letDebugInfo, text, "", Evening, ""});
  EXPECT_EQ(lines, "a;b!");
  EXPECT_EQ(log.EntryCount(), 2);
}

TEST(Logs, ManagerPassesKnownNamespacesToEveryTarget) {
  std::string lines, errors;
  TVantrelLogEntry last;
  TVantrelLogManager manager;
  manager.AddLog(CreateVantrel<TMemoryLog>("1", lines));
  manager.AddLog(CreateVantrel<TMemoryLog>("2", lines, &last));
  manager.SetOnError([&](const std::string& message) { errors += message; });
  manager.AddEntry(letInfo, "nobody listens", "Projekt");
  manager.AddNamespace("projekt");
  for (const char* text : {"a", "fail"}) manager.AddEntry(letInfo, text, "PROJEKT");
  manager.AddEntry(letInfo, "b", "Sitzung");
  EXPECT_EQ(lines + errors, "1a;2a;kaputtkaputt");
  const passwd* user = ::getpwuid(::geteuid());
  EXPECT_EQ(last.User, user == nullptr ? "" : user->pw_name);
  EXPECT_NEAR(last.TimeStamp, CurrentDateTime(), 0.1);
  std::vector<std::jthread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      for (int entry = 0; entry < 500; ++entry) manager.AddEntry(letInfo, "c", "Projekt", "beck");
    });
  threads.clear();
  EXPECT_EQ(lines.size(), 6U + 4 * 500 * 6);
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

TEST(Logs, ATextLogGathersAsManyLinesAsItIsTold) {
  const TempFolder folder;
  const std::string line = "03.05.2008 18:00.00 - [Projekt] [beck] [WARNING] a\r\n";
  const std::string full = "*** Log limit reached ***\r\n";
  const struct {
    int EntryLimit, BufferLimit;
    std::string Meanwhile, AtTheEnd;
  } cases[] = {{0, 0, line + line + line, ""},
               {0, 2, line + line, line},
               {2, 2, line + line + full, ""},
               {2, 4, "", line + line + full},
               {1, 0, line + full, ""}};
  for (const auto& c : cases) {
    auto log = CreateVantrel<TVantrelTextLog>(folder / "lines.log", c.BufferLimit);
    const std::string name = log->FileName();
    const auto before = ReadFileText(name);
    log->SetEntryLimit(c.EntryLimit);
    for (int i = 0; i < 3; ++i) log->AddEntry({letWarning, "a", "Projekt", Evening, "beck"});
    EXPECT_EQ(ReadFileText(name), before + c.Meanwhile);
    log.reset();
    EXPECT_EQ(ReadFileText(name), before + c.Meanwhile + c.AtTheEnd);
  }
}
}  // namespace
