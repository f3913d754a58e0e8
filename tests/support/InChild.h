#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <filesystem>

/// Starts `call` in a forked process.
template <class TCall>
pid_t StartChild(TCall call) {
  const auto child = ::fork();
  if (child != 0) return child;
  try {
    ::_exit(call());
  } catch (const std::exception&) {
    ::_exit(255);
  }
}

/// Waits for the end of a process; gives the number that its call gave (0 to 254), or 255 where it raised or died.
inline int ExitCodeOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

/// Runs `call` in a forked process and returns the number that it gives (0 to 254), or 255 where it raises or dies.
template <class TCall>
int InChild(TCall call) {
  return ExitCodeOf(StartChild(call));
}

/// As InChild, by a user whom permissions bind, even where the tests run as the superuser; `folder` is then his.
template <class TCall>
int InChildAsOrdinaryUser(const std::filesystem::path& folder, TCall call) {
  constexpr uid_t nobody = 65534;
  if (::geteuid() != 0) return InChild(call);
  if (::chown(folder.c_str(), nobody, nobody) != 0) return 255;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (::lchown(entry.path().c_str(), nobody, nobody) != 0) return 255;
  }
  return InChild([&] { return ::setgid(nobody) == 0 && ::setuid(nobody) == 0 ? call() : 255; });
}
