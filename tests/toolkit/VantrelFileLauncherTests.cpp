#include "FakeOpener.h"
#include "Testing.h"

TEST(VantrelFileLauncher, HandsOverAndAnswers) {
  FakeOpener opener;
  EXPECT_TRUE(TCommonUtils::FileExecute("a.xls", "-x", "/tmp"));
  const auto& opened = opener.Opened.back();
  EXPECT_EQ(opened.FileName + opened.StartParams + opened.StartDir, "a.xls-x/tmp");
  opener.Code = 32;
  EXPECT_FALSE(TCommonUtils::FileExecute("a.xls"));

  TVantrelFileLauncher launcher;
  launcher.SetThrowException(true);
  const std::pair<std::uint32_t, const char*> texts[] = {
      {2,
       "Systemfehler (Fehlercode: 2).\r\nDas System kann die angegebene Datei nicht finden. Prüfen Sie Namen und "
       "Ordner."},
      {5, "Systemfehler (Fehlercode: 5).\r\nThe operating system denied access to the specified file."},
      {31, "Systemfehler (Fehlercode: 31).\r\nThere is no application associated with the given file name extension."}};
  for (const auto& [code, text] : texts) {
    opener.Code = code;
    EXPECT_EQ(ErrorOf<EVantrelFileLaunchError>([&] { launcher.Execute("print"); }), text);
  }
  EXPECT_EQ(opener.Opened.back().Operation, "print");
}

TEST(VantrelFileLauncher, FollowsTheProgramToItsEnd) {
  FakeOpener opener;
  TVantrelFileLauncher launcher;
  std::promise<void> told;
  launcher.SetOnExitProcess([&told] { told.set_value(); });
  EXPECT_TRUE(!launcher.IsWaiting() && launcher.ExecuteAndWait() && launcher.IsWaiting() && !launcher.ExecuteAndWait());
  opener.End.set_value();
  told.get_future().wait();
  EXPECT_FALSE(launcher.IsWaiting());
}

TEST(VantrelXdgOpener, StartsProgramsAndTellsFailures) {
  const TempFolder folder;
  EXPECT_FALSE(TCommonUtils::FileExecute("missing.txt", {}, folder.Path().string()));
  EXPECT_FALSE(TCommonUtils::FileExecute("no-such-program", "-x"));

  TVantrelFileLauncher launcher;
  launcher.SetFileName("touch");
  launcher.SetStartParams("\"one file\" two");
  launcher.SetStartDir(folder.Path().string());
  std::promise<void> told;
  launcher.SetOnExitProcess([&told] { told.set_value(); });
  ASSERT_TRUE(launcher.ExecuteAndWait());
  told.get_future().wait();
  EXPECT_TRUE(std::filesystem::exists(folder / "one file") && std::filesystem::exists(folder / "two"));
  EXPECT_FALSE(launcher.Execute("print"));
}
