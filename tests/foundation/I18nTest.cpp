#include "VantrelI18n.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "VantrelExceptions.h"
#include "VantrelLists.h"
#include "VantrelPublished.h"
#include "VantrelResources.h"
#include "VantrelText.h"
#include "VantrelTypes.h"

namespace {
std::string DictionaryFile(const std::string& content = {}) {
  std::string name = testing::TempDir() + "dictionary.ini";
  std::ofstream(name, std::ios::binary) << content;
  return name;
}

class TPanel final : public TVantrelObject {
 public:
  std::string Caption() const { return FCaption; }
  void SetCaption(const std::string& caption) { FCaption = caption; }
  std::string Hint() const { return FHint; }
  void SetHint(const std::string& hint) { FHint = hint; }
  std::string Kind() const { return "Ja"; }
  TVantrelObject* Child() const { return FChild; }
  void SetChild(TVantrelObject* child) { FChild = child; }
  const TVantrelClass& ClassReference() const override;

 private:
  std::string FCaption = "Ja";
  std::string FHint = "Ja";
  TVantrelObject* FChild = nullptr;
};

const TVantrelClass& TPanel::ClassReference() const {
  static constexpr TVantrelClass child{.Name = "TVantrelObject"};
  static constexpr TVantrelTypeInfo childType = ClassTypeInfo(child);
  static constexpr TVantrelProperty properties[] = {
      Published<&TPanel::Caption, &TPanel::SetCaption>("Caption"), Public<&TPanel::Hint, &TPanel::SetHint>("Hint"),
      Published<&TPanel::Kind>("Kind"), Published<&TPanel::Child, &TPanel::SetChild>("Child", childType)};
  static constexpr TVantrelClass panel{.Name = "TPanel", .Properties = properties};
  return panel;
}

TEST(I18n, HashIsLookup3OverUtf16) {
  const std::string bytes = "Four score and seven years ago";
  std::u16string units(bytes.size() / 2, u'\0');
  std::memcpy(units.data(), bytes.data(), bytes.size());
  EXPECT_EQ(TVantrelI18nManager::GetStringHash(Utf16ToUtf8(units)), 0x17770551U);
  EXPECT_EQ(TVantrelI18nManager::GetStringHash(""), 0xDEADBEEFU);
}

TEST(I18n, EscapesLineBreaksOfEveryKind) {
  EXPECT_EQ(TVantrelI18nManager::EscapeString("a\r\nb\n\rc\nd\re\\f"), "a\\nb\\nc\\nd\\ne\\\\f");
  EXPECT_EQ(TVantrelI18nManager::UnEscapeString("a\\nb\\\\c"), "a\r\nb\\c");
  EXPECT_EQ(TVantrelI18nManager::UnEscapeString(TVantrelI18nManager::EscapeString("C:\\neu")), "C:\r\neu");
}

TEST(I18n, DictionaryOutlivesTheFile) {
  TVantrelResourceStringTable table;
  table.SetString(7, "Ja\nNein");
  table.SetString(3, "Schließen");
  EXPECT_EQ(table.GetIdentifier(0), 3);
  EXPECT_THROW(table.GetIdentifier(2), EArgumentOutOfRangeException);
  EXPECT_THROW(table.SetString(65536, ""), EArgumentOutOfRangeException);

  const std::string name = DictionaryFile(std::string(1000, 'x'));
  TVantrelI18nManager manager;
  manager.ExtractAndMergeStrings(table);
  manager.SaveStrings(name);
  manager.ClearStrings();
  EXPECT_EQ(manager.Translate("Ja\nNein"), "Ja\nNein");
  manager.LoadStrings(name);
  EXPECT_EQ(manager.Translate("Ja\nNein"), "Ja\r\nNein");
  EXPECT_EQ(manager.Translate("Schließen"), "Schließen");
}

TEST(I18n, OnlyTheSectionOfTheDictionaryCounts) {
  const std::string yes = fmt::format("{:08x}", TVantrelI18nManager::GetStringHash("Ja"));
  TVantrelI18nManager manager;
  manager.LoadStrings(DictionaryFile("\xEF\xBB\xBF[Other]\r\n" + yes +
                                     "=Oui\r\n[dictionary]\n;zz=comment\n=none\nword\n" + yes + "=No\n" + yes +
                                     "= Yes = \\\\o/"));
  EXPECT_EQ(manager.Translate("Ja"), " Yes = \\o/");
  EXPECT_THROW(manager.LoadStrings(DictionaryFile("[Dictionary]\nxyz=1")), EConvertError);
  EXPECT_THROW(manager.LoadStrings(DictionaryFile("[Dictionary]\n123456789=1")), EConvertError);
  EXPECT_THROW(manager.LoadStrings(testing::TempDir() + "missing/dictionary.ini"), EVantrelFileHandleError);
  EXPECT_EQ(manager.Translate("Ja"), " Yes = \\o/");
}

TEST(I18n, TranslationWithForeignPlaceholdersIsPassedOver) {
  const auto line = [](const char* text, const char* translated) {
    return fmt::format("{:08X}={}\n", TVantrelI18nManager::GetStringHash(text), translated);
  };
  I18nManager().LoadStrings(DictionaryFile("[Dictionary]\n" + line("Datei {}", "File {}") + line("Von {}", "{} {}")));
  EXPECT_EQ(FormatText("Datei {}", 5), "File 5");
  EXPECT_EQ(FormatText("Von {}", 5), "Von 5");
  I18nManager().ClearStrings();
  EXPECT_EQ(FormatText("Datei {}", 5), "Datei 5");
}

TEST(I18n, ObjectsAreTranslatedWithWhatHangsOnThem) {
  TPanel panel;
  TPanel item;
  TVantrelString line("Ja");
  TVantrelArrayList list(false);
  list.Add(&item);
  list.Add(&line);
  panel.SetChild(&list);
  item.SetChild(&panel);
  TVantrelI18nManager manager;
  manager.LoadStrings(
      DictionaryFile(fmt::format("[Dictionary]\n{:08X}=Yes", TVantrelI18nManager::GetStringHash("Ja"))));
  manager.TranslateStrings(panel);
  EXPECT_EQ(panel.Caption(), "Yes");
  EXPECT_EQ(item.Caption(), "Yes");
  EXPECT_EQ(line.Value(), "Yes");
  EXPECT_EQ(item.Hint(), "Ja");
  EXPECT_THROW(TVantrelInstanceRTTI(item).GetStringProperty("Hint"), EVantrelRTTIError);
  manager.TranslateStrings(panel, true);
  EXPECT_EQ(item.Hint(), "Yes");
}
}  // namespace
