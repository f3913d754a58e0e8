#pragma once

#include <functional>
#include <string>

/// What a worker process gave; nothing where it died.
struct TWorkerResult {
  bool Died = true;
  int Code = 0;
  std::string Text;
};

/// Runs the jobs 0 to `count` - 1, each in a process of its own, as many at a time as there are cores: a crash costs
/// one job. Raises EVantrelWin32Error where no process can be made.
///   job: runs in the worker; gives a code from 0 to 255 and fills the text. Must not raise.
///   finished: told in the caller how many jobs are through, after each.
///   result: told in the caller each result, in the order of the jobs.
void RunInWorkers(int count, const std::function<int(int index, std::string& text)>& job,
                  const std::function<void(int through)>& finished,
                  const std::function<void(int index, const TWorkerResult& worker)>& result);
