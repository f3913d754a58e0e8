#pragma once

#include <memory>

#include "VantrelDataTextIO.h"
#include "VantrelStreams.h"

struct json_object;

/// Values of the JSON library, whose headers stay within this room.
struct TJsonDeleter {
  void operator()(json_object* value) const;
};
using TJsonValue = std::unique_ptr<json_object, TJsonDeleter>;

/// The text as the escape helper of the form makes it (a quote stays as it is), which reading does not undo.
std::string JsonText(std::string_view text);

/// Builds the document as one JSON object and puts it into the stream, in the ANSI code page, when it is finished.
/// Every scalar is a JSON string; a text goes through the escape helper of the form before the serialiser escapes it.
class TVantrelDataObjectJsonWriter final : public TVantrelDataObjectTextWriter {
 public:
  TVantrelDataObjectJsonWriter(TVantrelDataStorage& storage, TVantrelStream& stream);

  void Finish() override;
  using TVantrelDataObjectTextWriter::WriteString;
  void WriteString(std::string_view name, std::string_view value) override;
  void WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) override;
  void WriteDataList(std::string_view name, const TVantrelDataList& list) override;
  /// Null raises EVantrelDataObjectWriterError.
  void WriteDataObject(std::string_view name, const TVantrelDataObject* object) override;
  void WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) override;

 protected:
  void WriteText(std::string_view name, std::string_view text) override;
  void Enter(std::string_view name) override;
  void Leave() override { FCursors.pop_back(); }

 private:
  void Place(std::string_view name, json_object* value);
  void EnterObject(std::string_view name, const TVantrelDataObject& object);

  TVantrelStream& FStream;
  TJsonValue FDocument;
  /// The objects and arrays from the document down to where values are put.
  std::vector<json_object*> FCursors;
};

/// Reads a document from the JSON value that the parser makes of the whole stream.
class TVantrelDataObjectJsonReader final : public TVantrelDataObjectTextReader {
 public:
  /// What an object of a project takes in this form.
  static constexpr int UsualBytesPerObject = 1200;

  TVantrelDataObjectJsonReader(TVantrelDataStorage& storage, TVantrelStream& stream)
      : TVantrelDataObjectTextReader(storage), FStream(stream) {}

  /// Parses the stream, to its end, and reads the version.
  void Open();

  std::string Place() const override;
  TVantrelPtr<TVantrelGraphic> ReadVCLGraphic(std::string_view name, TVantrelGraphicFactory graphicClass,
                                              TVantrelPtr<TVantrelGraphic> existing) override;
  void ReadDataList(std::string_view name, TVantrelDataList& list) override;
  /// An empty name means that the cursor is on the object already.
  TVantrelDataObject* ReadDataObject(std::string_view name, TVantrelDataObject* existing) override;
  TVantrelDataObject* ReadDataObjectRef(std::string_view name) override;

 protected:
  std::optional<std::string_view> FindText(std::string_view name) override;
  bool Enter(std::string_view name) override;
  void Leave() override;
  [[noreturn]] void RaiseTagExpected(std::string_view name) const override;
  char16_t CharOr(std::string_view text, char16_t fallback) const override;

 private:
  json_object* Find(std::string_view name) const;
  void EnterValue(std::string name, json_object* value);
  std::string_view RequireAttribute(json_object* object, const char* name) const;

  TVantrelStream& FStream;
  TJsonValue FDocument;
  std::vector<json_object*> FCursors;
  std::vector<std::string> FPath;
};
