#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "VantrelClasses.h"
#include "VantrelStreams.h"

enum class TVantrelAesCipherMode : std::uint8_t { cmCBC, cmCFB8bit, cmCFBblock, cmOFB, cmCTR };

struct evp_cipher_ctx_st;

/// AES in five chaining modes over memory and streams, without padding: the output is as long as the input. All
/// operations of one object share one chain, which Init, SetIV and Reset begin anew. Apart from the class-level ones
/// and Init, every operation on an object without a key raises EVantrelAesCipherError.
class TVantrelAesCipher : public TVantrelObject {
 public:
  using TBlock = std::array<std::uint8_t, 16>;
  static constexpr std::uint32_t BlockBytes = 16;

  TVantrelAesCipher();
  ~TVantrelAesCipher() override;

  /// Size of a block and of the longest key, both in bits.
  static std::uint32_t GetBlockSize() { return 128; }
  static std::uint32_t GetMaxKeySize() { return 256; }
  /// Runs known answers for the three key sizes; true if all hold.
  static bool SelfTest();

  /// Sets a key of `size` bits, filled up with zero bytes to the next AES key size, and the initial vector: 16 bytes,
  /// or null for the encrypted zero block. Raises EVantrelAesCipherError for a size that is 0, no multiple of 4 or
  /// above GetMaxKeySize.
  void Init(const std::uint8_t* key, std::uint32_t size, const std::uint8_t* initVector);
  /// Sets the key that project files use for a pass phrase: only the first four bytes of its SHA-256 take part. The
  /// vector is ignored. Raises EVantrelAesCipherError on any failure.
  void Init(std::string_view key, const std::uint8_t* initVector = nullptr);
  /// Goes back to the start of the chain.
  void Reset();
  /// Forgets the key.
  void Burn();
  /// Sets the initial vector and goes back to the start of the chain.
  void SetIV(const TBlock& value);
  /// Gives the present chaining value, which is the initial vector only until data passes.
  void GetIV(TBlock& value) const;

  bool Initialized() const { return FInitialized; }
  TVantrelAesCipherMode CipherMode() const { return FCipherMode; }
  void SetCipherMode(TVantrelAesCipherMode value) { FCipherMode = value; }

  /// One block of 16 bytes; `in` and `out` may be the same memory here and in all operations below.
  virtual void EncryptECB(const std::uint8_t* in, std::uint8_t* out);
  virtual void DecryptECB(const std::uint8_t* in, std::uint8_t* out);
  /// `size` bytes in the mode of the name.
  virtual void EncryptCBC(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void DecryptCBC(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void EncryptCFB8bit(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void DecryptCFB8bit(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void EncryptCFBblock(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void DecryptCFBblock(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void EncryptOFB(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void DecryptOFB(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void EncryptCTR(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  virtual void DecryptCTR(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);

  /// `size` bytes in the mode of CipherMode.
  void Encrypt(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  void Decrypt(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  /// Up to `size` bytes from the present position of one stream to that of the other; returns how many were read,
  /// which is fewer only where the input ends. Raises EVantrelStreamWriterError where the output takes no more.
  std::uint64_t EncryptStream(TVantrelStream& inStream, TVantrelStream& outStream, std::uint64_t size);
  std::uint64_t DecryptStream(TVantrelStream& inStream, TVantrelStream& outStream, std::uint64_t size);
  /// The UTF-16 units of a text, little-endian, to Base64 text and back.
  std::string EncryptString(std::string_view str);
  std::string DecryptString(std::string_view str);

 private:
  using TOperation = void (TVantrelAesCipher::*)(const std::uint8_t*, std::uint8_t*, std::uint32_t);
  struct TContextDeleter {
    void operator()(evp_cipher_ctx_st* context) const;
  };
  using TContext = std::unique_ptr<evp_cipher_ctx_st, TContextDeleter>;
  /// libcrypto's CBC with the chaining value that it stands at.
  struct TCbc {
    TContext Context;
    TBlock Chain{};
  };

  void RequireInitialized() const;
  void SetKey(const std::uint8_t* key, std::uint32_t bytes);
  void RunCbc(TCbc& cbc, const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  void KeyStream(const std::uint8_t* in, std::uint8_t* out, std::uint32_t size);
  std::uint64_t RunStream(TOperation operation, TVantrelStream& inStream, TVantrelStream& outStream,
                          std::uint64_t size);

  TVantrelAesCipherMode FCipherMode = TVantrelAesCipherMode::cmCBC;
  bool FInitialized = false;
  TContext rk;
  TContext drk;
  TCbc FEncryptCbc;
  TCbc FDecryptCbc;
  TBlock IV;
  TBlock CV;
};
