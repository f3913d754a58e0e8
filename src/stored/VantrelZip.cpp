#include "VantrelZip.h"

#include <zlib.h>

#include <new>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {
constexpr std::size_t ChunkSize = 256 * 1024;
constexpr std::size_t LargestPlain = std::size_t{1} << 30;
}  // namespace

std::vector<std::uint8_t> DeflateAll(std::span<const std::uint8_t> bytes) {
  uLongf size = compressBound(bytes.size());
  std::vector<std::uint8_t> packed(size);
  if (compress2(packed.data(), &size, bytes.data(), bytes.size(), Z_BEST_COMPRESSION) != Z_OK) throw std::bad_alloc();
  packed.resize(size);
  return packed;
}

std::vector<std::uint8_t> InflateAll(TVantrelStream& stream) {
  auto packed = stream.ReadAll();
  z_stream zip{};
  if (inflateInit2(&zip, 15) != Z_OK) throw std::bad_alloc();
  zip.next_in = packed.data();
  zip.avail_in = static_cast<uInt>(packed.size());
  std::vector<std::uint8_t> plain;
  int result = Z_OK;
  while (result == Z_OK && plain.size() <= LargestPlain) {
    const std::size_t done = plain.size();
    plain.resize(done + ChunkSize);
    zip.next_out = plain.data() + done;
    zip.avail_out = ChunkSize;
    result = inflate(&zip, Z_NO_FLUSH);
    plain.resize(plain.size() - zip.avail_out);
  }
  inflateEnd(&zip);
  if (result != Z_STREAM_END) throw EVantrelReaderError(ResourceText(FoundationTexts::ShortRead));
  return plain;
}
