#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "SystemError.h"

/// Other processes, and the terminal that this one was started from.
namespace System {

/// What a worker process gave; nothing where it died.
struct TWorkerResult {
  bool Died = true;
  int Code = 0;
  std::string Text;
};

/// Runs the jobs 0 to `count` - 1, each in a process of its own, as many at a time as there are cores: a crash costs
/// one job. Gives the code of the failure where no process can be made.
///   job: runs in the worker; gives a code from 0 to 255 and fills the text. Must not raise.
///   finished: told in the caller how many jobs are through, after each.
///   result: told in the caller each result, in the order of the jobs.
TCode RunInWorkers(int count, const std::function<int(int index, std::string& text)>& job,
                   const std::function<void(int through)>& finished,
                   const std::function<void(int index, const TWorkerResult& worker)>& result);

/// A program that was started by this one.
class TProcess {
 public:
  explicit TProcess(std::int64_t number) : FNumber(number) {}

  /// Until it has ended; true where it ended with success. To be called once.
  bool Wait() const;

 private:
  std::int64_t FNumber;
};

/// Starts a program, found as a shell finds it, with its arguments, in `folder` (empty: the present one).
TResult<TProcess> StartProgram(std::vector<std::string> command, const std::string& folder);
/// As StartProgram, and leaves the program to itself. Fails with code 2 where there is no such program.
TCode StartDetached(std::vector<std::string> command, const std::string& folder);
/// The program that opens a file or an address with the one that the user's desktop has for it.
std::string OpenerProgram();

enum class TStandardStream { Input, Error };
bool IsTerminal(TStandardStream stream);
/// What the user types at the terminal behind `prompt`, which is not shown.
std::string AskUnseen(const std::string& prompt);

}  // namespace System
