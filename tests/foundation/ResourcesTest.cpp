#include "VantrelResources.h"

#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>

#include "ErrorOf.h"
#include "VantrelI18n.h"

namespace {
using TBytes = std::vector<std::uint8_t>;

/// The string table of the test program itself.
[[gnu::section("vantrel_strings"), gnu::used]] const std::uint8_t Table[] = {
    3, 0, 0, 0, 0, 0, 255, 255, 10, 0, 0, 0, 'S', 'c', 'h', 'l', 'i', 'e', 0xC3, 0x9F, 'e', 'n'};

TBytes OwnFile() {
  using enum TVantrelFileAccessMode;
  return TVantrelFileStream("/proc/self/exe", famShareDenyWrite, TVantrelFileOpenMode::fomOpenRead).ReadAll();
}

bool Refuses(TVantrelStream& file) {
  return !ErrorOf<EVantrelReaderError>([&] { TVantrelResourceReader(file).ReadStringTable(); }).empty();
}

TEST(Resources, TableComesBackFromACompiledFile) {
  TVantrelMemoryStream file(OwnFile());
  const TVantrelResourceReader reader(file);
  EXPECT_EQ(TVantrelResourceNameEnumerator(file).Names(), std::vector<std::string>{"vantrel_strings"});
  EXPECT_EQ(reader.ReadStringTable().GetString(65535), "Schließen");
  EXPECT_EQ(reader.ReadStringTable().GenerateResData(), TBytes(std::begin(Table), std::end(Table)));
  EXPECT_TRUE(reader.Read(".data").empty());
  TVantrelI18nManager manager;
  EXPECT_EQ(manager.ExtractAndMergeStrings(), 2);
  EXPECT_THROW(manager.ExtractAndMergeStrings("/proc/self/cmdline"), EVantrelReaderError);
  EXPECT_THROW(manager.ExtractAndMergeStrings(testing::TempDir() + "missing"), EVantrelFileHandleError);
}

TEST(Resources, ForeignAndDamagedFilesAreRefused) {
  TVantrelMemoryStream file(OwnFile());
  Elf64_Ehdr header;
  std::memcpy(&header, file.Bytes().data(), sizeof header);
  for (std::size_t at = 0; at < file.Bytes().size(); at = at + 1 == sizeof header ? header.e_shoff : at + 1) {
    const auto byte = std::exchange(file.Bytes()[at], std::uint8_t{0xFF});
    EXPECT_TRUE(Refuses(file) || at >= EI_VERSION) << at;
    file.Bytes()[at] = byte;
  }
  for (const std::uint64_t size : {header.e_shoff + 1, sizeof header, sizeof header - 1, std::size_t{0}}) {
    file.Bytes().resize(size);
    EXPECT_TRUE(Refuses(file)) << size;
  }
  for (std::size_t size = 7; size < sizeof Table; ++size)
    EXPECT_THROW(TVantrelResourceStringTable(std::span(Table).first(size)), EVantrelReaderError) << size;
}
}  // namespace
