#include "VantrelVariant.h"

#include "Testing.h"
#include "VantrelClasses.h"

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

TEST(StaticClass, HasNoInstance) {
  struct TNever : TVantrelStaticClass {
    TNever() : TVantrelStaticClass("TNever") {}
  };
  EXPECT_EQ(ErrorOf<EVantrelStaticClassError>([] { TNever(); }),
            "Eine Instanz der Klasse \"TNever\" darf nicht abgelegt werden.");
}