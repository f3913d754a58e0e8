#include "VantrelHashes.h"

std::int32_t ElfHash(std::string_view bytes) {
  std::uint32_t hash = 0;
  for (const char byte : bytes) {
    hash = static_cast<std::uint8_t>(byte) + hash * 16;
    const std::uint32_t top = hash & 0xF0000000U;
    hash = (hash ^ (top >> 24)) & ~top;
  }
  return static_cast<std::int32_t>(hash & 0x7FFFFFFFU);
}
