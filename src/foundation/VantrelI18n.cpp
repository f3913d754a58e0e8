#include "VantrelI18n.h"

#include <fmt/format.h>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelFileStreams.h"
#include "VantrelNumbers.h"
#include "VantrelResources.h"
#include "VantrelText.h"
#include "VantrelTextWriters.h"

namespace {
constexpr std::string_view Section = "[Dictionary]";
constexpr int WriteBufferSize = 8192;
constexpr const char* OwnFile = "/proc/self/exe";

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

/// The next line, without its break.
std::string_view TakeLine(std::string_view& text) {
  const auto end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::uint32_t TextToKey(std::string_view name) {
  const std::string text = "$" + std::string(name);
  const std::int64_t key = TextToInteger(text);
  if (key < 0 || key > UINT32_MAX) throw EConvertError(FormatText(FoundationTexts::NoInteger, text));
  return static_cast<std::uint32_t>(key);
}

std::map<std::uint32_t, std::string> ParseDictionary(std::string_view text) {
  std::map<std::uint32_t, std::string> dictionary;
  bool inSection = false;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.starts_with('[')) inSection = SameText(line, Section);
    const auto equals = line.find('=');
    if (!inSection || line.starts_with(';') || equals == 0 || equals == std::string_view::npos) continue;
    dictionary[TextToKey(line.substr(0, equals))] = TVantrelI18nManager::UnEscapeString(line.substr(equals + 1));
  }
  return dictionary;
}
}  // namespace

std::string TVantrelI18nManager::EscapeString(std::string_view value) {
  std::string text(value);
  ReplaceAll(text, "\\", "\\\\");
  for (const char* lineBreak : {"\r\n", "\n\r", "\n", "\r"}) ReplaceAll(text, lineBreak, "\\n");
  return text;
}

std::string TVantrelI18nManager::UnEscapeString(std::string_view value) {
  std::string text(value);
  ReplaceAll(text, "\\\\", "\\");
  ReplaceAll(text, "\\n", "\r\n");
  return text;
}

void TVantrelI18nManager::ClearStrings() {
  const std::lock_guard lock(FDictionaryCS);
  FDictionary.clear();
}

void TVantrelI18nManager::LoadStrings(const std::string& fileName) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  TVantrelFileStream stream(fileName, TVantrelFileAccessMode::famShareDenyWrite, TVantrelFileOpenMode::fomOpenRead);
  const std::vector<std::uint8_t> bytes = stream.ReadAll();
  const std::string text = RepairUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  const std::size_t start = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
  auto dictionary = ParseDictionary(std::string_view(text).substr(start));

  const std::lock_guard lock(FDictionaryCS);
  FDictionary = std::move(dictionary);
}

void TVantrelI18nManager::SaveStrings(const std::string& fileName) const {
  const auto dictionary = [this] {
    const std::lock_guard lock(FDictionaryCS);
    return FDictionary;
  }();
  TVantrelFileStream stream(fileName, TVantrelFileAccessMode::famShareExclusive, TVantrelFileOpenMode::fomCreate);
  TVantrelTextWriter writer(stream, WriteBufferSize, false, TVantrelTextEncoding::teUtf8);
  writer.WriteLine(Section);
  for (const auto& [key, text] : dictionary) {
    if (!text.empty()) writer.WriteLine(fmt::format("{:08X}={}", key, EscapeString(text)));
  }
  writer.FlushBuffer();
}

void TVantrelI18nManager::ExtractAndMergeStrings(const TVantrelResourceStringTable& table) {
  const std::lock_guard lock(FDictionaryCS);
  for (const auto& [identifier, text] : table) FDictionary.emplace(GetStringHash(text), text);
}

int TVantrelI18nManager::ExtractAndMergeStrings(const std::string& binaryFileName) {
  TVantrelFileStream binary(binaryFileName, TVantrelFileAccessMode::famShareDenyWrite,
                            TVantrelFileOpenMode::fomOpenRead);
  const TVantrelResourceStringTable table = TVantrelResourceReader(binary).ReadStringTable();
  ExtractAndMergeStrings(table);
  return table.Count();
}

int TVantrelI18nManager::ExtractAndMergeStrings() {
  return ExtractAndMergeStrings(OwnFile);
}

std::string TVantrelI18nManager::Translate(std::string_view text) const {
  const std::lock_guard lock(FDictionaryCS);
  if (FDictionary.empty()) return std::string(text);
  const auto found = FDictionary.find(GetStringHash(text));
  return found == FDictionary.end() ? std::string(text) : found->second;
}

TVantrelI18nManager& I18nManager() {
  static TVantrelI18nManager manager;
  return manager;
}

std::string ResourceText(std::string_view builtIn) {
  return I18nManager().Translate(builtIn);
}

std::string FormatResourceText(std::string_view builtIn, fmt::format_args args) {
  try {
    return fmt::vformat(ResourceText(builtIn), args);
  } catch (const fmt::format_error&) {
    return fmt::vformat(builtIn, args);
  }
}
