#include <unistd.h>

#include "MainFormFixture.h"

namespace {

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

constexpr const char* Question = "Möchten Sie die aktuelle MyTESSARON-Datei speichern?";
constexpr const char* Damaged = "Die Datei ließ sich nicht vollständig lesen.";
constexpr const char* LoadError = "konnte nicht geladen werden.\r\nSystem-Fehlermeldung: ";
constexpr const char* WrongPassword = "Das angegebene Passwort ist nicht korrekt. Datei wird geschlossen.";
constexpr const char* AnyText = "";
constexpr const char* Silence = nullptr;

constexpr auto ReadOnly = std::filesystem::perms(0444);

/// What becomes of a file that fails. One that is not read whole never takes the place of unsaved entries.
struct TFailure {
  const char* File;
  const char* Password;
  const char* Box;
  enum { Kept, Opened, OpenedByDialog, Whole } End;
};
const TFailure Failures[] = {
    {"damaged.kvrx", "", AnyText, TFailure::OpenedByDialog},
    {"cut.kvr7", "", Silence, TFailure::Opened},
    {"cut.kvrxr", "", Silence, TFailure::Opened},
    {"locked.kvrx", "", LoadError, TFailure::Kept},
    {"locked.kvr7", "", LoadError, TFailure::Kept},
    {"locked.kvrxr", "", LoadError, TFailure::Kept},
    {"secret.kvrx", "", LoadError, TFailure::Kept},
    {"readonly.kvr7", "", "schreibgeschützt: Speichern nur unter anderem Namen", TFailure::Kept},
    {"foreign.txt", "", "„foreign.txt“ ist kein Dateityp", TFailure::Kept},
    {"protected.kvrx", "falsch", WrongPassword, TFailure::Kept},
    {"protected.kvrx", "", WrongPassword, TFailure::Kept},
    {"protected.kvrx", "Geheim-Ä1", Silence, TFailure::Whole},
};

/// Gives up the rights of the superuser, whom no permission stops.
class TPlainUser {
 public:
  TPlainUser() { Become(65534); }
  TPlainUser(const TPlainUser&) = delete;
  TPlainUser& operator=(const TPlainUser&) = delete;
  ~TPlainUser() { Become(0); }

 private:
  void Become(uid_t user) const {
    if (FSuper && ::seteuid(user) != 0) std::abort();
  }
  bool FSuper = ::getuid() == 0;
};

/// Files that do not open as they should, next to those of the main window's test.
struct FailingFilesTest : MainFormTest {
  enum class TWay { Dialog, Pane, CommandLine };

  void SetUp() override {
    MainFormTest::SetUp();
    std::filesystem::permissions(FFolder.Path(), std::filesystem::perms::all);
    for (const char* name : {"cut.kvr7", "cut.kvrxr", "locked.kvrx", "locked.kvr7", "locked.kvrxr", "secret.kvrx",
                             "readonly.kvr7", "own.kvrx", "own.kvr7"})
      Restore(name);
    WriteFileText(FFolder / "cut.kvr7", ReadFileText(FFolder / "small.kvr7").substr(0, 2000));
    WriteFileText(FFolder / "cut.kvrxr", ReadFileText(std::filesystem::path(FIXTURES) / "small.kvrxr").substr(0, 2000));
    std::filesystem::permissions(FFolder / "secret.kvrx", std::filesystem::perms::none);
    std::filesystem::permissions(FFolder / "readonly.kvr7", ReadOnly);
  }
  /// A sound file of that name, which everybody may write.
  void Restore(const std::string& name) {
    const auto fixture = "small" + std::filesystem::path(name).extension().string();
    std::filesystem::copy_file(std::filesystem::path(FIXTURES) / fixture, FFolder / name,
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::permissions(FFolder / name, std::filesystem::perms::all);
  }
  /// Lets the pane of the next start list all failing files.
  void RememberAll() {
    FSettings.WriteInteger("MRU", "Count", std::size(Failures));
    for (std::size_t i = 0; i < std::size(Failures); ++i)
      FSettings.WriteString("MRU", "File" + std::to_string(i), FFolder / Failures[i].File);
  }
  /// Opens the file in that way; for the pane it has been opened once before.
  void OpenBy(TWay way, const std::string& name) {
    if (way == TWay::Dialog) return Open(name.c_str());
    if (way == TWay::CommandLine) return Start({FFolder / name});
    const auto names = RecentNames();
    const auto at = std::find(names.begin(), names.end(), name);
    ASSERT_NE(at, names.end());
    FWindow.OnRecentClick(static_cast<int>(at - names.begin()));
  }
};

TEST_F(FailingFilesTest, AreToldAsTheyShallAndCostNoEntries) {
  std::vector<std::unique_ptr<TVantrelFileStream>> held;
  for (const char* name : {"locked.kvrx", "locked.kvr7", "locked.kvrxr"})
    held.push_back(std::make_unique<TVantrelFileStream>(FFolder / name, famShareExclusive, fomOpenRead));
  const TPlainUser plain;

  for (const auto way : {TWay::CommandLine, TWay::Dialog, TWay::Pane}) {
    for (const auto& failure : Failures) {
      for (const bool modified : {false, true}) {
        if (modified && way == TWay::CommandLine) continue;
        SCOPED_TRACE(testing::Message() << failure.File << " " << failure.Password << " way " << static_cast<int>(way)
                                        << (modified ? " modified" : ""));
        RememberAll();
        Start();
        if (way != TWay::CommandLine) {
          Open("own.kvrx");
          FForm->Commands().StudentsViewCommand.Execute();
          CurrentProject->Description = "Eingabe";
          CurrentProject->SetModified(modified);
        }
        FBoxes.Texts.clear();
        FDialogs.Password = failure.Password;
        OpenBy(way, failure.File);

        std::vector<std::string> texts;
        if (modified) texts.emplace_back(Question);
        if (failure.Box != Silence) texts.emplace_back(failure.Box);
        const bool costs = modified && (failure.End == TFailure::Opened || failure.End == TFailure::OpenedByDialog);
        if (costs) texts.emplace_back(Damaged);
        if (!costs && failure.End == TFailure::Opened) texts.emplace_back("Die Datei ist beschädigt: ");
        const bool opens =
            !costs && failure.End != TFailure::Kept && (way == TWay::Dialog || failure.End != TFailure::OpenedByDialog);
        ASSERT_EQ(FBoxes.Texts.size(), texts.size()) << testing::PrintToString(FBoxes.Texts);
        for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_THAT(FBoxes.Texts[i], HasSubstr(texts[i]));
        const bool kept = CurrentProject != nullptr && CurrentProject->Description == "Eingabe";
        EXPECT_EQ(kept, way != TWay::CommandLine && !opens);
        EXPECT_EQ(CurrentProject != nullptr, kept || opens);
        if (kept) {
          EXPECT_NE(StudentsView, nullptr);
          EXPECT_EQ(CurrentProject->Modified(), modified);
          FForm->Commands().GotoNextCommand.Execute();
          FForm->Commands().SaveFileCommand.Execute();
          EXPECT_EQ(FBoxes.Texts.size(), texts.size());
        }
        FBoxes.Answer = TVantrelMsgBoxResult::mbrNo;
        FForm.reset();
      }
    }
  }
}

TEST_F(FailingFilesTest, WhereTheFoundVersionCannotBeKeptAnotherNameHelps) {
  for (const char* name : {"own.kvr7", "cut.kvr7"}) {
    Start();
    Open(name);
    if (std::string(name) == "own.kvr7") WriteFileText(FFolder / name, "foreign");
    const auto found = ReadFileText(FFolder / name);
    std::filesystem::permissions(FFolder.Path(), std::filesystem::perms(0555));
    const TPlainUser plain;
    CurrentProject->SetModified(true);
    FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
    FForm->SaveFile();
    EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("nicht daneben aufgehoben werden"));
    EXPECT_TRUE(CurrentProject->Modified());
    EXPECT_EQ(ReadFileText(FFolder / name), found);
    const TempFolder other;
    SaveAs(other / "neu.kvr7");
    EXPECT_FALSE(CurrentProject->Modified());
    FForm.reset();
  }
}

TEST_F(FailingFilesTest, ANameThatIsNoTextIsRefusedWithASentence) {
  Start();
  std::filesystem::rename(FFolder / "own.kvrx", FFolder / "f\xFCr.kvrx");
  for (const auto way : {TWay::CommandLine, TWay::Dialog}) {
    for (const char* name : {"f\xFCr.kvrx", "f\uFFFDr.kvrx"}) {
      FBoxes.Texts.clear();
      OpenBy(way, name);
      const bool isThere = std::filesystem::exists(FFolder / name);
      if (isThere || way == TWay::Dialog) {
        EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("„f\uFFFDr.kvrx“ enthält ungültige Zeichen")));
      }
      EXPECT_EQ(CurrentProject, nullptr);
    }
  }
  FWindow.OnFileDropped(FFolder / "f\uFFFDr.kvrx");
  EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("„f\uFFFDr.kvrx“ enthält ungültige Zeichen"));
}

TEST_F(FailingFilesTest, AFileWithoutTheRightToWriteIsSavedUnderAnotherName) {
  std::filesystem::permissions(FFolder / "own.kvrx", ReadOnly);
  const TPlainUser plain;
  Start();
  Open("own.kvrx");
  constexpr const char* note = "schreibgeschützt: Speichern nur unter anderem Namen";
  auto& welcome = FakeWelcomeUi::Last->Texts[TWelcomeText::WriteProtectedText];
  EXPECT_EQ(FWindow.Note, note);
  EXPECT_TRUE(welcome.Visible);
  EXPECT_EQ(welcome.Text(), note);
  CurrentProject->SetModified(true);
  EXPECT_EQ(FWindow.Note, note);
  FForm->Commands().SaveFileCommand.Execute();
  EXPECT_THAT(FBoxes.Texts, ElementsAre(StartsWith("Fehler beim Speichern der Datei.\r\n")));
  EXPECT_TRUE(CurrentProject->Modified());
  SaveAs(FFolder / "anders.kvrx");
  EXPECT_FALSE(CurrentProject->Modified());
  EXPECT_FALSE(welcome.Visible);
  EXPECT_EQ(FWindow.Status, FFolder / "anders.kvrx");
  EXPECT_EQ(FBoxes.Texts.size(), 1U);
  CurrentProject->SetModified(true);
  EXPECT_THAT(FWindow.Note, StartsWith("Nicht gespeichert"));
  Open("own.kvr7");
  EXPECT_FALSE(FakeWelcomeUi::Last->Texts[TWelcomeText::WriteProtectedText].Visible);
}

}  // namespace
