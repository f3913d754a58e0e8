#pragma once

#include <functional>
#include <string>
#include <vector>

#include "uProject.h"

/// Where something stands in the project, for the views to go to.
struct TProjectPlace {
  /// Null where no view shows it.
  const TStudent* Student = nullptr;
  /// Null for what belongs to the student alone.
  const TCourse* Course = nullptr;
  /// The list of remarks, and the one in question while the list holds it.
  bool IsRemark = false;
  const TCertificateComment* Remark = nullptr;
  /// The stored field; empty for a whole record.
  std::string_view Key = {};
};

/// The place of a record, and of its field. `list` is the one that holds it or has held it; null where it stands in its
/// own.
TProjectPlace PlaceOf(const TMyTessaronProject& project, const TVantrelDataObject& record, const TVantrelDataList* list,
                      std::string_view key = {});

/// Everything that was changed in the project since it was opened, in steps that can be taken back and done again: one
/// per change, or one for all that belongs together or was posted by one editor. What ends where it began is no step.
///
/// After each undo and redo the project is modified exactly if it differs from what was saved last.
class TProjectHistory {
 public:
  /// The project outlives the history.
  explicit TProjectHistory(TMyTessaronProject& project);
  TProjectHistory(const TProjectHistory&) = delete;
  TProjectHistory& operator=(const TProjectHistory&) = delete;

  /// What can be undone or redone may be another.
  std::function<void()> OnChange;

  bool CanUndo() const { return !FSteps.empty() && FPosition > 0; }
  bool CanRedo() const { return FPosition < FSteps.size(); }
  /// What the next undo takes back and the next redo does, as "Note 2 für Irina Stein, Mathematik"; empty for nothing.
  std::string UndoText() const { return CanUndo() ? TextOf(FSteps[FPosition - 1]) : std::string(); }
  std::string RedoText() const { return CanRedo() ? TextOf(FSteps[FPosition]) : std::string(); }

  /// Both tell where something has changed; nothing to do gives no place. Open editors are to be closed before. Where
  /// records were changed on another road, so that a step cannot be replayed, they raise what that raises, and there is
  /// no step any more.
  TProjectPlace Undo();
  TProjectPlace Redo();

 private:
  struct TKeptChange {
    TChangeKind Kind;
    TVantrelDataObject* Record;
    std::string_view Key;
    TVariant Before, After;
    TVantrelDataList* List;
    int Index, Target;
    /// An item of an owning list while the list does not hold it.
    TVantrelPtr<TVantrelDataObject> Removed;
  };
  using TStep = std::vector<TKeptChange>;
  static constexpr auto NowhereSaved = static_cast<std::size_t>(-1);

  void Keep(const TProjectChange& change);
  void Follow(TChangeMark mark);
  void Seal();
  void TellChange() {
    if (OnChange) OnChange();
  }
  TProjectPlace Replay(TStep& step, bool forwards);
  void Apply(TKeptChange& change, bool forwards);
  void Forget();
  std::string TextOf(const TStep& step) const;

  TMyTessaronProject& FProject;
  std::vector<TStep> FSteps;
  /// So many of the steps are done.
  std::size_t FPosition = 0;
  std::size_t FSavedAt;
  /// What has happened since the last step, until it is one.
  TStep FOpen;
  bool FIsEdit = false;
  bool FIsJoined = false;
  /// The change that is being undone or redone.
  TKeptChange* FReplayed = nullptr;
  bool FIsReplaying = false;
  TProjectListeners::TToken FListening;
};
