#include "VantrelDataBin.h"

#include "FoundationTexts.h"
#include "StoredTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {
/// A stream that is not in memory is read through a window of this size.
constexpr int ReadBufferSize = 256 * 1024;
}  // namespace

// Their bytes are those of the value as it is.
#define VANTREL_DEFINE(Type, CppType)                                              \
  void TVantrelDataObjectBinWriter::Write##Type(std::string_view, CppType value) { \
    FWriter.Write##Type(value);                                                    \
  }                                                                                \
  CppType TVantrelDataObjectBinReader::Read##Type(std::string_view) {              \
    return FReader.Read##Type();                                                   \
  }
VANTREL_PRIMITIVE_SCALARS(VANTREL_DEFINE)
#undef VANTREL_DEFINE

// The others, by the primitive that carries them: writer's argument and reader's result.
#define VANTREL_DEFINE(Type, CppType, Primitive, Out, In)                          \
  void TVantrelDataObjectBinWriter::Write##Type(std::string_view, CppType value) { \
    FWriter.Write##Primitive(Out);                                                 \
  }                                                                                \
  CppType TVantrelDataObjectBinReader::Read##Type(std::string_view) {              \
    const auto read = FReader.Read##Primitive();                                   \
    return In;                                                                     \
  }
VANTREL_DEFINE(Comp, std::int64_t, Int64, value, read)
VANTREL_DEFINE(Currency, TCurrency, Int64, value.Value, TCurrency{read})
VANTREL_DEFINE(TimeSpan, TVantrelTimeSpan, Int64, value.Ticks, TVantrelTimeSpan{read})
VANTREL_DEFINE(DateTime, TDateTime, Double, value, read)
VANTREL_DEFINE(Date, TDateTime, Double, value, read)
VANTREL_DEFINE(Time, TDateTime, Double, value, read)
VANTREL_DEFINE(VCLColor, std::int32_t, LongInt, value, read)
#undef VANTREL_DEFINE

// A missing record is written as one that is as it was made.
#define VANTREL_WRITE(Operation, Member) FWriter.Write##Operation(record.Member);
#define VANTREL_READ(Operation, Member) record->Member = FReader.Read##Operation();
#define VANTREL_DEFINE(Record, Fields)                                                                                \
  void TVantrelDataObjectBinWriter::WriteVCL##Record(std::string_view, const TVantrel##Record* value) {               \
    const auto record = value == nullptr ? TVantrel##Record() : *value;                                               \
    Fields(VANTREL_WRITE);                                                                                            \
  }                                                                                                                   \
  std::unique_ptr<TVantrel##Record> TVantrelDataObjectBinReader::ReadVCL##Record(std::string_view,                    \
                                                                                 std::unique_ptr<TVantrel##Record>) { \
    auto record = std::make_unique<TVantrel##Record>();                                                               \
    Fields(VANTREL_READ);                                                                                             \
    return record;                                                                                                    \
  }
VANTREL_DRAWING_RECORDS(VANTREL_DEFINE)
#undef VANTREL_DEFINE
#undef VANTREL_READ
#undef VANTREL_WRITE

void TVantrelDataObjectBinWriter::WriteString(std::string_view, std::string_view value) {
  FWriter.WriteString(value);
}

void TVantrelDataObjectBinWriter::WriteStringList(std::string_view, const std::vector<std::string>& value) {
  FWriter.WriteLongInt(static_cast<std::int32_t>(value.size()));
  for (const auto& line : value) FWriter.WriteString(line);
}

void TVantrelDataObjectBinWriter::WriteShortCut(std::string_view, const TVantrelShortCut& value) {
  FWriter.WriteByte(value.ShiftKeys);
  FWriter.WriteByte(value.VirtualKey);
}

void TVantrelDataObjectBinWriter::WriteVCLGraphic(std::string_view, const TVantrelGraphic* value) {
  TVantrelMemoryStream bytes;
  if (value != nullptr) value->SaveToStream(bytes);
  bytes.SetPosition(0);
  FWriter.WriteBinary(bytes);
}

void TVantrelDataObjectBinWriter::WriteDataList(std::string_view name, const TVantrelDataList& list) {
  list.WriteData(*this);
  FWriter.WriteLongInt(list.Count());
  for (int i = 0; i < list.Count(); ++i) {
    if (list.OwnsItems())
      WriteDataObject(name, list.GetItem(i));
    else
      WriteDataObjectRef(name, list.GetItem(i));
  }
}

void TVantrelDataObjectBinWriter::WriteDataObject(std::string_view name, const TVantrelDataObject* object) {
  WriteDataObjectRef(name, object);
  if (object != nullptr) object->WriteData(*this);
}

void TVantrelDataObjectBinWriter::WriteDataObjectRef(std::string_view, const TVantrelDataObject* object) {
  FWriter.WriteBoolean(object != nullptr);
  if (object == nullptr) return;
  FWriter.WriteString(object->GetDataClassName());
  FWriter.WriteGuid(object->ID());
}

void TVantrelDataObjectBinWriter::WriteDataProperty(std::string_view, const TVantrelDataProperty* property) {
  if (property == nullptr) throw EVantrelDataObjectWriterError(ResourceText(StoredTexts::NullInstance));
  property->WriteData(*this);
}

TVantrelDataObjectBinReader::TVantrelDataObjectBinReader(TVantrelDataStorage& storage, TVantrelStream& stream)
    : TVantrelDataObjectReader(storage), FStream(stream), FReader(stream, ReadBufferSize) {}

std::string TVantrelDataObjectBinReader::Place() const {
  return FormatText(StoredTexts::PlaceInBytes, FReader.Position(), FStream.Size());
}

std::vector<TVantrelLoadNote> TVantrelDataObjectBinReader::Notes() {
  std::vector<TVantrelLoadNote> notes;
  if (FNegativeCount) notes.push_back(*FNegativeCount);
  if (const auto unread = FStream.Size() - FReader.Position(); unread > 0)
    notes.push_back({true, FormatText(StoredTexts::UnreadBytes, unread, FReader.Position())});
  return notes;
}

std::int32_t TVantrelDataObjectBinReader::ReadCount(std::int64_t least) {
  const auto count = FReader.ReadLongInt();
  if (count < 0 && !FNegativeCount) FNegativeCount = {true, FormatText(StoredTexts::NegativeCount, count, Place())};
  if (count > 0 && !FReader.Available(count * least))
    throw EVantrelReaderError(ResourceText(FoundationTexts::ShortRead));
  return count;
}

std::string TVantrelDataObjectBinReader::ReadString(std::string_view) {
  return FReader.ReadString();
}

void TVantrelDataObjectBinReader::ReadStringList(std::string_view, std::vector<std::string>& list) {
  list.clear();
  constexpr int leastString = 4;
  for (auto left = ReadCount(leastString); left > 0; --left) list.push_back(FReader.ReadString());
}

TVantrelShortCut TVantrelDataObjectBinReader::ReadShortCut(std::string_view) {
  TVantrelShortCut value;
  value.ShiftKeys = FReader.ReadByte();
  value.VirtualKey = FReader.ReadByte();
  return value;
}

TVantrelPtr<TVantrelGraphic> TVantrelDataObjectBinReader::ReadVCLGraphic(std::string_view,
                                                                         TVantrelGraphicFactory graphicClass,
                                                                         TVantrelPtr<TVantrelGraphic>) {
  auto bytes = FReader.ReadBinary();
  if (bytes->Size() == 0) return nullptr;
  auto graphic = graphicClass();
  graphic->LoadFromStream(*bytes, bytes->Size());
  return graphic;
}

void TVantrelDataObjectBinReader::ReadDataList(std::string_view name, TVantrelDataList& list) {
  list.Clear();
  list.ReadData(*this);
  constexpr int leastObject = 1;
  for (auto left = ReadCount(leastObject); left > 0; --left)
    list.Add(list.OwnsItems() ? ReadDataObject(name, nullptr) : ReadDataObjectRef(name));
}

TVantrelDataObject* TVantrelDataObjectBinReader::ReadIdentity() {
  FReader.ReadString(FClassName);
  const auto& dataClass = RequireClass(FClassName);
  return FindOrCreate(&dataClass, FReader.ReadGuid());
}

TVantrelDataObject* TVantrelDataObjectBinReader::ReadDataObject(std::string_view, TVantrelDataObject* existing) {
  if (!FReader.ReadBoolean()) return existing;
  auto* object = ReadIdentity();
  FillObject(*object);
  return object;
}

TVantrelDataObject* TVantrelDataObjectBinReader::ReadDataObjectRef(std::string_view) {
  return FReader.ReadBoolean() ? ReadIdentity() : nullptr;
}

void TVantrelDataObjectBinReader::ReadDataProperty(std::string_view, TVantrelDataProperty* property) {
  if (property == nullptr) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NullInstance));
  property->ReadData(*this);
}
