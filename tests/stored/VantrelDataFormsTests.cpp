#include "TestDocument.h"
#include "Testing.h"
#include "VantrelText.h"

namespace {

const TGuid SomeGuid = TextToGuid("{00112233-4455-6677-8899-AABBCCDDEEFF}");
constexpr double Noon = 45000.5;

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) hex += fmt::format("{:02X}", static_cast<unsigned char>(c));
  return hex;
}

/// A value of one scalar type: its text, its bytes, and what writes and reads it under the name "V".
struct TScalar {
  const char* Type;
  const char* Text;
  const char* Bytes;
  void (*Write)(TVantrelDataObjectWriter&);
  void (*WriteAsDefault)(TVantrelDataObjectWriter&);
  bool (*ReadsBack)(TVantrelDataObjectReader&);
  bool (*GivesDefault)(TVantrelDataObjectReader&);
};
#define SCALAR(Type, value, text, bytes)                                           \
  {                                                                                \
#Type, text, bytes, [](auto& writer) { writer.Write##Type("V", value); },        \
        [](auto& writer) { writer.Write##Type("V", value, value); },                 \
        [](auto& reader) {                                                           \
          const bool plain = reader.Read##Type("V") == value;                        \
          return plain && (reader.Version() == 0 || reader.Read##Type("V", {}) == value); \
        },                                                                           \
        [](auto& reader) { return reader.Read##Type("V", value) == value; } \
  }

const TScalar Scalars[] = {
    SCALAR(Boolean, true, "1", "01"),
    SCALAR(Byte, 200, "200", "C8"),
    SCALAR(Char, u'\u20AC', "€", "AC20"),
    SCALAR(Comp, -5, "-5", "FBFFFFFFFFFFFFFF"),
    SCALAR(Currency, TCurrency{-12345}, "-1.2345", "C7CFFFFFFFFFFFFF"),
    SCALAR(DateTime, Noon, "2023-03-15T12:00:00.000Z", "0000000010F9E540"),
    SCALAR(Date, 45000.0, "2023-03-15", "0000000000F9E540"),
    SCALAR(Double, 0.1, "0.1", "9A9999999999B93F"),
    SCALAR(Double, 1e20, "1E20", "408CB5781DAF1544"),
    SCALAR(Extended, 1.5L, "1.5", "00000000000000C0FF3F"),
    SCALAR(Guid, SomeGuid, "{00112233-4455-6677-8899-AABBCCDDEEFF}", "33221100554477668899AABBCCDDEEFF"),
    SCALAR(Int64, -2, "-2", "FEFFFFFFFFFFFFFF"),
    SCALAR(LongInt, -3, "-3", "FDFFFFFF"),
    SCALAR(LongWord, 4000000000u, "4000000000", "00286BEE"),
    SCALAR(ShortInt, -4, "-4", "FC"),
    SCALAR(Single, 0.1F, "0.100000001490116", "CDCCCC3D"),
    SCALAR(SmallInt, -300, "-300", "D4FE"),
    SCALAR(String, "Ä\xF0\x9F\x98\x80", "Ä\xF0\x9F\x98\x80", "03000000C4003DD800DE"),
    SCALAR(Time, 0.5, "12:00:00.000Z", "000000000000E03F"),
    SCALAR(TimeSpan, TVantrelTimeSpan{77}, "77", "4D00000000000000"),
    SCALAR(VCLColor, 0xFF, "255", "FF000000"),
    SCALAR(Word, 65535, "65535", "FFFF"),
};

struct DataFormsTest : testing::Test {
  void SetUp() override { TTestDocument::RegisterClasses(); }
  TVantrelPtr<TTestDocument> FDocument = CreateVantrel<TTestDocument>();
};

TEST_F(DataFormsTest, ScalarsInThreeForms) {
  for (const auto& scalar : Scalars) {
    SCOPED_TRACE(scalar.Type);
    FDocument->OnWrite = scalar.Write;
    FDocument->OnRead = [&](auto& reader) { EXPECT_TRUE(scalar.ReadsBack(reader)); };
    EXPECT_EQ(Hex(TextOf(*FDocument, TFormat::dsfBinary)), scalar.Bytes);
    EXPECT_EQ(XmlOf(*FDocument), fmt::format("<Storage><Version>1</Version><V>{}</V></Storage>", scalar.Text));
    const bool astral = std::string_view(scalar.Text).ends_with("\x80");
    const auto json = AnsiToUtf8(TextOf(*FDocument, TFormat::dsfJson));
    EXPECT_EQ(json.find(fmt::format("\"V\":\"{}\"", scalar.Text)) == std::string::npos, astral);
    for (const auto form : AllFormats) {
      const auto text = TextOf(*FDocument, form);
      if (form == TFormat::dsfJson && astral) continue;
      if (form != TFormat::dsfBinary && std::string_view(scalar.Type) == "Time") {
        EXPECT_THROW(LoadText(*FDocument, text, form), EVantrelDateTimeError);
      } else {
        LoadText(*FDocument, text, form);
      }
    }

    FDocument->OnWrite = scalar.WriteAsDefault;
    EXPECT_EQ(Hex(TextOf(*FDocument, TFormat::dsfBinary)), scalar.Bytes);
    FDocument->OnRead = [&](auto& reader) { EXPECT_TRUE(scalar.GivesDefault(reader)); };
    for (const auto form : {TFormat::dsfXml, TFormat::dsfJson}) {
      EXPECT_EQ(TextOf(*FDocument, form).find("\"V\""), std::string::npos);
      EXPECT_EQ(TextOf(*FDocument, form).find("<V>"), std::string::npos);
      LoadText(*FDocument, TextOf(*FDocument, form), form);
    }
    FDocument->OnRead = [&](auto& reader) { scalar.ReadsBack(reader); };
    EXPECT_EQ(ErrorOf<EVantrelDataObjectReaderError>([&] { LoadXml(*FDocument, ""); }),
              "Knoten /Storage konnte nicht gelesen werden: XML-Tag \"V\" erwartet.");
    EXPECT_THROW(LoadText(*FDocument, "{}", TFormat::dsfJson), EConvertError);
    EXPECT_EQ(ErrorOf<EVantrelReaderError>([&] { LoadText(*FDocument, "", TFormat::dsfBinary); }),
              "Es konnten nicht alle Daten gelesen werden.");
  }
}

TEST_F(DataFormsTest, ReadingOfOtherTexts) {
  FDocument->OnRead = [](auto& reader) {
    EXPECT_EQ(reader.ReadDouble("F"), 1.25);
    EXPECT_EQ(reader.ReadCurrency("F").Value, 12500);
    EXPECT_EQ(reader.ReadChar("S"), u'a');
    for (const char* cut : {"S", "E"}) EXPECT_EQ(reader.ReadChar(cut, u'x'), u'x');
    EXPECT_EQ(reader.ReadLongInt("Doppelt"), 1);
    EXPECT_EQ(reader.ReadString("C") + reader.ReadString("E", "x") + reader.ReadString("F"), "eins<zwei1,25");
  };
  LoadXml(*FDocument,
          "<F>1,25</F><S>abc</S><E/><C>ei<!-- -->ns<![CDATA[<]]>zwei</C><Doppelt>1</Doppelt><Doppelt>2</Doppelt>");
  FDocument->OnRead = [](auto& reader) { reader.ReadByte("V", 1); };
  for (const char* text : {"", "x", "256", "-1"})
    EXPECT_THROW(LoadXml(*FDocument, fmt::format("<V>{}</V>", text)), EConvertError) << text;
}

TEST_F(DataFormsTest, VersionsOfTheTextForms) {
  const char* contents[] = {"", "<Version>-1</Version>", "<Version>abc</Version>", "<Version>7</Version>",
                            "<A/><Version>7</Version><B/><Version>10.2</Version>"};
  const char* versionsAndStamps[] = {"0 -", "0 0", "0 abc", "7 7", "7 10.2"};
  for (std::size_t i = 0; i < std::size(contents); ++i) {
    std::string read;
    FDocument->OnRead = [&](auto& reader) {
      read = fmt::format("{} {}", reader.Version(), reader.ReadString("Version", "-"));
    };
    LoadXml(*FDocument, contents[i]);
    EXPECT_EQ(read, versionsAndStamps[i]);
  }
  FDocument->OnRead = [&](auto& reader) { EXPECT_EQ(reader.Version(), -1); };
  LoadText(*FDocument, R"({"Version": "-1"})", TFormat::dsfJson);
  for (const char* text : {"", "[]", "5", "{"})
    EXPECT_EQ(ErrorOf<EVantrelDataObjectReaderError>([&] { LoadText(*FDocument, text, TFormat::dsfJson); }),
              "Daten liegen nicht im XML-Format vor");
  EXPECT_EQ(ErrorOf<EVantrelDataObjectReaderError>([&] { LoadText(*FDocument, "", TFormat::dsfXml); }),
            "Daten liegen nicht im XML-Format vor");
}

struct TPair final : TVantrelDataProperty {
  std::int32_t A = 1;
  void DoClear() override { A = 0; }
  void ReadData(TVantrelDataObjectReader& reader) override {
    TVantrelDataProperty::ReadData(reader);
    A = reader.ReadLongInt("A", A);
  }
  void WriteData(TVantrelDataObjectWriter& writer) const override { writer.WriteLongInt("A", A); }
};

TVantrelPtr<TVantrelGraphic> NewBitmap() {
  return CreateVantrel<TBitmap>();
}

TEST_F(DataFormsTest, Structures) {
  const TVantrelShortCut shortCut{skCtrl, 65};
  const TVantrelBrush brush{255, 3};
  const TVantrelFont font{"Arial", 1, 10, 2};
  const TVantrelPen pen{5, 6, 7, 8};
  const std::vector<std::string> lines{"a", "b c", "", "d\"e"};
  TBitmap bitmap;
  TVantrelMemoryStream bits({1, 2, 3});
  bitmap.LoadFromStream(bits, 3);
  TPair pair;
  FDocument->OnWrite = [&](auto& writer) {
    writer.WriteShortCut("S", shortCut);
    writer.WriteVCLBrush("B", &brush);
    writer.WriteVCLFont("F", &font);
    writer.WriteVCLPen("P", &pen);
    writer.WriteStringList("L", lines);
    writer.WriteVCLGraphic("G", &bitmap);
    writer.WriteDataProperty("D", &pair);
  };
  EXPECT_EQ(XmlOf(*FDocument),
            "<Storage><Version>1</Version><S><ShiftKeys>4</ShiftKeys><VirtualKey>65</VirtualKey></S>"
            "<B><Color>255</Color><Styles>3</Styles></B>"
            "<F><Name>Arial</Name><Color>1</Color><Size>10</Size><Styles>2</Styles></F>"
            "<P><Color>5</Color><Mode>6</Mode><Styles>7</Styles><Width>8</Width></P>"
            "<L>a,\"b c\",,\"d\"\"e\"</L><G Size=\"3\">AQID</G><D><A>1</A></D></Storage>");
  EXPECT_EQ(Hex(TextOf(*FDocument, TFormat::dsfBinary)),
            "0441FF00000003050000004100720069006100"
            "6C00010000000A00000002050000000607080000000400000001000000610003000000620020006300000000000300000064002200"
            "65000300000001020301000000");
  FDocument->OnRead = [&](auto& reader) {
    EXPECT_EQ(reader.ReadShortCut("S"), shortCut);
    EXPECT_EQ(*reader.ReadVCLBrush("B", nullptr), brush);
    EXPECT_EQ(*reader.ReadVCLFont("F", std::make_unique<TVantrelFont>()), font);
    EXPECT_EQ(*reader.ReadVCLPen("P", nullptr), pen);
    std::vector<std::string> read{"weg"};
    reader.ReadStringList("L", read);
    EXPECT_EQ(read, lines);
    const auto graphic = reader.ReadVCLGraphic("G", NewBitmap, nullptr);
    EXPECT_EQ(static_cast<TBitmap&>(*graphic).Bytes(), bitmap.Bytes());
    TPair readPair;
    reader.ReadDataProperty("D", &readPair);
    EXPECT_EQ(readPair.A, 1);
  };
  for (const auto form : AllFormats) LoadText(*FDocument, TextOf(*FDocument, form), form);
}

/// What a form cannot hold is replaced or left out, the rest survives. Null: as it was written.
TEST_F(DataFormsTest, TextsOfEveryKind) {
  const struct {
    std::string_view Text;
    const char* FromXml;
    std::string_view FromJson;
    const char* FromBinary = nullptr;
  } cases[] = {
      {"a\r\nb\rc\td", nullptr, "a\\r\\nb\\rc\\td"},
      {"<&>\"'/\\]]>", nullptr, "<&>\"'\\/\\\\]]>"},
      {"  Rand  ", nullptr, "  Rand  "},
      {"\x01\x1F-\xEF\xBF\xBE-\xED\xA0\x80", "--\uFFFD", "\x01\x1F-?-?"},
      {"\xED\xB0\x80\xED\xA0\xBD\xED\xA0\xBD\xED\xB8\x80", "\uFFFD\uFFFD😀", "????", "\xED\xB0\x80\xED\xA0\xBD😀"},
      {{"a\0b\\\0", 5}, "ab\\", {"a\0b\\\\\0", 6}},
      {"\xF0\x9F\x98\x80 \xED\x95\x9C \xEF\xBB\xBF", nullptr, "? ? ?"},
      {"a\xFF\xFC < \xC3", "a\uFFFD\uFFFD < \uFFFD", "a?? < ?", "a\uFFFD\uFFFD < \uFFFD"},
      {"\xE4\xB8", "\uFFFD", "?", "\uFFFD"},
      {"Ä€š", nullptr, "Ä€š"}};
  for (const auto& item : cases) {
    FDocument->OnWrite = [&](auto& writer) { writer.WriteString("V", item.Text); };
    std::string read;
    FDocument->OnRead = [&](auto& reader) { read = reader.ReadString("V"); };
    LoadText(*FDocument, TextOf(*FDocument, TFormat::dsfBinary), TFormat::dsfBinary);
    EXPECT_EQ(read, item.FromBinary == nullptr ? item.Text : item.FromBinary);
    LoadText(*FDocument, TextOf(*FDocument, TFormat::dsfXml), TFormat::dsfXml);
    EXPECT_EQ(read, item.FromXml == nullptr ? item.Text : item.FromXml);
    LoadText(*FDocument, TextOf(*FDocument, TFormat::dsfJson), TFormat::dsfJson);
    EXPECT_EQ(read, item.FromJson);
  }
  for (const char16_t unit : {u'\1', u'\xD800', u'\xFFFF', u'\0'}) {
    const bool isReplaced = unit == u'\xD800';
    FDocument->OnWrite = [&](auto& writer) { writer.WriteChar("V", unit); };
    FDocument->OnRead = [&](auto& reader) { EXPECT_EQ(reader.ReadChar("V", u'x'), isReplaced ? u'\xFFFD' : u'x'); };
    EXPECT_TRUE(XmlOf(*FDocument).ends_with(isReplaced ? "<V>\uFFFD</V></Storage>" : "<V /></Storage>"));
    LoadText(*FDocument, TextOf(*FDocument, TFormat::dsfXml), TFormat::dsfXml);
  }
}

}  // namespace
