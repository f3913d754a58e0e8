#include <algorithm>

#include "StoredTexts.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"
#include "VantrelDataXml.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"

namespace {
constexpr std::string_view RootName = "Storage";
}  // namespace

void TVantrelDataObjectXMLReader::Open() {
  std::vector<std::uint8_t> bytes;
  auto window = FStream.Window();
  if (window.empty()) {
    bytes = FStream.ReadAll();
    window = bytes;
  }
  try {
    FTree = TXmlTree(window);
  } catch (const EVantrelXmlError& error) {
    FErrorLine = error.Line();
    throw;
  }
  FStream.SetPosition(FStream.Size());
  FTree.Root().Read = 1;
  EnterElement(FTree.Root());
  ReadVersion();
}

void TVantrelDataObjectXMLReader::ReadVersion() {
  TElement* version = Find("Version");
  if (version == nullptr) return;
  if (FTree.TextOf(*version) == "-1") FTree.SetText(*version, "0");
  FVersion = static_cast<int>(TextToIntegerOr(FTree.TextOf(*version), 0));
  // A document may hold a value of its own under the same name behind the version of the form: that is the one meant.
  TElement& root = FTree.Root();
  if (FindFrom(FTree.Next(*version), "Version") != nullptr) FTree.Remove(root, *version);
  Leave();
  EnterElement(root);
}

std::string TVantrelDataObjectXMLReader::PathOfCursor() const {
  std::string path;
  for (const auto& level : FLevels) path.append("/").append(TXmlTree::NameOf(*level.Element));
  return path;
}

std::string TVantrelDataObjectXMLReader::Place() const {
  if (FLevels.empty()) return FormatText(StoredTexts::PlaceOfLine, FErrorLine);
  return FormatText(StoredTexts::PlaceInLines, FLevels.back().Element->Line, PathOfCursor());
}

void TVantrelDataObjectXMLReader::NoteMissing(std::string_view name) {
  FMissing.Add(TXmlTree::NameOf(*FLevels[FLevels.size() > 1 ? 1 : 0].Element), name);
}

std::vector<TVantrelLoadNote> TVantrelDataObjectXMLReader::Notes() {
  const auto root = TXmlTree::NameOf(FTree.Root());
  if (root != RootName) return {{true, FormatText(StoredTexts::ForeignRoot, Shortened(root, 60), RootName)}};
  TVantrelNameCounts unread;
  FTree.ForUnread([&](const TElement& section, const TElement& element) {
    unread.Add(TXmlTree::NameOf(section), TXmlTree::NameOf(element), element.Line);
  });
  std::vector<TVantrelLoadNote> notes;
  FMissing.AppendNotes(StoredTexts::MissingName, notes);
  unread.AppendNotes(StoredTexts::UnreadName, notes);
  return notes;
}

void TVantrelDataObjectXMLReader::EnterElement(TElement& element) {
  FLevels.push_back({&element, FTree.FirstChild(element), FNames.size()});
}

bool TVantrelDataObjectXMLReader::Enter(std::string_view name) {
  TElement* element = Find(name);
  if (element != nullptr) EnterElement(*element);
  return element != nullptr;
}

void TVantrelDataObjectXMLReader::Leave() {
  FNames.resize(FLevels.back().NamesBegin);
  FLevels.pop_back();
}

TXmlTree::TElement* TVantrelDataObjectXMLReader::FindFrom(TElement* element, std::string_view name) {
  const auto* known = FTree.KnownName(name);
  if (known == nullptr) return nullptr;
  while (element != nullptr && element->Name != known) element = FTree.Next(*element);
  return element;
}

TXmlTree::TElement* TVantrelDataObjectXMLReader::Find(std::string_view name) {
  auto& level = FLevels.back();
  const auto namesBegin = FNames.begin() + static_cast<std::ptrdiff_t>(level.NamesBegin);
  TElement* found = level.Next;
  if (found == nullptr || TXmlTree::NameOf(*found) != name ||
      std::find(namesBegin, FNames.end(), found->Name) != FNames.end()) {
    auto* before = FTree.FirstChild(*level.Element);
    found = FindFrom(before, name);
    if (found == nullptr) return nullptr;
    FNames.resize(level.NamesBegin);
    for (; before != found; before = FTree.Next(*before)) FNames.push_back(before->Name);
  }
  FNames.push_back(found->Name);
  found->Read = 1;
  level.Next = FTree.Next(*found);
  return found;
}

std::optional<std::string_view> TVantrelDataObjectXMLReader::FindText(std::string_view name) {
  const TElement* element = Find(name);
  if (element != nullptr) return FTree.TextOf(*element);
  NoteMissing(name);
  return std::nullopt;
}

void TVantrelDataObjectXMLReader::RaiseTagExpected(std::string_view name) const {
  throw EVantrelDataObjectReaderError(FormatText(StoredTexts::TagExpected, PathOfCursor(), name));
}

char16_t TVantrelDataObjectXMLReader::CharOr(std::string_view text, char16_t fallback) const {
  const auto units = Utf8ToUtf16(text);
  return units.size() == 1 ? units.front() : fallback;
}

std::string_view TVantrelDataObjectXMLReader::RequireAttribute(const TElement& element, std::string_view name) const {
  if (const auto value = FTree.AttributeOf(element, name)) return *value;
  throw EVantrelDataObjectReaderError(FormatText(StoredTexts::AttributeExpected, PathOfCursor(), name));
}

TVantrelPtr<TVantrelGraphic> TVantrelDataObjectXMLReader::ReadVCLGraphic(std::string_view name,
                                                                         TVantrelGraphicFactory graphicClass,
                                                                         TVantrelPtr<TVantrelGraphic> existing) {
  const TElement* element = Find(name);
  if (element == nullptr) return existing;
  return DecodeGraphic(TextToInteger(RequireAttribute(*element, "Size")), FTree.TextOf(*element), graphicClass);
}

void TVantrelDataObjectXMLReader::ReadDataList(std::string_view name, TVantrelDataList& list) {
  list.Clear();
  TElement* element = Find(name);
  if (element == nullptr) {
    list.DoClear();
    return;
  }
  list.ReadData(*this);
  EnterElement(*element);
  if (!Enter("Items")) RaiseTagExpected("Items");
  ReadItems(list);
  Leave();
  Leave();
}

void TVantrelDataObjectXMLReader::ReadItems(TVantrelDataList& list) {
  TElement& items = *FLevels.back().Element;
  TElement* item = nullptr;
  TVantrelDataObject* object = nullptr;
  while (auto* first = FTree.FirstChild(items)) {
    if (item == nullptr) {
      item = FindFrom(first, "Item");
      if (item == nullptr) return;
      item->Read = 1;
      object = list.OwnsItems() ? FilledObjectAt(*item) : ObjectAt(*item);
    }
    list.Add(object);
    if (first == item) item = nullptr;
    FTree.Remove(items, *first);
  }
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ObjectAt(const TElement& element) {
  const auto className = RequireAttribute(element, "Class");
  return ObjectOf(className, RequireAttribute(element, "ID"));
}

TVantrelDataObject* TVantrelDataObjectXMLReader::FilledObjectAt(TElement& element) {
  auto* object = ObjectAt(element);
  EnterElement(element);
  FillObject(*object);
  Leave();
  return object;
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ReadDataObject(std::string_view name, TVantrelDataObject* existing) {
  TElement* element = Find(name);
  if (element != nullptr) return FilledObjectAt(*element);
  NoteMissing(name);
  return existing;
}

TVantrelDataObject* TVantrelDataObjectXMLReader::ReadDataObjectRef(std::string_view name) {
  const TElement* element = Find(name);
  return element == nullptr ? nullptr : ObjectAt(*element);
}
