#include <openssl/evp.h>

#include <algorithm>
#include <array>

#include "VantrelIO.h"

namespace {
/// What libcrypto takes in one call, whole groups of three bytes.
constexpr std::size_t MaxBlock = 3 << 20;

constexpr std::uint8_t Foreign = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeValues() {
  constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<std::uint8_t, 256> values{};
  for (auto& value : values) value = Foreign;
  for (std::size_t i = 0; i < alphabet.size(); ++i) {
    values[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}
constexpr auto Values = MakeValues();
}  // namespace

std::string EncodeBase64(const void* bytes, std::size_t count) {
  std::string text((count + 2) / 3 * 4, '\0');
  auto* out = reinterpret_cast<unsigned char*>(text.data());
  const auto* in = static_cast<const unsigned char*>(bytes);
  while (count > 0) {
    const std::size_t block = std::min(count, MaxBlock);
    out += EVP_EncodeBlock(out, in, static_cast<int>(block));
    in += block;
    count -= block;
  }
  return text;
}

std::vector<std::uint8_t> DecodeBase64(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() / 4 * 3 + 3);
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : text) {
    const std::uint8_t value = Values[static_cast<unsigned char>(c)];
    if (value == Foreign) continue;
    bits = bits << 6 | value;
    count += 6;
    if (count >= 8) {
      count -= 8;
      bytes.push_back(static_cast<std::uint8_t>(bits >> count));
    }
  }
  return bytes;
}
