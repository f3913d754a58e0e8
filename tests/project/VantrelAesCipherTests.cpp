#include "VantrelAesCipher.h"

#include <fmt/ranges.h>
#include <openssl/evp.h>

#include <fstream>
#include <sstream>

#include "Testing.h"
#include "VantrelFileStreams.h"

namespace {

using TBytes = std::vector<std::uint8_t>;
using enum TVantrelAesCipherMode;

TBytes FromHex(const std::string& text) {
  TBytes result;
  for (std::size_t i = 0; i < text.size(); i += 2)
    result.push_back(static_cast<std::uint8_t>(std::stoi(text.substr(i, 2), nullptr, 16)));
  return result;
}

std::string ToHex(std::span<const std::uint8_t> bytes) {
  return fmt::format("{:02x}", fmt::join(bytes, ""));
}

const TBytes NistKey = FromHex("2b7e151628aed2a6abf7158809cf4f3c");
const TBytes NistPlain = FromHex("6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51");

}  // namespace

TEST(VantrelAesCipher, KnownStreams) {
  std::ifstream known(FIXTURES "/cipher.txt");
  int cases = 0;
  for (std::string line; std::getline(known, line);) {
    if (line.starts_with('#')) continue;
    const std::string phrase = line.substr(0, line.find(" | "));
    std::istringstream fields(line.substr(phrase.size()));
    std::string bar, digestText, firstBytes;
    std::size_t length = 0;
    fields >> bar >> length >> bar >> digestText >> bar >> firstBytes;
    TBytes plain(length);
    for (std::size_t i = 0; i < plain.size(); ++i) plain[i] = static_cast<std::uint8_t>(i % 251);

    TVantrelAesCipher cipher;
    cipher.Init(phrase);
    TVantrelMemoryStream in(plain), enciphered, out;
    EXPECT_EQ(cipher.EncryptStream(in, enciphered, length), length);
    TBytes digest(32);
    EVP_Digest(enciphered.Bytes().data(), enciphered.Bytes().size(), digest.data(), nullptr, EVP_sha256(), nullptr);
    EXPECT_EQ(ToHex(digest), digestText) << line;
    EXPECT_EQ(ToHex(std::span(enciphered.Bytes()).first(std::min<std::size_t>(length, 32))), firstBytes);

    // Back in memory, and through a file, which has no memory to work on.
    TVantrelFileStream file(testing::TempDir() + "cipher.bin", TVantrelFileAccessMode::famShareDenyNone,
                            TVantrelFileOpenMode::fomCreate);
    for (TVantrelStream* target : {static_cast<TVantrelStream*>(&out), static_cast<TVantrelStream*>(&file)}) {
      cipher.Init(phrase);
      enciphered.SetPosition(0);
      EXPECT_EQ(cipher.DecryptStream(enciphered, *target, length + 20000), length);
      target->SetPosition(0);
      EXPECT_EQ(target->ReadAll(), plain) << line;
    }
    ++cases;
  }
  EXPECT_GT(cases, 10);
}

TEST(VantrelAesCipher, ModesAgreeWithPublishedVectors) {
  const std::string counting = "000102030405060708090a0b0c0d0e0f", high = "f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff";
  const std::tuple<TVantrelAesCipherMode, std::string, std::string> cases[] = {
      {cmCBC, counting, "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"},
      {cmCFB8bit, counting, "3b79424c9c0dd436bace9e0ed4586a4f32b9"},
      {cmCFBblock, counting, "3b3fd92eb72dad20333449f8e83cfb4ac8a64537a0b3a93fcde3cdad9f1ce58b"},
      {cmOFB, counting, "3b3fd92eb72dad20333449f8e83cfb4a7789508d16918f03f53c52dac54ed825"},
      {cmCTR, high, "874d6191b620e3261bef6864990db6ce9806f66b7970fdff8617187bb9fffdff"}};
  for (const auto& [mode, vector, known] : cases) {
    const TBytes expected = FromHex(known);
    TVantrelAesCipher cipher;
    cipher.SetCipherMode(mode);
    cipher.Init(NistKey.data(), 128, FromHex(vector).data());
    // In two calls and in place, so that the chain must carry on.
    TBytes data(NistPlain.begin(), NistPlain.begin() + static_cast<std::ptrdiff_t>(expected.size()));
    cipher.Encrypt(data.data(), data.data(), 16);
    cipher.Encrypt(data.data() + 16, data.data() + 16, static_cast<std::uint32_t>(data.size() - 16));
    EXPECT_EQ(ToHex(data), known);
    cipher.Reset();
    cipher.Decrypt(data.data(), data.data(), 16);
    cipher.Decrypt(data.data() + 16, data.data() + 16, static_cast<std::uint32_t>(data.size() - 16));
    EXPECT_TRUE(std::equal(data.begin(), data.end(), NistPlain.begin())) << known;
  }
}

TEST(VantrelAesCipher, Refusals) {
  TVantrelAesCipher cipher;
  TVantrelAesCipher::TBlock block{};
  const char* notInitialized = "Cipher not initialized";
  EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.Reset(); }), notInitialized);
  EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.SetIV(block); }), notInitialized);
  EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.GetIV(block); }), notInitialized);
  for (const auto mode : {cmCBC, cmCFB8bit, cmCFBblock, cmOFB, cmCTR}) {
    cipher.SetCipherMode(mode);
    EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.Encrypt(block.data(), block.data(), 0); }), notInitialized);
    EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.Decrypt(block.data(), block.data(), 0); }), notInitialized);
  }
  for (const std::uint32_t size : {0U, 30U, 260U}) {
    cipher.Init(NistKey.data(), 128, nullptr);
    EXPECT_EQ(ErrorOf<EVantrelAesCipherError>([&] { cipher.Init(NistKey.data(), size, nullptr); }), "Invalid key size");
    EXPECT_FALSE(cipher.Initialized());
  }
}

TEST(VantrelAesCipher, Strings) {
  EXPECT_TRUE(TVantrelAesCipher::SelfTest());
  TVantrelAesCipher cipher;
  cipher.Init("x");
  const std::string text = "Größe \xF0\x9F\x98\x80 \xED\xA0\x80";
  const std::string enciphered = cipher.EncryptString(text);
  EXPECT_EQ(enciphered.size(), 28U);
  cipher.Reset();
  EXPECT_EQ(cipher.DecryptString(enciphered), text);
}
