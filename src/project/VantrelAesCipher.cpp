#include "VantrelAesCipher.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include "FoundationTexts.h"
#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"
#include "VantrelText.h"

namespace {

constexpr std::uint32_t ChunkBytes = 8192;

struct TKeyKind {
  std::uint32_t MaxBytes;
  const EVP_CIPHER* (*Ecb)();
  const EVP_CIPHER* (*Cbc)();
};
constexpr TKeyKind KeyKinds[] = {{16, EVP_aes_128_ecb, EVP_aes_128_cbc},
                                 {24, EVP_aes_192_ecb, EVP_aes_192_cbc},
                                 {32, EVP_aes_256_ecb, EVP_aes_256_cbc}};

void Check(int result) {
  if (result != 1) throw EVantrelAesCipherError(ResourceText(ProjectTexts::CipherLibrary));
}

void Start(EVP_CIPHER_CTX* context, const EVP_CIPHER* cipher, const std::uint8_t* key, const std::uint8_t* vector,
           bool encrypt) {
  Check(EVP_CipherInit_ex(context, cipher, nullptr, key, vector, encrypt ? 1 : 0));
  Check(EVP_CIPHER_CTX_set_padding(context, 0));
}

void Update(EVP_CIPHER_CTX* context, const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  constexpr std::uint32_t maxStep = 1U << 30;
  for (std::uint32_t done = 0, step = 0; done < size; done += step) {
    step = std::min(size - done, maxStep);
    int written = 0;
    Check(EVP_CipherUpdate(context, out + done, &written, in + done, static_cast<int>(step)));
  }
}

void Xor(const std::uint8_t* in, const std::uint8_t* mask, std::uint8_t* out, std::uint32_t count) {
  for (std::uint32_t i = 0; i < count; ++i) out[i] = in[i] ^ mask[i];
}

struct TKnownAnswer {
  std::uint32_t Bits;
  std::array<std::uint8_t, 32> Key;
  TVantrelAesCipher::TBlock Plain, Cipher;
};
constexpr TKnownAnswer KnownAnswers[] = {
    {128,
     {0x00, 0x01, 0x02, 0x03, 0x05, 0x06, 0x07, 0x08, 0x0a, 0x0b, 0x0c, 0x0d, 0x0f, 0x10, 0x11, 0x12},
     {0x50, 0x68, 0x12, 0xa4, 0x5f, 0x08, 0xc8, 0x89, 0xb9, 0x7f, 0x59, 0x80, 0x03, 0x8b, 0x83, 0x59},
     {0xd8, 0xf5, 0x32, 0x53, 0x82, 0x89, 0xef, 0x7d, 0x06, 0xb5, 0x06, 0xa4, 0xfd, 0x5b, 0xe9, 0xc9}},
    {192,
     {0xa0, 0xa1, 0xa2, 0xa3, 0xa5, 0xa6, 0xa7, 0xa8, 0xaa, 0xab, 0xac, 0xad,
      0xaf, 0xb0, 0xb1, 0xb2, 0xb4, 0xb5, 0xb6, 0xb7, 0xb9, 0xba, 0xbb, 0xbc},
     {0x4f, 0x1c, 0x76, 0x9d, 0x1e, 0x5b, 0x05, 0x52, 0xc7, 0xec, 0xa8, 0x4d, 0xea, 0x26, 0xa5, 0x49},
     {0xf3, 0x84, 0x72, 0x10, 0xd5, 0x39, 0x1e, 0x23, 0x60, 0x60, 0x8e, 0x5a, 0xcb, 0x56, 0x05, 0x81}},
    {256,
     {0x00, 0x01, 0x02, 0x03, 0x05, 0x06, 0x07, 0x08, 0x0a, 0x0b, 0x0c, 0x0d, 0x0f, 0x10, 0x11, 0x12,
      0x14, 0x15, 0x16, 0x17, 0x19, 0x1a, 0x1b, 0x1c, 0x1e, 0x1f, 0x20, 0x21, 0x23, 0x24, 0x25, 0x26},
     {0x5e, 0x25, 0xca, 0x78, 0xf0, 0xde, 0x55, 0x80, 0x25, 0x24, 0xd3, 0x8d, 0xa3, 0xfe, 0x44, 0x56},
     {0xe8, 0xb7, 0x2b, 0x4e, 0x8b, 0xe2, 0x43, 0x43, 0x8c, 0x9f, 0xff, 0x1f, 0x0e, 0x20, 0x58, 0x72}}};

}  // namespace

void TVantrelAesCipher::TContextDeleter::operator()(evp_cipher_ctx_st* context) const {
  EVP_CIPHER_CTX_free(context);
}

TVantrelAesCipher::TVantrelAesCipher() {
  for (TContext* context : {&rk, &drk, &FEncryptCbc.Context, &FDecryptCbc.Context}) {
    context->reset(EVP_CIPHER_CTX_new());
    Check(*context ? 1 : 0);
  }
  Burn();
}

TVantrelAesCipher::~TVantrelAesCipher() {
  if (FInitialized) Burn();
}

bool TVantrelAesCipher::SelfTest() {
  TVantrelAesCipher cipher;
  bool result = true;
  for (const TKnownAnswer& known : KnownAnswers) {
    TBlock block;
    cipher.Init(known.Key.data(), known.Bits, nullptr);
    cipher.EncryptECB(known.Plain.data(), block.data());
    result = result && block == known.Cipher;
    cipher.DecryptECB(block.data(), block.data());
    result = result && block == known.Plain;
    cipher.Burn();
  }
  return result;
}

void TVantrelAesCipher::Init(const std::uint8_t* key, std::uint32_t size, const std::uint8_t* initVector) {
  if (FInitialized) Burn();
  if (size == 0 || size % 4 != 0 || size > GetMaxKeySize())
    throw EVantrelAesCipherError(ResourceText(ProjectTexts::CipherInvalidKeySize));
  SetKey(key, size / 8);
  FInitialized = true;
  if (initVector == nullptr) {
    IV.fill(0);
    EncryptECB(IV.data(), IV.data());
  } else {
    std::memcpy(IV.data(), initVector, IV.size());
  }
  Reset();
}

void TVantrelAesCipher::SetKey(const std::uint8_t* key, std::uint32_t bytes) {
  std::array<std::uint8_t, 32> buffer{};
  std::copy_n(key, bytes, buffer.begin());
  const TKeyKind& kind = *std::find_if(std::begin(KeyKinds), std::end(KeyKinds),
                                       [bytes](const TKeyKind& candidate) { return bytes <= candidate.MaxBytes; });
  Start(rk.get(), kind.Ecb(), buffer.data(), nullptr, true);
  Start(drk.get(), kind.Ecb(), buffer.data(), nullptr, false);
  Start(FEncryptCbc.Context.get(), kind.Cbc(), buffer.data(), FEncryptCbc.Chain.data(), true);
  Start(FDecryptCbc.Context.get(), kind.Cbc(), buffer.data(), FDecryptCbc.Chain.data(), false);
  OPENSSL_cleanse(buffer.data(), buffer.size());
}

void TVantrelAesCipher::Init(std::string_view key, const std::uint8_t*) {
  if (FInitialized) Burn();
  try {
    std::array<std::uint8_t, 32> digest;
    unsigned length = 0;
    Check(EVP_Digest(key.data(), key.size(), digest.data(), &length, EVP_sha256(), nullptr));
    // The length in bytes goes where bits are asked for. Every project file depends on it.
    Init(digest.data(), std::min<std::uint32_t>(length, GetMaxKeySize()), nullptr);
    for (std::uint8_t& byte : digest) static_cast<volatile std::uint8_t&>(byte) = 0xFF;
  } catch (const std::exception&) {
    throw EVantrelAesCipherError(ResourceText(ProjectTexts::CipherDigest));
  }
}

void TVantrelAesCipher::Reset() {
  RequireInitialized();
  CV = IV;
}

void TVantrelAesCipher::Burn() {
  for (TContext* context : {&rk, &drk, &FEncryptCbc.Context, &FDecryptCbc.Context})
    EVP_CIPHER_CTX_reset(context->get());
  IV.fill(0xFF);
  CV.fill(0xFF);
  FInitialized = false;
}

void TVantrelAesCipher::SetIV(const TBlock& value) {
  RequireInitialized();
  IV = value;
  Reset();
}

void TVantrelAesCipher::GetIV(TBlock& value) const {
  RequireInitialized();
  value = CV;
}

void TVantrelAesCipher::RequireInitialized() const {
  if (!FInitialized) throw EVantrelAesCipherError(ResourceText(ProjectTexts::CipherNotInitialized));
}

void TVantrelAesCipher::EncryptECB(const std::uint8_t* in, std::uint8_t* out) {
  RequireInitialized();
  Update(rk.get(), in, out, BlockBytes);
}

void TVantrelAesCipher::DecryptECB(const std::uint8_t* in, std::uint8_t* out) {
  RequireInitialized();
  Update(drk.get(), in, out, BlockBytes);
}

void TVantrelAesCipher::RunCbc(TCbc& cbc, const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  if (cbc.Chain != CV) Check(EVP_CipherInit_ex(cbc.Context.get(), nullptr, nullptr, nullptr, CV.data(), -1));
  Update(cbc.Context.get(), in, out, size);
}

void TVantrelAesCipher::EncryptCBC(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  const std::uint32_t tail = size % BlockBytes, whole = size - tail;
  if (whole > 0) {
    RunCbc(FEncryptCbc, in, out, whole);
    std::memcpy(CV.data(), out + whole - BlockBytes, BlockBytes);
    FEncryptCbc.Chain = CV;
  }
  if (tail > 0) KeyStream(in + whole, out + whole, tail);
}

void TVantrelAesCipher::DecryptCBC(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  const std::uint32_t tail = size % BlockBytes, whole = size - tail;
  if (whole > 0) {
    TBlock last;
    std::memcpy(last.data(), in + whole - BlockBytes, BlockBytes);
    RunCbc(FDecryptCbc, in, out, whole);
    CV = FDecryptCbc.Chain = last;
  }
  if (tail > 0) KeyStream(in + whole, out + whole, tail);
}

void TVantrelAesCipher::EncryptCFB8bit(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  TBlock block;
  for (std::uint32_t i = 0; i < size; ++i) {
    EncryptECB(CV.data(), block.data());
    out[i] = in[i] ^ block[0];
    std::copy(CV.begin() + 1, CV.end(), CV.begin());
    CV.back() = out[i];
  }
}

void TVantrelAesCipher::DecryptCFB8bit(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  TBlock block;
  for (std::uint32_t i = 0; i < size; ++i) {
    const std::uint8_t incoming = in[i];
    EncryptECB(CV.data(), block.data());
    out[i] = incoming ^ block[0];
    std::copy(CV.begin() + 1, CV.end(), CV.begin());
    CV.back() = incoming;
  }
}

void TVantrelAesCipher::EncryptCFBblock(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  std::uint32_t done = 0;
  for (; size - done >= BlockBytes; done += BlockBytes) {
    KeyStream(in + done, out + done, BlockBytes);
    std::memcpy(CV.data(), out + done, BlockBytes);
  }
  KeyStream(in + done, out + done, size - done);
}

void TVantrelAesCipher::DecryptCFBblock(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  std::uint32_t done = 0;
  for (; size - done >= BlockBytes; done += BlockBytes) {
    TBlock incoming;
    std::memcpy(incoming.data(), in + done, BlockBytes);
    KeyStream(in + done, out + done, BlockBytes);
    CV = incoming;
  }
  KeyStream(in + done, out + done, size - done);
}

void TVantrelAesCipher::EncryptOFB(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  KeyStream(in, out, size);
}

void TVantrelAesCipher::DecryptOFB(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  EncryptOFB(in, out, size);
}

/// Enciphers the chaining value once per block or begun block, and lays it over the data.
void TVantrelAesCipher::KeyStream(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  for (std::uint32_t done = 0, step = 0; done < size; done += step) {
    step = std::min(size - done, BlockBytes);
    EncryptECB(CV.data(), CV.data());
    Xor(in + done, CV.data(), out + done, step);
  }
}

void TVantrelAesCipher::EncryptCTR(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  RequireInitialized();
  TBlock block;
  for (std::uint32_t done = 0, step = 0; done < size; done += step) {
    step = std::min(size - done, BlockBytes);
    EncryptECB(CV.data(), block.data());
    for (std::size_t i = CV.size(); i > 0 && ++CV[i - 1] == 0;) --i;
    Xor(in + done, block.data(), out + done, step);
  }
}

void TVantrelAesCipher::DecryptCTR(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  EncryptCTR(in, out, size);
}

void TVantrelAesCipher::Encrypt(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  static constexpr TOperation operations[] = {&TVantrelAesCipher::EncryptCBC, &TVantrelAesCipher::EncryptCFB8bit,
                                              &TVantrelAesCipher::EncryptCFBblock, &TVantrelAesCipher::EncryptOFB,
                                              &TVantrelAesCipher::EncryptCTR};
  const TOperation operation = operations[static_cast<std::size_t>(FCipherMode)];
  (this->*operation)(in, out, size);
}

void TVantrelAesCipher::Decrypt(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size) {
  static constexpr TOperation operations[] = {&TVantrelAesCipher::DecryptCBC, &TVantrelAesCipher::DecryptCFB8bit,
                                              &TVantrelAesCipher::DecryptCFBblock, &TVantrelAesCipher::DecryptOFB,
                                              &TVantrelAesCipher::DecryptCTR};
  const TOperation operation = operations[static_cast<std::size_t>(FCipherMode)];
  (this->*operation)(in, out, size);
}

std::uint64_t TVantrelAesCipher::EncryptStream(TVantrelStream& inStream, TVantrelStream& outStream,
                                               std::uint64_t size) {
  return RunStream(&TVantrelAesCipher::Encrypt, inStream, outStream, size);
}

std::uint64_t TVantrelAesCipher::DecryptStream(TVantrelStream& inStream, TVantrelStream& outStream,
                                               std::uint64_t size) {
  return RunStream(&TVantrelAesCipher::Decrypt, inStream, outStream, size);
}

std::uint64_t TVantrelAesCipher::RunStream(TOperation operation, TVantrelStream& inStream, TVantrelStream& outStream,
                                           std::uint64_t size) {
  std::uint8_t buffer[ChunkBytes];
  std::uint64_t result = 0;
  for (std::uint64_t asked = 0; asked < size; asked += ChunkBytes) {
    auto count = static_cast<std::int64_t>(std::min<std::uint64_t>(size - asked, ChunkBytes));
    const std::span<const std::uint8_t> window = inStream.Window();
    const std::uint8_t* source = window.data();
    if (window.empty()) {
      count = inStream.Read(buffer, count);
      source = buffer;
    } else {
      count = std::min(count, std::ssize(window));
      inStream.SetPosition(inStream.Position() + count);
    }
    std::uint8_t* const room = &outStream == &inStream ? nullptr : outStream.TakeRoom(count);
    std::uint8_t* const target = room == nullptr ? buffer : room;
    (this->*operation)(source, target, static_cast<std::uint32_t>(count));
    if (room == nullptr && outStream.Write(target, count) != count)
      throw EVantrelStreamWriterError(ResourceText(FoundationTexts::ShortWrite));
    result += static_cast<std::uint64_t>(count);
  }
  return result;
}

std::string TVantrelAesCipher::EncryptString(std::string_view str) {
  const std::u16string units = Utf8ToUtf16(str);
  std::vector<std::uint8_t> bytes(units.size() * 2);
  for (std::size_t i = 0; i < units.size(); ++i) {
    bytes[2 * i] = static_cast<std::uint8_t>(units[i]);
    bytes[2 * i + 1] = static_cast<std::uint8_t>(units[i] >> 8);
  }
  Encrypt(bytes.data(), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
  return EncodeBase64(bytes.data(), bytes.size());
}

std::string TVantrelAesCipher::DecryptString(std::string_view str) {
  std::vector<std::uint8_t> bytes = DecodeBase64(str);
  Decrypt(bytes.data(), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
  std::string result;
  AppendUtf16LeAsUtf8(bytes.data(), bytes.size() / 2, result);
  return result;
}
