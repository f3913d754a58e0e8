#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "VantrelStreams.h"

/// The bytes as a zlib stream: maximum compression, 15 window bits.
std::vector<std::uint8_t> DeflateAll(std::span<const std::uint8_t> bytes);
/// What the zlib stream from the position on holds. A damaged or cut stream, and one of more than 1 GiB, raises
/// EVantrelReaderError.
std::vector<std::uint8_t> InflateAll(TVantrelStream& stream);
