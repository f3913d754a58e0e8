#include <cstdlib>

#include "AccessLists.h"
#include "CliFixture.h"
#include "DiskFaults.h"
#include "InChild.h"

namespace {

namespace fs = std::filesystem;

struct ProgramTest : CliFixture {
  /// The real program, from its arguments to its exit code.
  int RunProgram(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), CLI_PROGRAM);
    return RunWithFault(arguments, FFolder.Path().string(), TDiskFault::Kill, Never).ExitCode;
  }
  static constexpr int Never = 1000000;
};

TEST_F(ProgramTest, ExitsWithItsResult) {
  const auto small = Fixture("small.kvrx");
  const auto sample = FFolder / "muster.kvr7";
  EXPECT_EQ(RunProgram({"sample", sample, "--students", "2"}), 0);
  EXPECT_EQ(RunProgram({"check", sample, sample}), 0);
  EXPECT_EQ(RunProgram({"diff", sample, small}), 1);
  EXPECT_EQ(RunProgram({"info", Fixture("protected.kvrx")}), 2);
  EXPECT_EQ(RunProgram({}), 2);
}

TEST_F(ProgramTest, TheCommandsBesideTheSamplesGiveThem) {
  const fs::path samples = "../samples";
  const auto readme = ReadFileText(samples / "README.md");
  const auto start = readme.find("```\n") + 4;
  WriteFileText(FFolder / "befehle", readme.substr(start, readme.find("```", start) - start));
  fs::create_directory(FFolder / "samples");
  const auto command = fmt::format("cd '{}' && PATH='{}':$PATH sh ./befehle >/dev/null", FFolder.Path().string(),
                                   fs::path(CLI_PROGRAM).parent_path().string());
  ASSERT_EQ(std::system(command.c_str()), 0);
  int made = 0;
  for (const auto& entry : fs::directory_iterator(samples)) {
    if (entry.path().filename() == "README.md") continue;
    EXPECT_TRUE(ReadFileText(entry.path()) == ReadFileText(FFolder.Path() / "samples" / entry.path().filename()))
        << entry.path();
    ++made;
  }
  EXPECT_EQ(made, std::distance(fs::directory_iterator(FFolder / "samples"), {}));
}

class ConvertFaultTest : public ProgramTest, public testing::WithParamInterface<std::tuple<const char*, TDiskFault>> {};

/// Whatever call the disk fails at, and wherever the program dies: the target is the old or the new file, complete.
TEST_P(ConvertFaultTest, LeavesTheOldOrTheNewFile) {
  const std::string kind = std::get<0>(GetParam());
  const auto fault = std::get<1>(GetParam());
  const auto folder = (FFolder.Path() / "ziel").string();
  const auto target = folder + "/datei." + kind;
  const auto before = Save(Project(), "alt." + kind);
  const auto source = Fixture("small.kvr7");
  const auto after = FFolder / ("neu." + kind);
  ASSERT_EQ(Run({"convert", source, after}), 0);
  const auto oldBytes = ReadFileText(before);
  const auto newBytes = ReadFileText(after);
  ASSERT_NE(oldBytes, newBytes);

  bool hasList = false;
  int passedOver = 0;
  const int struck = ForEachDiskFault(
      {CLI_PROGRAM, "convert", "--force", source, target}, folder, fault,
      [&] {
        fs::remove_all(folder);
        fs::create_directory(folder);
        fs::copy_file(before, target);
        hasList = SetAccessList(target);
      },
      [&](const TFaultyRun& run) {
        const auto bytes = ReadFileText(target);
        EXPECT_TRUE(bytes == newBytes || bytes == oldBytes);
        // A group that only the list lets out gets nothing where the list is lost.
        const bool isOpenToGroup = (fs::status(target).permissions() & fs::perms::group_all) != fs::perms::none;
        EXPECT_TRUE(!hasList || !isOpenToGroup || !Attribute(target, AccessList).empty());
        EXPECT_EQ(run.Killed, run.Fired && fault == TDiskFault::Kill);
        EXPECT_TRUE(run.Killed || run.ExitCode == (bytes == newBytes ? 0 : 2)) << run.ExitCode;
        passedOver += run.Fired && run.ExitCode == 0 ? 1 : 0;
        ASSERT_EQ(Run({"convert", "--force", source, target}), 0);
        EXPECT_EQ(ReadFileText(target), newBytes);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
      });
  // The file is created, written, flushed and renamed, and its folder flushed.
  EXPECT_GE(struck, 5);
  // A full disk may cost the flush of the folder, and the attribute that comes with the list.
  EXPECT_TRUE(fault != TDiskFault::Full || passedOver == (hasList ? 3 : 2)) << passedOver;
}

INSTANTIATE_TEST_SUITE_P(Kinds, ConvertFaultTest,
                         testing::Combine(testing::Values("kvrx", "kvr7", "kvrxr"),
                                          testing::Values(TDiskFault::Kill, TDiskFault::Full, TDiskFault::Failure)));

/// Where the folder lets nobody replace the file, it is written in place, for the user whom permissions bind.
struct ConvertInPlaceTest : ProgramTest {
  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can make such a folder";
    ASSERT_EQ(Run({"convert", Fixture("small.kvr7"), FFolder / "neu.kvr"}), 0);
    FOld = ReadFileText(Save(Project(), "alt.kvr"));
    FNew = ReadFileText(FFolder / "neu.kvr");
    ASSERT_LT(FOld.size(), FNew.size());
    fs::permissions(FFolder.Path(), fs::perms::all);
  }
  void Prepare(fs::perms folder) {
    fs::remove_all(FZiel);
    fs::create_directory(FZiel);
    WriteFileText(FTarget, FOld);
    fs::permissions(FTarget, static_cast<fs::perms>(0666));
    fs::permissions(FZiel, folder);
    ASSERT_EQ(::chown(FZiel.c_str(), 1234, 1234) + ::chown(FTarget.c_str(), 1234, 1234), 0);
  }

  const std::string FZiel = FFolder / "ziel", FTarget = FFolder / "ziel/datei.kvr", FKept = FTarget + ".gespeichert";
  const std::vector<std::string> FCommand{"/usr/bin/setpriv", "--reuid=65534",     "--regid=65534",
                                          "--clear-groups",   CLI_PROGRAM,         "convert",
                                          "--force",          FFolder / "neu.kvr", FTarget};
  std::string FOld, FNew;
};

/// The new bytes lie beside the file as long as they do not safely stand in it, and stay there where they never will.
TEST_F(ConvertInPlaceTest, KeepsWholeBytesBesideTornOnes) {
  for (const auto fault : {TDiskFault::Kill, TDiskFault::Full, TDiskFault::Failure}) {
    int torn = 0, passedOver = 0;
    const int struck = ForEachDiskFault(
        FCommand, FZiel, fault, [&] { Prepare(static_cast<fs::perms>(01777)); },
        [&](const TFaultyRun& run) {
          EXPECT_EQ(run.Killed, run.Fired && fault == TDiskFault::Kill);
          const bool isKept = ReadFileText(FKept) == FNew;
          const auto bytes = ReadFileText(FTarget);
          EXPECT_TRUE(run.ExitCode == 0 ? bytes == FNew : bytes == FOld || isKept);
          torn += bytes != FOld && bytes != FNew ? 1 : 0;
          passedOver += run.Fired && run.ExitCode == 0 ? 1 : 0;
          EXPECT_EQ(RunWithFault(FCommand, FZiel, TDiskFault::Kill, Never).ExitCode, 0);
          EXPECT_EQ(ReadFileText(FTarget), FNew);
          EXPECT_EQ(ReadFileText(FKept) == FNew, isKept);
          EXPECT_EQ(std::distance(fs::directory_iterator(FZiel), {}), isKept ? 2 : 1);
        });
    EXPECT_GT(torn, 0);
    EXPECT_TRUE(fault != TDiskFault::Full || passedOver == 1) << passedOver;
    // The new file is created, written, flushed, refused its place and named; the old one grows, is written, cut and
    // flushed.
    EXPECT_GE(struck, 9);
  }
}

TEST_F(ConvertInPlaceTest, FindsAFullDiskWhileTheOldBytesAreWhole) {
  Prepare(static_cast<fs::perms>(0555));
  // The first call asks for a file beside it.
  const auto run = RunWithFault(FCommand, FZiel, TDiskFault::Full, 2);
  EXPECT_TRUE(run.Fired && run.ExitCode == 2);
  EXPECT_EQ(ReadFileText(FTarget), FOld);
}

/// Opens the file for editing as the window does; 0 or the code of the refusal.
int OpenForEditing(const std::string& file) {
  const auto project = CreateVantrel<TMyTessaronProject>();
  const auto code = FileErrorOf([&] { project->LoadFile(file); });
  return code == 0 && project->Students().Count() != 1 ? 255 : static_cast<int>(code);
}

class HoldTest : public ProgramTest, public testing::WithParamInterface<const char*> {};

TEST_P(HoldTest, ASecondProcessIsRefusedUntilTheFirstEnds) {
  constexpr int sharing = 32;
  const auto file = Save(Project(), std::string("datei.") + GetParam());
  for (const bool killed : {false, true}) {
    int ready[2], leave[2];
    ASSERT_EQ(::pipe(ready) + ::pipe(leave), 0);
    char signal = 0;
    const auto holder = StartChild([&] {
      ::close(leave[1]);
      const auto project = CreateVantrel<TMyTessaronProject>();
      project->LoadFile(file);
      return ::write(ready[1], "x", 1) == 1 && ::read(leave[0], &signal, 1) < 0 ? 1 : 0;
    });
    EXPECT_EQ(::read(ready[0], &signal, 1), 1);
    EXPECT_EQ(InChild([&] { return OpenForEditing(file); }), sharing);
    EXPECT_EQ(RunProgram({"info", file}), 2);
    EXPECT_EQ(RunProgram({"convert", "--force", Fixture("small.kvr7"), file}), 2);
    if (killed) ::kill(holder, SIGKILL);
    for (const int end : {ready[0], ready[1], leave[0], leave[1]}) ::close(end);
    ::waitpid(holder, nullptr, 0);
    EXPECT_EQ(InChild([&] { return OpenForEditing(file); }), 0);
    EXPECT_EQ(RunProgram({"info", file}), 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, HoldTest, testing::Values("kvrx", "kvr7", "kvrxr"));

}  // namespace
