#include "TestDocument.h"
#include "Testing.h"
#include "VantrelDataXml.h"
#include "VantrelIO.h"

namespace {

constexpr const char* A = "{AAAAAAAA-0000-0000-0000-000000000000}";
constexpr const char* B = "{BBBBBBBB-0000-0000-0000-000000000000}";

/// An element with class and GUID.
std::string Object(const char* tag, const char* id, const std::string& content = {}, const char* name = "TTestItem") {
  return fmt::format("<{} Class=\"{}\" ID=\"{}\">{}</{}>", tag, name, id, content, tag);
}
std::string Items(const std::string& content) {
  return "<Items><Items>" + content + "</Items></Items>";
}

struct DataReadingTest : testing::Test {
  void SetUp() override {
    TTestDocument::RegisterClasses();
    TTestItem::Alive = 0;
  }
  void TearDown() override {
    FDocument.reset();
    EXPECT_EQ(TTestItem::Alive, 0);
  }
  TTestItem* Item(int index) { return static_cast<TTestItem*>(FDocument->Items->GetItem(index)); }
  TTestItem* Known(const char* id) { return static_cast<TTestItem*>(FDocument->Objects().GetObject(TextToGuid(id))); }
  std::string XmlError(const std::string& content) {
    return ErrorOf<EVantrelDataObjectReaderError>([&] { LoadXml(*FDocument, content); });
  }

  TVantrelPtr<TTestDocument> FDocument = CreateVantrel<TTestDocument>();
};

TEST_F(DataReadingTest, ObjectsAndReferencesInThreeForms) {
  auto& a = FDocument->AddItem("a");
  auto& b = FDocument->AddItem("b");
  a.Ref = &b;
  b.Ref = &a;
  static_cast<TTestItem*>(b.Children->Add(TTestItem::Class()))->Name = "kind";
  FDocument->Refs->Add(&b);
  const auto idOfB = b.ID();
  for (const auto form : AllFormats) {
    const auto text = TextOf(*FDocument, form);
    for (int twice = 0; twice < 2; ++twice) {
      LoadText(*FDocument, text, form);
      ASSERT_EQ(FDocument->Items->Count(), 2);
      EXPECT_EQ(Item(0)->Ref, Item(1));
      EXPECT_EQ(Item(1)->Ref, Item(0));
      EXPECT_EQ(FDocument->Refs->First(), Item(1));
      EXPECT_EQ(Item(1)->ID(), idOfB);
      EXPECT_EQ(static_cast<TTestItem*>(Item(1)->Children->First())->Name, "kind");
      EXPECT_EQ(Item(0)->Owner(), FDocument->Items.get());
      EXPECT_EQ(TextOf(*FDocument, form), text);
    }
  }
}

TEST_F(DataReadingTest, ReferencesThatNeverComeBelongToTheDocument) {
  LoadXml(*FDocument, Items(Object("Item", A, Object("Ref", B))));
  EXPECT_EQ(Item(0)->Ref, Known(B));
  EXPECT_EQ(Known(B)->Owner(), FDocument.get());
  EXPECT_EQ(TTestItem::Alive, 2);
  LoadXml(*FDocument, "");
  EXPECT_EQ(TTestItem::Alive, 0);
}

TEST_F(DataReadingTest, ItemBehindStrangersIsTakenOncePerStranger) {
  LoadXml(*FDocument, Items(" <X/> <!-- c --> " + Object("Item", A) + Object("Item", B) + "<Y/>"));
  EXPECT_EQ(FDocument->Items->Count(), 3);
  EXPECT_EQ(Item(0), Item(1));
  EXPECT_EQ(Item(2)->ID(), TextToGuid(B));
  LoadXml(*FDocument, Items("<X/><Y/>"));
  EXPECT_TRUE(FDocument->Items->IsEmpty());
}

TEST_F(DataReadingTest, MessagesOfTheXmlForm) {
  const std::string known = "<Refs><Items>" + Object("Item", A) + "</Items></Refs>";
  const std::pair<std::string, const char*> cases[] = {
      {"<Items/>", "Knoten /Storage/Items konnte nicht gelesen werden: XML-Tag \"Items\" erwartet."},
      {Items("<Item ID=''/>"),
       "Knoten /Storage/Items/Items konnte nicht gelesen werden: XML-Attribut \"Class\" erwartet."},
      {Items("<Item Class='TTestItem'/>"),
       "Knoten /Storage/Items/Items konnte nicht gelesen werden: XML-Attribut \"ID\" erwartet."},
      {Items(Object("Item", A, "", "")), "Kein Klassenname gefunden."},
      {Items(Object("Item", A, "", "TFremd")), "Klasse \"TFremd\" wurde nicht registriert."},
      {known + Items(Object("Item", A, "", "TFremd")), ""},
      {known + Items(Object("Item", A, "", "")), ""},
      {known + Items(Object("Item", A, "", "TOtherItem")),
       "Die Datei enthält ein Objekt der Klasse „TTestItem“, wo „TOtherItem“ erwartet wird."},
      {Items(Object("Item", A, Object("Ref", B, "", "TOtherItem"))),
       "Die Datei enthält ein Objekt der Klasse „TOtherItem“, wo „TTestItem“ erwartet wird."},
      {Items(Object("Item", A, "<Children><Items>" + Object("Item", A) + "</Items></Children>")),
       "Das Objekt {AAAAAAAA-0000-0000-0000-000000000000} enthält sich selbst."},
  };
  for (const auto& [content, error] : cases) EXPECT_EQ(XmlError(content), error) << content;
  EXPECT_THROW(LoadXml(*FDocument, Items(Object("Item", "{0}"))), EConvertError);
}

/// What was read before the damage stays, and nothing of it leaks.
TEST_F(DataReadingTest, FailureInTheMiddle) {
  FDocument->AddItem("a").Children->Add(TTestItem::Class());
  FDocument->AddItem("b").Ref = Item(0);
  FDocument->Refs->Add(Item(1));
  const auto whole = TextOf(*FDocument, TFormat::dsfBinary);
  int mostRead = 0;
  for (std::size_t length = 0; length < whole.size(); ++length) {
    auto document = CreateVantrel<TTestDocument>();
    document->SetModifiedFlag(length % 2 == 0);
    EXPECT_EQ(ErrorOf<EVantrelReaderError>([&] { LoadText(*document, whole.substr(0, length), TFormat::dsfBinary); }),
              "Es konnten nicht alle Daten gelesen werden.");
    EXPECT_EQ(document->State(), TVantrelDataStorageState::dssNormal);
    EXPECT_EQ(document->Modified(), length % 2 == 0);
    EXPECT_EQ(document->LoadDamage()->Message, "Es konnten nicht alle Daten gelesen werden.");
    EXPECT_TRUE(document->LoadDamage()->Place.ends_with(fmt::format(" von {}", length)));
    mostRead = std::max(mostRead, document->Items->Count());
    LoadText(*document, whole, TFormat::dsfBinary);
    EXPECT_EQ(document->Items->Count(), 2);
    EXPECT_FALSE(document->LoadDamage().has_value());
  }
  EXPECT_EQ(mostRead, 1);
  LoadText(*FDocument, whole + "Rest", TFormat::dsfBinary);
}

TEST_F(DataReadingTest, DepthIsBounded) {
  std::string inner;
  for (int i = 0; i < 200; ++i) {
    const auto id = fmt::format("{{{:08X}-0000-0000-0000-000000000000}}", i);
    inner = Object("Item", id.c_str(), inner.empty() ? "" : "<Children><Items>" + inner + "</Items></Children>");
    if (i != 60 && i != 70) continue;
    EXPECT_EQ(XmlError(Items(inner)), i == 60 ? "" : "Die Daten der Datei sind zu tief verschachtelt.");
  }
  EXPECT_THROW(LoadXml(*FDocument, Items(inner)), EVantrelXmlError);
}

TEST_F(DataReadingTest, FarMoreNamesThanAProjectHasAreRefused) {
  for (const int count : {500, 20000}) {
    std::string attributes, elements;
    for (int i = 0; i < count; ++i) {
      attributes += fmt::format(" a{}='1'", i);
      elements += fmt::format("<n{}/>", i);
    }
    for (const auto& content : {"<X" + attributes + "/>", elements, Items(Object("Item", A, elements))})
      EXPECT_EQ(ErrorOf<EVantrelXmlError>([&] { LoadXml(*FDocument, content); }),
                count == 500 ? "" : "Die Datei enthält zu viele verschiedene Namen für eine Projektdatei.");
  }
}

TEST_F(DataReadingTest, DocumentTypesAreRefused) {
  for (const char* type : {"<!DOCTYPE a [<!ENTITY b \"bbbb\"><!ENTITY c \"&b;&b;\">]>", "<!DOCTYPE a>",
                           "<!DOCTYPE a SYSTEM \"file:///etc/passwd\">", "<!DOCTYPE a PUBLIC \"x\" \"http://x/\">"})
    EXPECT_EQ(ErrorOf<EVantrelXmlError>(
                  [&] { LoadText(*FDocument, std::string(type) + "<Storage>&c;</Storage>", TFormat::dsfXml); }),
              "Angaben zum Dokumenttyp (DOCTYPE) sind nicht erlaubt.");
  EXPECT_THROW(LoadXml(*FDocument, "&b;"), EVantrelXmlError);
}

TEST_F(DataReadingTest, TheParserKeepsItsComplaintsToItself) {
  testing::internal::CaptureStderr();
  EXPECT_THROW(LoadText(*FDocument, {"\xFF\xFE<\0a\0>\0\0\xD8x\0", 12}, TFormat::dsfXml), EVantrelXmlError);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(DataReadingTest, ZipStream) {
  FDocument->AddItem("a");
  TVantrelMemoryStream zip;
  FDocument->SaveToZipStream(zip);
  EXPECT_EQ(zip.Bytes()[0] * 256 + zip.Bytes()[1], 0x78DA);
  TVantrelMemoryStream cut({zip.Bytes().begin(), zip.Bytes().end() - 5});
  EXPECT_THROW(FDocument->LoadFromZipStream(cut), EVantrelReaderError);
  EXPECT_TRUE(FDocument->LoadDamage().has_value());
  zip.SetPosition(0);
  FDocument->LoadFromZipStream(zip);
  EXPECT_EQ(Item(0)->Name, "a");
}

}  // namespace
