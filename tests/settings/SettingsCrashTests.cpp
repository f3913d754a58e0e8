#include "DiskFaults.h"
#include "InChild.h"
#include "PrivateConfig.h"
#include "Testing.h"
#include "mStorage.h"
#include "uOptions.h"

namespace {

struct SettingsCrash : testing::TestWithParam<std::tuple<TDiskFault, bool>> {
  /// What the program finds at its next start are settings and options that are whole; true if all are the new ones.
  bool AreNew() {
    const auto options = CreateVantrel<TMyTessaronOptions>(FFolder / "MyTessaron.opt", FFolder.Path().string());
    EXPECT_EQ(options->Load(), "");
    const auto module = CreateVantrel<TStorageModule>(4);
    EXPECT_EQ(module->Storage().Damage(), "");
    const auto value = module->Storage().ReadString("AppForm", "Value", "old");
    EXPECT_THAT(value, testing::AnyOf("old", "new"));
    EXPECT_EQ(module->Storage().ReadInteger("Other", "Value", 0), std::get<bool>(GetParam()) ? 7 : 0);
    return value == "new" && !options->RechtschreibungZahl;
  }
  void Prepare() {
    std::filesystem::remove_all(FFolder.Path().string());
    std::filesystem::create_directory(FFolder.Path().string());
    if (!std::get<bool>(GetParam())) return;
    CreateVantrel<TMyTessaronOptions>(FFolder / "MyTessaron.opt", FFolder.Path().string())->Save();
    const auto module = CreateVantrel<TStorageModule>(4);
    module->Storage().WriteInteger("Other", "Value", 7);
    module->Storage().WriteString("AppForm", "Value", "old");
  }

  PrivateConfig FConfig;
  TempFolder& FFolder = FConfig.Folder;
};

TEST_P(SettingsCrash, LeavesTheOldOrTheNewOnesWhole) {
  const std::vector<std::string> command{SETTINGS_WRITER, FFolder.Path().string(), "new"};
  const int struck = ForEachDiskFault(
      command, FFolder.Path().string(), std::get<TDiskFault>(GetParam()), [&] { Prepare(); },
      [&](const TFaultyRun& run) {
        EXPECT_EQ(run.Killed, run.Fired && std::get<TDiskFault>(GetParam()) == TDiskFault::Kill);
        EXPECT_TRUE(AreNew() || run.Killed || run.ExitCode == 3) << run.ExitCode;
        const auto next = RunWithFault(command, FFolder.Path().string(), TDiskFault::Kill, 10000);
        EXPECT_EQ(next.ExitCode, 0);
        EXPECT_TRUE(AreNew());
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::recursive_directory_iterator(FFolder.Path()))
          names.push_back(file.path().filename());
        EXPECT_THAT(names, testing::UnorderedElementsAre("MyTessaron.opt", "Orvenda Labs", "Registry.pref"));
      });
  // Both files are created, written, flushed and renamed, and their folders flushed.
  EXPECT_GE(struck, 10);
}

INSTANTIATE_TEST_SUITE_P(Faults, SettingsCrash,
                         testing::Combine(testing::Values(TDiskFault::Kill, TDiskFault::Full, TDiskFault::Failure),
                                          testing::Bool()));

/// Three programs end again and again at once: what each of them has set stays, and none of them is refused.
TEST(SettingsAtOnce, KeepWhatEveryProgramHasSet) {
  constexpr int programs = 3, rounds = 10;
  const PrivateConfig config;
  const auto change = [&](int program) {
    for (int round = 0; round < rounds; ++round) {
      const auto options = CreateVantrel<TMyTessaronOptions>(config.Folder / "MyTessaron.opt", "");
      const auto module = CreateVantrel<TStorageModule>(4);
      auto told = options->Load() + module->Storage().Damage();
      module->Storage().WriteInteger("Program" + std::to_string(program), "Value" + std::to_string(round), 7);
      told += options->Save() + module->Storage().TryFlush();
      if (!told.empty()) return 1;
    }
    return 0;
  };
  std::vector<pid_t> children;
  for (int program = 0; program < programs; ++program) children.push_back(StartChild([&] { return change(program); }));
  for (const auto child : children) EXPECT_EQ(ExitCodeOf(child), 0);
  const auto module = CreateVantrel<TStorageModule>(4);
  int kept = 0;
  for (int at = 0; at < programs * rounds; ++at)
    kept += module->Storage().ReadInteger("Program" + std::to_string(at / rounds),
                                          "Value" + std::to_string(at % rounds), 0);
  EXPECT_EQ(kept, programs * rounds * 7);
}

}  // namespace
