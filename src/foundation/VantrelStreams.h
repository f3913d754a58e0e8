#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "VantrelClasses.h"

/// A sequence of bytes with a position.
class TVantrelStream : public TVantrelObject {
 public:
  /// Reads up to `count` bytes from the position on; returns how many there were.
  virtual std::int64_t Read(void* target, std::int64_t count) = 0;
  /// Returns how many bytes were taken: fewer than `count` only where the stream is full.
  virtual std::int64_t Write(const void* source, std::int64_t count) = 0;
  virtual std::int64_t Position() const = 0;
  virtual void SetPosition(std::int64_t position) = 0;
  virtual std::int64_t Size() const = 0;
  /// Cuts or extends (with zero bytes) the stream; a position behind the end moves to the end.
  virtual void SetSize(std::int64_t size) = 0;

  /// The bytes from the position to the end where the stream keeps them in memory, else empty.
  virtual std::span<const std::uint8_t> Window() const { return {}; }
  /// About so many bytes will be written from the position on: a stream in memory makes room for them in one go.
  virtual void Reserve(std::int64_t) {}
  /// Room for `count` bytes at the position, which the caller fills at once instead of a Write; the position moves
  /// behind them. Null where the stream does not keep its bytes in memory.
  virtual std::uint8_t* TakeRoom(std::int64_t) { return nullptr; }

  /// Position 0, size 0.
  void Clear();
  /// All bytes from the position to the end.
  std::vector<std::uint8_t> ReadAll();
};

/// A stream over bytes in memory.
class TVantrelMemoryStream final : public TVantrelStream {
 public:
  TVantrelMemoryStream() = default;
  explicit TVantrelMemoryStream(std::vector<std::uint8_t> bytes) : FBytes(std::move(bytes)) {}

  std::int64_t Read(void* target, std::int64_t count) override;
  std::int64_t Write(const void* source, std::int64_t count) override;
  std::int64_t Position() const override { return FPosition; }
  void SetPosition(std::int64_t position) override;
  std::int64_t Size() const override { return static_cast<std::int64_t>(FBytes.size()); }
  void SetSize(std::int64_t size) override;
  std::span<const std::uint8_t> Window() const override;
  void Reserve(std::int64_t count) override { FBytes.reserve(static_cast<std::size_t>(FPosition + count)); }
  std::uint8_t* TakeRoom(std::int64_t count) override;

  const std::vector<std::uint8_t>& Bytes() const { return FBytes; }
  std::vector<std::uint8_t>& Bytes() { return FBytes; }

 private:
  std::vector<std::uint8_t> FBytes;
  std::int64_t FPosition = 0;
};
