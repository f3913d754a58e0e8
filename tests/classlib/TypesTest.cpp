#include "VantrelTypes.h"

#include <cstring>
#include <limits>
#include <memory>

#include "Testing.h"
#include "VantrelGuid.h"
#include "VantrelHashes.h"
#include "VantrelStreams.h"

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
}  // namespace
