#include "VantrelTimeSpan.h"

#include "Testing.h"

TEST(TimeSpan, ShowsWhatTheFormatAsksFor) {
  using enum TVantrelTimeSpanFormat;
  constexpr std::int64_t span = ((26 * 60 + 3) * 60 + 4) * 1000;
  EXPECT_EQ(TimeSpanToText(span, tsfMinSec), "1.02:03:04");
  EXPECT_EQ(TimeSpanToText(span, tsfInterval), "1.02:03:04");
  EXPECT_EQ(TimeSpanToText(span + 5, tsfInterval), "1.02:03:04:05");
  EXPECT_EQ(TimeSpanToText(-61'123, tsfMinSecMSec), "-00:01:01:123");
  EXPECT_EQ(TimeSpanToText(INT64_MIN, tsfMinSec), "-106751991167.07:12:55");
}