#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "VantrelGuid.h"
#include "VantrelStreams.h"

/// The primitive values over an abstract Write. Numbers are little-endian, texts counted (see WriteString).
class TVantrelWriter {
 public:
  virtual ~TVantrelWriter() = default;
  /// Writes all bytes or raises EVantrelWriterError.
  virtual void Write(const void* source, std::int64_t count) = 0;

  void WriteBoolean(bool value);
  void WriteByte(std::uint8_t value);
  void WriteShortInt(std::int8_t value);
  void WriteSmallInt(std::int16_t value);
  void WriteWord(std::uint16_t value);
  /// One UTF-16 unit.
  void WriteChar(char16_t value);
  void WriteLongInt(std::int32_t value);
  void WriteLongWord(std::uint32_t value);
  void WriteInt64(std::int64_t value);
  void WriteSingle(float value);
  void WriteDouble(double value);
  /// 10 bytes, x87 extended format.
  void WriteExtended(long double value);
  void WriteGuid(const TGuid& value);
  /// 4-byte count of UTF-16 units, then the units.
  void WriteString(std::string_view value);
  /// 4-byte byte count, then the bytes in the ANSI code page (WriteAnsiString) or in UTF-8.
  void WriteAnsiString(std::string_view value);
  void WriteUtf8String(std::string_view value);
  /// The bytes of the text, no length.
  void WriteSignature(std::string_view value);
  /// 4-byte size and all bytes of the stream.
  void WriteBinary(TVantrelStream& stream);
  /// The list as one WriteString of its lines, each ended by CR LF.
  void WriteStrings(const std::vector<std::string>& lines);

 private:
  void WriteCounted(std::string_view bytes);
  void WriteCount(std::size_t count);
};

/// The counterpart of TVantrelWriter. A short read raises EVantrelReaderError; a length that is larger than the
/// bytes that are left is a short read at once, before memory is taken.
class TVantrelReader {
 public:
  virtual ~TVantrelReader() = default;
  /// Reads exactly `count` bytes or raises EVantrelReaderError.
  virtual void Read(void* target, std::int64_t count) = 0;
  /// True if at least `count` bytes are left.
  virtual bool Available(std::int64_t count) const = 0;

  bool ReadBoolean() { return ReadByte() != 0; }
  std::uint8_t ReadByte() { return Number<std::uint8_t>(); }
  std::int8_t ReadShortInt() { return Number<std::int8_t>(); }
  std::int16_t ReadSmallInt() { return Number<std::int16_t>(); }
  std::uint16_t ReadWord() { return Number<std::uint16_t>(); }
  char16_t ReadChar() { return Number<char16_t>(); }
  std::int32_t ReadLongInt() { return Number<std::int32_t>(); }
  std::uint32_t ReadLongWord() { return Number<std::uint32_t>(); }
  std::int64_t ReadInt64() { return Number<std::int64_t>(); }
  float ReadSingle() { return Number<float>(); }
  double ReadDouble() { return Number<double>(); }
  long double ReadExtended();
  TGuid ReadGuid();
  std::string ReadString();
  /// As ReadString, into a text that keeps its capacity.
  void ReadString(std::string& target);
  std::string ReadAnsiString();
  std::string ReadUtf8String();
  /// True if the next bytes equal `expected`.
  bool ReadSignature(std::string_view expected);
  TVantrelPtr<TVantrelMemoryStream> ReadBinary();
  std::vector<std::string> ReadStrings();

 protected:
  /// `count` bytes in place where the reader has them in memory, consuming them; null where it has not.
  const std::uint8_t* Take(std::int64_t count) {
    if (count < 0 || FEnd - FNext < count) return nullptr;
    return std::exchange(FNext, FNext + count);
  }
  [[noreturn]] static void RaiseShortRead();

  /// The bytes that a descendant holds in memory and that are not consumed yet.
  const std::uint8_t* FNext = nullptr;
  const std::uint8_t* FEnd = nullptr;

 private:
  template <class T>
  T Number();
  std::int64_t ReadCount(std::int64_t unitSize);
};

template <class T>
T TVantrelReader::Number() {
  std::array<std::uint8_t, sizeof(T)> bytes;
  if (const auto* source = Take(sizeof(T))) {
    std::memcpy(bytes.data(), source, sizeof(T));
  } else {
    Read(bytes.data(), sizeof(T));
  }
  if constexpr (std::is_arithmetic_v<T> && std::endian::native == std::endian::big) std::ranges::reverse(bytes);
  return std::bit_cast<T>(bytes);
}

/// Writes to a stream, through a buffer of `bufferSize` bytes; a size below 1 means none. The destructor flushes, but
/// cannot report a failure: whoever wants to know calls FlushBuffer first.
class TVantrelStreamWriter final : public TVantrelWriter {
 public:
  TVantrelStreamWriter(TVantrelStream& stream, int bufferSize);
  ~TVantrelStreamWriter() override;

  void Write(const void* source, std::int64_t count) override;
  /// Writes the buffer out; a short write raises EVantrelStreamWriterError.
  void FlushBuffer();

 private:
  void WriteThrough(const std::uint8_t* source, std::int64_t count);

  TVantrelStream& FStream;
  std::vector<std::uint8_t> FBuffer;
  std::size_t FBufPos = 0;
};

/// Reads from a stream, through a buffer of `bufferSize` bytes; a size below 1 means none. A stream in memory is read
/// in place and must not be changed meanwhile. The destructor leaves the stream behind what was consumed.
class TVantrelStreamReader final : public TVantrelReader {
 public:
  TVantrelStreamReader(TVantrelStream& stream, int bufferSize);
  ~TVantrelStreamReader() override;

  void Read(void* target, std::int64_t count) override;
  bool Available(std::int64_t count) const override;
  bool CanRead() const { return Available(1); }
  /// Seeks the stream to the logical position and empties the buffer.
  void FlushBuffer();
  /// Position of the next byte in the stream.
  std::int64_t Position() const;

 private:
  void Fill();

  TVantrelStream& FStream;
  std::vector<std::uint8_t> FBuffer;
};

/// RFC 4648 alphabet, "=" padding, no line breaks. Decoding skips every character outside the alphabet.
std::string EncodeBase64(const void* bytes, std::size_t count);
std::vector<std::uint8_t> DecodeBase64(std::string_view text);
