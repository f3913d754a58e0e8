#include "VantrelNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "VantrelExceptions.h"

namespace {
using TLimits = std::numeric_limits<double>;

TEST(Numbers, FloatTextIsGeneralWithFifteenDigits) {
  const struct {
    double Value;
    const char* Text;
  } cases[] = {{0, "0"},
               {-0.0, "0"},
               {1, "1"},
               {0.1F, "0.100000001490116"},
               {2.3F, "2.29999995231628"},
               {0.1, "0.1"},
               {-2.5, "-2.5"},
               {1234.0625, "1234.0625"},
               {0.1 + 0.2, "0.3"},
               {99.99999999999999, "100"},
               {99999999999999.5, "99999999999999.5"},
               {999999999999999, "999999999999999"},
               {999999999999999.9, "1E15"},
               {1e15, "1E15"},
               {1234567890123456789.0, "1.23456789012346E18"},
               {1e25, "1E25"},
               {0.00001, "0.00001"},
               {0.000123, "0.000123"},
               {0.0000099, "9.9E-6"},
               {1e-7, "1E-7"},
               {-1.23456789012345e-300, "-1.23456789012345E-300"},
               {TLimits::quiet_NaN(), "NAN"},
               {TLimits::infinity(), "INF"},
               {-TLimits::infinity(), "-INF"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(FloatToText(value), text);
}

TEST(Numbers, EveryWrittenFloatIsReadAgain) {
  for (const double value : {0.0, 1.5, -3.25e-7, 1e300, TLimits::min(), TLimits::denorm_min(), TLimits::infinity()}) {
    EXPECT_DOUBLE_EQ(TextToFloat(FloatToText(value)), value);
  }
  EXPECT_EQ(TextToFloat(FloatToText(TLimits::lowest())), TLimits::lowest());
  EXPECT_TRUE(std::isnan(TextToFloat(FloatToText(TLimits::quiet_NaN()))));
}

TEST(Numbers, FloatsAreReadWithCommaAndBlanks) {
  EXPECT_EQ(TextToFloat(" 2,5 "), 2.5);
  EXPECT_EQ(TextToFloat("+1.5e2"), 150);
  EXPECT_EQ(TextToFloat("1e-400"), 0);
  for (const char* text : {"", " ", "-", "+-1", "1.2.3", "1 2", "0x10", "zwei", "1e999", "-1e999", "1e99999"}) {
    EXPECT_THROW(TextToFloat(text), EConvertError) << text;
  }
}

TEST(Numbers, IntegersAreReadDecimalAndHexadecimal) {
  const struct {
    const char* Text;
    std::int64_t Value;
  } cases[] = {{"0", 0},
               {" -17 ", -17},
               {"+5", 5},
               {"$ff", 255},
               {"0xFFFFFFFF", 4294967295},
               {"-$10", -16},
               {"9223372036854775807", INT64_MAX},
               {"-9223372036854775808", INT64_MIN},
               {"$8000000000000000", INT64_MIN},
               {"-$8000000000000000", INT64_MIN}};
  for (const auto& [text, value] : cases) EXPECT_EQ(TextToInteger(text), value) << text;
  for (const char* text : {"", "-", "--1", "+-1", "1.0", "1a", "$", "0x", "$-1", "9223372036854775808"}) {
    EXPECT_THROW(TextToInteger(text), EConvertError) << text;
    EXPECT_EQ(TextToIntegerOr(text, -7), -7) << text;
  }
}
}  // namespace
