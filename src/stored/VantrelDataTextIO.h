#pragma once

#include <optional>

#include "VantrelDataIO.h"

/// What the forms with names and texts share: every scalar is one text under its name.
class TVantrelDataObjectTextWriter : public TVantrelDataObjectWriter {
 public:
  using TVantrelDataObjectWriter::TVantrelDataObjectWriter;

#define VANTREL_DECLARE(Type, CppType)         \
  using TVantrelDataObjectWriter::Write##Type; \
  void Write##Type(std::string_view name, CppType value) final;
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  void WriteStringList(std::string_view name, const std::vector<std::string>& value) final;
  void WriteShortCut(std::string_view name, const TVantrelShortCut& value) final;
  void WriteVCLBrush(std::string_view name, const TVantrelBrush* value) final;
  void WriteVCLFont(std::string_view name, const TVantrelFont* value) final;
  void WriteVCLPen(std::string_view name, const TVantrelPen* value) final;
  void WriteDataProperty(std::string_view name, const TVantrelDataProperty* property) final;

 protected:
  /// A text as it shall stand in the file, but for what the form must do so that it can be read back.
  virtual void WriteText(std::string_view name, std::string_view text) = 0;
  /// Opens and closes a structure under the name: what is written between belongs to it.
  virtual void Enter(std::string_view name) = 0;
  virtual void Leave() = 0;
};

/// The reader of the forms that are text: all values are read from texts that the form finds under their names.
class TVantrelDataObjectTextReader : public TVantrelDataObjectReader {
 public:
  using TVantrelDataObjectReader::TVantrelDataObjectReader;

#define VANTREL_DECLARE(Type, CppType)             \
  CppType Read##Type(std::string_view name) final; \
  CppType Read##Type(std::string_view name, CppType fallback) final;
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  std::string ReadString(std::string_view name) final;
  std::string ReadString(std::string_view name, std::string_view fallback) final;
  void ReadStringList(std::string_view name, std::vector<std::string>& list) final;
  TVantrelShortCut ReadShortCut(std::string_view name) final;
  std::unique_ptr<TVantrelBrush> ReadVCLBrush(std::string_view name, std::unique_ptr<TVantrelBrush> existing) final;
  std::unique_ptr<TVantrelFont> ReadVCLFont(std::string_view name, std::unique_ptr<TVantrelFont> existing) final;
  std::unique_ptr<TVantrelPen> ReadVCLPen(std::string_view name, std::unique_ptr<TVantrelPen> existing) final;
  void ReadDataProperty(std::string_view name, TVantrelDataProperty* property) final;

 protected:
  /// The text under the name, or none. Valid until the next call.
  virtual std::optional<std::string_view> FindText(std::string_view name) = 0;
  /// Goes down to the structure under the name; false where there is none.
  virtual bool Enter(std::string_view name) = 0;
  virtual void Leave() = 0;
  [[noreturn]] virtual void RaiseTagExpected(std::string_view name) const = 0;
  /// A char read with a default from a text that is there.
  virtual char16_t CharOr(std::string_view text, char16_t fallback) const = 0;
  /// The picture of `size` bytes from its Base64 text; no size, no picture. Raises EVantrelDataObjectReaderError for
  /// a size that the data do not have.
  static TVantrelPtr<TVantrelGraphic> DecodeGraphic(std::int64_t size, std::optional<std::string_view> base64,
                                                    TVantrelGraphicFactory graphicClass);
  /// The stored class and GUID as an object (see FindOrCreate); the class need be known only for a new one.
  TVantrelDataObject* ObjectOf(std::string_view className, std::string_view id);

 private:
  std::string_view RequireText(std::string_view name);
};

/// The stream form of a picture in Base64.
struct TVantrelGraphicText {
  std::int64_t Size;
  std::string Base64;
};
TVantrelGraphicText EncodeGraphic(const TVantrelGraphic& graphic);
