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

/// The two ends of changes that belong together.
enum class TChangeBracket { Begin, End };

/// Who is told of changes.
class TProjectListeners {
 public:
  /// Neither must raise. The second may be unset.
  using TListener = std::function<void(const TProjectChange& change)>;
  using TBracketListener = std::function<void(TChangeBracket bracket)>;
  struct TEntry {
    TListener OnChange;
    TBracketListener OnBracket;
  };
  /// As long as it is held, its listener is told. It may be let go while a change is told, and outlive the project.
  using TToken = std::shared_ptr<const TEntry>;

  [[nodiscard]] TToken Add(TListener listener, TBracketListener onBracket);
  /// In the order of adding. Who is added meanwhile hears of the next change.
  void Tell(const TProjectChange& change);
  void Tell(TChangeBracket bracket);

 private:
  template <class TCall>
  void ForEach(TCall call);

  std::vector<std::weak_ptr<const TEntry>> FListeners;
};
