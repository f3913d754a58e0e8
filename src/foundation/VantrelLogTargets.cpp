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
  WriteEntry(entry);
  if (IsFull()) WriteLimitReached();
}

void TVantrelDebuggerLog::WriteEntry(const TVantrelLogEntry& entry) {
  PrintLine(stderr, entry.Line());
}

void TVantrelConsoleLog::WriteEntry(const TVantrelLogEntry& entry) {
  PrintLine(stdout, entry.Line());
}

void TVantrelConsoleLog::WriteLimitReached() {
  PrintLine(stdout, LimitReached);
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

void TVantrelTextLog::AddLine(std::string line) {
  FBuffer.push_back(std::move(line));
  if (static_cast<int>(FBuffer.size()) >= FBufferLimit) FlushBuffer();
}

void TVantrelTextLog::WriteEntry(const TVantrelLogEntry& entry) {
  AddLine(entry.Line());
}

void TVantrelTextLog::WriteLimitReached() {
  AddLine(LimitReached);
}

TVantrelCSVLog::TVantrelCSVLog(std::string_view fileName)
    : FFileStream(OpenStamped(fileName)), FCSVWriter(FFileStream, RowBufferSize, false, TVantrelTextEncoding::teUtf8) {
  FFileStream.SetPosition(FFileStream.Size());
  if (FFileStream.Size() > 0) FCSVWriter.WriteLine();
}

void TVantrelCSVLog::WriteEntry(const TVantrelLogEntry& entry) {
  FCSVWriter.WriteLine({DateToGermanText(entry.TimeStamp), TimeToShortText(entry.TimeStamp), entry.Namespace,
                        entry.User, entry.EventWord(), entry.EventText});
  FCSVWriter.FlushBuffer();
}
