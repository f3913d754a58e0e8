#include <array>

#include "FoundationTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelDataXml.h"
#include "VantrelI18n.h"
#include "VantrelXmlText.h"

namespace {

/// What an object of a project takes, roughly: room that is reserved and not needed costs nothing.
constexpr std::int64_t UsualBytesPerObject = 1600;
/// The text goes to the stream in pieces of about this size, which stay in the processor's cache.
constexpr std::size_t ChunkSize = 128 << 10;

/// What must be done about a byte of a text, as bits: an entity, or a closer look, since it may belong to something
/// that XML cannot hold.
constexpr std::uint8_t Entity = 1, Look = 2;

constexpr auto CareOf = [] {
  std::array<std::uint8_t, 256> care{};
  for (std::size_t byte = 0; byte < care.size(); ++byte)
    if (byte < 0x20 || byte >= 0x80) care[byte] = Look;
  care['\t'] = care['\n'] = 0;
  for (const char c : {'&', '<', '>', '\r'}) care[static_cast<unsigned char>(c)] = Entity;
  return care;
}();

std::uint8_t CareFor(char c) {
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
    if (CareFor(text[i]) != Entity) continue;
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
  if (!text.empty()) {
    FText.push_back('>');
    const auto begin = FText.size();
    AppendText(text);
    if (FText.size() > begin) {
      FText.append("</").append(name).append(">");
      return;
    }
    FText.pop_back();
  }
  FText.append(" />");
}

void TVantrelDataObjectXMLWriter::AppendText(std::string_view text) {
  std::uint8_t care = 0;
  for (const char c : text) care |= CareFor(c);
  if ((care & Look) != 0 && !XmlHolds(text))
    AppendEscaped(FText, XmlText(text));
  else if ((care & Entity) != 0)
    AppendEscaped(FText, text);
  else
    FText.append(text);
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
