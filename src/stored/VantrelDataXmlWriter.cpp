#include <algorithm>
#include <array>

#include "FoundationTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelDataXml.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {

/// What an object of a project takes, roughly: room that is reserved and not needed costs nothing.
constexpr std::int64_t UsualBytesPerObject = 1600;
/// The text goes to the stream in pieces of about this size, which stay in the processor's cache.
constexpr std::size_t ChunkSize = 128 << 10;

/// What must be done about a byte of a text: nothing, an entity, or a closer look, since it may begin something that
/// XML cannot hold (a control character, an encoded surrogate, U+FFFE, U+FFFF, or ill-formed UTF-8).
enum class TCare : std::uint8_t { None, Entity, Look };

constexpr auto CareOf = [] {
  std::array<TCare, 256> care{};
  for (std::size_t byte = 0; byte < care.size(); ++byte)
    if (byte < 0x20 || byte == 0xED || byte == 0xEF || byte >= 0xF0) care[byte] = TCare::Look;
  care['\t'] = care['\n'] = TCare::None;
  for (const char c : {'&', '<', '>', '\r'}) care[static_cast<unsigned char>(c)] = TCare::Entity;
  return care;
}();

TCare CareFor(char c) {
  return CareOf[static_cast<unsigned char>(c)];
}

std::string_view EntityOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return "&#13;";
  }
}

void AppendEscaped(std::string& target, std::string_view text) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (CareFor(text[i]) != TCare::Entity) continue;
    target.append(text, begin, i - begin).append(EntityOf(text[i]));
    begin = i + 1;
  }
  target.append(text, begin);
}

}  // namespace

TVantrelDataObjectXMLWriter::TVantrelDataObjectXMLWriter(TVantrelDataStorage& storage, TVantrelStream& stream)
    : TVantrelDataObjectTextWriter(storage),
      FStream(stream),
      FText(R"(<?xml version="1.0" encoding="utf-8" standalone="yes"?>)") {
  FText.reserve(2 * ChunkSize);
  FStream.Reserve(UsualBytesPerObject * storage.Objects().Count());
  Enter("Storage");
  WriteLongInt("Version", storage.GetVersion());
}

void TVantrelDataObjectXMLWriter::Finish() {
  Leave();
  FlushText();
}

void TVantrelDataObjectXMLWriter::FlushText() {
  const auto size = static_cast<std::int64_t>(FText.size());
  if (FStream.Write(FText.data(), size) != size) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
  FText.clear();
}

void TVantrelDataObjectXMLWriter::StartTag(std::string_view name) {
  if (FTagOpen) FText.push_back('>');
  FTagOpen = true;
  FText.push_back('\n');
  FText.append(2 * FNames.size(), ' ').append("<").append(name);
}

void TVantrelDataObjectXMLWriter::WriteAttribute(std::string_view name, std::string_view value) {
  FText.append(" ").append(name).append("=\"").append(value).append("\"");
}

void TVantrelDataObjectXMLWriter::EndTag(std::string_view name, std::string_view text) {
  FTagOpen = false;
  if (text.empty()) {
    FText.append(" />");
    return;
  }
  FText.push_back('>');
  AppendText(text);
  FText.append("</").append(name).append(">");
}

void TVantrelDataObjectXMLWriter::AppendText(std::string_view text) {
  TCare care = TCare::None;
  for (const char c : text) care = std::max(care, CareFor(c));
  if (care == TCare::None)
    FText.append(text);
  else if (care == TCare::Entity)
    AppendEscaped(FText, text);
  else
    AppendEscaped(FText, XmlText(text));
}

void TVantrelDataObjectXMLWriter::Enter(std::string_view name) {
  StartTag(name);
  FNames.emplace_back(name);
}

void TVantrelDataObjectXMLWriter::Leave() {
  const std::string name = std::move(FNames.back());
  FNames.pop_back();
  if (FTagOpen) {
    EndTag(name, {});
    return;
  }
  FText.push_back('\n');
  FText.append(2 * FNames.size(), ' ').append("</").append(name).append(">");
  if (FText.size() > ChunkSize) FlushText();
}

void TVantrelDataObjectXMLWriter::WriteText(std::string_view name, std::string_view text) {
  StartTag(name);
  EndTag(name, text);
}

void TVantrelDataObjectXMLWriter::WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) {
  if (value == nullptr) return;
  const auto graphic = EncodeGraphic(*value);
  StartTag(name);
  WriteAttribute("Size", std::to_string(graphic.Size));
  EndTag(name, graphic.Base64);
}

void TVantrelDataObjectXMLWriter::EnterObject(std::string_view name, const TVantrelDataObject& object) {
  Enter(name);
  char id[GuidTextLength];
  WriteGuidText(object.ID(), id);
  WriteAttribute("Class", object.GetDataClassName());
  WriteAttribute("ID", {id, GuidTextLength});
}

void TVantrelDataObjectXMLWriter::WriteDataList(std::string_view name, const TVantrelDataList& list) {
  if (list.IsEmpty()) return;
  Enter(name);
  list.WriteData(*this);
  Enter("Items");
  for (int i = 0; i < list.Count(); ++i) {
    if (list.OwnsItems())
      WriteDataObject("Item", list.GetItem(i));
    else
      WriteDataObjectRef("Item", list.GetItem(i));
  }
  Leave();
  Leave();
}

void TVantrelDataObjectXMLWriter::WriteDataObject(std::string_view name, const TVantrelDataObject* object) {
  if (object == nullptr) return;
  EnterObject(name, *object);
  object->WriteData(*this);
  Leave();
}

void TVantrelDataObjectXMLWriter::WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) {
  if (object == nullptr) return;
  EnterObject(name, *object);
  Leave();
}
