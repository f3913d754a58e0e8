#include "VantrelDataJson.h"

#include <fmt/format.h>
#include <json-c/json.h>
#include <json-c/printbuf.h>

#include <new>

#include "FoundationTexts.h"
#include "StoredTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace {

constexpr int MaxJsonDepth = 256;

template <class T>
T* Checked(T* made) {
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

std::string_view EscapeOf(char c) {
  switch (c) {
    case '/':
      return "\\/";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\t':
      return "\\t";
    case '\n':
      return "\\n";
    case '\f':
      return "\\f";
    case '\r':
      return "\\r";
    default:
      return {};
  }
}

/// The serialiser's level: the same table and the quote, nothing else (json-c would turn other control characters
/// into \u forms).
int SerialiseString(json_object* value, printbuf* target, int, int) {
  std::string text = "\"";
  for (const char c : std::string_view(json_object_get_string(value), json_object_get_string_len(value))) {
    const auto escape = c == '"' ? std::string_view("\\\"") : EscapeOf(c);
    if (escape.empty())
      text.push_back(c);
    else
      text.append(escape);
  }
  text.push_back('"');
  return printbuf_memappend(target, text.data(), static_cast<int>(text.size()));
}

json_object* NewString(std::string_view text) {
  json_object* value = Checked(json_object_new_string_len(text.data(), static_cast<int>(text.size())));
  json_object_set_serializer(value, SerialiseString, nullptr, nullptr);
  return value;
}

std::string_view TextOf(json_object* value) {
  const char* text = json_object_get_string(value);
  if (text == nullptr) return {};
  if (json_object_is_type(value, json_type_string))
    return {text, static_cast<std::size_t>(json_object_get_string_len(value))};
  return text;
}

/// The text with every NUL in the form that the parser takes.
std::string WithReadableNuls(std::string text) {
  if (text.find('\0') == std::string::npos) return text;
  std::string readable;
  for (const char c : text) {
    if (c == '\0')
      readable.append("\\u0000");
    else
      readable.push_back(c);
  }
  return readable;
}

}  // namespace

std::string JsonText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const auto escape = EscapeOf(c);
    if (escape.empty())
      escaped.push_back(c);
    else
      escaped.append(escape);
  }
  return escaped;
}

void TJsonDeleter::operator()(json_object* value) const {
  json_object_put(value);
}

TVantrelDataObjectJsonWriter::TVantrelDataObjectJsonWriter(TVantrelDataStorage& storage, TVantrelStream& stream)
    : TVantrelDataObjectTextWriter(storage), FStream(stream), FDocument(Checked(json_object_new_object())) {
  FCursors.push_back(FDocument.get());
  WriteLongInt("Version", storage.GetVersion());
}

void TVantrelDataObjectJsonWriter::Finish() {
  std::size_t length = 0;
  const char* document = json_object_to_json_string_length(FDocument.get(), JSON_C_TO_STRING_PRETTY, &length);
  const auto text = Utf8ToAnsi({Checked(document), length});
  const auto size = static_cast<std::int64_t>(text.size());
  if (FStream.Write(text.data(), size) != size) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
}

void TVantrelDataObjectJsonWriter::Place(std::string_view name, json_object* value) {
  if (json_object_is_type(FCursors.back(), json_type_array))
    json_object_array_add(FCursors.back(), value);
  else
    json_object_object_add(FCursors.back(), std::string(name).c_str(), value);
}

void TVantrelDataObjectJsonWriter::WriteText(std::string_view name, std::string_view text) {
  Place(name, NewString(text));
}

void TVantrelDataObjectJsonWriter::WriteString(std::string_view name, std::string_view value) {
  WriteText(name, JsonText(RepairUtf8(value)));
}

void TVantrelDataObjectJsonWriter::Enter(std::string_view name) {
  json_object* value = Checked(json_object_new_object());
  Place(name, value);
  FCursors.push_back(value);
}

void TVantrelDataObjectJsonWriter::WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) {
  if (value == nullptr) return;
  const auto graphic = EncodeGraphic(*value);
  Enter(name);
  WriteInt64("Size", graphic.Size);
  if (graphic.Size > 0) WriteText("Data", graphic.Base64);
  Leave();
}

void TVantrelDataObjectJsonWriter::WriteDataList(std::string_view name, const TVantrelDataList& list) {
  if (list.IsEmpty()) return;
  Enter(name);
  list.WriteData(*this);
  json_object* items = Checked(json_object_new_array());
  Place("Items", items);
  FCursors.push_back(items);
  for (int i = 0; i < list.Count(); ++i) {
    if (list.OwnsItems())
      WriteDataObject({}, list.GetItem(i));
    else
      WriteDataObjectRef({}, list.GetItem(i));
  }
  Leave();
  Leave();
}

void TVantrelDataObjectJsonWriter::EnterObject(std::string_view name, const TVantrelDataObject& object) {
  Enter(name);
  WriteText("Class", object.GetDataClassName());
  WriteGuid("ID", object.ID());
}

void TVantrelDataObjectJsonWriter::WriteDataObject(std::string_view name, const TVantrelDataObject* object) {
  if (object == nullptr) throw EVantrelDataObjectWriterError(ResourceText(StoredTexts::NullInstance));
  EnterObject(name, *object);
  Enter("Properties");
  object->WriteData(*this);
  Leave();
  Leave();
}

void TVantrelDataObjectJsonWriter::WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) {
  if (object == nullptr) return;
  EnterObject(name, *object);
  Leave();
}

void TVantrelDataObjectJsonReader::Open() {
  const auto bytes = FStream.ReadAll();
  const auto text = WithReadableNuls(AnsiToUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  struct TFree {
    void operator()(json_tokener* tokener) const { json_tokener_free(tokener); }
  };
  const std::unique_ptr<json_tokener, TFree> tokener(Checked(json_tokener_new_ex(MaxJsonDepth)));
  FDocument.reset(text.size() > INT32_MAX
                      ? nullptr
                      : json_tokener_parse_ex(tokener.get(), text.c_str(), static_cast<int>(text.size()) + 1));
  if (!json_object_is_type(FDocument.get(), json_type_object))
    throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::NoXml));
  EnterValue("$", FDocument.get());
  FVersion = static_cast<int>(TextToIntegerOr(FindText("Version").value_or("0"), 0));
}

std::string TVantrelDataObjectJsonReader::Place() const {
  std::string path;
  for (const auto& part : FPath) path = Join(path, part, ".");
  return FormatText(StoredTexts::PlaceInJson, path);
}

json_object* TVantrelDataObjectJsonReader::Find(std::string_view name) const {
  if (name.empty()) return FCursors.back();
  json_object* value = nullptr;
  if (!json_object_is_type(FCursors.back(), json_type_object)) return nullptr;
  json_object_object_get_ex(FCursors.back(), std::string(name).c_str(), &value);
  return value;
}

void TVantrelDataObjectJsonReader::EnterValue(std::string name, json_object* value) {
  FPath.push_back(std::move(name));
  FCursors.push_back(value);
}

void TVantrelDataObjectJsonReader::Leave() {
  FPath.pop_back();
  FCursors.pop_back();
}

bool TVantrelDataObjectJsonReader::Enter(std::string_view name) {
  json_object* value = Find(name);
  if (!json_object_is_type(value, json_type_object)) return false;
  EnterValue(std::string(name), value);
  return true;
}

std::optional<std::string_view> TVantrelDataObjectJsonReader::FindText(std::string_view name) {
  json_object* value = Find(name);
  if (value == nullptr) return std::nullopt;
  return TextOf(value);
}

void TVantrelDataObjectJsonReader::RaiseTagExpected(std::string_view) const {
  throw EConvertError(FormatText(StoredTexts::FormatMismatch, StoredTexts::TagExpected));
}

char16_t TVantrelDataObjectJsonReader::CharOr(std::string_view text, char16_t) const {
  const auto units = Utf8ToUtf16(text);
  if (units.empty()) throw EVantrelDataObjectReaderError(ResourceText(StoredTexts::EmptyChar));
  return units.front();
}

std::string_view TVantrelDataObjectJsonReader::RequireAttribute(json_object* object, const char* name) const {
  json_object* value = nullptr;
  if (!json_object_is_type(object, json_type_object) || !json_object_object_get_ex(object, name, &value))
    throw EConvertError(FormatText(StoredTexts::FormatMismatch, StoredTexts::AttributeExpected));
  return TextOf(value);
}

TVantrelPtr<TVantrelGraphic> TVantrelDataObjectJsonReader::ReadVCLGraphic(std::string_view name,
                                                                          TVantrelGraphicFactory graphicClass,
                                                                          TVantrelPtr<TVantrelGraphic> existing) {
  if (!Enter(name)) return existing;
  const auto size = ReadInt64("Size");
  auto graphic = DecodeGraphic(size, FindText("Data"), graphicClass);
  Leave();
  return graphic;
}

void TVantrelDataObjectJsonReader::ReadDataList(std::string_view name, TVantrelDataList& list) {
  list.Clear();
  if (!Enter(name)) {
    list.DoClear();
    return;
  }
  list.ReadData(*this);
  json_object* items = Find("Items");
  if (!json_object_is_type(items, json_type_array)) RaiseTagExpected("Items");
  const std::size_t count = json_object_array_length(items);
  for (std::size_t i = 0; i < count; ++i) {
    EnterValue(fmt::format("Items[{}]", i), json_object_array_get_idx(items, i));
    list.Add(list.OwnsItems() ? ReadDataObject({}, nullptr) : ReadDataObjectRef({}));
    Leave();
  }
  Leave();
}

TVantrelDataObject* TVantrelDataObjectJsonReader::ReadDataObject(std::string_view name, TVantrelDataObject* existing) {
  json_object* value = Find(name);
  if (value == nullptr) return existing;
  const auto className = RequireAttribute(value, "Class");
  auto* object = ObjectOf(className, RequireAttribute(value, "ID"));
  json_object* properties = nullptr;
  if (json_object_object_get_ex(value, "Properties", &properties)) {
    EnterValue(std::string(name.empty() ? "Properties" : name), properties);
    FillObject(*object);
    Leave();
  }
  return object;
}

TVantrelDataObject* TVantrelDataObjectJsonReader::ReadDataObjectRef(std::string_view name) {
  json_object* value = Find(name);
  if (value == nullptr) return nullptr;
  const auto className = RequireAttribute(value, "Class");
  return ObjectOf(className, RequireAttribute(value, "ID"));
}
