#include "VantrelPreferenceFile.h"

#include <fmt/format.h>

#include <numeric>

#include "SettingsTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelFileSystem.h"
#include "VantrelFolderLock.h"
#include "VantrelI18n.h"
#include "VantrelSafeSave.h"
#include "VantrelText.h"
#include "VantrelUtf16.h"
#include "VantrelXml.h"
#include "VantrelXmlText.h"

namespace {

constexpr const char* RootTag = "Preferences";
constexpr const char* EntryTag = "Entry";
/// The parser takes no more than 256 levels.
constexpr std::size_t MaxDepth = 200;

bool IsEntry(TXmlElement element) {
  return element.Name() == EntryTag;
}

/// The first child element that satisfies the condition, or none.
template <class TCondition>
TXmlElement FindChild(TXmlElement key, TCondition condition) {
  TXmlElement child = key.FirstChild();
  while (child && !condition(child)) child = child.Next();
  return child;
}

TXmlElement FindSubKey(TXmlElement key, std::string_view tag) {
  return FindChild(key, [tag](TXmlElement child) { return SameText(child.Name(), tag); });
}

TXmlElement FindKey(TXmlElement root, const TPreferencePath& path) {
  return std::accumulate(path.begin(), path.end(), root, FindSubKey);
}

TXmlElement MakeKey(TXmlElement root, const TPreferencePath& path) {
  return std::accumulate(path.begin(), path.end(), root, [](TXmlElement key, const std::string& tag) {
    const TXmlElement child = FindSubKey(key, tag);
    return child ? child : key.AddChild(tag);
  });
}

TXmlElement FindEntry(TXmlElement key, std::string_view name) {
  return FindChild(key, [name](TXmlElement child) {
    if (!IsEntry(child)) return false;
    const auto own = child.Attribute("Name");
    return own && SameText(*own, name);
  });
}

void WriteEntry(TXmlElement key, const std::string& name, const TPreferenceEntry& value) {
  TXmlElement entry = FindEntry(key, name);
  if (!entry) {
    entry = key.AddChild(EntryTag);
    entry.SetAttribute("Name", name);
  }
  entry.SetAttribute("Type", value.Type.empty() ? std::nullopt : std::optional(value.Type));
  entry.SetAttribute("Value", value.Value);
  entry.SetText(value.Content);
}

TXmlDocument NewDocument() {
  return TXmlDocument(std::string(RootTag));
}

TXmlDocument ReadDocument(const std::string& fileName) {
  if (!TVantrelFileSystem::Exists(fileName)) return NewDocument();
  TVantrelFileStream stream(fileName, TVantrelFileAccessMode::famShareDenyNone, TVantrelFileOpenMode::fomOpenRead);
  TXmlDocument document(stream.ReadAll());
  if (document.Root().Name() != RootTag) throw EVantrelXmlError(ResourceText(SettingsTexts::Damaged), 0);
  return document;
}

void SaveDocument(const TXmlDocument& document, const std::string& fileName) {
  const std::string text = document.Text();
  if (text.empty()) throw EVantrelFileHandleError(TVantrelErrorCode::NotEnoughMemory);
  TVantrelSafeSave::Write(fileName, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                          TVantrelFileAccessMode::famShareDenyNone);
}

bool IsNameUnit(char16_t unit, bool first) {
  return !IsSurrogate(unit) && IsXmlName((first ? "" : "a") + Utf16ToUtf8({&unit, 1}));
}

/// The unit that "_xHHHH_" at the beginning of the text stands for.
std::optional<char16_t> EncodedUnit(std::u16string_view text) {
  constexpr std::size_t length = 7;
  if (text.size() < length || text.substr(0, 2) != u"_x" || text[length - 1] != u'_') return std::nullopt;
  unsigned value = 0;
  for (const char16_t c : text.substr(2, 4)) {
    const bool digit = c >= u'0' && c <= u'9';
    if (!digit && (c < u'A' || c > u'F')) return std::nullopt;
    value = value * 16 + static_cast<unsigned>(digit ? c - u'0' : c - u'A' + 10);
  }
  return static_cast<char16_t>(value);
}

}  // namespace

std::string EncodeKeyTag(std::string_view name) {
  const auto units = Utf8ToUtf16(name);
  std::u16string tag;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto rest = std::u16string_view(units).substr(i);
    if (IsNameUnit(units[i], i == 0) && !EncodedUnit(rest))
      tag.push_back(units[i]);
    else
      tag += Utf8ToUtf16(fmt::format("_x{:04X}_", static_cast<unsigned>(units[i])));
  }
  return Utf16ToUtf8(tag);
}

std::string DecodeKeyTag(std::string_view tag) {
  const auto units = Utf8ToUtf16(tag);
  std::u16string name;
  for (std::size_t i = 0; i < units.size();) {
    const auto unit = EncodedUnit(std::u16string_view(units).substr(i));
    name.push_back(unit.value_or(units[i]));
    i += unit ? 7 : 1;
  }
  return Utf16ToUtf8(name);
}

TVantrelPreferenceFile::TVantrelPreferenceFile(std::string fileName, bool ignoreExisting)
    : FFileName(std::move(fileName)), FIgnoreExisting(ignoreExisting), FDocument(NewDocument()) {
  if (FFileName.empty() || FIgnoreExisting) return;
  try {
    FDocument = ReadDocument(FFileName);
  } catch (const EVantrelWin32Error& error) {
    FDamage = FormatText(SettingsTexts::SettingsUnreadable, FFileName, error.Message());
  } catch (const EVantrelException&) {
    FDamage = FormatText(SettingsTexts::SettingsUnreadable, FFileName, ResourceText(SettingsTexts::Damaged));
  }
}

TVantrelPreferenceFile::~TVantrelPreferenceFile() {
  try {
    Flush();
  } catch (const std::exception&) {
    // The settings before hold on.
  }
}

bool TVantrelPreferenceFile::KeyExists(const TPreferencePath& key) const {
  return static_cast<bool>(FindKey(FDocument.Root(), key));
}

bool TVantrelPreferenceFile::HasChildren(const TPreferencePath& key) const {
  return FindKey(FDocument.Root(), key).HasContent();
}

std::vector<std::string> TVantrelPreferenceFile::KeyTags(const TPreferencePath& key) const {
  std::vector<std::string> tags;
  for (auto child = FindKey(FDocument.Root(), key).FirstChild(); child; child = child.Next())
    if (!IsEntry(child)) tags.emplace_back(child.Name());
  return tags;
}

std::vector<std::string> TVantrelPreferenceFile::ValueNames(const TPreferencePath& key) const {
  std::vector<std::string> names;
  for (auto child = FindKey(FDocument.Root(), key).FirstChild(); child; child = child.Next())
    if (const auto name = IsEntry(child) ? child.Attribute("Name") : std::nullopt) names.push_back(*name);
  return names;
}

std::optional<TPreferenceEntry> TVantrelPreferenceFile::Read(const TPreferencePath& key, std::string_view name) const {
  const auto entry = FindEntry(FindKey(FDocument.Root(), key), XmlText(name));
  if (!entry) return std::nullopt;
  return TPreferenceEntry{entry.Attribute("Value"), entry.Text(), entry.Attribute("Type").value_or("")};
}

void TVantrelPreferenceFile::Change(TChange change) {
  change(FDocument.Root());
  FChanges.push_back(std::move(change));
}

bool TVantrelPreferenceFile::CreateKey(const TPreferencePath& key) {
  if (key.size() > MaxDepth) return false;
  if (!KeyExists(key)) Change([key](TXmlElement root) { MakeKey(root, key); });
  return true;
}

bool TVantrelPreferenceFile::DeleteKey(const TPreferencePath& key) {
  if (key.empty() || !KeyExists(key)) return false;
  Change([key](TXmlElement root) { FindKey(root, key).Remove(); });
  return true;
}

void TVantrelPreferenceFile::Write(const TPreferencePath& key, std::string_view name, const TPreferenceEntry& entry) {
  Change([key, entry, ownName = XmlText(name)](TXmlElement root) { WriteEntry(MakeKey(root, key), ownName, entry); });
}

bool TVantrelPreferenceFile::DeleteValue(const TPreferencePath& key, std::string_view name) {
  const std::string ownName = XmlText(name);
  if (!FindEntry(FindKey(FDocument.Root(), key), ownName)) return false;
  Change([key, ownName](TXmlElement root) { FindEntry(FindKey(root, key), ownName).Remove(); });
  return true;
}

TXmlDocument TVantrelPreferenceFile::ReadAnew() const {
  if (FIgnoreExisting) return NewDocument();
  try {
    return ReadDocument(FFileName);
  } catch (const EVantrelWin32Error&) {
    // What cannot be read may be whole: it is not replaced.
    throw;
  } catch (const EVantrelException&) {
    KeepBytesBeside(FFileName);
    return NewDocument();
  }
}

void TVantrelPreferenceFile::Flush() {
  if (!Modified() || FFileName.empty()) return;
  const TVantrelFolderLock lock(FFileName);
  auto document = ReadAnew();
  for (const auto& change : FChanges) change(document.Root());
  SaveDocument(document, FFileName);
  FDocument = std::move(document);
  FChanges.clear();
  FIgnoreExisting = false;
}
