#include "VantrelXml.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <algorithm>
#include <new>

#include "StoredTexts.h"
#include "VantrelDataIO.h"
#include "VantrelI18n.h"
#include "VantrelXmlDocument.h"

namespace {

/// Room for the different names of a document that is only read, some ten times what those of a project take. The
/// parser compares the attributes of an element each with each, and its table of names stays small.
constexpr std::size_t FewNames = 20'000;
/// Room for those of a document whose names are the user's own.
constexpr std::size_t ManyNames = 10'000'000;

bool IsBlank(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

struct TTreeDeleter {
  void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};
/// The parser's own tree.
using TParserTree = std::unique_ptr<xmlDoc, TTreeDeleter>;

const char* AsText(const xmlChar* text) {
  return reinterpret_cast<const char*>(text);
}

/// One run of the parser, with so many bytes for the different names of elements and attributes.
class TParsing {
 public:
  explicit TParsing(std::size_t mostBytesOfNames) : FParser(xmlNewParserCtxt()), FMostBytesOfNames(mostBytesOfNames) {
    if (FParser == nullptr) throw std::bad_alloc();
    xmlDictSetLimit(FParser->dict, mostBytesOfNames);
    FParser->_private = this;
    FParser->sax->internalSubset = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
      Of(context).FDocumentType = true;
      Of(context).Stop();
    };
  }

  /// Gives the parser's tree, if it was to make one. Raises as told at TXmlDocument.
  TParserTree Run(std::span<const std::uint8_t> bytes, int options);

 protected:
  static TParsing& Of(void* context) { return *static_cast<TParsing*>(static_cast<xmlParserCtxt*>(context)->_private); }

  xmlParserCtxt& Parser() const { return *FParser; }
  void Stop() { xmlStopParser(FParser.get()); }
  void StopForMemory() {
    FMemoryShort = true;
    Stop();
  }

 private:
  struct TDeleter {
    void operator()(xmlParserCtxt* parser) const { xmlFreeParserCtxt(parser); }
  };

  std::unique_ptr<xmlParserCtxt, TDeleter> FParser;
  const std::size_t FMostBytesOfNames;
  bool FDocumentType = false;
  bool FMemoryShort = false;
};

TParserTree TParsing::Run(std::span<const std::uint8_t> bytes, int options) {
  if (bytes.empty()) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NoXml));
  if (bytes.size() > INT32_MAX) throw EVantrelXmlError(ResourceText(StoredTexts::NoXml), 0);
  // The parser prints nothing.
  xmlSetStructuredErrorFunc(nullptr, [](void*, auto) {});
  TParserTree tree(xmlCtxtReadMemory(FParser.get(), AsText(bytes.data()), static_cast<int>(bytes.size()), nullptr,
                                     nullptr, options | XML_PARSE_NONET));
  const auto& error = FParser->lastError;
  if (FDocumentType) throw EVantrelXmlError(ResourceText(StoredTexts::DocumentType), error.line);
  if (FMemoryShort || error.code == XML_ERR_NO_MEMORY) throw std::bad_alloc();
  if (FParser->wellFormed == 0 && xmlDictGetUsage(FParser->dict) > FMostBytesOfNames)
    throw EVantrelXmlError(ResourceText(StoredTexts::TooManyNames), error.line);
  if (FParser->wellFormed == 0)
    throw EVantrelXmlError(error.message == nullptr ? ResourceText(StoredTexts::NoXml)
                                                    : FormatText(StoredTexts::IllFormedXml, error.line, error.int2),
                           error.line);
  return tree;
}

}  // namespace

/// Fills a tree while the parser runs. Its calls come from C, which no exception may cross.
class TXmlTree::TBuilder : public TParsing {
 public:
  explicit TBuilder(TXmlTree& tree);
  void Run(std::span<const std::uint8_t> bytes);

 private:
  /// An element whose end is still to come.
  struct TOpen {
    std::uint32_t Place;
    std::uint32_t LastChild;
    std::string Text;
  };

  template <class TStep>
  static void Do(void* context, TStep step);
  void Begin(const xmlChar* name, std::span<const xmlChar*> attributes);
  void End();

  TXmlTree& FTree;
  /// The first FDepth are open; the others keep the memory of their texts.
  std::vector<TOpen> FOpen;
  std::size_t FDepth = 0;
};

TXmlTree::TBuilder::TBuilder(TXmlTree& tree) : TParsing(FewNames), FTree(tree) {
  const auto addText = [](void* context, const xmlChar* text, int length) {
    Do(context, [&](TBuilder& self) {
      self.FOpen[self.FDepth - 1].Text.append(AsText(text), static_cast<std::size_t>(length));
    });
  };
  auto& calls = *Parser().sax;
  calls.startDocument = nullptr;
  calls.endDocument = nullptr;
  calls.comment = nullptr;
  calls.processingInstruction = nullptr;
  calls.characters = calls.ignorableWhitespace = calls.cdataBlock = addText;
  calls.startElementNs = [](void* context, const xmlChar* name, const xmlChar*, const xmlChar*, int, const xmlChar**,
                            int count, int, const xmlChar** attributes) {
    constexpr std::size_t parts = 5;
    Do(context, [&](TBuilder& self) { self.Begin(name, {attributes, parts * static_cast<std::size_t>(count)}); });
  };
  calls.endElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    Do(context, [](TBuilder& self) { self.End(); });
  };
  FTree.FNames.reset(Parser().dict);
  xmlDictReference(Parser().dict);
}

template <class TStep>
void TXmlTree::TBuilder::Do(void* context, TStep step) {
  auto& self = static_cast<TBuilder&>(Of(context));
  // The parser goes on to tell texts after an error, though no elements.
  if (self.Parser().disableSAX != 0) return;
  try {
    step(self);
  } catch (const std::bad_alloc&) {
    self.StopForMemory();
  }
}

void TXmlTree::TBuilder::Run(std::span<const std::uint8_t> bytes) {
  // Room that is reserved and not needed costs nothing.
  constexpr std::size_t usualBytesPerElement = 16;
  FTree.FElements.reserve(bytes.size() / usualBytesPerElement + 1);
  FTree.FTexts.reserve(bytes.size());
  // There are no entities but those of XML itself, whose text the attributes then hold.
  TParsing::Run(bytes, XML_PARSE_NOENT);
}

void TXmlTree::TBuilder::Begin(const xmlChar* name, std::span<const xmlChar*> attributes) {
  const auto place = static_cast<std::uint32_t>(FTree.FElements.size());
  FTree.FElements.push_back({.Name = AsText(name),
                             .Attributes = static_cast<std::uint32_t>(FTree.FAttributes.size()),
                             .Line = static_cast<std::uint32_t>(xmlSAX2GetLineNumber(&Parser()))});
  // Name, prefix, address of the namespace, begin and end of the value.
  for (std::size_t i = 0; i < attributes.size(); i += 5) {
    const std::string_view value(AsText(attributes[i + 3]), AsText(attributes[i + 4]));
    FTree.FAttributes.push_back({AsText(attributes[i]), static_cast<std::uint32_t>(FTree.FTexts.size()),
                                 static_cast<std::uint32_t>(value.size())});
    FTree.FTexts.append(value);
  }
  if (FDepth > 0) {
    auto& parent = FOpen[FDepth - 1];
    (parent.LastChild == 0 ? FTree.FElements[parent.Place].FirstChild : FTree.FElements[parent.LastChild].Next) = place;
    parent.LastChild = place;
  }
  if (FDepth == FOpen.size()) FOpen.emplace_back();
  auto& open = FOpen[FDepth++];
  open.Place = place;
  open.LastChild = 0;
  open.Text.clear();
}

void TXmlTree::TBuilder::End() {
  const auto& open = FOpen[--FDepth];
  const bool isLayout = open.LastChild != 0 && std::ranges::all_of(open.Text, IsBlank);
  if (!isLayout) FTree.SetText(FTree.FElements[open.Place], open.Text);
}

TXmlDocument::TXmlDocument(std::span<const std::uint8_t> bytes)
    : FDocument(TParsing(ManyNames).Run(bytes, XML_PARSE_NOBLANKS).release()) {}

void TXmlTree::TDictionaryDeleter::operator()(_xmlDict* names) const {
  xmlDictFree(names);
}

TXmlTree::TXmlTree(std::span<const std::uint8_t> bytes) {
  TBuilder(*this).Run(bytes);
}

const char* TXmlTree::KnownName(std::string_view name) const {
  return AsText(
      xmlDictExists(FNames.get(), reinterpret_cast<const xmlChar*>(name.data()), static_cast<int>(name.size())));
}

std::string_view TXmlTree::TextOf(const TElement& element) const {
  return std::string_view(FTexts).substr(element.TextBegin, element.TextLength);
}

void TXmlTree::SetText(TElement& element, std::string_view text) {
  element.TextBegin = static_cast<std::uint32_t>(FTexts.size());
  element.TextLength = static_cast<std::uint32_t>(text.size());
  FTexts.append(text);
}

std::optional<std::string_view> TXmlTree::AttributeOf(const TElement& element, std::string_view name) const {
  const bool isLast = &element == &FElements.back();
  const std::size_t end = isLast ? FAttributes.size() : (&element + 1)->Attributes;
  for (std::size_t i = element.Attributes; i < end; ++i) {
    const auto& attribute = FAttributes[i];
    if (name == attribute.Name) return std::string_view(FTexts).substr(attribute.Begin, attribute.Length);
  }
  return std::nullopt;
}

void TXmlTree::Remove(TElement& parent, const TElement& child) {
  auto* link = &parent.FirstChild;
  while (At(*link) != &child) link = &At(*link)->Next;
  *link = child.Next;
}

void TXmlTree::ForUnread(const std::function<void(const TElement& section, const TElement& element)>& call) {
  const auto* section = &Root();
  const auto* nextSection = FirstChild(Root());
  // In the order of the file parents stand before their children.
  for (auto& element : FElements) {
    if (&element == nextSection) {
      section = nextSection;
      nextSection = Next(*nextSection);
    }
    if (element.Read && !element.Passed) continue;
    if (!element.Passed) call(*section, element);
    for (auto* child = FirstChild(element); child != nullptr; child = Next(*child)) child->Passed = 1;
  }
}
