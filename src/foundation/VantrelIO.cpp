#include "VantrelIO.h"

#include <cmath>
#include <limits>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {
template <class T>
void WriteNumber(TVantrelWriter& writer, T value) {
  auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof(T)>>(value);
  if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
  writer.Write(bytes.data(), sizeof(T));
}

// The x87 extended format: a 64-bit mantissa with its leading one, then sign and biased exponent in 16 bits.
constexpr int ExtendedBias = 16383;
constexpr int ExtendedMantissaBits = 64;
constexpr std::uint16_t ExtendedSpecial = 0x7FFF;
constexpr std::uint16_t ExtendedSign = 0x8000;
constexpr std::uint64_t ExtendedInfinity = std::uint64_t{1} << 63;
constexpr std::uint64_t ExtendedNotANumber = std::uint64_t{3} << 62;
}  // namespace

void TVantrelWriter::WriteBoolean(bool value) {
  WriteByte(value ? 1 : 0);
}
void TVantrelWriter::WriteByte(std::uint8_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteShortInt(std::int8_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteSmallInt(std::int16_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteWord(std::uint16_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteChar(char16_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteLongInt(std::int32_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteLongWord(std::uint32_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteInt64(std::int64_t value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteSingle(float value) {
  WriteNumber(*this, value);
}
void TVantrelWriter::WriteDouble(double value) {
  WriteNumber(*this, value);
}

void TVantrelWriter::WriteExtended(long double value) {
  std::uint64_t mantissa = 0;
  std::uint16_t exponent = 0;
  if (std::isnan(value) || std::isinf(value)) {
    mantissa = std::isnan(value) ? ExtendedNotANumber : ExtendedInfinity;
    exponent = ExtendedSpecial;
  } else if (value != 0) {
    int binaryExponent = 0;
    const auto fraction = std::frexp(std::fabs(value), &binaryExponent);
    const int biased = binaryExponent - 1 + ExtendedBias;
    mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, ExtendedMantissaBits + std::min(biased - 1, 0)));
    exponent = static_cast<std::uint16_t>(std::max(biased, 0));
  }
  WriteNumber(*this, mantissa);
  WriteWord(std::signbit(value) ? exponent | ExtendedSign : exponent);
}

void TVantrelWriter::WriteGuid(const TGuid& value) {
  Write(value.Bytes.data(), std::ssize(value.Bytes));
}

void TVantrelWriter::WriteCount(std::size_t count) {
  if (count > std::numeric_limits<std::int32_t>::max())
    throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
  WriteLongInt(static_cast<std::int32_t>(count));
}

void TVantrelWriter::WriteCounted(std::string_view bytes) {
  WriteCount(bytes.size());
  WriteSignature(bytes);
}

void TVantrelWriter::WriteString(std::string_view value) {
  auto units = Utf8ToUtf16(value);
  if constexpr (std::endian::native == std::endian::big) {
    for (auto& unit : units) unit = static_cast<char16_t>(unit << 8 | unit >> 8);
  }
  WriteCount(units.size());
  if (!units.empty()) Write(units.data(), std::ssize(units) * 2);
}

void TVantrelWriter::WriteAnsiString(std::string_view value) {
  WriteCounted(Utf8ToAnsi(value));
}
void TVantrelWriter::WriteUtf8String(std::string_view value) {
  WriteCounted(value);
}

void TVantrelWriter::WriteSignature(std::string_view value) {
  if (!value.empty()) Write(value.data(), std::ssize(value));
}

void TVantrelWriter::WriteBinary(TVantrelStream& stream) {
  stream.SetPosition(0);
  const auto bytes = stream.ReadAll();
  WriteCount(bytes.size());
  if (!bytes.empty()) Write(bytes.data(), std::ssize(bytes));
}

void TVantrelWriter::WriteStrings(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) text.append(line).append("\r\n");
  WriteString(text);
}

void TVantrelReader::RaiseShortRead() {
  throw EVantrelReaderError(ResourceText(FoundationTexts::ShortRead));
}

std::int64_t TVantrelReader::ReadCount(std::int64_t unitSize) {
  const std::int64_t bytes = ReadLongInt() * unitSize;
  if (bytes < 0 || (FEnd - FNext < bytes && !Available(bytes))) RaiseShortRead();
  return bytes;
}

long double TVantrelReader::ReadExtended() {
  const auto mantissa = Number<std::uint64_t>();
  const auto word = ReadWord();
  const int exponent = word & ExtendedSpecial;
  long double value = 0;
  if (exponent == ExtendedSpecial) {
    value = mantissa << 1 == 0 ? std::numeric_limits<long double>::infinity()
                               : std::numeric_limits<long double>::quiet_NaN();
  } else {
    value = std::ldexp(static_cast<long double>(mantissa),
                       std::max(exponent, 1) - ExtendedBias - (ExtendedMantissaBits - 1));
  }
  return (word & ExtendedSign) != 0 ? -value : value;
}

TGuid TVantrelReader::ReadGuid() {
  return {Number<decltype(TGuid::Bytes)>()};
}

std::string TVantrelReader::ReadString() {
  std::string text;
  ReadString(text);
  return text;
}

void TVantrelReader::ReadString(std::string& target) {
  target.clear();
  const auto count = ReadCount(2);
  if (const auto* source = Take(count)) {
    AppendUtf16LeAsUtf8(source, static_cast<std::size_t>(count / 2), target);
    return;
  }
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
  Read(bytes.data(), count);
  AppendUtf16LeAsUtf8(bytes.data(), bytes.size() / 2, target);
}

std::string TVantrelReader::ReadAnsiString() {
  std::string bytes(static_cast<std::size_t>(ReadCount(1)), '\0');
  Read(bytes.data(), std::ssize(bytes));
  return AnsiToUtf8(bytes);
}

std::string TVantrelReader::ReadUtf8String() {
  std::string bytes(static_cast<std::size_t>(ReadCount(1)), '\0');
  Read(bytes.data(), std::ssize(bytes));
  return RepairUtf8(bytes);
}

bool TVantrelReader::ReadSignature(std::string_view expected) {
  std::string found(expected.size(), '\0');
  Read(found.data(), std::ssize(found));
  return found == expected;
}

TVantrelPtr<TVantrelMemoryStream> TVantrelReader::ReadBinary() {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(ReadCount(1)));
  Read(bytes.data(), std::ssize(bytes));
  return CreateVantrel<TVantrelMemoryStream>(std::move(bytes));
}

std::vector<std::string> TVantrelReader::ReadStrings() {
  const auto text = ReadString();
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const auto end = std::min(text.find_first_of("\r\n", start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
  }
  return lines;
}
