#include <libxml/xmlerror.h>
#include <libxml/xmlsave.h>

#include <cstring>
#include <new>

#include "FoundationTexts.h"
#include "StoredTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelDataXml.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {

const xmlChar* AsXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

template <class T>
T* Checked(T* made) {
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

/// True where the byte may begin something that XML cannot hold: a control character, an encoded surrogate, U+FFFE,
/// U+FFFF.
bool NeedsCare(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') || byte == 0xED || byte == 0xEF || byte >= 0xF0)
      return true;
  }
  return false;
}

bool XmlCanHold(char32_t c) {
  return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

std::string WithoutForbidden(std::string_view text) {
  const auto units = Utf8ToUtf16(text);
  std::u16string kept;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool pair = i + 1 < units.size() && (units[i] & 0xFC00) == 0xD800 && (units[i + 1] & 0xFC00) == 0xDC00;
    if (pair)
      kept.append(units, i++, 2);
    else if (XmlCanHold(units[i]))
      kept.push_back(units[i]);
  }
  return Utf16ToUtf8(kept);
}

}  // namespace

TVantrelDataObjectXMLWriter::TVantrelDataObjectXMLWriter(TVantrelDataStorage& storage, TVantrelStream& stream)
    : TVantrelDataObjectTextWriter(storage), FStream(stream), FDocument(Checked(xmlNewDoc(AsXml("1.0")))) {
  FDocument->dict = Checked(xmlDictCreate());
  FDocument->standalone = 1;
  FCursor = nullptr;
  FCursor = AddElement("Storage");
  WriteLongInt("Version", storage.GetVersion());
}

void TVantrelDataObjectXMLWriter::Finish() {
  struct TFree {
    void operator()(xmlChar* text) const { xmlFree(text); }
  };
  xmlChar* text = nullptr;
  int length = 0;
  xmlResetLastError();
  xmlDocDumpFormatMemoryEnc(FDocument.get(), &text, &length, "utf-8", 1);
  const std::unique_ptr<xmlChar, TFree> owned(Checked(text));
  if (xmlGetLastError() != nullptr) throw EVantrelDataObjectWriterError(ResourceText(StoredTexts::XmlNotWritten));
  FDocument.reset();
  if (FStream.Write(text, length) != length) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
}

xmlNode* TVantrelDataObjectXMLWriter::AddElement(std::string_view name) {
  const xmlChar* shared = Checked(xmlDictLookup(FDocument->dict, AsXml(name.data()), static_cast<int>(name.size())));
  xmlNode* element = Checked(xmlNewDocNodeEatName(FDocument.get(), nullptr, const_cast<xmlChar*>(shared), nullptr));
  if (FCursor == nullptr)
    xmlDocSetRootElement(FDocument.get(), element);
  else
    xmlAddChild(FCursor, element);
  return element;
}

void TVantrelDataObjectXMLWriter::AddTextTo(xmlNode* element, std::string_view text) {
  if (text.empty()) return;
  xmlAddChild(element, Checked(xmlNewDocTextLen(FDocument.get(), AsXml(text.data()), static_cast<int>(text.size()))));
}

void TVantrelDataObjectXMLWriter::WriteText(std::string_view name, std::string_view text) {
  xmlNode* element = AddElement(name);
  if (NeedsCare(text))
    AddTextTo(element, WithoutForbidden(text));
  else
    AddTextTo(element, text);
}

void TVantrelDataObjectXMLWriter::WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) {
  if (value == nullptr) return;
  const auto graphic = EncodeGraphic(*value);
  xmlNode* element = AddElement(name);
  xmlNewProp(element, AsXml("Size"), AsXml(std::to_string(graphic.Size).c_str()));
  AddTextTo(element, graphic.Base64);
}

void TVantrelDataObjectXMLWriter::EnterObject(std::string_view name, const TVantrelDataObject& object) {
  Enter(name);
  xmlNewProp(FCursor, AsXml("Class"), AsXml(std::string(object.GetDataClassName()).c_str()));
  char id[GuidTextLength + 1] = {};
  WriteGuidText(object.ID(), id);
  xmlNewProp(FCursor, AsXml("ID"), AsXml(id));
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
