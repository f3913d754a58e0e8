#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelDateTime.h"
#include "VantrelFileStreams.h"
#include "VantrelTextWriters.h"

/// What an entry tells of.
enum class TVantrelLogEventType : std::uint8_t {
  letSuccess,
  letError,
  letWarning,
  letInfo,
  letDebugInfo,
  letAuditSuccess,
  letAuditFailure
};

/// One entry as the targets get it.
struct TVantrelLogEntry {
  TVantrelLogEventType EventType = TVantrelLogEventType::letInfo;
  std::string EventText;
  std::string Namespace;
  TDateTime TimeStamp = 0;
  std::string User;

  /// "dd.mm.yyyy hh:mm.ss - [namespace] [user] [event] text"
  std::string Line() const;
  /// "SUCCESS", "ERROR" and so on.
  const char* EventWord() const;
};

/// A target of log entries.
class TVantrelAbstractLog : public TVantrelObject {
 public:
  /// Takes the entry, unless the target is disabled or full, or the entry is debug information that is not shown.
  void AddEntry(const TVantrelLogEntry& entry);

  void SetEnabled(bool enabled) { FEnabled = enabled; }
  int EntryCount() const { return FEntryCount; }
  /// Number of entries after which the target is full; 0 means no limit.
  void SetEntryLimit(int limit) { FEntryLimit = limit; }
  void SetShowDebugInfo(bool show) { FShowDebugInfo = show; }

 protected:
  /// The last entry makes the target full.
  virtual void WriteEntry(const TVantrelLogEntry& entry, bool isLast) = 0;

 private:
  bool IsFull() const { return FEntryLimit > 0 && FEntryCount >= FEntryLimit; }

  bool FEnabled = true;
  bool FShowDebugInfo = false;
  int FEntryCount = 0;
  int FEntryLimit = 0;
};

/// Writes to standard error, where a debugger or the session's journal listens.
class TVantrelDebuggerLog final : public TVantrelAbstractLog {
 protected:
  void WriteEntry(const TVantrelLogEntry& entry, bool isLast) override;
};

/// Writes to standard output.
class TVantrelConsoleLog final : public TVantrelAbstractLog {
 protected:
  void WriteEntry(const TVantrelLogEntry& entry, bool isLast) override;
};

/// Writes lines in UTF-8 to a file whose name gets the time of creation; others may read it meanwhile.
class TVantrelTextLog final : public TVantrelAbstractLog {
 public:
  /// Raises EVantrelFileHandleError. `bufferLimit` is the number of lines that are gathered before they are written.
  TVantrelTextLog(std::string_view fileName, int bufferLimit);
  ~TVantrelTextLog() override;

  const std::string& FileName() const { return FFileStream.Handle().FileName(); }
  /// Appends the gathered lines to the file. Raises EVantrelException if they do not fit.
  void FlushBuffer();

 protected:
  void WriteEntry(const TVantrelLogEntry& entry, bool isLast) override;

 private:
  std::vector<std::string> FBuffer;
  int FBufferLimit;
  TVantrelFileStream FFileStream;
};

/// Writes one row of date, time, namespace, user, event and text for each entry, to a file as TVantrelTextLog does.
class TVantrelCSVLog final : public TVantrelAbstractLog {
 public:
  /// Raises EVantrelFileHandleError.
  explicit TVantrelCSVLog(std::string_view fileName);

 protected:
  void WriteEntry(const TVantrelLogEntry& entry, bool isLast) override;

 private:
  TVantrelFileStream FFileStream;
  TVantrelCSVWriter FCSVWriter;
};

/// What the log manager asks of the store that its configuration lies in.
class TVantrelLogPreferences {
 public:
  virtual ~TVantrelLogPreferences() = default;
  /// Makes an existing key the current one; false if there is none.
  virtual bool OpenKey(std::string_view path) = 0;
  /// Values of the current key; 0, false or empty where there is none.
  virtual int ReadInteger(std::string_view name) = 0;
  virtual bool ReadBoolean(std::string_view name) = 0;
  virtual std::string ReadString(std::string_view name) = 0;
  virtual std::vector<std::string> GetValueNames() = 0;
};

/// Hands entries of the known namespaces to all targets. May be used from any thread.
class TVantrelLogManager {
 public:
  /// The configuration file beside the program: its path with ".log.config" added.
  static std::string ConfigurationFileName();
  /// Adds the targets and namespaces that the configuration names; raises EVantrelFileHandleError where a log file
  /// cannot be opened.
  void SelfConfiguration(TVantrelLogPreferences& preferences);

  void AddLog(TVantrelPtr<TVantrelAbstractLog> log);
  void ClearLogs();
  /// Namespaces are told apart without regard to case; entries of others are dropped.
  void AddNamespace(std::string_view nameSpace);
  void ClearNamespaces();
  /// Gets the message of a target that failed; the other targets still get the entry.
  void SetOnError(std::function<void(const std::string&)> onError);

  void AddEntry(TVantrelLogEventType eventType, std::string_view eventText, std::string_view nameSpace,
                TDateTime timeStamp, std::string_view user);
  /// With the current time.
  void AddEntry(TVantrelLogEventType eventType, std::string_view eventText, std::string_view nameSpace,
                std::string_view user);
  /// With the current time and the user who is logged on.
  void AddEntry(TVantrelLogEventType eventType, std::string_view eventText, std::string_view nameSpace);

 private:
  bool Wants(std::string_view nameSpace) const;
  void Deliver(const TVantrelLogEntry& entry);

  /// Recursive, since OnError may add an entry.
  std::recursive_mutex FCriticalSection;
  std::vector<TVantrelPtr<TVantrelAbstractLog>> FLogList;
  std::vector<std::string> FNamespaceList;
  std::function<void(const std::string&)> FOnError;
};

/// The log manager of the program; without targets at start.
TVantrelLogManager& LogManager();
