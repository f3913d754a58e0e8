#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "VantrelIO.h"
#include "uProject.h"

enum class TJournalRecord : std::uint8_t { Course, Student, Remark };

/// A change that outlives the program: it names its record by what another load of the file finds again.
struct TJournalEntry {
  TChangeKind Kind = TChangeKind::Field;
  TJournalRecord Record = TJournalRecord::Course;
  /// The place of the course, or of the student whose remark it is, in the project's list, and the id there.
  std::int32_t Index = -1;
  std::int32_t TessaronId = 0;
  TGuid Remark = {};

  /// Of a field.
  std::string Key = {};
  TVariant Before = {};
  TVariant After = {};
  /// Of a remark that came, went or moved: its place, the new one, and what it holds.
  std::int32_t Place = -1;
  std::int32_t Target = -1;
  std::vector<std::pair<std::string, TVariant>> Fields = {};

  bool IsOfSameRecord(const TJournalEntry& other) const {
    return Record == other.Record && Index == other.Index && Remark == other.Remark;
  }
};

/// Nothing for a change of what no view writes to.
std::optional<TJournalEntry> JournalEntryOf(const TMyTessaronProject& project, const TProjectChange& change);

void WriteEntry(TVantrelWriter& writer, const TJournalEntry& entry);
/// Raises EVantrelReaderError for bytes that are no entry.
TJournalEntry ReadEntry(TVantrelReader& reader);

/// What is left of entries in their order when one takes back what the other did.
std::vector<TJournalEntry> NetEntries(const std::vector<TJournalEntry>& entries);

enum class TReplay {
  Done,
  Already,  ///< the project holds it
  Differs   ///< the record is not there, or holds something else than before the entry
};

/// What a replay of the entry would give.
TReplay JudgeEntry(const TMyTessaronProject& project, const TJournalEntry& entry);
/// Does the entry once more in a project, by the road of all entries.
TReplay ReplayEntry(TMyTessaronProject& project, const TJournalEntry& entry);
