#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "VantrelDataRecords.h"

enum class TChangeKind { Field, Inserted, Deleted, Moved };

/// One step that has changed the open project, told so that it can be shown, listed and taken back.
struct TProjectChange {
  TChangeKind Kind;
  /// The record whose field has changed, or the item of the list. A deleted one lives at least until all are told.
  TVantrelDataObject& Record;

  /// Of a field: its key, and what it held and holds.
  std::string_view Key = {};
  TVariant Before = {};
  TVariant After = {};

  /// Of a list: the place of the item in it; of a moved item the old place, and the new one.
  TVantrelDataList* List = nullptr;
  int Index = -1;
  int Target = -1;
  /// Of a deleted item: holds it until all are told, and frees it then. A listener that takes it out can insert it
  /// again; those after it find none. Null where the item lives on: an owning list holds it still, or the list that it
  /// was deleted from never owned it.
  TVantrelPtr<TVantrelDataObject>* Removed = nullptr;
};

/// Bit for bit, and not as a database sees it.
bool IsSameValue(const TVariant& one, const TVariant& other);

/// What is told between the changes.
enum class TChangeMark {
  Begin,  ///< what comes until the end belongs together
  End,
  EditBegin,  ///< an editor has opened: what it writes to its field, as often as it does, is one thing
  EditEnd,
  Saved  ///< the project stands in its file as it is
};

/// Who is told of changes.
class TProjectListeners {
 public:
  /// Neither must raise. The second may be unset.
  using TListener = std::function<void(const TProjectChange& change)>;
  using TMarkListener = std::function<void(TChangeMark mark)>;
  struct TEntry {
    TListener OnChange;
    TMarkListener OnMark;
  };
  /// As long as it is held, its listener is told. It may be let go while a change is told, and outlive the project.
  using TToken = std::shared_ptr<const TEntry>;

  [[nodiscard]] TToken Add(TListener listener, TMarkListener onMark);
  /// In the order of adding. Who is added meanwhile hears of the next change.
  void Tell(const TProjectChange& change);
  void Tell(TChangeMark mark);

 private:
  template <class TCall>
  void ForEach(TCall call);

  std::vector<std::weak_ptr<const TEntry>> FListeners;
};
