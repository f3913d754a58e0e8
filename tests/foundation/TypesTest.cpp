#include "VantrelTypes.h"

#include <gmock/gmock.h>

#include <cstring>
#include <limits>
#include <memory>

#include "VantrelExceptions.h"
#include "VantrelGuid.h"
#include "VantrelHashes.h"
#include "VantrelStreams.h"
#include "VantrelVariant.h"

namespace {
constexpr int NoBuffer = 0;

/// Sends `source` through its stored form into `target`.
void Store(const TVantrelType& source, TVantrelType& target) {
  TVantrelMemoryStream stream;
  TVantrelStreamWriter writer(stream, NoBuffer);
  source.Write(writer);
  stream.SetPosition(0);
  TVantrelStreamReader reader(stream, NoBuffer);
  target.Read(reader);
  EXPECT_FALSE(reader.CanRead());
}

template <class TValue>
void ExpectText(typename TValue::TPlain value, std::string_view text) {
  const TValue source(value);
  TValue read, stored, copied;
  EXPECT_EQ(source.AsString(), text);
  read.SetAsString(text);
  Store(source, stored);
  copied.Assign(source);
  for (const TValue* other : {&read, &stored, &copied}) {
    EXPECT_TRUE(source.Equals(other)) << text;
    EXPECT_EQ(source.GetHashCode(), other->GetHashCode()) << text;
    EXPECT_EQ(source.Compare(*other), 0) << text;
  }
  EXPECT_FALSE(source.Equals(std::make_unique<TVantrelReference>().get()));
  EXPECT_EQ(TValue().Compare(source), -source.Compare(TValue()));
  EXPECT_FALSE(TValue().Equals(&source)) << text;
}

TEST(SimpleTypes, TextAndStoredFormGiveTheValueBack) {
  ExpectText<TVantrelBoolean>(true, "J");
  ExpectText<TVantrelChar>(u'ß', "ß");
  ExpectText<TVantrelSmallInt>(-32768, "-32768");
  ExpectText<TVantrelShortInt>(-128, "-128");
  ExpectText<TVantrelLongInt>(-2147483647 - 1, "-2147483648");
  ExpectText<TVantrelInt64>(9007199254740993, "9007199254740993");
  ExpectText<TVantrelByte>(255, "255");
  ExpectText<TVantrelWord>(65535, "65535");
  ExpectText<TVantrelLongWord>(4294967295, "4294967295");
  ExpectText<TVantrelSingle>(0.5F, "0.5");
  ExpectText<TVantrelDouble>(-1.25, "-1.25");
  ExpectText<TVantrelExtended>(0.125L, "0.125");
  ExpectText<TVantrelCurrency>({-12345}, "-1.2345");
  ExpectText<TVantrelDateTime>(36526.5, "2000-01-01T12:00:00.000Z");
  ExpectText<TVantrelString>("Grüße\r\n", "Grüße\r\n");
  ExpectText<TVantrelUtf8String>("Grüße", "Grüße");
  ExpectText<TVantrelGuid>(GuidNamespaceDns(), "{6BA7B810-9DAD-11D1-80B4-00C04FD430C8}");
}

TEST(SimpleTypes, OddTexts) {
  TVantrelBoolean flag;
  for (const char* text : {"j", "J", "ja", ""}) {
    flag.SetAsString(text);
    EXPECT_EQ(flag.Value(), std::strlen(text) == 1) << text;
  }
  TVantrelChar character(u'a');
  for (const char* text : {"", "bc", "😀"}) character.SetAsString(text);
  EXPECT_EQ(character.Value(), u'a');
  EXPECT_THROW(TVantrelByte().SetAsString("256"), EConvertError);
  EXPECT_THROW(TVantrelLongWord().SetAsString("-1"), EConvertError);
  EXPECT_THROW(TVantrelDouble().SetAsString("x"), EConvertError);
  EXPECT_THROW(TVantrelSingle().SetAsString("1e39"), EConvertError);
  EXPECT_THROW(TVantrelCurrency().SetAsString("1e30"), EConvertError);
  EXPECT_THROW(TVantrelDateTime().SetAsString("morgen"), EVantrelDateTimeError);
  EXPECT_THROW(TVantrelLongInt().Assign(TVantrelInt64()), EVantrelAssignError);
}

TEST(SimpleTypes, HashCodes) {
  EXPECT_EQ(TVantrelBoolean(true).GetHashCode(), 1);
  EXPECT_EQ(TVantrelLongInt(-5).GetHashCode(), -5);
  EXPECT_EQ(TVantrelInt64((std::int64_t{3} << 32) + 5).GetHashCode(), 6);
  EXPECT_EQ(TVantrelDouble(7).GetHashCode(), 7);
  EXPECT_NE(TVantrelDouble(7.25).GetHashCode(), TVantrelDouble(7.5).GetHashCode());
  EXPECT_EQ(TVantrelDouble(std::numeric_limits<double>::infinity()).GetHashCode(), 0);
  EXPECT_EQ(TVantrelGuid(GuidNamespaceOid()).GetHashCode(), ElfHash(GuidToText(GuidNamespaceOid())));
}

TEST(Reference, GivesUpOwnedValuesOnly) {
  TVantrelString value("x"), equal("x");
  TVantrelReference holder(&value), other(&equal), empty;
  EXPECT_TRUE(holder.Equals(&other) && !empty.Equals(std::make_unique<TVantrelReference>().get()));
  EXPECT_EQ(holder.GetHashCode(), value.GetHashCode());
  EXPECT_EQ(empty.GetHashCode(), 0);
  EXPECT_EQ(holder.Extract(), &value);
  EXPECT_EQ(holder.Value(), &value);
  TVantrelReference owner(true);
  owner.SetValue(new TVantrelString("y"));
  owner.SetValue(owner.Value());
  owner.SetValue(new TVantrelString("z"));
  const TVantrelPtr<TVantrelObject> extracted(owner.Extract());
  EXPECT_TRUE(owner.IsOwner() && owner.Value() == nullptr);
  EXPECT_THROW(Store(owner, empty), EVantrelPersistentError);
  TVantrelMemoryStream bytes;
  TVantrelStreamReader reader(bytes, NoBuffer);
  EXPECT_THROW(empty.Read(reader), EVantrelPersistentError);
}

TEST(Binary, IsEqualByStreamAndStoresItsBytes) {
  TVantrelMemoryStream bytes({1, 2, 3}), same({1, 2, 3});
  TVantrelBinary holder(&bytes), other(&same), stored, filled(true);
  filled.SetValue(new TVantrelMemoryStream);
  EXPECT_FALSE(holder.Equals(&other));
  other.SetValue(&bytes);
  EXPECT_TRUE(holder.Equals(&other));
  EXPECT_EQ(holder.GetHashCode(), other.GetHashCode());
  for (TVantrelBinary* target : {&stored, &filled}) {
    Store(holder, *target);
    EXPECT_EQ(target->Value()->Bytes(), bytes.Bytes());
    EXPECT_TRUE(target->IsOwner());
  }
  EXPECT_EQ(holder.Extract(), &bytes);
  EXPECT_EQ(holder.Value(), nullptr);
  EXPECT_FALSE(holder.Equals(&other));
  Store(holder, stored);
  EXPECT_EQ(stored.Value()->Size(), 0);
}

TEST(Graphic, IsEqualToThePictureItHolds) {
  auto picture = CreateVantrel<TBitmap>();
  TVantrelMemoryStream bytes({1, 2, 3});
  picture->LoadFromStream(bytes, 3);
  TBitmap* const held = picture.get();
  TVantrelBitmap holder, other;
  TVantrelIcon icon;
  EXPECT_EQ(holder.GetHashCode(), 0);
  EXPECT_FALSE(holder.Equals(nullptr));
  holder.SetValue(std::move(picture));
  EXPECT_TRUE(holder.Equals(held) && !holder.Equals(&holder));
  Store(holder, other);
  EXPECT_EQ(static_cast<TBitmap*>(other.Value())->Bytes(), held->Bytes());
  EXPECT_FALSE(other.Equals(held));
  icon.SetValue(holder.Extract());
  EXPECT_FALSE(icon.Equals(held));
  icon.Clear();
  EXPECT_EQ(icon.Value(), nullptr);
  EXPECT_EQ(holder.Value(), nullptr);
  Store(holder, other);
  EXPECT_EQ(other.Value(), nullptr);
}

constexpr const char* SampleText = "{00112233-4455-6677-8899-AABBCCDDEEFF}";
const TGuid Sample{{0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}};

TEST(Guid, TextFormsFollowTheByteOrderOfFiles) {
  EXPECT_EQ(GuidToText(Sample), SampleText);
  EXPECT_EQ(GuidToText(Sample, TVantrelGuidFormat::gfWithoutBrackets), "00112233-4455-6677-8899-aabbccddeeff");
  EXPECT_EQ(GuidToText(Sample, TVantrelGuidFormat::gfQuoted), "'{00112233-4455-6677-8899-AABBCCDDEEFF}'");
  EXPECT_EQ(TextToGuid(SampleText), Sample);
  EXPECT_EQ(TextToGuid("{00112233-4455-6677-8899-aabbccddeeff}"), Sample);
}

TEST(Guid, OtherTextsAreRefused) {
  for (const char* text : {"", "{}", "00112233-4455-6677-8899-AABBCCDDEEFF", "{00112233-4455-6677-8899-AABBCCDDEEF}",
                           "{00112233-4455-6677-8899-AABBCCDDEEFG}", "{0011223304455-6677-8899-AABBCCDDEEFF}",
                           "{00112233-4455-6677-8899-AABBCCDDEEFF} ", "(00112233-4455-6677-8899-AABBCCDDEEFF)",
                           "{ 0112233-4455-6677-8899-AABBCCDDEEFF}"}) {
    EXPECT_THROW(TextToGuid(text), EConvertError) << text;
  }
}

TEST(Guid, NewOnesDifferAndAreRandomKind) {
  const std::string text = GuidToText(NewGuid());
  EXPECT_EQ(text[15], '4');
  EXPECT_NE(std::string("89AB").find(text[20]), std::string::npos) << text;
  EXPECT_NE(NewGuid(), NewGuid());
}

TEST(Guid, NameBasedOnesAreTheKnownOnes) {
  const auto text = [](int version) {
    return GuidToText(NameBasedGuid(GuidNamespaceDns(), "python.org", version), TVantrelGuidFormat::gfWithoutBrackets);
  };
  EXPECT_EQ(text(3), "6fa459ea-ee8a-3ca4-894e-db77e160355e");
  EXPECT_EQ(text(5), "886313e1-3b8a-5372-9b90-0c9aee199e5d");
  EXPECT_NE(NameBasedGuid(GuidNamespaceOid(), "python.org", 5), NameBasedGuid(GuidNamespaceDns(), "python.org", 5));
  EXPECT_THROW(text(4), EArgumentOutOfRangeException);
}

const TVariant MayThird = TVariant::DateTime(39571.75);

TEST(Variant, ConvertsToNumbersAndText) {
  const std::tuple<TVariant, double, std::int32_t, const char*> cases[] = {
      {TVariant(), 0, 0, ""},       {true, 1, 1, "True"},
      {false, 0, 0, "False"},       {-7, -7, -7, "-7"},
      {2.5, 2.5, 2, "2,5"},         {3.5, 3.5, 4, "3,5"},
      {-2.5, -2.5, -2, "-2,5"},     {MayThird, 39571.75, 39572, "03.05.2008"},
      {"12,25", 12.25, 12, "12,25"}};
  for (const auto& [value, asFloat, asInteger, asText] : cases) {
    EXPECT_EQ(value.AsFloat(), asFloat) << asText;
    EXPECT_EQ(value.AsInteger(), asInteger) << asText;
    EXPECT_EQ(value.AsBoolean(), asFloat != 0) << asText;
    EXPECT_EQ(value.AsText(), asText);
  }
  EXPECT_TRUE(TVariant("TRUE").AsBoolean() && !TVariant("false").AsBoolean());
}

TEST(Variant, RefusesWhatHasNoValue) {
  const TVariant null = TVariant::Null();
  EXPECT_THROW(null.AsInteger(), EConvertError);
  EXPECT_THROW(null.AsFloat(), EConvertError);
  EXPECT_THROW(null.AsBoolean(), EConvertError);
  EXPECT_THROW(null.AsText(), EConvertError);
  EXPECT_EQ(null.AsTextOrEmpty(), "");
  EXPECT_THROW(TVariant(2147483648.0).AsInteger(), EConvertError);
  EXPECT_THROW(TVariant("NAN").AsInteger(), EConvertError);
  EXPECT_EQ(TVariant(2147483647.4).AsInteger(), 2147483647);
}

TEST(Variant, ComparesAsADatabaseDoes) {
  const TVariant null = TVariant::Null();
  const std::pair<TVariant, TVariant> same[] = {{null, null}, {{}, {}}, {2, 2.0}, {"2,0", 2}, {39571.75, MayThird}};
  for (const auto& [a, b] : same) EXPECT_EQ(a, b);
  const std::pair<TVariant, TVariant> unlike[] = {
      {null, 0}, {null, {}}, {"x", 0}, {"2,0", "2"}, {std::int64_t{1} << 53, (std::int64_t{1} << 53) + 1}};
  for (const auto& [a, b] : unlike) EXPECT_FALSE(a == b) << a.AsTextOrEmpty();
}

}  // namespace
