#include "VantrelCheckSum.h"

#include <gtest/gtest.h>

namespace {
TEST(CheckSum, IsTheKnownOneHoweverTheBytesCome) {
  const std::string digits = "123456789";
  TVantrelCRC32 sum;
  sum.Update(digits.data(), digits.size());
  EXPECT_EQ(~sum.Value(), 0xCBF43926U);
  for (const std::size_t blockSize : {0, 1, 3, 9, 100}) {
    TVantrelMemoryStream stream({digits.begin(), digits.end()});
    sum.Reset();
    sum.Update(stream, blockSize);
    EXPECT_EQ(~sum.Value(), 0xCBF43926U) << blockSize;
  }
}
}  // namespace
