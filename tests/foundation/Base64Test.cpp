#include <gtest/gtest.h>

#include "VantrelIO.h"

namespace {
TEST(Base64, GoesBothWays) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}, {"\xFB\xFF\xFE", "+//+"}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(EncodeBase64(bytes.data(), bytes.size()), text);
    EXPECT_EQ(DecodeBase64(text), std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
  }
}

TEST(Base64, LongBytesAndForeignCharacters) {
  std::vector<std::uint8_t> bytes(4'000'001);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 >> 3);
  const std::string text = EncodeBase64(bytes.data(), bytes.size());
  EXPECT_EQ(text.size(), (bytes.size() + 2) / 3 * 4);
  EXPECT_EQ(DecodeBase64(text), bytes);
  EXPECT_EQ(DecodeBase64(" Zm9\r\nv-\xFF"), (std::vector<std::uint8_t>{'f', 'o', 'o'}));
}
}  // namespace
