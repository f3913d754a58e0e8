#include <algorithm>
#include <filesystem>

#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelFileStreams.h"
#include "VantrelFileSystem.h"
#include "VantrelSafeSave.h"
#include "VantrelSpelling.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"

namespace {

/// The content of a word file, and how it is written there.
struct TWordFile {
  std::string Text;
  bool IsAnsi = false;
};

TWordFile ReadWordFile(const std::string& path) {
  TVantrelFileStream stream(path, TVantrelFileAccessMode::famShareDenyNone, TVantrelFileOpenMode::fomOpenRead);
  const auto bytes = stream.ReadAll();
  TWordFile file{.Text = std::string(bytes.begin(), bytes.end())};
  file.IsAnsi = RepairUtf8(file.Text) != file.Text;
  if (file.IsAnsi) file.Text = AnsiToUtf8(file.Text);
  if (file.Text.starts_with(ByteOrderMark)) file.Text.erase(0, ByteOrderMark.size());
  return file;
}

bool IsCount(std::string_view line) {
  return !line.empty() && std::ranges::all_of(line, [](char c) { return c >= '0' && c <= '9'; });
}

/// The lines of the text without their ends.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) lines.emplace_back(TakeLine(text));
  return lines;
}

/// With the word behind the others, and one more in a count above them.
std::string WithWord(const std::string& text, const std::string& word) {
  const std::string lineEnd = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
  auto lines = Lines(text);
  if (!lines.empty() && IsCount(lines.front())) lines.front() = std::to_string(lines.size());
  lines.push_back(word);
  std::string all;
  for (const auto& line : lines) all += line + lineEnd;
  return all;
}

void AppendWord(const std::string& path, const std::string& word) {
  const auto file = TVantrelFileSystem::Exists(path) ? ReadWordFile(path) : TWordFile();
  const auto text = WithWord(file.Text, word);
  const bool staysAnsi = file.IsAnsi && AnsiToUtf8(Utf8ToAnsi(word)) == word;
  const auto bytes = staysAnsi ? Utf8ToAnsi(text) : text;
  TVantrelSafeSave::Write(path, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()},
                          TVantrelFileAccessMode::famShareDenyNone);
}

}  // namespace

void TVantrelUserDictionary::Read(const std::string& path) {
  if (path.empty() || !TVantrelFileSystem::Exists(path)) return;
  FLoaded = true;
  const auto lines = Lines(ReadWordFile(path).Text);
  for (std::size_t i = 0; i < lines.size(); ++i)
    // What stands behind the slash says how the word is inflected.
    if (auto word = lines[i].substr(0, lines[i].find('/')); !word.empty() && !(i == 0 && IsCount(word)))
      FWords.insert(std::move(word));
}

bool TVantrelUserDictionary::Load() {
  FLoaded = false;
  FWords.clear();
  for (const auto& path : {Path, OwnPath}) {
    try {
      Read(path);
    } catch (const EVantrelWin32Error&) {
      // A file that cannot be opened has no words.
    }
  }
  return FLoaded;
}

bool TVantrelUserDictionary::Knows(const std::string& word) const {
  if (FWords.contains(word)) return true;
  const auto units = Utf8ToUtf16(word);
  if (units.empty()) return false;
  return FWords.contains(LowerCase(Utf16ToUtf8(units.substr(0, 1))) + Utf16ToUtf8(units.substr(1)));
}

void TVantrelUserDictionary::Add(const std::string& word) {
  FLoaded = true;
  if (!FWords.insert(word).second) return;
  try {
    AppendWord(Path, word);
  } catch (const EVantrelWin32Error&) {
    if (OwnPath.empty()) throw;
    std::error_code error;
    std::filesystem::create_directories(System::PathOf(OwnPath).parent_path(), error);
    AppendWord(OwnPath, word);
  }
}
