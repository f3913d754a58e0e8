#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelExceptions.h"

/// Ill-formed XML text.
class EVantrelXmlError : public EVantrelException {
 public:
  EVantrelXmlError(std::string message, int line) : EVantrelException(std::move(message)), FLine(line) {}
  int Line() const { return FLine; }

 private:
  int FLine;
};

// Of the parser, whose headers stay within this room.
struct _xmlDict;

/// A document that is only read, in a fraction of the memory of the parser's own tree: the elements in one block in
/// the order of the file, their texts in another. Comments and instructions are left out, and blanks beside child
/// elements.
class TXmlTree {
 public:
  struct TElement {
    /// Equal names of a tree are the same pointer.
    const char* Name;
    /// Places in the block of elements; 0 for none, since the root is neither sibling nor child.
    std::uint32_t Next = 0;
    std::uint32_t FirstChild = 0;
    /// Places in the texts and in the attributes, which end where those of the next element begin.
    std::uint32_t TextBegin = 0;
    std::uint32_t TextLength = 0;
    std::uint32_t Attributes = 0;
    /// From 1, of the start tag.
    std::uint32_t Line : 30 = 0;
    /// The reader of the document has asked for the element.
    std::uint32_t Read : 1 = 0;
    /// It stands within one that nobody has asked for.
    std::uint32_t Passed : 1 = 0;
  };

  TXmlTree() = default;
  /// Parses the document, bounded and refused as told at TXmlDocument; far more different names than a project has
  /// raise EVantrelXmlError too.
  explicit TXmlTree(std::span<const std::uint8_t> bytes);

  TElement& Root() { return FElements.front(); }
  /// Null for none.
  TElement* FirstChild(const TElement& element) { return At(element.FirstChild); }
  TElement* Next(const TElement& element) { return At(element.Next); }
  static std::string_view NameOf(const TElement& element) { return element.Name; }
  /// The pointer that elements of that name have; null where none has it.
  const char* KnownName(std::string_view name) const;
  /// All character data directly in the element. Valid until a text is set.
  std::string_view TextOf(const TElement& element) const;
  void SetText(TElement& element, std::string_view text);
  std::optional<std::string_view> AttributeOf(const TElement& element, std::string_view name) const;
  /// Takes the child out of the document.
  void Remove(TElement& parent, const TElement& child);
  /// Calls for each element that nobody has asked for, but not for those within, with the child of the root that it
  /// stands in.
  void ForUnread(const std::function<void(const TElement& section, const TElement& element)>& call);

 private:
  class TBuilder;
  struct TAttribute {
    const char* Name;
    std::uint32_t Begin;
    std::uint32_t Length;
  };
  struct TDictionaryDeleter {
    void operator()(_xmlDict* names) const;
  };

  TElement* At(std::uint32_t place) { return place == 0 ? nullptr : &FElements[place]; }

  std::unique_ptr<_xmlDict, TDictionaryDeleter> FNames;
  std::vector<TElement> FElements;
  std::vector<TAttribute> FAttributes;
  std::string FTexts;
};
