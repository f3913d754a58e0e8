#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>

#include "CliTexts.h"
#include "Commands.h"
#include "Processes.h"
#include "ProjectFiles.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uProjectDefects.h"
#include "uRecordTexts.h"

namespace {

using RecordTexts::PrintableLines;
using RecordTexts::PrintableText;

/// What a worker answers beside the results of the program: only the caller can ask for a password.
constexpr int NeedsPassword = 3;
constexpr const char* EraseLine = "\r\033[K";

int Answer(TCliResult result, std::string& text, std::string answer) {
  text = std::move(answer);
  return static_cast<int>(result);
}

/// Hints leave a file in order.
int AnswerDefects(const std::string& fileName, const std::vector<std::string>& defects,
                  const std::vector<std::string>& hints, std::string& text) {
  const auto noun = ResourceText(defects.size() == 1 ? CliTexts::OneFinding : CliTexts::SeveralFindings);
  auto answer = defects.empty() ? PrintableText(CliTexts::CheckGood, fileName)
                                : PrintableText(CliTexts::CheckFindings, fileName, defects.size(), noun);
  for (const auto& defect : defects) answer += fmt::format("\n  {}", defect);
  for (const auto& hint : hints) answer += "\n  " + FormatText(CliTexts::CheckHint, hint);
  return Answer(defects.empty() ? TCliResult::Good : TCliResult::Findings, text, answer + "\n");
}

int AnswerProject(const std::string& fileName, const TMyTessaronProject& project, std::string& text) {
  auto defects = DamageTexts(project);
  std::vector<std::string> hints;
  for (const auto& note : project.LoadNotes())
    if (!note.IsDamage) hints.push_back(RecordTexts::Printable(note.Text));
  std::ranges::move(FindDefects(project, TDefectScope::All).Texts, std::back_inserter(defects));
  return AnswerDefects(fileName, defects, hints, text);
}

int CheckFile(const std::string& fileName, const TCliContext& context, std::string& text) {
  try {
    return AnswerProject(fileName, *ReadProject(fileName, context), text);
  } catch (const ECliDamaged& error) {
    return AnswerDefects(fileName, {PrintableText(CliTexts::CheckDamaged, error.Damage)}, {}, text);
  } catch (const ECliPasswordNeeded& error) {
    Answer(TCliResult::Failed, text, std::string(error.Message()) + "\n");
    return NeedsPassword;
  } catch (const std::exception& error) {
    return Answer(TCliResult::Failed, text, fmt::format("{}\n", fmt::join(PrintableLines(error.what()), "\n")));
  }
}

class TChecking {
 public:
  TChecking(const Commands::TArguments& files, TCliContext& context) : FFiles(files), FContext(context) {}

  TCliResult Run() {
    auto quiet = FContext;
    quiet.AskPassword = nullptr;
    CheckSystem<EVantrelWin32Error>(System::RunInWorkers(
        static_cast<int>(FFiles.size()),
        [&](int index, std::string& text) { return CheckFile(FileOf(index), quiet, text); },
        [this](int through) { ShowProgress(through); },
        [this](int index, const System::TWorkerResult& worker) { Tell(index, worker); }));
    for (const auto& [index, worker] : FWaiting) AskAndPrint(index, worker);
    return FWorst;
  }

 private:
  const std::string& FileOf(int index) const { return FFiles[static_cast<std::size_t>(index)]; }

  void ShowProgress(int through) {
    const bool last = through == static_cast<int>(FFiles.size());
    if (!FContext.ShowProgress || FFiles.size() == 1) return;
    FContext.Err << EraseLine;
    if (!last) FContext.Err << FormatText(CliTexts::CheckProgress, through, FFiles.size());
    FContext.Err.flush();
  }

  bool MustAsk(const System::TWorkerResult& worker) const {
    return !worker.Died && worker.Code == NeedsPassword && FContext.AskPassword;
  }

  /// The user is asked once all workers are through, so from there on results wait.
  void Tell(int index, const System::TWorkerResult& worker) {
    if (MustAsk(worker) || !FWaiting.empty()) {
      FWaiting.emplace_back(index, worker);
    } else {
      Print(index, worker);
    }
  }

  void AskAndPrint(int index, const System::TWorkerResult& worker) {
    if (!MustAsk(worker)) return Print(index, worker);
    auto asked = FContext;
    asked.Password = FContext.AskPassword(FileOf(index));
    CheckSystem<EVantrelWin32Error>(System::RunInWorkers(
        1, [&](int, std::string& text) { return CheckFile(FileOf(index), asked, text); }, [](int) {},
        [&](int, const System::TWorkerResult& second) { Print(index, second); }));
  }

  void Print(int index, const System::TWorkerResult& worker) {
    const bool failed = worker.Died || worker.Code >= static_cast<int>(TCliResult::Failed);
    if (FContext.ShowProgress) FContext.Err << EraseLine << std::flush;
    (failed ? FContext.Err : FContext.Out)
        << (worker.Died ? PrintableText(CliTexts::WorkerDied, FileOf(index)) + "\n" : worker.Text) << std::flush;
    FWorst = std::max(FWorst, failed ? TCliResult::Failed : static_cast<TCliResult>(worker.Code));
  }

  const Commands::TArguments& FFiles;
  TCliContext& FContext;
  std::vector<std::pair<int, System::TWorkerResult>> FWaiting;
  TCliResult FWorst = TCliResult::Good;
};

}  // namespace

TCliResult Commands::Check(const TArguments& files, TCliContext& context) {
  return TChecking(files, context).Run();
}
