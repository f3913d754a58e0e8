#include "VantrelCompoundFile.h"

#include <algorithm>

#include "VantrelIO.h"

namespace {

constexpr std::uint32_t SectorSize = 512;
constexpr std::uint32_t MinStreamSize = 4096;
constexpr std::uint32_t EntriesPerSector = SectorSize / 4;
/// Places of table sectors in the header; more stand in sectors of their own, whose last entry leads to the next one.
constexpr std::uint32_t HeaderEntries = 109;
constexpr std::uint32_t EntriesPerIndex = EntriesPerSector - 1;

enum TSector : std::uint32_t {
  IndexSector = 0xFFFFFFFC,
  TableSector = 0xFFFFFFFD,
  EndOfChain = 0xFFFFFFFE,
  Free = 0xFFFFFFFF
};

constexpr std::uint32_t Sectors(std::uint32_t count, std::uint32_t perSector) {
  return (count + perSector - 1) / perSector;
}

/// Where things stand: the stream, the directory, the table of all sectors, and the sectors that tell where the table
/// is.
struct TLayout {
  std::uint32_t Stream;
  std::uint32_t Table = 0;
  std::uint32_t Index = 0;

  explicit TLayout(std::uint32_t streamSize) : Stream(Sectors(streamSize, SectorSize)) {
    for (std::uint32_t before = Table + 1; before != Table + Index;) {
      before = Table + Index;
      Table = Sectors(Stream + 1 + Table + Index, EntriesPerSector);
      Index = Table > HeaderEntries ? Sectors(Table - HeaderEntries, EntriesPerIndex) : 0;
    }
  }
  std::uint32_t Directory() const { return Stream; }
  std::uint32_t FirstTable() const { return Stream + 1; }
  std::uint32_t FirstIndex() const { return FirstTable() + Table; }
};

void WriteEntries(TVantrelWriter& writer, std::uint32_t count, std::uint32_t value) {
  for (std::uint32_t i = 0; i < count; ++i) writer.WriteLongWord(value);
}

/// The places of up to `count` table sectors, from the `first` one on.
void WritePlaces(TVantrelWriter& writer, const TLayout& layout, std::uint32_t first, std::uint32_t count) {
  for (std::uint32_t i = first; i < first + count; ++i)
    writer.WriteLongWord(i < layout.Table ? layout.FirstTable() + i : static_cast<std::uint32_t>(Free));
}

void WriteHeader(TVantrelWriter& writer, const TLayout& layout) {
  writer.WriteSignature("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  WriteEntries(writer, 4, 0);  // class id
  writer.WriteWord(0x003E);    // minor version
  writer.WriteWord(3);         // major version
  writer.WriteWord(0xFFFE);    // little-endian
  writer.WriteWord(9);         // sectors of 512 bytes
  writer.WriteWord(6);         // small sectors of 64 bytes
  writer.WriteWord(0);
  WriteEntries(writer, 2, 0);
  writer.WriteLongWord(layout.Table);
  writer.WriteLongWord(layout.Directory());
  writer.WriteLongWord(0);
  writer.WriteLongWord(MinStreamSize);
  writer.WriteLongWord(EndOfChain);  // no small sectors
  writer.WriteLongWord(0);
  writer.WriteLongWord(layout.Index == 0 ? static_cast<std::uint32_t>(EndOfChain) : layout.FirstIndex());
  writer.WriteLongWord(layout.Index);
  WritePlaces(writer, layout, 0, HeaderEntries);
}

void WriteDirectoryEntry(TVantrelWriter& writer, std::string_view name, std::uint8_t kind, std::uint32_t child,
                         std::uint32_t start, std::uint32_t size) {
  constexpr std::size_t nameUnits = 32;
  for (std::size_t i = 0; i < nameUnits; ++i)
    writer.WriteChar(i < name.size() ? static_cast<char16_t>(name[i]) : u'\0');
  writer.WriteWord(static_cast<std::uint16_t>(name.empty() ? 0 : (name.size() + 1) * 2));
  writer.WriteByte(kind);
  writer.WriteByte(1);            // black
  WriteEntries(writer, 2, Free);  // no siblings
  writer.WriteLongWord(child);
  WriteEntries(writer, 9, 0);  // class id, state, times
  writer.WriteLongWord(start);
  writer.WriteLongWord(size);
  writer.WriteLongWord(0);
}

void WriteDirectory(TVantrelWriter& writer, std::string_view streamName, std::uint32_t streamSize) {
  constexpr std::uint8_t unused = 0, stream = 2, root = 5;
  WriteDirectoryEntry(writer, "Root Entry", root, 1, EndOfChain, 0);
  WriteDirectoryEntry(writer, streamName, stream, Free, 0, streamSize);
  for (int i = 0; i < 2; ++i) WriteDirectoryEntry(writer, {}, unused, Free, 0, 0);
}

void WriteTable(TVantrelWriter& writer, const TLayout& layout) {
  for (std::uint32_t i = 1; i < layout.Stream; ++i) writer.WriteLongWord(i);
  WriteEntries(writer, 2, EndOfChain);  // of the stream, and of the directory's one sector
  WriteEntries(writer, layout.Table, TableSector);
  WriteEntries(writer, layout.Index, IndexSector);
  const std::uint32_t used = layout.FirstIndex() + layout.Index;
  WriteEntries(writer, layout.Table * EntriesPerSector - used, Free);
}

void WriteIndex(TVantrelWriter& writer, const TLayout& layout) {
  for (std::uint32_t i = 0; i < layout.Index; ++i) {
    WritePlaces(writer, layout, HeaderEntries + i * EntriesPerIndex, EntriesPerIndex);
    writer.WriteLongWord(i + 1 < layout.Index ? layout.FirstIndex() + i + 1 : static_cast<std::uint32_t>(EndOfChain));
  }
}

}  // namespace

std::vector<std::uint8_t> CompoundFile(std::string_view streamName, std::span<const std::uint8_t> stream) {
  const auto size = std::max(static_cast<std::uint32_t>(stream.size()), MinStreamSize);
  const TLayout layout(size);
  TVantrelMemoryStream file;
  TVantrelStreamWriter writer(file, SectorSize * 16);
  WriteHeader(writer, layout);
  writer.Write(stream.data(), static_cast<std::int64_t>(stream.size()));
  const std::vector<std::uint8_t> rest(layout.Stream * SectorSize - stream.size());
  writer.Write(rest.data(), static_cast<std::int64_t>(rest.size()));
  WriteDirectory(writer, streamName, size);
  WriteTable(writer, layout);
  WriteIndex(writer, layout);
  writer.FlushBuffer();
  return std::move(file.Bytes());
}
