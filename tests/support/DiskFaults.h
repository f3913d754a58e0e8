#pragma once

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

/// What happens at a call that changes the disk: the program dies, the disk is full, the disk fails.
enum class TDiskFault { Kill, Full, Failure };

struct TFaultyRun {
  int ExitCode = 0;
  /// The fault came; false once the program made fewer calls than that.
  bool Fired = false;
  /// The program ended by the fault's kill signal.
  bool Killed = false;
};

/// Runs `command` (program and arguments) so that `fault` strikes at the call number `at`, counted from 1, that changes
/// a file below the absolute path `folder`, and at all behind it unless `once`.
inline TFaultyRun RunWithFault(const std::vector<std::string>& command, const std::string& folder, TDiskFault fault,
                               int at, bool once = false) {
  const auto marker = folder + ".fault";
  const char* kinds[] = {"kill", "full", "failure"};
  std::vector<std::string> settings{"LD_PRELOAD=" DISK_FAULTS_LIBRARY,
                                    "ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0",
                                    "MYTESSARON_FAULT_FOLDER=" + folder,
                                    "MYTESSARON_FAULT_MARKER=" + marker,
                                    "MYTESSARON_FAULT_AT=" + std::to_string(at),
                                    std::string("MYTESSARON_FAULT_KIND=") + kinds[static_cast<int>(fault)]};
  if (once) settings.emplace_back("MYTESSARON_FAULT_ONCE=1");
  auto parts = command;
  std::vector<char*> arguments, environment;
  for (auto& part : parts) arguments.push_back(part.data());
  for (auto& setting : settings) environment.push_back(setting.data());
  for (char** inherited = environ; *inherited != nullptr; ++inherited) environment.push_back(*inherited);
  arguments.push_back(nullptr);
  environment.push_back(nullptr);

  TFaultyRun run{.ExitCode = -1};
  pid_t child = 0;
  int status = 0;
  if (::posix_spawn(&child, arguments[0], nullptr, nullptr, arguments.data(), environment.data()) != 0) return run;
  ::waitpid(child, &status, 0);
  run.Killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  if (WIFEXITED(status)) run.ExitCode = WEXITSTATUS(status);
  run.Fired = std::filesystem::remove(marker);
  return run;
}

/// Lets `fault` strike at the first call, the second, and so on, each time for good and then for this one call, until
/// the program gets through without it. `prepare()` comes before each run and `check(run)` behind it. Returns the
/// number of calls that the fault struck.
template <class TPrepare, class TCheck>
int ForEachDiskFault(const std::vector<std::string>& command, const std::string& folder, TDiskFault fault,
                     TPrepare prepare, TCheck check) {
  constexpr int tooMany = 10000;
  for (int at = 1; at < tooMany; ++at) {
    for (const bool once : {false, true}) {
      prepare();
      const auto run = RunWithFault(command, folder, fault, at, once);
      check(run);
      if (!run.Fired) return at - 1;
      if (fault == TDiskFault::Kill) break;
    }
  }
  return tooMany;
}
