#include "VantrelDataTextIO.h"

#include <type_traits>

#include "StoredTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"
#include "VantrelScalarTexts.h"
#include "VantrelText.h"

#define VANTREL_DEFINE(Type, CppType)                                                    \
  void TVantrelDataObjectTextWriter::Write##Type(std::string_view name, CppType value) { \
    ScalarTexts::TBuffer buffer;                                                         \
    WriteText(name, ScalarTexts::Write##Type(value, buffer));                            \
  }                                                                                      \
  CppType TVantrelDataObjectTextReader::Read##Type(std::string_view name) {              \
    return ScalarTexts::Parse##Type(RequireText(name));                                  \
  }
VANTREL_SCALARS(VANTREL_DEFINE)
#undef VANTREL_DEFINE

namespace {
/// A char that is there goes by a rule of the form; all other scalars by their text.
template <class T, class TParse, class TCharOr>
T ParseOr(std::optional<std::string_view> text, T fallback, TParse parse, TCharOr charOr) {
  if (!text) return fallback;
  if constexpr (std::is_same_v<T, char16_t>)
    return charOr(*text, fallback);
  else
    return parse(*text);
}
}  // namespace

#define VANTREL_DEFINE(Type, CppType)                                                              \
  CppType TVantrelDataObjectTextReader::Read##Type(std::string_view name, CppType fallback) {      \
    return ParseOr(FindText(name), fallback, ScalarTexts::Parse##Type,                             \
                   [this](std::string_view text, char16_t other) { return CharOr(text, other); }); \
  }
VANTREL_SCALARS(VANTREL_DEFINE)
#undef VANTREL_DEFINE

void TVantrelDataObjectTextWriter::WriteStringList(std::string_view name, const std::vector<std::string>& value) {
  WriteString(name, ToDelimitedText(value));
}

void TVantrelDataObjectTextWriter::WriteShortCut(std::string_view name, const TVantrelShortCut& value) {
  Enter(name);
  WriteByte("ShiftKeys", value.ShiftKeys);
  WriteByte("VirtualKey", value.VirtualKey);
  Leave();
}

#define VANTREL_WRITE(Operation, Member) Write##Operation(#Member, value->Member);
#define VANTREL_READ(Operation, Member) existing->Member = Read##Operation(#Member);
#define VANTREL_DEFINE(Record, Fields)                                                                        \
  void TVantrelDataObjectTextWriter::WriteVCL##Record(std::string_view name, const TVantrel##Record* value) { \
    if (value == nullptr) return;                                                                             \
    Enter(name);                                                                                              \
    Fields(VANTREL_WRITE);                                                                                    \
    Leave();                                                                                                  \
  }                                                                                                           \
  std::unique_ptr<TVantrel##Record> TVantrelDataObjectTextReader::ReadVCL##Record(                            \
      std::string_view name, std::unique_ptr<TVantrel##Record> existing) {                                    \
    if (!Enter(name)) return existing;                                                                        \
    if (existing == nullptr) existing = std::make_unique<TVantrel##Record>();                                 \
    Fields(VANTREL_READ);                                                                                     \
    Leave();                                                                                                  \
    return existing;                                                                                          \
  }
VANTREL_DRAWING_RECORDS(VANTREL_DEFINE)
#undef VANTREL_DEFINE
#undef VANTREL_READ
#undef VANTREL_WRITE

void TVantrelDataObjectTextWriter::WriteDataProperty(std::string_view name, const TVantrelDataProperty* property) {
  if (property == nullptr) throw EVantrelDataObjectWriterError(ResourceText(StoredTexts::NullInstance));
  Enter(name);
  property->WriteData(*this);
  Leave();
}

std::string_view TVantrelDataObjectTextReader::RequireText(std::string_view name) {
  const auto text = FindText(name);
  if (!text) RaiseTagExpected(name);
  return *text;
}

std::string TVantrelDataObjectTextReader::ReadString(std::string_view name) {
  return std::string(RequireText(name));
}

std::string TVantrelDataObjectTextReader::ReadString(std::string_view name, std::string_view fallback) {
  return std::string(FindText(name).value_or(fallback));
}

void TVantrelDataObjectTextReader::ReadStringList(std::string_view name, std::vector<std::string>& list) {
  const auto text = FindText(name);
  list = text ? FromDelimitedText(*text) : std::vector<std::string>();
}

TVantrelShortCut TVantrelDataObjectTextReader::ReadShortCut(std::string_view name) {
  TVantrelShortCut value;
  if (!Enter(name)) return value;
  value.ShiftKeys = ReadByte("ShiftKeys");
  value.VirtualKey = ReadByte("VirtualKey");
  Leave();
  return value;
}

void TVantrelDataObjectTextReader::ReadDataProperty(std::string_view name, TVantrelDataProperty* property) {
  if (property == nullptr) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NullInstance));
  if (!Enter(name)) return;
  property->ReadData(*this);
  Leave();
}

TVantrelDataObject* TVantrelDataObjectTextReader::ObjectOf(std::string_view className, std::string_view id) {
  const TGuid guid = TextToGuid(id);
  const bool known = FStorage.Objects().GetObject(guid) != nullptr;
  return FindOrCreate(known ? FindClass(className) : &RequireClass(className), guid);
}

TVantrelPtr<TVantrelGraphic> TVantrelDataObjectTextReader::DecodeGraphic(std::int64_t size,
                                                                         std::optional<std::string_view> base64,
                                                                         TVantrelGraphicFactory graphicClass) {
  if (size < 1) return nullptr;
  auto bytes = DecodeBase64(base64.value_or(std::string_view()));
  if (size > static_cast<std::int64_t>(bytes.size()))
    throw EVantrelDataObjectReaderError(FormatText(StoredTexts::GraphicSize, size));
  TVantrelMemoryStream stream(std::move(bytes));
  auto graphic = graphicClass();
  graphic->LoadFromStream(stream, size);
  return graphic;
}

TVantrelGraphicText EncodeGraphic(const TVantrelGraphic& graphic) {
  TVantrelMemoryStream stream;
  graphic.SaveToStream(stream);
  return {stream.Size(), EncodeBase64(stream.Bytes().data(), stream.Bytes().size())};
}
