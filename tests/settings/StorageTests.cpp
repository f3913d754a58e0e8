#include <gmock/gmock.h>

#include "PrivateConfig.h"
#include "VantrelForms.h"
#include "VantrelPublished.h"
#include "mStorage.h"

namespace {

using testing::HasSubstr;

constexpr std::string_view AlignNames[] = {"alLeft", "alRight"};
constexpr auto AlignType = EnumTypeInfo("TAlign", AlignNames);
constexpr auto AlignsType = SetTypeInfo("TAligns", AlignType);
enum class TAlign { alLeft, alRight };

#define PROPERTY(Type, Name)          \
  Type Name{};                        \
  const Type& Get##Name() const {     \
    return Name;                      \
  }                                   \
  void Set##Name(const Type& value) { \
    Name = value;                     \
  }

struct TComponent : TVantrelPersistent {
  PROPERTY(std::string, Text)
  PROPERTY(std::uint8_t, Number)
  PROPERTY(char16_t, Letter)
  PROPERTY(double, Float)
  PROPERTY(TAlign, Align)
  PROPERTY(std::uint32_t, Aligns)
  PROPERTY(TVariant, Variant)
  PROPERTY(std::int64_t, Huge)
  TVantrelStringList Lines;
  std::unique_ptr<TComponent> Next;
  TVantrelObject* GetLines() const { return const_cast<TVantrelStringList*>(&Lines); }
  TVantrelObject* GetNext() const { return Next.get(); }
  const TVantrelClass& ClassReference() const override;
};

const TVantrelClass& TComponent::ClassReference() const {
  static constexpr TVantrelClass object{.Name = "TVantrelObject"};
  static constexpr auto objectType = ClassTypeInfo(object);
  static constexpr TVantrelProperty properties[] = {
      Published<&TComponent::GetText, &TComponent::SetText>("Text"),
      Published<&TComponent::GetText>("ReadOnly"),
      Published<&TComponent::GetNumber, &TComponent::SetNumber>("Number"),
      Published<&TComponent::GetLetter, &TComponent::SetLetter>("Letter"),
      Published<&TComponent::GetFloat, &TComponent::SetFloat>("Float"),
      Published<&TComponent::GetAlign, &TComponent::SetAlign>("Align", AlignType),
      Published<&TComponent::GetAligns, &TComponent::SetAligns>("Aligns", AlignsType),
      Published<&TComponent::GetVariant, &TComponent::SetVariant>("Variant"),
      Published<&TComponent::GetHuge, &TComponent::SetHuge>("Huge"),
      Published<&TComponent::GetLines>("Lines", objectType),
      Published<&TComponent::GetNext>("Next", objectType)};
  static constexpr TVantrelClass reference{.Name = "TComponent", .Properties = properties};
  return reference;
}

class StorageTest : public testing::Test {
 protected:
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
  const char* paths[] = {"Text", "Number", "Letter", "Float", "Align", "Aligns", "Variant", "Lines", "Next\\Text"};
  for (const auto& variant : {TVariant("t"), TVariant(7), TVariant::DateTime(39571.75)}) {
    TComponent one;
    one.Text = "Text, \"2\"";
    one.Number = 255;
    one.Letter = u'ß';
    one.Float = 0.1;
    one.Align = TAlign::alRight;
    one.Aligns = 3;
    one.Variant = variant;
    one.Lines.Lines = {"a b", "c,d", ""};
    one.Next = std::make_unique<TComponent>();
    one.Next->Text = "next";
    TComponent two;
    two.Next = std::make_unique<TComponent>();
    two.Variant = variant.Kind() == TVariantKind::Text ? TVariant("") : TVariant(0);
    if (variant.Kind() == TVariantKind::DateTime) two.Variant = TVariant::DateTime(0);
    for (const char* path : paths) FStorage.WriteProperty("Key\\Sub", path, one, path);
    Reopen();
    for (const char* path : paths) FStorage.ReadProperty("Key\\Sub", path, two, path);
    EXPECT_EQ(two.Text, one.Text);
    EXPECT_EQ(two.Number, 255);
    EXPECT_EQ(two.Letter, u'ß');
    EXPECT_EQ(two.Float, 0.1);
    EXPECT_EQ(two.Align, TAlign::alRight);
    EXPECT_EQ(two.Aligns, 3U);
    EXPECT_EQ(two.Variant, variant);
    EXPECT_EQ(two.Lines.Lines, one.Lines.Lines);
    EXPECT_EQ(two.Next->Text, "next");
  }
}

TEST_F(StorageTest, LiesWhereItsSettingsSay) {
  FStorage.SetStoragePath("\\Haus\\Programm 1/\\");
  FStorage.WriteInteger("Key", "n", 1);
  FStorage.Flush();
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
  module->StoreList("L", "List", "Col", "Field", true, TStorageDataType::dstBoolean);
  EXPECT_TRUE(module->Storage().ReadBoolean("L\\List\\Field", "Col", false));
}

struct TWindow : TVantrelPlacedWindow {
  TWindowPlacement Placement() const override { return Place; }
  void SetPlacement(const TWindowPlacement& placement) override { Place = placement; }
  bool IsSizeable() const override { return Sizeable; }
  void SetRedraw(bool redraw) override { Calls += redraw ? "on " : "off "; }
  void ShowTopMost() override { Calls += "top "; }
  TWindowPlacement Place{10, 20, 110, 220, TWindowState::Normal};
  bool Sizeable = true;
  std::string Calls;
};

struct TTestForm : TVantrelForm {
  TTestForm(TVantrelStorage* storage, TWindow& window, std::string& log) : TVantrelForm(storage, &window), Log(log) {
    SetStorageKey("\\Forms\\A/");
    FStorePlacement = FStoreComponents = true;
    FStorageLinks = {{&Component, {{"Text", "Part", "T"}, {"Gone", "Part", "G"}}}};
    FOnLoadProperties = [this] { Log += "load:" + Component.Text + ";"; };
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
  TWindow window;
  std::string log;
  auto form = CreateVantrel<TTestForm>(&FStorage, window, log);
  form->DoShow();
  EXPECT_EQ(window.Place.Right, 110);
  form->Component.Text = "bleibt";
  window.Place = {1, 2, 31, 42, TWindowState::Minimized};
  form.reset();
  EXPECT_EQ(log, "create;load:;save;place;destroy;");
  EXPECT_EQ(FStorage.ReadString("Forms\\A\\Part", "T", ""), "bleibt");
  for (const bool sizeable : {true, false}) {
    log.clear();
    window = {};
    window.Sizeable = sizeable;
    form = CreateVantrel<TTestForm>(&FStorage, window, log);
    EXPECT_EQ(window.Place.Left, 10);
    form->DoShow();
    EXPECT_EQ(window.Place.Left, 1);
    EXPECT_EQ(window.Place.Right, sizeable ? 31 : 101);
    EXPECT_EQ(window.Place.State, TWindowState::Minimized);
    EXPECT_EQ(log, "create;load:bleibt;");
    window.Place.Top = 7;
    form->DoShow();
    EXPECT_EQ(window.Place.Top, 7);
    window.Place = {1, 2, 31, 42, TWindowState::Minimized};
    form.reset();
  }
  form = CreateVantrel<TTestForm>(&FStorage, window, log);
  for (int twice = 0; twice < 2; ++twice) form->DisableRedraw();
  for (int thrice = 0; thrice < 3; ++thrice) form->EnableRedraw();
  form->ShowTopMost();
  EXPECT_EQ(window.Calls, "off on top ");
  EXPECT_FALSE(form->CacheQuery() || form->QueryEndSession());
  window.OnQueryEndSession();
  window.OnFocusChanged();
  EXPECT_TRUE(form->QueryEndSession());
  EXPECT_TRUE(log.ends_with("focus;"));
}

}  // namespace
