#include "VantrelCheckSum.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<std::uint32_t, 256> MakeTable() {
  constexpr std::uint32_t polynomial = 0xEDB88320;
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? value >> 1 ^ polynomial : value >> 1;
    table[i] = value;
  }
  return table;
}
constexpr auto Table = MakeTable();
}  // namespace

void TVantrelAbstractCheckSum::Update(TVantrelStream& stream, std::size_t blockSize) {
  std::vector<std::uint8_t> block(std::max<std::size_t>(blockSize, 1));
  std::size_t count = block.size();
  while (count == block.size()) {
    count = static_cast<std::size_t>(stream.Read(block.data(), static_cast<std::int64_t>(block.size())));
    Update(block.data(), count);
  }
}

void TVantrelCRC32::Update(const void* buffer, std::size_t size) {
  for (const std::uint8_t byte : std::span(static_cast<const std::uint8_t*>(buffer), size)) {
    FValue = FValue >> 8 ^ Table[(FValue ^ byte) & 0xFF];
  }
}
