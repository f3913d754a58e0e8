#include <fmt/format.h>
#include <gmock/gmock.h>

#include "InChild.h"
#include "TempFolder.h"
#include "uOptions.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class OptionsTest : public testing::Test {
 protected:
  auto Create() { return CreateVantrel<TMyTessaronOptions>(FCommon, FFolder / "own"); }

  TempFolder FFolder;
  std::string FCommon = FFolder / "common/MyTessaron.opt";
  std::string FOwn = FFolder / "own/MyTessaron.opt";
};

TEST_F(OptionsTest, DefaultsBecomeAFileOfTheToldForm) {
  auto options = Create();
  EXPECT_EQ(Options, options.get());
  EXPECT_THAT(options->Load(), IsEmpty());
  options->Save();
  std::string told =
      "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\n<Storage>\n  <Version>700</Version>\n";
  for (const char* name : {"Aktiv", "Eingabe", "Gross", "Zahl", "Email", "URL", "Mischfaelle", "Wiederholt"})
    told += fmt::format("  <Rechtschreibung{0}>{1}</Rechtschreibung{0}>\n", name, name[0] == 'W' ? 0 : 1);
  EXPECT_EQ(ReadFileText(FCommon), told + "</Storage>");
  options->RechtschreibungWiederholt = true;
  options->RechtschreibungGross = false;
  options->Save();
  options.reset();
  EXPECT_EQ(Options, nullptr);
  options = Create();
  EXPECT_THAT(options->Load(), IsEmpty());
  EXPECT_TRUE(options->RechtschreibungWiederholt && options->RechtschreibungAktiv);
  EXPECT_FALSE(options->RechtschreibungGross);
}

TEST_F(OptionsTest, DamageIsToldAndKept) {
  std::filesystem::create_directory(FFolder / "common");
  for (const std::string damaged : {"kaputt",
                                    "<Storage><RechtschreibungZahl>0</RechtschreibungZahl>"
                                    "<RechtschreibungEmail>vielleicht</RechtschreibungEmail></Storage>"}) {
    WriteFileText(FCommon, damaged);
    const auto options = Create();
    EXPECT_THAT(options->Load(), HasSubstr(FCommon));
    EXPECT_TRUE(options->RechtschreibungZahl);
    options->Save();
    EXPECT_EQ(ReadFileText(FCommon + ".beschaedigt"), damaged);
    EXPECT_THAT(Create()->Load(), IsEmpty());
    std::filesystem::remove(FCommon + ".beschaedigt");
  }
}

TEST_F(OptionsTest, AFileThatCannotBeOpenedIsNotReplaced) {
  constexpr auto text = "<Storage><RechtschreibungZahl>0</RechtschreibungZahl></Storage>";
  std::filesystem::create_directory(FFolder / "common");
  WriteFileText(FCommon, text);
  for (const bool changed : {false, true}) {
    const auto options = Create();
    {
      const TVantrelFileHandle foreign(FCommon, TVantrelFileAccessMode::famShareExclusive,
                                       TVantrelFileOpenMode::fomOpenReadWrite);
      EXPECT_THAT(options->Load(), HasSubstr(FCommon));
    }
    options->RechtschreibungEmail = !changed;
    EXPECT_EQ(options->Save().empty(), !changed);
    EXPECT_EQ(ReadFileText(FCommon), text);
  }
}

TEST_F(OptionsTest, AFolderThatForbidsWritingIsWhereTheUsersOwnBegin) {
  std::filesystem::create_directory(FFolder / "common");
  std::filesystem::create_directory(FFolder / "own");
  WriteFileText(FCommon, "<Storage><RechtschreibungZahl>0</RechtschreibungZahl></Storage>");
  std::filesystem::permissions(FCommon, static_cast<std::filesystem::perms>(0444));
  std::filesystem::permissions(FFolder / "common", static_cast<std::filesystem::perms>(0555));
  const auto run = [&](bool email) {
    return InChildAsOrdinaryUser(FFolder.Path(), [&] {
      const auto options = Create();
      if (!options->Load().empty() || options->RechtschreibungZahl || !options->RechtschreibungEmail) return 1;
      options->RechtschreibungEmail = email;
      options->Save();
      return 0;
    });
  };
  EXPECT_EQ(run(true), 0);
  EXPECT_THAT(ReadFileText(FOwn), HasSubstr("<RechtschreibungZahl>0"));
  EXPECT_EQ(run(false), 0);
  EXPECT_EQ(run(false), 1);
}

}  // namespace
