#include "VantrelI18n.h"

#include <elf.h>
#include <unistd.h>

#include <cstring>

#include "Testing.h"
#include "VantrelResources.h"

namespace {
std::string DictionaryFile(const std::string& content = {}) {
  std::string name = fmt::format("{}dictionary-{}.ini", testing::TempDir(), ::getpid());
  WriteFileText(name, content);
  return name;
}

/// An entry of a dictionary.
std::string Line(std::string_view text, std::string_view translated) {
  return fmt::format("{:08x}={}\n", TVantrelI18nManager::GetStringHash(text), translated);
}

TEST(I18n, HashIsLookup3OverUtf16) {
  // In UTF-16: "Four score and seven years ago".
  EXPECT_EQ(TVantrelI18nManager::GetStringHash("潆牵猠潣敲愠摮猠癥湥礠慥獲愠潧"), 0x17770551U);
  EXPECT_EQ(TVantrelI18nManager::GetStringHash(""), 0xDEADBEEFU);
}

TEST(I18n, EscapesLineBreaksOfEveryKind) {
  EXPECT_EQ(TVantrelI18nManager::EscapeString("a\r\nb\n\rc\nd\re\\f"), "a\\nb\\nc\\nd\\ne\\\\f");
  EXPECT_EQ(TVantrelI18nManager::UnEscapeString("a\\nb\\\\c"), "a\r\nb\\c");
  EXPECT_EQ(TVantrelI18nManager::UnEscapeString(TVantrelI18nManager::EscapeString("C:\\neu")), "C:\r\neu");
}

TEST(I18n, DictionaryOutlivesTheFile) {
  TVantrelResourceStringTable table;
  for (const char* text : {"Ja\nNein", "Schließen", ""}) table.SetString(7 - table.Count(), text);
  EXPECT_EQ(table.GetIdentifier(0), 5);
  EXPECT_THROW(table.GetIdentifier(3), EArgumentOutOfRangeException);
  EXPECT_THROW(table.SetString(65536, ""), EArgumentOutOfRangeException);
  const std::string name = DictionaryFile("[Dictionary]\n" + Line("Schließen", "Close"));
  TVantrelI18nManager manager;
  manager.LoadStrings(name);
  manager.ExtractAndMergeStrings(table);
  WriteFileText(name, std::string(1000, 'x'));
  manager.SaveStrings(name);
  EXPECT_EQ(ReadFileText(name), "[Dictionary]\r\n4554F15B=Close\r\nB58E728E=Ja\\nNein");
  EXPECT_THROW(manager.SaveStrings(testing::TempDir() + "missing/dictionary.ini"), EVantrelFileHandleError);
  manager.ClearStrings();
  EXPECT_EQ(manager.Translate("Ja\nNein"), "Ja\nNein");
  manager.LoadStrings(name);
  EXPECT_EQ(manager.Translate("Ja\nNein"), "Ja\r\nNein");
  EXPECT_EQ(manager.Translate("Schließen"), "Close");
}

TEST(I18n, OnlyTheSectionOfTheDictionaryCounts) {
  TVantrelI18nManager manager;
  manager.LoadStrings(DictionaryFile("\xEF\xBB\xBF[Other]\r\n" + Line("Ja", "Oui") +
                                     "[dictionary]\r\n;zz=comment\n=none\nword\n" + Line("Ja", "No") +
                                     Line("Ja", " Yes = \\\\o/")));
  EXPECT_EQ(manager.Translate("Ja"), " Yes = \\o/");
  EXPECT_THROW(manager.LoadStrings(DictionaryFile("[Dictionary]\nxyz=1")), EConvertError);
  EXPECT_THROW(manager.LoadStrings(DictionaryFile("[Dictionary]\n123456789=1")), EConvertError);
  EXPECT_THROW(manager.LoadStrings(testing::TempDir() + "missing/dictionary.ini"), EVantrelFileHandleError);
  EXPECT_EQ(manager.Translate("Ja"), " Yes = \\o/");
}

TEST(I18n, TranslationWithForeignPlaceholdersIsPassedOver) {
  I18nManager().LoadStrings(DictionaryFile("[Dictionary]\n" + Line("Datei {}", "File {}") + Line("Von {}", "{} {}")));
  EXPECT_EQ(FormatText("Datei {}", 5), "File 5");
  EXPECT_EQ(FormatText("Von {}", 5), "Von 5");
  I18nManager().ClearStrings();
  EXPECT_EQ(FormatText("Datei {}", 5), "Datei 5");
}

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
