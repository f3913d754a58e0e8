#include <libxml/parser.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "StoredTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelDataXml.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace {

std::string_view AsView(const xmlChar* text) {
  return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

void RefuseDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  auto* parser = static_cast<xmlParserCtxt*>(context);
  parser->_private = parser;
  xmlStopParser(parser);
}

xmlNode* ElementFrom(xmlNode* node) {
  while (node != nullptr && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

std::string_view Trimmed(std::string_view text) {
  const auto last = text.find_last_not_of("\r\n ");
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

/// True where "<" stands before the character somewhere behind the declaration.
bool HasMarkup(std::span<const std::uint8_t> bytes, char behindBracket) {
  constexpr std::size_t declaration = 2;
  for (auto rest = bytes.subspan(std::min(declaration, bytes.size())); !rest.empty();) {
    const auto* found = static_cast<const std::uint8_t*>(std::memchr(rest.data(), behindBracket, rest.size()));
    if (found == nullptr) return false;
    if (found[-1] == '<') return true;
    rest = rest.subspan(static_cast<std::size_t>(found - rest.data()) + 1);
  }
  return false;
}

/// The parser's option that leaves out blanks between elements. Beside comments, CDATA sections and instructions it
/// would take blanks for such that belong to a text, so these keep all of them.
int BlankOption(std::span<const std::uint8_t> bytes) {
  return HasMarkup(bytes, '!') || HasMarkup(bytes, '?') ? 0 : XML_PARSE_NOBLANKS;
}

struct TParserDeleter {
  void operator()(xmlParserCtxt* parser) const { xmlFreeParserCtxt(parser); }
};

}  // namespace

TXmlDocument ParseXml(std::span<const std::uint8_t> bytes) {
  const int options =
      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_COMPACT | BlankOption(bytes);
  if (bytes.empty()) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NoXml));
  if (bytes.size() > INT32_MAX) throw EVantrelXmlError(ResourceText(StoredTexts::NoXml), 0);
  const std::unique_ptr<xmlParserCtxt, TParserDeleter> parser(xmlNewParserCtxt());
  if (parser == nullptr) throw std::bad_alloc();
  parser->sax->internalSubset = RefuseDocumentType;
  TXmlDocument document(xmlCtxtReadMemory(parser.get(), reinterpret_cast<const char*>(bytes.data()),
                                          static_cast<int>(bytes.size()), nullptr, nullptr, options));
  if (parser->_private != nullptr)
    throw EVantrelXmlError(ResourceText(StoredTexts::DocumentType), parser->lastError.line);
  if (document == nullptr) {
    const auto& error = parser->lastError;
    throw EVantrelXmlError(error.message == nullptr
                               ? ResourceText(StoredTexts::NoXml)
                               : FormatText(StoredTexts::IllFormedXml, error.line, Trimmed(error.message)),
                           error.line);
  }
  return document;
}

void TVantrelDataObjectXMLReader::Open() {
  std::vector<std::uint8_t> bytes;
  auto window = FStream.Window();
  if (window.empty()) {
    bytes = FStream.ReadAll();
    window = bytes;
  }
  try {
    FDocument = ParseXml(window);
  } catch (const EVantrelXmlError& error) {
    FErrorLine = error.Line();
    throw;
  }
  FStream.SetPosition(FStream.Size());
  xmlNode* root = xmlDocGetRootElement(FDocument.get());
  if (root == nullptr) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NoXml));
  EnterElement(root);
  ReadVersion();
}

void TVantrelDataObjectXMLReader::ReadVersion() {
  xmlNode* version = Find("Version");
  if (version == nullptr) return;
  if (TextOf(version) == "-1") xmlNodeSetContent(version, reinterpret_cast<const xmlChar*>("0"));
  FVersion = static_cast<int>(TextToIntegerOr(TextOf(version), 0));
  // A document may hold a value of its own under the same name behind the version of the form: that is the one meant.
  auto sibling = ElementFrom(version->next);
  while (sibling != nullptr && AsView(sibling->name) != "Version") sibling = ElementFrom(sibling->next);
  if (sibling != nullptr) {
    xmlUnlinkNode(version);
    xmlFreeNode(version);
  }
  FLevels.back() = {FLevels.back().Element, ElementFrom(FLevels.back().Element->children), 0};
  FNames.clear();
}

std::string TVantrelDataObjectXMLReader::PathOfCursor() const {
  struct TFree {
    void operator()(xmlChar* text) const { xmlFree(text); }
  };
  const std::unique_ptr<xmlChar, TFree> path(xmlGetNodePath(FLevels.back().Element));
  return std::string(AsView(path.get()));
}

std::string TVantrelDataObjectXMLReader::Place() const {
  if (FLevels.empty()) return FormatText(StoredTexts::PlaceOfLine, FErrorLine);
  return FormatText(StoredTexts::PlaceInLines, xmlGetLineNo(FLevels.back().Element), PathOfCursor());
}

void TVantrelDataObjectXMLReader::EnterElement(xmlNode* element) {
  FLevels.push_back({element, ElementFrom(element->children), FNames.size()});
}

bool TVantrelDataObjectXMLReader::Enter(std::string_view name) {
  xmlNode* element = Find(name);
  if (element != nullptr) EnterElement(element);
  return element != nullptr;
}

void TVantrelDataObjectXMLReader::Leave() {
  FNames.resize(FLevels.back().NamesBegin);
  FLevels.pop_back();
}

xmlNode* TVantrelDataObjectXMLReader::Find(std::string_view name) {
  auto& level = FLevels.back();
  const auto namesBegin = FNames.begin() + static_cast<std::ptrdiff_t>(level.NamesBegin);
  xmlNode* found = level.Next;
  if (found == nullptr || AsView(found->name) != name ||
      std::find(namesBegin, FNames.end(), found->name) != FNames.end()) {
    found = ElementFrom(level.Element->children);
    while (found != nullptr && AsView(found->name) != name) found = ElementFrom(found->next);
    if (found == nullptr) return nullptr;
    FNames.resize(level.NamesBegin);
    for (auto* before = ElementFrom(level.Element->children); before != found; before = ElementFrom(before->next))
      FNames.push_back(before->name);
  }
  FNames.push_back(found->name);
  level.Next = ElementFrom(found->next);
  return found;
}

std::string_view TVantrelDataObjectXMLReader::TextOf(const xmlNode* element) {
  const auto isText = [](const xmlNode* node) {
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
  };
  const xmlNode* child = element->children;
  if (child == nullptr) return {};
  if (child->next == nullptr) return isText(child) ? AsView(child->content) : std::string_view();
  FText.clear();
  for (; child != nullptr; child = child->next)
    if (isText(child)) FText.append(AsView(child->content));
  return FText;
}

std::optional<std::string_view> TVantrelDataObjectXMLReader::FindText(std::string_view name) {
  const xmlNode* element = Find(name);
  if (element == nullptr) return std::nullopt;
  return TextOf(element);
}

void TVantrelDataObjectXMLReader::RaiseTagExpected(std::string_view name) const {
  throw EVantrelDataObjectReaderError(FormatText(StoredTexts::TagExpected, PathOfCursor(), name));
}

char16_t TVantrelDataObjectXMLReader::CharOr(std::string_view text, char16_t fallback) const {
  const auto units = Utf8ToUtf16(text);
  return units.size() == 1 ? units.front() : fallback;
}

std::string TVantrelDataObjectXMLReader::RequireAttribute(const xmlNode* element, const char* name) const {
  for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    if (AsView(attribute->name) != name) continue;
    const xmlNode* text = attribute->children;
    return std::string(text == nullptr ? std::string_view() : AsView(text->content));
  }
  throw EVantrelDataObjectReaderError(FormatText(StoredTexts::AttributeExpected, PathOfCursor(), name));
}

TVantrelPtr<TVantrelGraphic> TVantrelDataObjectXMLReader::ReadVCLGraphic(std::string_view name,
                                                                         TVantrelGraphicFactory graphicClass,
                                                                         TVantrelPtr<TVantrelGraphic> existing) {
  const xmlNode* element = Find(name);
  if (element == nullptr) return existing;
  return DecodeGraphic(TextToInteger(RequireAttribute(element, "Size")), TextOf(element), graphicClass);
}

void TVantrelDataObjectXMLReader::ReadDataList(std::string_view name, TVantrelDataList& list) {
  list.Clear();
  xmlNode* element = Find(name);
  if (element == nullptr) {
    list.DoClear();
    return;
  }
  list.ReadData(*this);
  EnterElement(element);
  if (!Enter("Items")) RaiseTagExpected("Items");
  ReadItems(list);
  Leave();
  Leave();
}

void TVantrelDataObjectXMLReader::ReadItems(TVantrelDataList& list) {
  xmlNode* items = FLevels.back().Element;
  xmlNode* item = nullptr;
  TVantrelDataObject* object = nullptr;
  for (auto* first = ElementFrom(items->children); first != nullptr; first = ElementFrom(items->children)) {
    if (item == nullptr) {
      item = first;
      while (item != nullptr && AsView(item->name) != "Item") item = ElementFrom(item->next);
      if (item == nullptr) return;
      object = list.OwnsItems() ? FilledObjectAt(item) : ObjectAt(item);
    }
    list.Add(object);
    if (first == item) item = nullptr;
    for (bool last = false; !last;) {
      xmlNode* gone = items->children;
      last = gone == first;
      xmlUnlinkNode(gone);
      xmlFreeNode(gone);
    }
  }
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ObjectAt(const xmlNode* element) {
  const auto className = RequireAttribute(element, "Class");
  return ObjectOf(className, RequireAttribute(element, "ID"));
}

TVantrelDataObject* TVantrelDataObjectXMLReader::FilledObjectAt(xmlNode* element) {
  auto* object = ObjectAt(element);
  EnterElement(element);
  FillObject(*object);
  Leave();
  return object;
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ReadDataObject(std::string_view name, TVantrelDataObject* existing) {
  xmlNode* element = Find(name);
  return element == nullptr ? existing : FilledObjectAt(element);
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ReadDataObjectRef(std::string_view name) {
  const xmlNode* element = Find(name);
  return element == nullptr ? nullptr : ObjectAt(element);
}
