#include "VantrelI18n.h"

#include <fmt/format.h>

#include <optional>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelFileStreams.h"
#include "VantrelNumbers.h"
#include "VantrelResources.h"
#include "VantrelSafeSave.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"

namespace {
constexpr std::string_view Section = "[Dictionary]";
constexpr std::string_view LineBreak = "\r\n";

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::uint32_t TextToKey(std::string_view name) {
  const std::string text = "$" + std::string(name);
  const std::int64_t key = TextToInteger(text);
  if (key < 0 || key > UINT32_MAX) throw EConvertError(FormatText(FoundationTexts::NoInteger, text));
  return static_cast<std::uint32_t>(key);
}

std::string BytesOf(const std::string& fileName) {
  TVantrelFileStream stream(fileName, TVantrelFileAccessMode::famShareDenyWrite, TVantrelFileOpenMode::fomOpenRead);
  const std::vector<std::uint8_t> bytes = stream.ReadAll();
  return {bytes.begin(), bytes.end()};
}

void Replace(const std::string& fileName, std::string_view text) {
  TVantrelSafeSave::Write(fileName, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                          TVantrelFileAccessMode::famShareExclusive);
}

std::size_t LengthOfMark(std::string_view text) {
  return text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
}

/// The place behind the last line of the section; nothing where there is none.
std::optional<std::size_t> EndOfSection(std::string_view text) {
  bool inSection = false;
  for (auto rest = text.substr(LengthOfMark(text)); !rest.empty();) {
    const auto start = text.size() - rest.size();
    const auto line = TakeLine(rest);
    if (inSection && line.starts_with('[')) return start;
    inSection = inSection || SameText(line, Section);
  }
  return inSection ? std::optional(text.size()) : std::nullopt;
}

std::map<std::uint32_t, std::string> ParseDictionary(std::string_view bytes) {
  const std::string repaired = RepairUtf8(bytes);
  std::string_view text = repaired;
  text.remove_prefix(LengthOfMark(text));
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

std::string LineOf(std::uint32_t key, std::string_view text) {
  return fmt::format("{:08X}={}", key, TVantrelI18nManager::EscapeString(text));
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
  auto dictionary = ParseDictionary(BytesOf(fileName));
  const std::lock_guard lock(FDictionaryCS);
  FDictionary = std::move(dictionary);
}

void TVantrelI18nManager::SaveStrings(const std::string& fileName) const {
  std::string lines(Section);
  for (const auto& [key, text] : Dictionary())
    if (!text.empty()) lines += fmt::format("{}{}", LineBreak, LineOf(key, text));
  Replace(fileName, lines);
}

bool TVantrelI18nManager::CompleteStrings(const std::string& fileName) const {
  std::string file = BytesOf(fileName);
  const auto end = EndOfSection(file);
  if (!end) return false;
  const auto known = ParseDictionary(file);
  std::string added;
  for (const auto& [key, text] : Dictionary())
    if (!text.empty() && !known.contains(key)) added += fmt::format("{}{}", LineOf(key, text), LineBreak);
  if (added.empty()) return true;
  if (file[*end - 1] != '\n') added.insert(0, LineBreak);
  Replace(fileName, file.insert(*end, added));
  return true;
}

std::map<std::uint32_t, std::string> TVantrelI18nManager::Dictionary() const {
  const std::lock_guard lock(FDictionaryCS);
  return FDictionary;
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
  return ExtractAndMergeStrings(System::OwnProgramFile());
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
