#include "VantrelLogs.h"

#include <pwd.h>
#include <unistd.h>

#include <thread>

#include "Testing.h"

namespace {
using enum TVantrelLogEventType;

constexpr TDateTime Evening = 39571.75;

struct TMemoryLog final : TVantrelAbstractLog {
  TMemoryLog(std::string name, std::string& lines, TVantrelLogEntry& last) : Name(name), Lines(lines), Last(last) {}
  void WriteEntry(const TVantrelLogEntry& entry, bool) override {
    if (entry.EventText == "fail") throw EVantrelException("kaputt");
    Lines += Name + entry.EventText + ";";
    Last = entry;
  }
  std::string Name;
  std::string& Lines;
  TVantrelLogEntry& Last;
};

TEST(Logs, ManagerPassesKnownNamespacesToEveryTarget) {
  std::string lines, errors;
  TVantrelLogEntry last;
  TVantrelLogManager manager;
  for (const char* name : {"1", "2"}) manager.AddLog(CreateVantrel<TMemoryLog>(name, lines, last));
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

TEST(Logs, ATextLogGathersAsManyLinesAsItIsTold) {
  const TempFolder folder;
  const std::string line = "03.05.2008 18:00.00 - [Projekt] [beck] [WARNING] a\r\n";
  const std::string full = "*** Log limit reached ***\r\n";
  const std::tuple<int, int, std::string, std::string> cases[] = {{0, 0, line + line + line, ""},
                                                                  {0, 2, line + line, line},
                                                                  {2, 2, line + line + full, ""},
                                                                  {2, 4, "", line + line + full},
                                                                  {1, 0, line + full, ""}};
  for (const auto& [entryLimit, bufferLimit, meanwhile, atTheEnd] : cases) {
    auto log = CreateVantrel<TVantrelTextLog>(folder / "lines.log", bufferLimit);
    const std::string name = log->FileName();
    const auto before = ReadFileText(name);
    log->SetEntryLimit(entryLimit);
    for (int i = 0; i < 4; ++i) {
      log->SetEnabled(i != 1);
      log->AddEntry({letWarning, "a", "Projekt", Evening, "beck"});
      log->AddEntry({letDebugInfo, "hidden", "Projekt", Evening, "beck"});
    }
    EXPECT_EQ(ReadFileText(name), before + meanwhile);
    EXPECT_EQ(log->EntryCount(), entryLimit == 0 ? 3 : entryLimit);
    log.reset();
    EXPECT_EQ(ReadFileText(name), before + meanwhile + atTheEnd);
  }
}
}  // namespace
