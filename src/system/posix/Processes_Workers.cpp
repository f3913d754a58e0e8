#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <map>
#include <thread>

#include "Posix.h"
#include "Processes.h"

namespace {

using TJob = std::function<int(int index, std::string& text)>;

/// The workers that run, by process; those still running when an exception leaves are ended.
class TWorkers {
 public:
  TWorkers() = default;
  TWorkers(const TWorkers&) = delete;
  TWorkers& operator=(const TWorkers&) = delete;
  ~TWorkers() {
    for (const auto& [process, worker] : FRunning) {
      ::kill(process, SIGKILL);
      ::waitpid(process, nullptr, 0);
      ::close(worker.Answer);
    }
  }

  std::size_t Count() const { return FRunning.size(); }
  void Start(int index, const TJob& job);
  /// Waits for any of them and gives its job.
  std::pair<int, System::TWorkerResult> Wait();

 private:
  struct TWorker {
    int Index;
    /// A file in memory that the worker writes its text to, and its code behind it.
    int Answer;
  };
  /// What the job raises ends the worker alone.
  [[noreturn]] static void Work(int index, int answer, const TJob& job) noexcept;
  static System::TWorkerResult ResultOf(int answer);

  std::map<pid_t, TWorker> FRunning;
};

void TWorkers::Start(int index, const TJob& job) {
  const int answer = ::memfd_create("answer", MFD_CLOEXEC);
  if (answer < 0) Posix::Fail();
  const auto process = ::fork();
  if (process == 0) Work(index, answer, job);
  if (process < 0) {
    const System::TFailure failure(System::LastCode());
    ::close(answer);
    throw failure;
  }
  FRunning.emplace(process, TWorker{index, answer});
}

void TWorkers::Work(int index, int answer, const TJob& job) noexcept {
  std::string text;
  const int code = job(index, text);
  text.push_back(static_cast<char>(code));
  for (std::size_t done = 0; done < text.size();) {
    const auto part = ::write(answer, text.data() + done, text.size() - done);
    if (part <= 0) ::raise(SIGKILL);
    done += static_cast<std::size_t>(part);
  }
  ::_exit(0);
}

std::pair<int, System::TWorkerResult> TWorkers::Wait() {
  int status = 0;
  auto worker = FRunning.end();
  while (worker == FRunning.end()) {
    const auto process = ::waitpid(-1, &status, 0);
    if (process < 0 && errno != EINTR) Posix::Fail();
    worker = FRunning.find(process);
  }
  const auto [index, answer] = worker->second;
  FRunning.erase(worker);
  auto result = WIFEXITED(status) && WEXITSTATUS(status) == 0 ? ResultOf(answer) : System::TWorkerResult();
  ::close(answer);
  return {index, std::move(result)};
}

System::TWorkerResult TWorkers::ResultOf(int answer) {
  System::TWorkerResult result{false, 0, std::string(static_cast<std::size_t>(::lseek(answer, 0, SEEK_END)), '\0')};
  for (std::size_t done = 0; done < result.Text.size();) {
    const auto part = ::pread(answer, result.Text.data() + done, result.Text.size() - done, static_cast<off_t>(done));
    if (part <= 0) return {};
    done += static_cast<std::size_t>(part);
  }
  if (result.Text.empty()) return {};
  result.Code = static_cast<unsigned char>(result.Text.back());
  result.Text.pop_back();
  return result;
}

}  // namespace

System::TCode System::RunInWorkers(int count, const TJob& job, const std::function<void(int through)>& finished,
                                   const std::function<void(int index, const TWorkerResult& worker)>& result) try {
  const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
  std::map<int, TWorkerResult> waiting;
  TWorkers workers;
  for (int started = 0, through = 0, told = 0; through < count;) {
    while (started < count && workers.Count() < cores) workers.Start(started++, job);
    waiting.insert(workers.Wait());
    finished(++through);
    for (; !waiting.empty() && waiting.begin()->first == told; ++told) {
      result(told, waiting.begin()->second);
      waiting.erase(waiting.begin());
    }
  }
  return Success;
} catch (const TFailure& failure) {
  return failure.Code;
}
