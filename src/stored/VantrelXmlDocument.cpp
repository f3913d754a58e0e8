#include "VantrelXmlDocument.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include "VantrelXmlText.h"

namespace {

const xmlChar* AsXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

struct TXmlFree {
  void operator()(xmlChar* text) const { xmlFree(text); }
};
/// A text that the parser's library gives away.
using TXmlText = std::unique_ptr<xmlChar, TXmlFree>;

std::string AsString(const TXmlText& text) {
  return text == nullptr ? std::string() : reinterpret_cast<const char*>(text.get());
}

/// The first element from the node on.
TXmlElement ElementFrom(_xmlNode* node) {
  while (node != nullptr && node->type != XML_ELEMENT_NODE) node = node->next;
  return TXmlElement(node);
}

}  // namespace

std::string_view TXmlElement::Name() const {
  return FNode == nullptr ? std::string_view() : reinterpret_cast<const char*>(FNode->name);
}

TXmlElement TXmlElement::FirstChild() const {
  return ElementFrom(FNode == nullptr ? nullptr : FNode->children);
}

TXmlElement TXmlElement::Next() const {
  return ElementFrom(FNode == nullptr ? nullptr : FNode->next);
}

bool TXmlElement::HasContent() const {
  return FNode != nullptr && FNode->children != nullptr;
}

std::string TXmlElement::Text() const {
  return AsString(TXmlText(xmlNodeGetContent(FNode)));
}

std::optional<std::string> TXmlElement::Attribute(const char* name) const {
  const TXmlText text(FNode == nullptr ? nullptr : xmlGetNoNsProp(FNode, AsXml(name)));
  if (text == nullptr) return std::nullopt;
  return AsString(text);
}

TXmlElement TXmlElement::AddChild(const std::string& name) {
  return TXmlElement(xmlNewChild(FNode, nullptr, AsXml(name.c_str()), nullptr));
}

void TXmlElement::SetText(const std::string& text) {
  xmlNodeSetContent(FNode, AsXml(text.c_str()));
}

void TXmlElement::SetAttribute(const char* name, const std::optional<std::string>& value) {
  if (value)
    xmlSetProp(FNode, AsXml(name), AsXml(XmlText(*value).c_str()));
  else
    xmlUnsetProp(FNode, AsXml(name));
}

void TXmlElement::Remove() {
  if (FNode == nullptr) return;
  xmlUnlinkNode(FNode);
  xmlFreeNode(FNode);
  FNode = nullptr;
}

void TXmlDocument::TDeleter::operator()(_xmlDoc* document) const {
  xmlFreeDoc(document);
}

TXmlDocument::TXmlDocument(const std::string& rootName) : FDocument(xmlNewDoc(AsXml("1.0"))) {
  xmlDocSetRootElement(FDocument.get(), xmlNewDocNode(FDocument.get(), nullptr, AsXml(rootName.c_str()), nullptr));
}

TXmlElement TXmlDocument::Root() const {
  return TXmlElement(xmlDocGetRootElement(FDocument.get()));
}

std::string TXmlDocument::Text() const {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(FDocument.get(), &text, &size, "utf-8", 1);
  const TXmlText owned(text);
  return owned == nullptr ? std::string()
                          : std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}
