#include "Processes.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "Posix.h"

namespace {
/// A shell that leaves the program to itself, so that nobody has to wait for it; 127 if there is no such program.
constexpr const char* Detach = "command -v \"$1\" >/dev/null 2>&1 || exit 127\n\"$@\" >/dev/null 2>&1 &";
}  // namespace

namespace System {

bool TProcess::Wait() const {
  int status = 0;
  pid_t ended = -1;
  do ended = ::waitpid(static_cast<pid_t>(FNumber), &status, 0);
  while (ended < 0 && errno == EINTR);
  return ended > 0 && status == 0;
}

TResult<TProcess> StartProgram(std::vector<std::string> command, const std::string& folder) {
  std::vector<char*> arguments;
  for (std::string& part : command) arguments.push_back(part.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  if (!folder.empty()) ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  pid_t number = 0;
  const int error = ::posix_spawnp(&number, arguments[0], &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return TFailure(Posix::CodeOf(error));
  return TProcess(number);
}

TCode StartDetached(std::vector<std::string> command, const std::string& folder) {
  command.insert(command.begin(), {"/bin/sh", "-c", Detach, "sh"});
  auto shell = StartProgram(std::move(command), folder);
  if (!shell) return shell.Code();
  return shell->Wait() ? Success : static_cast<TCode>(TVantrelErrorCode::FileNotFound);
}

std::string OpenerProgram() {
  return "xdg-open";
}

bool IsTerminal(TStandardStream stream) {
  return ::isatty(stream == TStandardStream::Input ? STDIN_FILENO : STDERR_FILENO) == 1;
}

std::string AskUnseen(const std::string& prompt) {
  // The only call that asks without echo and leaves the terminal as it was, also when it is interrupted.
  const char* entered = ::getpass(prompt.c_str());
  return entered == nullptr ? std::string() : entered;
}

}  // namespace System
