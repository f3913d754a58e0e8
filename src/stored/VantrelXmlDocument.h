#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Of the parser, whose headers stay within this room.
struct _xmlDoc;
struct _xmlNode;

/// An element of a document, or none, which has no name, no children and no attributes. Valid until it or one that it
/// stands in is removed.
class TXmlElement {
 public:
  explicit TXmlElement(_xmlNode* node = nullptr) : FNode(node) {}
  explicit operator bool() const { return FNode != nullptr; }

  std::string_view Name() const;
  /// The first of the elements within; none if there is none.
  TXmlElement FirstChild() const;
  /// The next element beside it; none behind the last.
  TXmlElement Next() const;
  /// Anything stands within: an element, a text, a comment.
  bool HasContent() const;
  /// All text within, that of elements too.
  std::string Text() const;
  std::optional<std::string> Attribute(const char* name) const;

  /// Adds an empty element behind the others. The name must be one of XML.
  TXmlElement AddChild(const std::string& name);
  /// Puts the text in place of all that stands within.
  void SetText(const std::string& text);
  /// Characters that XML cannot hold are left out. Without a value the attribute goes.
  void SetAttribute(const char* name, const std::optional<std::string>& value);
  /// Takes the element out of the document with all within.
  void Remove();

 private:
  _xmlNode* FNode;
};

/// A document that is changed and written again: what nobody touches stays as it is. TXmlTree is for those that are
/// only read.
class TXmlDocument {
 public:
  /// One with an empty root of that name.
  explicit TXmlDocument(const std::string& rootName);
  /// Parses a document. No network, no external entities, no entity expansion, no document type; bounded depth.
  /// Ill-formed text raises EVantrelXmlError, which tells line and the parser's own text; no text at all
  /// EVantrelDataObjectReaderError; short memory std::bad_alloc.
  explicit TXmlDocument(std::span<const std::uint8_t> bytes);

  TXmlElement Root() const;
  /// The document in UTF-8, an element a line, indented; empty where the memory is short.
  std::string Text() const;

 private:
  struct TDeleter {
    void operator()(_xmlDoc* document) const;
  };

  std::unique_ptr<_xmlDoc, TDeleter> FDocument;
};
