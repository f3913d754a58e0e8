#include "uRecovery.h"

#include <fmt/format.h>

#include <algorithm>

#include "ShellTexts.h"
#include "SystemFolders.h"
#include "VantrelDateTime.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"

namespace {

bool IsOf(const TLeftJournal& journal, const std::string& path, const std::string& digest) {
  return (!digest.empty() && journal.Head.Digest == digest) || journal.Head.Path == path;
}

/// Nobody reads of a protected project what he does not know the password of, even if the file has none any more.
bool MayBeShown(const TJournalHead& head, const TMyTessaronProject& project,
                const std::function<std::string()>& askPassword) {
  if (head.Password.empty() || (project.PasswordProtected && head.Password == project.Password)) return true;
  const auto asked = CreateVantrel<TMyTessaronProject>();
  asked->Password = head.Password;
  asked->PasswordProtected = true;
  if (asked->CheckPassword(askPassword())) return true;
  MsgBoxError(ResourceText(ShellTexts::WrongPassword));
  return false;
}

std::string TimeText(double when) {
  const auto now = DecodeDateTime(CurrentDateTime()), then = DecodeDateTime(when);
  const bool isToday = std::tie(now.Year, now.Month, now.Day) == std::tie(then.Year, then.Month, then.Day);
  return isToday ? FormatText(ShellTexts::TodayAt, then.Hour, then.Minute)
                 : FormatText(ShellTexts::DayAt, then.Day, then.Month, then.Year, then.Hour, then.Minute);
}

}  // namespace

void TRecovery::Follow(TMyTessaronProject& project) {
  if (FFolder.empty()) return;
  FProject = &project;
  FListening = project.Listen([this](const auto& change) { Keep(change); },
                              [this](auto mark) {
                                if (mark == TChangeMark::Saved) Drop();
                              });
}

void TRecovery::Keep(const TProjectChange& change) {
  const auto entry = JournalEntryOf(*FProject, change);
  if (!entry) return;
  if (FJournal == nullptr) {
    const auto password = FProject->PasswordProtected ? FProject->Password : std::string();
    FJournal = std::make_unique<TJournal>(
        FFolder, TJournalHead{.Begun = CurrentDateTime(), .Path = FProject->FileName(), .Password = password});
  }
  FJournal->Append(*entry);
}

void TRecovery::Drop() {
  if (FJournal != nullptr) FJournal->Discard();
  FJournal.reset();
}

void TRecovery::Leave() {
  if (FProject != nullptr && !FProject->Modified()) Drop();
  Flush();
  FJournal.reset();
  FListening.reset();
  FProject = nullptr;
}

void TRecovery::Flush() {
  if (FJournal != nullptr) FJournal->Flush();
}

void TRecovery::Offer(const std::function<std::string()>& askPassword) {
  if (FProject == nullptr) return;
  const auto digest = FileDigest(FProject->FileName());
  for (const auto& journal : LeftJournals(FFolder)) {
    if (!IsOf(journal, FProject->FileName(), digest)) continue;
    const auto entries = NetEntries(journal.Entries);
    const auto fresh = std::ranges::count_if(
        entries, [&](const auto& entry) { return JudgeEntry(*FProject, entry) != TReplay::Already; });
    if (fresh > 0) {
      if (!MayBeShown(journal.Head, *FProject, askPassword)) continue;
      const auto answer = MsgBoxAsk(ResourceText(ShellTexts::RecoveryCaption),
                                    FormatText(ShellTexts::RecoveryQuestion, fresh, TimeText(journal.Head.Begun)), true,
                                    TVantrelMsgBoxParent::mbpActiveWindow, 1);
      if (answer == TVantrelMsgBoxResult::mbrCancel) continue;
      if (answer == TVantrelMsgBoxResult::mbrYes) Restore(entries);
      // They are safe in the journal of this run before the other one goes.
      if (FJournal != nullptr && !FJournal->Flush()) continue;
    }
    System::RemoveFile(journal.FileName);
  }
}

void TRecovery::Restore(const std::vector<TJournalEntry>& entries) {
  const auto differing = std::ranges::count_if(
      entries, [&](const auto& entry) { return ReplayEntry(*FProject, entry) == TReplay::Differs; });
  if (differing > 0)
    MsgBoxWarning(ResourceText(ShellTexts::RecoveryCaption), FormatText(ShellTexts::RecoveryDiffers, differing));
}
