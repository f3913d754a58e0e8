#pragma once

#include <cstddef>
#include <cstdint>

#include "VantrelStreams.h"

/// A checksum that grows with the bytes it is given.
class TVantrelAbstractCheckSum {
 public:
  virtual ~TVantrelAbstractCheckSum() = default;

  /// Back to the value before the first byte.
  virtual void Reset() = 0;
  virtual void Update(const void* buffer, std::size_t size) = 0;
  /// Takes the stream from its position on in blocks of `blockSize` bytes, up to the first that comes short.
  void Update(TVantrelStream& stream, std::size_t blockSize);

  std::uint32_t Value() const { return FValue; }

 protected:
  std::uint32_t FValue = 0;
};

/// The reflected CRC-32, starting with all ones; the value is kept without the final inversion.
class TVantrelCRC32 final : public TVantrelAbstractCheckSum {
 public:
  TVantrelCRC32() { TVantrelCRC32::Reset(); }

  void Reset() override { FValue = 0xFFFFFFFF; }
  using TVantrelAbstractCheckSum::Update;
  void Update(const void* buffer, std::size_t size) override;
};
