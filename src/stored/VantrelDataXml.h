#pragma once

#include "VantrelDataNotes.h"
#include "VantrelDataTextIO.h"
#include "VantrelStreams.h"
#include "VantrelXml.h"

/// Builds the document in memory and puts it into the stream when it is finished: UTF-8, an element a line, indented.
/// Ill-formed UTF-8 becomes U+FFFD, other characters that XML cannot hold are left out; carriage returns are written so
/// that they survive.
class TVantrelDataObjectXMLWriter final : public TVantrelDataObjectTextWriter {
 public:
  TVantrelDataObjectXMLWriter(TVantrelDataStorage& storage, TVantrelStream& stream);

  void Finish() override;
  using TVantrelDataObjectTextWriter::WriteString;
  void WriteString(std::string_view name, std::string_view value) override { WriteText(name, value); }
  void WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) override;
  void WriteDataList(std::string_view name, const TVantrelDataList& list) override;
  void WriteDataObject(std::string_view name, const TVantrelDataObject* object) override;
  void WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) override;

 protected:
  void WriteText(std::string_view name, std::string_view text) override;
  void Enter(std::string_view name) override;
  void Leave() override;

 private:
  /// Begins an element on a line of its own; attributes may follow.
  void StartTag(std::string_view name);
  /// The value is a class name, a GUID or a number: nothing that needs an entity.
  void WriteAttribute(std::string_view name, std::string_view value);
  /// Ends an element that has no children.
  void EndTag(std::string_view name, std::string_view text);
  void AppendText(std::string_view text);
  void FlushText();
  void EnterObject(std::string_view name, const TVantrelDataObject& object);

  TVantrelStream& FStream;
  std::string FText;
  /// The elements that are open, and whether the tag of the last one still is.
  std::vector<std::string> FNames;
  bool FTagOpen = false;
};

/// Reads a document from the tree that the parser makes of the whole stream. Elements are asked for by name: what
/// nobody asks for is passed over and noted, as are names that the file lacks and the name of a foreign root.
class TVantrelDataObjectXMLReader final : public TVantrelDataObjectTextReader {
 public:
  /// What an object of a project takes in this form.
  static constexpr int UsualBytesPerObject = 1200;

  TVantrelDataObjectXMLReader(TVantrelDataStorage& storage, TVantrelStream& stream)
      : TVantrelDataObjectTextReader(storage), FStream(stream) {}

  /// Parses the stream, to its end, and reads the version.
  void Open();

  std::string Place() const override;
  std::vector<TVantrelLoadNote> Notes() override;
  TVantrelPtr<TVantrelGraphic> ReadVCLGraphic(std::string_view name, TVantrelGraphicFactory graphicClass,
                                              TVantrelPtr<TVantrelGraphic> existing) override;
  void ReadDataList(std::string_view name, TVantrelDataList& list) override;
  TVantrelDataObject* ReadDataObject(std::string_view name, TVantrelDataObject* existing) override;
  TVantrelDataObject* ReadDataObjectRef(std::string_view name) override;

 protected:
  std::optional<std::string_view> FindText(std::string_view name) override;
  bool Enter(std::string_view name) override;
  void Leave() override;
  [[noreturn]] void RaiseTagExpected(std::string_view name) const override;
  char16_t CharOr(std::string_view text, char16_t fallback) const override;

 private:
  using TElement = TXmlTree::TElement;

  /// The element whose children are being read. Children are mostly asked for in their order, so the search begins
  /// behind the last hit; FNames from NamesBegin on are the names before that place.
  struct TLevel {
    TElement* Element;
    TElement* Next;
    std::size_t NamesBegin;
  };

  void ReadVersion();
  /// The next element of that name among the element, which may be null, and its siblings behind it.
  TElement* FindFrom(TElement* element, std::string_view name);
  TElement* Find(std::string_view name);
  std::string_view RequireAttribute(const TElement& element, std::string_view name) const;
  TVantrelDataObject* ObjectAt(const TElement& element);
  TVantrelDataObject* FilledObjectAt(TElement& element);
  /// Takes an item per child element: the first "Item" that is left, whatever stands before it. Consumes the children.
  void ReadItems(TVantrelDataList& list);
  void EnterElement(TElement& element);
  std::string PathOfCursor() const;
  void NoteMissing(std::string_view name);

  TVantrelStream& FStream;
  TXmlTree FTree;
  int FErrorLine = 0;
  std::vector<TLevel> FLevels;
  std::vector<const char*> FNames;
  TVantrelNameCounts FMissing;
};
