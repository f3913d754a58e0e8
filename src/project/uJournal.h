#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "SystemFile.h"
#include "uJournalEntries.h"

/// What a journal belongs to.
struct TJournalHead {
  double Begun = 0;  ///< when, in days
  /// The file of the project, and the SHA-256 of its bytes at the beginning; empty where there was none.
  std::string Path = {};
  std::string Digest = {};
  /// Of the project, as it stores it; empty without one.
  std::string Password = {};
};

/// The entries of a project since it was opened or saved, kept in a file of their own until they stand in the project's
/// file. Enciphered with a key that lies in the same folder: both belong to the user alone. One thread writes beside
/// the work: two seconds after the last entry, at the latest ten after the first. Where that fails it goes on trying.
class TJournal {
 public:
  /// The folder is made where it is missing. Nothing lies there before the first entry.
  TJournal(std::string folder, TJournalHead head);
  TJournal(const TJournal&) = delete;
  TJournal& operator=(const TJournal&) = delete;
  /// Writes what is left; the file stays.
  ~TJournal();

  void Append(const TJournalEntry& entry);
  /// Waits until all entries are on the disk, or it has failed. False then.
  bool Flush();
  /// The entries are safe elsewhere, or not wanted: the file goes.
  void Discard();
  /// The last writing failed.
  bool IsResting() const;

 private:
  using TBytes = std::vector<std::uint8_t>;

  void Work();
  void AwaitPause(std::unique_lock<std::mutex>& lock);
  bool Store(const std::vector<TBytes>& frames);
  bool Begin();

  const std::string FFolder;
  TJournalHead FHead;
  std::string FFileName;
  std::optional<System::TFile> FFile;
  std::string FKey;
  std::int64_t FSize = 0;

  mutable std::mutex FMutex;
  std::condition_variable FWake, FDone;
  std::vector<TBytes> FPending;
  bool FHurries = false;
  bool FStops = false;
  bool FIsResting = false;
  std::thread FThread;
};

/// A journal that nobody writes to any more.
struct TLeftJournal {
  std::string FileName;
  TJournalHead Head;
  std::vector<TJournalEntry> Entries;
};

/// Those in the folder that can be read, the oldest first, and what can be read of them; one that another program holds
/// is left out.
std::vector<TLeftJournal> LeftJournals(const std::string& folder);
/// SHA-256 of the bytes of a file; empty where it cannot be read.
std::string FileDigest(const std::string& fileName);
