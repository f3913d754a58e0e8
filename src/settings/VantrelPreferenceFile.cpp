#include "VantrelPreferenceFile.h"

#include <libxml/xmlsave.h>

#include "SettingsTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelFileSystem.h"
#include "VantrelFolderLock.h"
#include "VantrelI18n.h"
#include "VantrelSafeSave.h"
#include "VantrelText.h"
#include "VantrelXmlText.h"

namespace {

constexpr std::string_view RootTag = "Preferences";
constexpr std::string_view EntryTag = "Entry";
/// The parser takes no more than 256 levels.
constexpr std::size_t MaxDepth = 200;

std::string_view AsView(const xmlChar* text) {
  return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

const xmlChar* AsXml(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

struct TXmlFree {
  void operator()(xmlChar* text) const { xmlFree(text); }
};
using TXmlText = std::unique_ptr<xmlChar, TXmlFree>;

std::optional<std::string> Attribute(const xmlNode* element, const char* name) {
  const TXmlText text(xmlGetNoNsProp(element, reinterpret_cast<const xmlChar*>(name)));
  if (text == nullptr) return std::nullopt;
  return std::string(AsView(text.get()));
}

void SetAttribute(xmlNode* element, const char* name, const std::optional<std::string>& value) {
  const auto* xmlName = reinterpret_cast<const xmlChar*>(name);
  if (value)
    xmlSetProp(element, xmlName, AsXml(XmlText(*value)));
  else
    xmlUnsetProp(element, xmlName);
}

bool IsEntry(const xmlNode* element) {
  return AsView(element->name) == EntryTag;
}

/// Calls `visit` with every child element until that gives true; gives this child, or null.
template <class TVisit>
xmlNode* FindChild(const xmlNode* key, TVisit visit) {
  xmlNode* child = key == nullptr ? nullptr : key->children;
  while (child != nullptr && (child->type != XML_ELEMENT_NODE || !visit(child))) child = child->next;
  return child;
}

xmlNode* FindKey(const xmlDoc& document, const TPreferencePath& path) {
  xmlNode* key = xmlDocGetRootElement(&document);
  for (const auto& tag : path)
    key = FindChild(key, [&](const xmlNode* child) { return SameText(AsView(child->name), tag); });
  return key;
}

xmlNode* MakeKey(xmlDoc& document, const TPreferencePath& path) {
  xmlNode* key = xmlDocGetRootElement(&document);
  for (const auto& tag : path) {
    xmlNode* child = FindChild(key, [&](const xmlNode* c) { return SameText(AsView(c->name), tag); });
    key = child != nullptr ? child : xmlNewChild(key, nullptr, AsXml(tag), nullptr);
  }
  return key;
}

xmlNode* FindEntry(const xmlNode* key, std::string_view name) {
  return FindChild(key, [&](const xmlNode* child) {
    if (!IsEntry(child)) return false;
    const auto own = Attribute(child, "Name");
    return own && SameText(*own, name);
  });
}

void WriteEntry(xmlNode* key, const std::string& name, const TPreferenceEntry& value) {
  xmlNode* entry = FindEntry(key, name);
  if (entry == nullptr) {
    entry = xmlNewChild(key, nullptr, AsXml(std::string(EntryTag)), nullptr);
    SetAttribute(entry, "Name", name);
  }
  SetAttribute(entry, "Type", value.Type.empty() ? std::nullopt : std::optional(value.Type));
  SetAttribute(entry, "Value", value.Value);
  xmlNodeSetContent(entry, AsXml(value.Content));
}

void Remove(xmlNode* node) {
  if (node == nullptr) return;
  xmlUnlinkNode(node);
  xmlFreeNode(node);
}

TXmlDocument NewDocument() {
  TXmlDocument document(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
  xmlDocSetRootElement(document.get(), xmlNewDocNode(document.get(), nullptr, AsXml(std::string(RootTag)), nullptr));
  return document;
}

TXmlDocument ReadDocument(const std::string& fileName) {
  if (!TVantrelFileSystem::Exists(fileName)) return NewDocument();
  TVantrelFileStream stream(fileName, TVantrelFileAccessMode::famShareDenyNone, TVantrelFileOpenMode::fomOpenRead);
  auto document = ParseXml(stream.ReadAll());
  const auto* root = xmlDocGetRootElement(document.get());
  if (root == nullptr || AsView(root->name) != RootTag) throw EVantrelXmlError(ResourceText(SettingsTexts::Damaged), 0);
  return document;
}

void SaveDocument(xmlDoc& document, const std::string& fileName) {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(&document, &text, &size, "utf-8", 1);
  const TXmlText owned(text);
  if (text == nullptr) throw EVantrelFileHandleError(TVantrelErrorCode::NotEnoughMemory);
  TVantrelSafeSave::Write(fileName, {text, static_cast<std::size_t>(size)}, TVantrelFileAccessMode::famShareDenyNone);
}

bool IsNameUnit(char16_t unit, bool first) {
  const bool surrogate = (unit & 0xF800) == 0xD800;
  return !surrogate && xmlValidateNCName(AsXml((first ? "" : "a") + Utf16ToUtf8({&unit, 1})), 0) == 0;
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
  return FindKey(*FDocument, key) != nullptr;
}

bool TVantrelPreferenceFile::HasChildren(const TPreferencePath& key) const {
  const auto* found = FindKey(*FDocument, key);
  return found != nullptr && found->children != nullptr;
}

std::vector<std::string> TVantrelPreferenceFile::KeyTags(const TPreferencePath& key) const {
  std::vector<std::string> tags;
  FindChild(FindKey(*FDocument, key), [&](const xmlNode* child) {
    if (!IsEntry(child)) tags.emplace_back(AsView(child->name));
    return false;
  });
  return tags;
}

std::vector<std::string> TVantrelPreferenceFile::ValueNames(const TPreferencePath& key) const {
  std::vector<std::string> names;
  FindChild(FindKey(*FDocument, key), [&](const xmlNode* child) {
    if (const auto name = IsEntry(child) ? Attribute(child, "Name") : std::nullopt) names.push_back(*name);
    return false;
  });
  return names;
}

std::optional<TPreferenceEntry> TVantrelPreferenceFile::Read(const TPreferencePath& key, std::string_view name) const {
  const auto* entry = FindEntry(FindKey(*FDocument, key), XmlText(name));
  if (entry == nullptr) return std::nullopt;
  const TXmlText content(xmlNodeGetContent(entry));
  return TPreferenceEntry{Attribute(entry, "Value"), std::string(AsView(content.get())),
                          Attribute(entry, "Type").value_or("")};
}

void TVantrelPreferenceFile::Change(TChange change) {
  change(*FDocument);
  FChanges.push_back(std::move(change));
}

bool TVantrelPreferenceFile::CreateKey(const TPreferencePath& key) {
  if (key.size() > MaxDepth) return false;
  if (!KeyExists(key)) Change([key](xmlDoc& document) { MakeKey(document, key); });
  return true;
}

bool TVantrelPreferenceFile::DeleteKey(const TPreferencePath& key) {
  if (key.empty() || !KeyExists(key)) return false;
  Change([key](xmlDoc& document) { Remove(FindKey(document, key)); });
  return true;
}

void TVantrelPreferenceFile::Write(const TPreferencePath& key, std::string_view name, const TPreferenceEntry& entry) {
  Change(
      [key, entry, ownName = XmlText(name)](xmlDoc& document) { WriteEntry(MakeKey(document, key), ownName, entry); });
}

bool TVantrelPreferenceFile::DeleteValue(const TPreferencePath& key, std::string_view name) {
  if (FindEntry(FindKey(*FDocument, key), XmlText(name)) == nullptr) return false;
  Change([key, ownName = XmlText(name)](xmlDoc& document) { Remove(FindEntry(FindKey(document, key), ownName)); });
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
  for (const auto& change : FChanges) change(*document);
  SaveDocument(*document, FFileName);
  FDocument = std::move(document);
  FChanges.clear();
  FIgnoreExisting = false;
}
