#include <fmt/format.h>

#include <cstdio>

#include "VantrelExceptions.h"
#include "VantrelLogs.h"
#include "VantrelPaths.h"

namespace {
constexpr const char* EventWords[] = {"SUCCESS",    "ERROR",         "WARNING",      "INFO",
                                      "DEBUG INFO", "AUDIT SUCCESS", "AUDIT FAILURE"};
constexpr const char* LimitReached = "*** Log limit reached ***";
constexpr const char* LineBreak = "\r\n";
constexpr int RowBufferSize = 4096;

void PrintLine(std::FILE* file, std::string line) {
  line += '\n';
  std::fputs(line.c_str(), file);
  std::fflush(file);
}

TVantrelFileStream OpenStamped(std::string_view fileName) {
  return {TVantrelFilePath::GetTimeStampedFileName(fileName), TVantrelFileAccessMode::famShareDenyWrite,
          TVantrelFileOpenMode::fomOpenReadWriteOrCreate};
}
}  // namespace

const char* TVantrelLogEntry::EventWord() const {
  return EventWords[static_cast<std::size_t>(EventType)];
}

std::string TVantrelLogEntry::Line() const {
  std::string time = DateTimeToGermanText(TimeStamp);
  time[time.size() - 3] = '.';
  return fmt::format("{} - [{}] [{}] [{}] {}", time, Namespace, User, EventWord(), EventText);
}

void TVantrelAbstractLog::AddEntry(const TVantrelLogEntry& entry) {
  const bool hidden = entry.EventType == TVantrelLogEventType::letDebugInfo && !FShowDebugInfo;
  if (hidden || !FEnabled || IsFull()) return;
  ++FEntryCount;
  WriteEntry(entry, IsFull());
}

void TVantrelDebuggerLog::WriteEntry(const TVantrelLogEntry& entry, bool) {
  PrintLine(stderr, entry.Line());
}

void TVantrelConsoleLog::WriteEntry(const TVantrelLogEntry& entry, bool isLast) {
  PrintLine(stdout, entry.Line());
  if (isLast) PrintLine(stdout, LimitReached);
}

TVantrelTextLog::TVantrelTextLog(std::string_view fileName, int bufferLimit)
    : FBufferLimit(bufferLimit), FFileStream(OpenStamped(fileName)) {
  FFileStream.SetPosition(FFileStream.Size());
}

TVantrelTextLog::~TVantrelTextLog() {
  try {
    FlushBuffer();
  } catch (const EVantrelException&) {
    // Whoever needs to know has called FlushBuffer.
  }
}

void TVantrelTextLog::FlushBuffer() {
  std::string text;
  for (const std::string& line : FBuffer) text += line + LineBreak;
  FBuffer.clear();
  TVantrelStreamWriter(FFileStream, 0).WriteSignature(text);
}

void TVantrelTextLog::WriteEntry(const TVantrelLogEntry& entry, bool isLast) {
  FBuffer.push_back(entry.Line());
  if (isLast) FBuffer.emplace_back(LimitReached);
  if (static_cast<int>(FBuffer.size()) >= FBufferLimit) FlushBuffer();
}

TVantrelCSVLog::TVantrelCSVLog(std::string_view fileName)
    : FFileStream(OpenStamped(fileName)), FCSVWriter(FFileStream, RowBufferSize, false, TVantrelTextEncoding::teUtf8) {
  FFileStream.SetPosition(FFileStream.Size());
  if (FFileStream.Size() > 0) FCSVWriter.WriteLine();
}

void TVantrelCSVLog::WriteEntry(const TVantrelLogEntry& entry, bool) {
  FCSVWriter.WriteLine({DateToGermanText(entry.TimeStamp), TimeToShortText(entry.TimeStamp), entry.Namespace,
                        entry.User, entry.EventWord(), entry.EventText});
  FCSVWriter.FlushBuffer();
}
