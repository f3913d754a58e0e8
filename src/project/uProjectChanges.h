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
  /// Of a deleted item, null where another list holds it still. It is freed when all are told; a listener that takes it
  /// can insert it again.
  TVantrelPtr<TVantrelDataObject>* Removed = nullptr;
};

/// Who is told of changes.
class TProjectListeners {
 public:
  /// Must not raise.
  using TListener = std::function<void(const TProjectChange& change)>;
  /// As long as it is held, its listener is told. It may be let go while a change is told, and outlive the project.
  using TToken = std::shared_ptr<const TListener>;

  [[nodiscard]] TToken Add(TListener listener);
  /// In the order of adding. Who is added meanwhile hears of the next change.
  void Tell(const TProjectChange& change);

 private:
  std::vector<std::weak_ptr<const TListener>> FListeners;
};
