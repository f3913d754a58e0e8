#include "VantrelXdgOpener.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iomanip>
#include <sstream>
#include <vector>

#include "VantrelExceptions.h"

namespace {

constexpr std::uint32_t Success = 33, NoAssociation = 31, BadFormat = 11, NotFound = 2;

/// A shell that leaves the program to itself, so that nobody has to wait for it; 127 if there is no such program.
constexpr const char* Detach = "command -v \"$1\" >/dev/null 2>&1 || exit 127\n\"$@\" >/dev/null 2>&1 &";

bool IsAddress(const std::string& name) {
  return name.find("://") != std::string::npos || name.starts_with("mailto:");
}

/// The code of a failure for errno: one that cannot be taken for a success.
std::uint32_t CodeOf(int error) {
  return error == ENOEXEC ? BadFormat : std::min(System::CodeOf({error, std::generic_category()}), NoAssociation);
}

/// 0 if the file can be read from the start directory, else the system's code.
std::uint32_t CheckFile(const TVantrelLaunch& launch) {
  const std::filesystem::path path = std::filesystem::path(launch.StartDir) / launch.FileName;
  return access(path.c_str(), R_OK) == 0 ? 0 : CodeOf(errno);
}

std::vector<std::string> CommandOf(const TVantrelLaunch& launch) {
  const bool looksLikeOption = launch.FileName.starts_with('-');
  if (launch.StartParams.empty()) return {"xdg-open", (looksLikeOption ? "./" : "") + launch.FileName};
  std::vector<std::string> command = {launch.FileName};
  std::istringstream params(launch.StartParams);
  for (std::string param; params >> std::quoted(param);) command.push_back(param);
  return command;
}

/// Starts a process and sets `pid`; returns 0 or errno.
int Spawn(std::vector<std::string> command, const std::string& startDir, pid_t& pid) {
  std::vector<char*> arguments;
  for (std::string& part : command) arguments.push_back(part.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!startDir.empty()) posix_spawn_file_actions_addchdir_np(&actions, startDir.c_str());
  const int error = posix_spawnp(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

int WaitFor(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace

std::uint32_t TVantrelXdgOpener::Open(const TVantrelLaunch& launch, std::function<void()>* wait) {
  if (!launch.Operation.empty() && launch.Operation != "open") return NoAssociation;
  const bool isProgram = !launch.StartParams.empty();
  if (!isProgram && !IsAddress(launch.FileName)) {
    if (const std::uint32_t code = CheckFile(launch); code != 0) return code;
  }
  const std::uint32_t missing = isProgram ? NotFound : NoAssociation;
  std::vector<std::string> command = CommandOf(launch);
  if (wait == nullptr) command.insert(command.begin(), {"/bin/sh", "-c", Detach, "sh"});
  pid_t pid = 0;
  if (const int error = Spawn(std::move(command), launch.StartDir, pid); error != 0)
    return error == ENOENT ? missing : CodeOf(error);
  if (wait == nullptr) return WaitFor(pid) == 0 ? Success : missing;
  *wait = [pid] { WaitFor(pid); };
  return Success;
}
