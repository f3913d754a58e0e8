#include "VantrelResources.h"

#include <elf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelStreams.h"

namespace {
using TBytes = std::vector<std::uint8_t>;

TVantrelResourceStringTable Texts() {
  TVantrelResourceStringTable table;
  table.SetString(65535, "Schließen");
  table.SetString(3, "");
  return table;
}

/// A compiled file of three sections: its names, the table, and one of somebody else. The sections' headers come last.
TBytes Binary(const TBytes& table) {
  constexpr char names[] = "vantrel_strings\0.data";
  const std::size_t tableAt = sizeof(Elf64_Ehdr) + sizeof names;
  Elf64_Ehdr header{};
  std::memcpy(header.e_ident, ELFMAG, SELFMAG);
  header.e_ident[EI_CLASS] = ELFCLASS64;
  header.e_ident[EI_DATA] = ELFDATA2LSB;
  header.e_shoff = tableAt + table.size();
  header.e_shentsize = sizeof(Elf64_Shdr);
  header.e_shnum = 3;
  Elf64_Shdr sections[3]{};
  sections[0].sh_name = sections[2].sh_name = 16;
  sections[0].sh_offset = sizeof header;
  sections[0].sh_size = sizeof names;
  sections[1].sh_offset = tableAt;
  sections[1].sh_size = table.size();
  sections[1].sh_type = sections[2].sh_type = SHT_PROGBITS;
  TBytes bytes(header.e_shoff + sizeof sections);
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, names, sizeof names);
  std::ranges::copy(table, bytes.begin() + static_cast<std::ptrdiff_t>(tableAt));
  std::memcpy(bytes.data() + header.e_shoff, sections, sizeof sections);
  return bytes;
}

TVantrelResourceStringTable TableIn(TBytes file) {
  TVantrelMemoryStream stream(std::move(file));
  return TVantrelResourceReader(stream).ReadStringTable();
}

TEST(Resources, TableComesBackFromACompiledFile) {
  EXPECT_EQ(TVantrelResourceStringTable(Texts().GenerateResData()).GenerateResData(),
            (TBytes{3, 0, 0, 0, 0, 0, 255, 255, 10, 0, 0, 0, 'S', 'c', 'h', 'l', 'i', 'e', 0xC3, 0x9F, 'e', 'n'}));
  const TBytes file = Binary(Texts().GenerateResData());
  TVantrelMemoryStream stream(file);
  EXPECT_EQ(TVantrelResourceNameEnumerator(stream).Names(), std::vector<std::string>{"vantrel_strings"});
  EXPECT_EQ(TableIn(file).GetString(65535), "Schließen");
  EXPECT_TRUE(TVantrelResourceReader(stream).Read(".data").empty());
}

bool Refuses(TBytes file) {
  try {
    TableIn(std::move(file));
    return false;
  } catch (const EVantrelReaderError&) {
    return true;
  }
}

TEST(Resources, ForeignAndDamagedFilesAreRefused) {
  const TBytes file = Binary(Texts().GenerateResData());
  for (std::size_t at = 0; at < file.size(); ++at) {
    EXPECT_TRUE(Refuses({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(at)})) << at;
    TBytes damaged = file;
    damaged[at] = 0xFF;
    const bool refused = Refuses(damaged);
    EXPECT_TRUE(refused || at >= EI_VERSION) << at;
  }
}

TEST(Resources, AProgramWithoutTextsGivesNone) {
  TVantrelI18nManager manager;
  EXPECT_EQ(manager.ExtractAndMergeStrings(), 0);
  EXPECT_THROW(manager.ExtractAndMergeStrings("/proc/self/cmdline"), EVantrelReaderError);
  EXPECT_THROW(manager.ExtractAndMergeStrings(testing::TempDir() + "missing"), EVantrelFileHandleError);
}
}  // namespace
