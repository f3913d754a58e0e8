#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// A compound file, the container of older office documents, that holds one stream of that name. The stream is filled
/// up with zeros to 4096 bytes where it is shorter, since small streams have another form. Names are ASCII, at most 31
/// characters.
std::vector<std::uint8_t> CompoundFile(std::string_view streamName, std::span<const std::uint8_t> stream);
