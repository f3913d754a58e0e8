#include "VantrelFileLauncher.h"

#include <future>

#include "Testing.h"

namespace {

/// Answers with a code; a program that it starts ends when Finish is called.
class TFakeOpener : public TVantrelOpener {
 public:
  TFakeOpener() { TVantrelFileLauncher::SetOpener(this); }
  ~TFakeOpener() override { TVantrelFileLauncher::SetOpener(nullptr); }
  std::uint32_t Open(const TVantrelLaunch& launch, std::function<void()>* wait) override {
    Last = launch;
    if (wait != nullptr) *wait = [end = End.get_future().share()] { end.wait(); };
    return Code;
  }
  TVantrelLaunch Last;
  std::uint32_t Code = 33;
  std::promise<void> End;
};

}  // namespace

TEST(VantrelFileLauncher, HandsOverAndAnswers) {
  TFakeOpener opener;
  EXPECT_TRUE(TCommonUtils::FileExecute("a.xls", "-x", "/tmp"));
  EXPECT_EQ(opener.Last.FileName + opener.Last.StartParams + opener.Last.StartDir, "a.xls-x/tmp");
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
  EXPECT_EQ(opener.Last.Operation, "print");
}

TEST(VantrelFileLauncher, FollowsTheProgramToItsEnd) {
  TFakeOpener opener;
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
