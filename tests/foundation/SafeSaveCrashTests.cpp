#include <gtest/gtest.h>

#include "DiskFaults.h"
#include "TempFolder.h"

namespace {
constexpr int DiskFullCode = 112;

struct TCase {
  TDiskFault Fault;
  bool FileExists;
};

class SafeSaveCrash : public testing::TestWithParam<TCase> {
 protected:
  void Prepare() {
    std::filesystem::remove_all(FFolder.Path());
    std::filesystem::create_directory(FFolder.Path());
    if (GetParam().FileExists) WriteFileText(FName, FOld);
  }

  void Check(const TFaultyRun& run) {
    const auto content = ReadFileText(FName);
    const bool isNew = content == FNew;
    EXPECT_TRUE(isNew || (content == FOld && std::filesystem::exists(FName) == GetParam().FileExists));
    EXPECT_TRUE(run.Killed || (run.ExitCode == 0) == isNew);
    if (GetParam().Fault == TDiskFault::Full) {
      EXPECT_EQ(run.ExitCode, isNew ? 0 : DiskFullCode);
      EXPECT_EQ(FFolder.FileCount(), isNew || GetParam().FileExists ? 1U : 0U);
    }
    const auto next = RunWithFault(FCommand, FFolder.Path().string(), GetParam().Fault, 10000);
    EXPECT_EQ(next.ExitCode, 0);
    EXPECT_EQ(ReadFileText(FName), FNew);
    EXPECT_EQ(FFolder.FileCount(), 1U);
  }

  TempFolder FFolder;
  std::string FName = FFolder / "projekt.kvrx";
  std::string FOld = GetParam().FileExists ? std::string(30000, 'a') : "";
  std::string FNew = std::string(50000, 'b');
  std::vector<std::string> FCommand{SAFE_SAVE_WRITER, FName, FNew};
};

TEST_P(SafeSaveCrash, LeavesTheOldOrTheNewFile) {
  const int struck = ForEachDiskFault(
      FCommand, FFolder.Path().string(), GetParam().Fault, [&] { Prepare(); },
      [&](const TFaultyRun& run) {
        EXPECT_EQ(run.Killed, run.Fired && GetParam().Fault == TDiskFault::Kill);
        Check(run);
      });
  // At the least: create, write, flush, rename.
  EXPECT_GE(struck, 4);
}

INSTANTIATE_TEST_SUITE_P(Faults, SafeSaveCrash,
                         testing::Values(TCase{TDiskFault::Kill, true}, TCase{TDiskFault::Kill, false},
                                         TCase{TDiskFault::Full, true}, TCase{TDiskFault::Full, false},
                                         TCase{TDiskFault::Failure, true}, TCase{TDiskFault::Failure, false}));
}  // namespace
