#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "VantrelDataIO.h"
#include "VantrelDataList.h"
#include "VantrelDataStorage.h"

using TFormat = TVantrelDataStorageFormat;
inline constexpr TFormat AllFormats[] = {TFormat::dsfBinary, TFormat::dsfXml, TFormat::dsfJson};

/// An item with a name, a reference, and items of its own. Counts how many live and how many were told that they were
/// removed.
struct TTestItem : TVantrelDataClassOf<TTestItem> {
  static constexpr std::string_view ClassName = "TTestItem";
  using TVantrelDataClassOf::TVantrelDataClassOf;

  std::string Name;
  TTestItem* Ref = nullptr;
  TVantrelPtr<TVantrelDataList> Children;
  static inline int Alive = 0;
  static inline int Removed = 0;

  void ObjectRemoved() override { ++Removed; }
  void Assign(const TVantrelObject& source) override { Name = dynamic_cast<const TTestItem&>(source).Name; }
  int Compare(const TVantrelObject& other) const override {
    return Name.compare(dynamic_cast<const TTestItem&>(other).Name);
  }
  void DoCreate() override {
    ++Alive;
    Children = CreateVantrel<TVantrelDataList>(this, true);
    DoClear();
  }
  void DoDestroy() override {
    --Alive;
    Children.reset();
  }
  void DoClear() override {
    Name.clear();
    Ref = nullptr;
    Children->Clear();
  }
  void ReadData(TVantrelDataObjectReader& reader) override {
    TVantrelDataClassOf::ReadData(reader);
    Name = reader.ReadString("Name", Name);
    Ref = reader.ReadRef<TTestItem>("Ref");
    reader.ReadDataList("Children", *Children);
  }
  void WriteData(TVantrelDataObjectWriter& writer) const override {
    writer.WriteString("Name", Name);
    writer.WriteDataObjectRef("Ref", Ref);
    writer.WriteDataList("Children", *Children);
  }
};

struct TOtherItem : TVantrelDataClassOf<TOtherItem> {
  static constexpr std::string_view ClassName = "TOtherItem";
  using TVantrelDataClassOf::TVantrelDataClassOf;
};

/// A document whose content a test tells by callbacks, and which logs its hooks. Without callbacks it stores two
/// lists: references to items, then the items.
struct TTestDocument : TVantrelDataStorage {
  TVantrelPtr<TVantrelDataList> Items;
  TVantrelPtr<TVantrelDataList> Refs;
  std::function<void(TVantrelDataObjectReader&)> OnRead = [this](auto& reader) {
    reader.ReadDataList("Refs", *Refs);
    reader.ReadDataList("Items", *Items);
  };
  std::function<void(TVantrelDataObjectWriter&)> OnWrite = [this](auto& writer) {
    writer.WriteDataList("Refs", *Refs);
    writer.WriteDataList("Items", *Items);
  };
  std::string Fallback;
  std::string Log;
  mutable TVantrelDataStorageState StateInWrite = TVantrelDataStorageState::dssNormal;

  static void RegisterClasses() {
    auto& registry = TVantrelDataClassRegistry::Instance();
    registry.AddClass("TTestDocument", TTestItem::Class());
    registry.AddClass("TTestDocument", TOtherItem::Class());
  }

  TTestItem& AddItem(std::string_view name) {
    auto* item = static_cast<TTestItem*>(Items->Add(TTestItem::Class()));
    item->Name = name;
    return *item;
  }
  using TVantrelDataStorage::SetModifiedFlag;

  std::string_view StorageClassName() const override { return "TTestDocument"; }
  std::string GetFallbackFileName() const override { return Fallback; }
  void AfterNewFile() override { Log += "AfterNew "; }
  void AfterOpenFile() override { Log += "AfterOpen "; }
  void AfterStoreFile() override { Log += "AfterStore "; }
  void BeforeNewFile() override { Log += "BeforeNew "; }
  void BeforeOpenFile() override { Log += "BeforeOpen "; }
  void BeforeStoreFile() override { Log += "BeforeStore "; }
  void DoCreate() override {
    Items = CreateVantrel<TVantrelDataList>(this, true);
    Refs = CreateVantrel<TVantrelDataList>(this, false);
  }
  void DoDestroy() override {
    Refs.reset();
    Items.reset();
  }
  void DoClear() override {
    Log += "Clear" + std::to_string(static_cast<int>(State())) + " ";
    TVantrelDataStorage::DoClear();
    Refs->Clear();
    Items->Clear();
  }
  void ReadData(TVantrelDataObjectReader& reader) override {
    TVantrelDataStorage::ReadData(reader);
    OnRead(reader);
  }
  void WriteData(TVantrelDataObjectWriter& writer) const override {
    StateInWrite = State();
    OnWrite(writer);
  }
};

inline std::string TextOf(TTestDocument& document, TFormat format) {
  TVantrelMemoryStream stream;
  document.SaveToStream(stream, format);
  return {stream.Bytes().begin(), stream.Bytes().end()};
}

/// The XML form without indentation and declaration.
inline std::string XmlOf(TTestDocument& document) {
  const auto text = TextOf(document, TFormat::dsfXml);
  std::string bare;
  for (auto at = text.find("?>\n") + 3; at < text.size(); ++at) {
    bare += text[at];
    if (text[at] == '>' && text[at + 1] == '\n') at = text.find_first_not_of(" \n", at + 1) - 1;
  }
  return bare;
}

inline void LoadText(TTestDocument& document, std::string_view text, TFormat format) {
  TVantrelMemoryStream stream({text.begin(), text.end()});
  document.LoadFromStream(stream, format);
}

inline void LoadXml(TTestDocument& document, const std::string& content) {
  LoadText(document, "<Storage>" + content + "</Storage>", TFormat::dsfXml);
}
