#include "VantrelLogs.h"

#include <algorithm>

#include "Environment.h"
#include "ProgramFile.h"
#include "VantrelExceptions.h"
#include "VantrelText.h"

namespace {
TVantrelPtr<TVantrelAbstractLog> CreateTextLog(TVantrelLogPreferences& preferences) {
  return CreateVantrel<TVantrelTextLog>(preferences.ReadString("FileName"), preferences.ReadInteger("BufferLimit"));
}

TVantrelPtr<TVantrelAbstractLog> CreateCsvLog(TVantrelLogPreferences& preferences) {
  return CreateVantrel<TVantrelCSVLog>(preferences.ReadString("FileName"));
}

constexpr struct {
  const char* Key;
  TVantrelPtr<TVantrelAbstractLog> (*Create)(TVantrelLogPreferences&);
} Targets[] = {
    {"\\Logs\\DebuggerLog",
     [](TVantrelLogPreferences&) -> TVantrelPtr<TVantrelAbstractLog> { return CreateVantrel<TVantrelDebuggerLog>(); }},
    {"\\Logs\\ConsoleLog",
     [](TVantrelLogPreferences&) -> TVantrelPtr<TVantrelAbstractLog> { return CreateVantrel<TVantrelConsoleLog>(); }},
    {"\\Logs\\TextLog", CreateTextLog},
    {"\\Logs\\CSVLog", CreateCsvLog},
};
}  // namespace

std::string TVantrelLogManager::ConfigurationFileName() {
  return System::OwnProgramName() + ".log.config";
}

void TVantrelLogManager::SelfConfiguration(TVantrelLogPreferences& preferences) {
  for (const auto& target : Targets) {
    if (!preferences.OpenKey(target.Key)) continue;
    auto log = target.Create(preferences);
    log->SetEntryLimit(preferences.ReadInteger("EntryLimit"));
    log->SetShowDebugInfo(preferences.ReadBoolean("ShowDebugInfo"));
    AddLog(std::move(log));
  }
  if (!preferences.OpenKey("\\Namespaces")) return;
  for (const std::string& name : preferences.GetValueNames()) AddNamespace(name);
}

void TVantrelLogManager::AddLog(TVantrelPtr<TVantrelAbstractLog> log) {
  const std::lock_guard lock(FCriticalSection);
  FLogList.push_back(std::move(log));
}

void TVantrelLogManager::ClearLogs() {
  const std::lock_guard lock(FCriticalSection);
  FLogList.clear();
}

void TVantrelLogManager::AddNamespace(std::string_view nameSpace) {
  const std::lock_guard lock(FCriticalSection);
  FNamespaceList.emplace_back(nameSpace);
}

void TVantrelLogManager::ClearNamespaces() {
  const std::lock_guard lock(FCriticalSection);
  FNamespaceList.clear();
}

void TVantrelLogManager::SetOnError(std::function<void(const std::string&)> onError) {
  const std::lock_guard lock(FCriticalSection);
  FOnError = std::move(onError);
}

bool TVantrelLogManager::Wants(std::string_view nameSpace) const {
  const auto isSame = [nameSpace](const std::string& known) { return SameText(known, nameSpace); };
  return !FLogList.empty() && std::any_of(FNamespaceList.begin(), FNamespaceList.end(), isSame);
}

void TVantrelLogManager::Deliver(const TVantrelLogEntry& entry) {
  for (std::size_t i = 0; i < FLogList.size(); ++i) {
    try {
      FLogList[i]->AddEntry(entry);
    } catch (const EVantrelException& error) {
      if (FOnError) FOnError(error.Message());
    }
  }
}

void TVantrelLogManager::AddEntry(TVantrelLogEventType eventType, std::string_view eventText,
                                  std::string_view nameSpace, TDateTime timeStamp, std::string_view user) {
  const std::lock_guard lock(FCriticalSection);
  if (!Wants(nameSpace)) return;
  Deliver({eventType, std::string(eventText), std::string(nameSpace), timeStamp, std::string(user)});
}

void TVantrelLogManager::AddEntry(TVantrelLogEventType eventType, std::string_view eventText,
                                  std::string_view nameSpace, std::string_view user) {
  AddEntry(eventType, eventText, nameSpace, CurrentDateTime(), user);
}

void TVantrelLogManager::AddEntry(TVantrelLogEventType eventType, std::string_view eventText,
                                  std::string_view nameSpace) {
  AddEntry(eventType, eventText, nameSpace, System::UserName());
}

TVantrelLogManager& LogManager() {
  static TVantrelLogManager manager;
  return manager;
}
