#include "PrivateConfig.h"
#include "PublishedObjects.h"
#include "Testing.h"
#include "VantrelForms.h"
#include "VantrelStringList.h"
#include "mStorage.h"

namespace {

/// A leaf with lines.
struct TComponent : TLeaf {
  TVantrelStringList Lines;
  TVantrelObject* GetLines() const { return const_cast<TVantrelStringList*>(&Lines); }
  const TVantrelClass* ClassReference() const override {
    static constexpr TVantrelProperty properties[] = {Published<&TComponent::GetLines>("Lines", NodeType)};
    static constexpr TVantrelClass reference{.Name = "TComponent", .Base = &TLeaf::Class, .Properties = properties};
    return &reference;
  }
};

struct StorageTest : testing::Test {
  StorageTest() { FStorage.SetActive(true); }
  void Reopen() {
    FStorage.SetActive(false);
    FStorage.SetActive(true);
  }
  std::string FileText() { return ReadFileText(FConfig.Folder / "Orvenda Labs/Registry.pref"); }

  PrivateConfig FConfig;
  TVantrelStorage FStorage;
};

TEST_F(StorageTest, EveryKindOfPropertyComesBack) {
  const char* paths[] = {"Caption", "Tag", "Letter", "Ratio", "Side", "Sides", "Value", "Lines", "Partner\\Caption"};
  const std::pair<TVariant, TVariant> variants[] = {
      {"t", ""}, {7, 0}, {TVariant::DateTime(39571.75), TVariant::DateTime(0)}};
  for (const auto& [variant, other] : variants) {
    TNode partnerOfOne, partnerOfTwo;
    TComponent one, two;
    one.SetCaption("Text, \"2\"");
    one.SetTag(-32768);
    one.SetLetter(u'ß');
    one.SetRatio(0.1F);
    one.SetSide(TSide::sdRight);
    one.SetSides(3);
    one.SetValue(variant);
    one.Lines.Lines = {"a b", "c,d", ""};
    one.SetPartner(&partnerOfOne);
    partnerOfOne.SetCaption("next");
    two.SetPartner(&partnerOfTwo);
    two.SetValue(other);
    for (const char* path : paths) FStorage.WriteProperty("Key\\Sub", path, one, path);
    Reopen();
    for (const char* path : paths) FStorage.ReadProperty("Key\\Sub", path, two, path);
    EXPECT_EQ(std::tie(two.FCaption, two.FTag, two.FLetter, two.FRatio, two.FSide, two.FSides, two.Lines.Lines),
              std::tie(one.FCaption, one.FTag, one.FLetter, one.FRatio, one.FSide, one.FSides, one.Lines.Lines));
    EXPECT_EQ(two.Value(), variant);
    EXPECT_EQ(partnerOfTwo.Caption(), "next");
  }
  EXPECT_THAT(FileText(), HasSubstr("Value=\"sdRight\""));
}

TEST_F(StorageTest, WhatDoesNotFitIsPassedOver) {
  TComponent one;
  one.SetValue(2.5);
  TComponent big;
  big.SetValue(std::int64_t{1} << 40);
  FStorage.WriteString("Key", "text", "sdSideways");
  FStorage.WriteInteger("Key", "number", 40000);
  for (const char* path :
       {"Gone", "Partner\\Caption", "Caption\\Length", "Visible", "", "Partner", "Side", "Sides", "Value"})
    FStorage.ReadProperty("Key", "text", one, path);
  for (const char* path : {"Tag", "Big", "Side"}) FStorage.ReadProperty("Key", "number", one, path);
  for (const char* path : {"Gone", "Partner\\Caption", "Big", "Partner", "Value"})
    FStorage.WriteProperty("New", "name", one, path);
  EXPECT_EQ(std::tie(one.FTag, one.FSide, one.FSides, one.FBig), std::tuple(0, TSide::sdLeft, 0, 0));
  EXPECT_EQ(one.Value(), TVariant(2.5));
  FStorage.WriteProperty("New", "name", big, "Value");
  FStorage.ReadProperty("Key", "number", big, "Value");
  EXPECT_EQ(big.Value(), TVariant(std::int64_t{1} << 40));
  EXPECT_EQ(FStorage.ReadString("New", "name", "none"), "none");
}

TEST_F(StorageTest, LiesWhereItsSettingsSay) {
  FStorage.SetStoragePath("\\Haus\\Programm 1/\\");
  FStorage.WriteInteger("Key", "n", 1);
  EXPECT_EQ(FStorage.TryFlush(), "");
  EXPECT_THAT(FileText(), HasSubstr("<Programm_x0020_1>"));
  EXPECT_EQ(FStorage.KeyOf("Software\\Haus\\Programm 1\\Key"), "Key");
  FStorage.SetStorageType(TVantrelStorageType::cstSystem);
  EXPECT_EQ(FStorage.ReadInteger("Key", "n", 0), 0);
  FStorage.SetLocation(TVantrelStorageLocation::cslXML);
  FStorage.SetStorageType(TVantrelStorageType::cstUser);
  FStorage.WriteInteger("Key", "n", 2);
  FStorage.SetCustomXMLFile(FConfig.Folder / "eigene/a.pref");
  EXPECT_EQ(FStorage.ReadInteger("Key", "n", 0), 0);
  EXPECT_THAT(ReadFileText(FConfig.Folder / "Haus/Programm 1.pref"), HasSubstr("<Key>\n    <Entry"));
  FStorage.SetActive(false);
  FStorage.WriteInteger("Key", "n", 3);
  EXPECT_EQ(FStorage.ReadInteger("Key", "n", 9), 9);
}

TEST_F(StorageTest, TheModuleKnowsPathsCaptionsAndLists) {
  using enum TStorageDataType;
  struct TLayout : TCustomLayout {
    std::string DefaultCaption(int tag) const override { return "Spalte " + std::to_string(tag); }
  };
  const auto module = CreateVantrel<TStorageModule>(4);
  EXPECT_EQ(module->GetStoragePath("Forms\\A", "Ansichten", 0),
            "Software\\Orvenda Labs\\Tessaron 10 - MyTessaron\\Ansichten\\Forms\\A");
  EXPECT_EQ(module->GetStoragePath("A", "", 2), "Software\\Orvenda Labs\\Tessaron 10 - MyTessaron\\A.2");
  TStoredGridView grid{"Grid", {{"One", 1, "Eins"}}};
  module->StoreColumns("Cols", grid);
  EXPECT_EQ(module->Storage().ReadString("Cols\\Cols.Grid\\One", "Caption", ""), "Eins");
  grid.Columns = {{"One", 1, ""}, {"Two", 2, ""}};
  module->RestoreColumns("Cols", TLayout(), grid);
  EXPECT_EQ(grid.Columns[0].Caption + grid.Columns[1].Caption, "EinsSpalte 2");
  const std::tuple<TStorageDataType, TVariant, TVariant, TVariant> cases[] = {
      {dstInt, 7, 8, 7}, {dstString, "x", "y", TVariant()}, {dstBoolean, true, false, TVariant()}};
  for (const auto& [type, value, other, single] : cases) {
    module->StoreValue("V", "Name", value, type);
    EXPECT_EQ(module->RestoreValue("V", "Name", type), single);
    EXPECT_EQ(module->RestoreList("L", "List", "Col", "Field", other, type), other);
    module->StoreList("L", "List", "Col", "Field", value, type);
    EXPECT_EQ(module->RestoreList("L", "List", "Col", "Field", other, type), value);
  }
  EXPECT_TRUE(module->Storage().ReadBoolean("L\\List\\Field", "Col", false));
  EXPECT_EQ(module->RestoreValue("V", "Gone", dstInt), TVariant(0));
}

struct TWindow : TVantrelPlacedWindow {
  TWindowPlacement Placement() const override { return Place; }
  void SetPlacement(const TWindowPlacement& placement) override { Place = placement; }
  bool IsSizeable() const override { return Sizeable; }
  void SetRedraw(bool redraw) override { Log += redraw ? "on;" : "off;"; }
  void ShowTopMost() override { Log += "top;"; }
  TWindowPlacement Place{10, 20, 110, 220, TWindowState::Normal};
  bool Sizeable = true;
  std::string Log;
};

struct TTestForm : TVantrelForm {
  TTestForm(TVantrelStorage& storage, TWindow& window, std::string_view key = "\\Forms\\A/")
      : TVantrelForm(&storage, &window), Log(window.Log) {
    SetStorageKey(key);
    FStorePlacement = FStoreComponents = true;
    FStorageLinks = {{&Component, {{"Caption", "Part", "T"}, {"Gone", "Part", "G"}}}};
    EXPECT_EQ(FStorageLinks[0].Properties.FindProperty("GONE")->StoredName, "G");
    EXPECT_EQ(FStorageLinks[0].Properties.FindProperty("Part"), nullptr);
    FOnLoadProperties = [this] { Log += "load:" + Component.Caption() + ";"; };
    FOnSaveProperties = [this] { Log += "save;"; };
    FOnFocusChanged = [this] { Log += "focus;"; };
    FOnCacheQuery = [] { return false; };
  }
  void FormCreate() override { Log += "create;"; }
  void FormDestroy() override { Log += "destroy;"; }
  void SavePlacement() override {
    Log += "place;";
    TVantrelForm::SavePlacement();
  }
  TComponent Component;
  std::string& Log;
};

TEST_F(StorageTest, AFormLivesInTheToldOrder) {
  std::string places;
  for (const std::string key : {"Forms\\A", ""}) {
    TWindow window;
    auto form = CreateVantrel<TTestForm>(FStorage, window, key + "/");
    form->DoShow();
    EXPECT_EQ(window.Place.Right, 110);
    form->Component.SetCaption("bleibt");
    window.Place = {1, 2, 31, 42, TWindowState::Minimized};
    form.reset();
    EXPECT_EQ(window.Log, "create;load:;save;place;destroy;");
    for (const char* name : {"FormLeft", "FormTop", "FormRight", "FormBottom", "FormState"})
      places += std::to_string(FStorage.ReadInteger(key, name, 0)) + " ";
  }
  EXPECT_EQ(places, "1 2 31 42 2 0 0 0 0 0 ");
  EXPECT_EQ(FStorage.ReadString("Forms\\A\\Part", "T", ""), "bleibt");
  for (const bool sizeable : {true, false}) {
    TWindow window;
    window.Sizeable = sizeable;
    const auto form = CreateVantrel<TTestForm>(FStorage, window);
    EXPECT_EQ(window.Place.Left, 10);
    form->DoShow();
    EXPECT_EQ(window.Place.Left, 1);
    EXPECT_EQ(std::exchange(window.Place.Right, 31), sizeable ? 31 : 101);
    EXPECT_EQ(window.Place.State, TWindowState::Minimized);
    window.Place.Top = 7;
    form->DoShow();
    EXPECT_EQ(std::exchange(window.Place.Top, 2), 7);
    for (int twice = 0; twice < 2; ++twice) form->DisableRedraw();
    for (int thrice = 0; thrice < 3; ++thrice) form->EnableRedraw();
    form->ShowTopMost();
    EXPECT_FALSE(form->CacheQuery() || form->QueryEndSession());
    window.OnQueryEndSession();
    window.OnFocusChanged();
    EXPECT_TRUE(form->QueryEndSession());
    EXPECT_EQ(window.Log, "create;load:bleibt;off;on;top;focus;");
  }
}

}  // namespace
