#pragma once

#include <functional>
#include <memory>
#include <string>

#include "uJournal.h"

/// What brings back entries that a run has lost: keeps those of the open project in a journal until they are saved, and
/// offers what former runs have left.
class TRecovery {
 public:
  /// Where the journals lie; empty: nothing is kept and nothing offered.
  explicit TRecovery(std::string folder) : FFolder(std::move(folder)) {}

  /// The project has been opened. It outlives the next call of Leave.
  void Follow(TMyTessaronProject& project);
  /// The project goes. What was not saved stays in its journal, for whoever opens the file next.
  void Leave();
  /// Waits until all entries are on the disk.
  void Flush();
  /// The entries cannot be kept at the moment.
  bool IsResting() const { return FJournal != nullptr && FJournal->IsResting(); }
  /// Asks what shall become of what was left for the file of the project, each journal on its own. One that holds
  /// nothing new goes without a word. `askPassword` gives what the user entered, for entries of a protected project.
  void Offer(const std::function<std::string()>& askPassword);

 private:
  void Keep(const TProjectChange& change);
  void Drop();
  void Restore(const std::vector<TJournalEntry>& entries);

  const std::string FFolder;
  TMyTessaronProject* FProject = nullptr;
  std::unique_ptr<TJournal> FJournal;
  TProjectListeners::TToken FListening;
};
