#pragma once

#include <optional>

#include "VantrelDataIO.h"
#include "VantrelIO.h"

/// The binary form: exactly the sequence of values that WriteData asks for. No names, no framing; the order of the
/// calls is the format.
class TVantrelDataObjectBinWriter final : public TVantrelDataObjectWriter {
 public:
  TVantrelDataObjectBinWriter(TVantrelDataStorage& storage, TVantrelStream& stream)
      : TVantrelDataObjectWriter(storage), FWriter(stream, 0) {}

#define VANTREL_DECLARE(Type, CppType)         \
  using TVantrelDataObjectWriter::Write##Type; \
  void Write##Type(std::string_view name, CppType value) override;
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  using TVantrelDataObjectWriter::WriteString;
  void WriteString(std::string_view name, std::string_view value) override;
  void WriteStringList(std::string_view name, const std::vector<std::string>& value) override;
  void WriteShortCut(std::string_view name, const TVantrelShortCut& value) override;
  /// Null is written as a value of its class with nothing in it.
  void WriteVCLBrush(std::string_view name, const TVantrelBrush* value) override;
  void WriteVCLFont(std::string_view name, const TVantrelFont* value) override;
  void WriteVCLPen(std::string_view name, const TVantrelPen* value) override;
  void WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) override;
  void WriteDataList(std::string_view name, const TVantrelDataList& list) override;
  void WriteDataObject(std::string_view name, const TVantrelDataObject* object) override;
  void WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) override;
  void WriteDataProperty(std::string_view name, const TVantrelDataProperty* property) override;

 protected:
  bool OmitsDefaults() const override {
    return false;
  }

 private:
  TVantrelStreamWriter FWriter;
};

/// Reads the binary form. A short read raises EVantrelReaderError; bytes behind the document are not read, but noted.
class TVantrelDataObjectBinReader final : public TVantrelDataObjectReader {
 public:
  /// What an object of a project takes in this form.
  static constexpr int UsualBytesPerObject = 300;

  TVantrelDataObjectBinReader(TVantrelDataStorage& storage, TVantrelStream& stream);

  void Open() {}

  std::string Place() const override;
  std::vector<TVantrelLoadNote> Notes() override;

#define VANTREL_DECLARE(Type, CppType)                          \
  CppType Read##Type(std::string_view name) override;           \
  CppType Read##Type(std::string_view name, CppType) override { \
    return Read##Type(name);                                    \
  }
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  std::string ReadString(std::string_view name) override;
  std::string ReadString(std::string_view name, std::string_view) override {
    return ReadString(name);
  }
  void ReadStringList(std::string_view name, std::vector<std::string>& list) override;
  TVantrelShortCut ReadShortCut(std::string_view name) override;
  std::unique_ptr<TVantrelBrush> ReadVCLBrush(std::string_view name, std::unique_ptr<TVantrelBrush> existing) override;
  std::unique_ptr<TVantrelFont> ReadVCLFont(std::string_view name, std::unique_ptr<TVantrelFont> existing) override;
  std::unique_ptr<TVantrelPen> ReadVCLPen(std::string_view name, std::unique_ptr<TVantrelPen> existing) override;
  TVantrelPtr<TVantrelGraphic> ReadVCLGraphic(std::string_view name, TVantrelGraphicFactory graphicClass,
                                              TVantrelPtr<TVantrelGraphic> existing) override;
  void ReadDataList(std::string_view name, TVantrelDataList& list) override;
  TVantrelDataObject* ReadDataObject(std::string_view name, TVantrelDataObject* existing) override;
  TVantrelDataObject* ReadDataObjectRef(std::string_view name) override;
  void ReadDataProperty(std::string_view name, TVantrelDataProperty* property) override;

 private:
  TVantrelDataObject* ReadIdentity();
  /// A count of things that take at least `least` bytes each; more than can be there is a short read. One below 0 is
  /// noted and counts as none.
  std::int32_t ReadCount(std::int64_t least);

  TVantrelStream& FStream;
  TVantrelStreamReader FReader;
  std::string FClassName;
  /// Of the first count below 0.
  std::optional<TVantrelLoadNote> FNegativeCount;
};
