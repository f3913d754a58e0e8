// The one road by which records of the open project change.

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uProject.h"

void TMyTessaronProject::ChangeField(TVantrelRecord& record, std::string_view key, const TVariant& value) {
  const auto& field = record.RequireField(key);
  const auto before = field.Value(record);
  field.SetValue(record, value);
  TellChange(
      {.Kind = TChangeKind::Field, .Record = record, .Key = field.Key, .Before = before, .After = field.Value(record)});
}

void TMyTessaronProject::InsertItem(TVantrelDataList& list, int index, TVantrelPtr<TVantrelDataObject> item) {
  if (item == nullptr || list.Contains(item.get())) return;
  if (!list.OwnsItems()) throw EVantrelCollectionError(ResourceText(ProjectTexts::NotTheOwner));
  list.Insert(index, item.get());
  auto& inserted = *item.release();
  TellChange({.Kind = TChangeKind::Inserted, .Record = inserted, .List = &list, .Index = index});
}

void TMyTessaronProject::DeleteItem(TVantrelDataList& list, int index) {
  auto& item = *list.GetItem(index);
  auto removed = list.TakeOut(index);
  TellChange({.Kind = TChangeKind::Deleted,
              .Record = item,
              .List = &list,
              .Index = index,
              .Removed = removed ? &removed : nullptr});
}

void TMyTessaronProject::MoveItem(TVantrelDataList& list, int from, int to) {
  auto& item = *list.GetItem(from);
  list.Move(from, to);
  TellChange({.Kind = TChangeKind::Moved, .Record = item, .List = &list, .Index = from, .Target = to});
}

void TMyTessaronProject::BeginChanges() {
  if (FOpenBrackets++ == 0) FListeners.Tell(TChangeMark::Begin);
}

void TMyTessaronProject::EndChanges() {
  if (--FOpenBrackets == 0) FListeners.Tell(TChangeMark::End);
}

void TMyTessaronProject::TellChange(const TProjectChange& change) {
  SetModified(true);
  FListeners.Tell(change);
}
