#include "uKeptRow.h"

const TVariant& TKeptRow::KeyAt(TMyTessaronSource& source, int record) const {
  return FKey(static_cast<const TCourse&>(*source.GetRecordHandle(record)));
}

/// The first row of the kept course, -1 if there is none.
int TKeptRow::FindKept(TMyTessaronSource& source) const {
  for (int record = 0; record < source.GetRecordCount() && !FKept.IsEmpty(); ++record)
    if (KeyAt(source, record) == FKept) return record;
  return -1;
}

void TKeptRow::Save(const TVantrelGrid& grid, TMyTessaronSource* source) {
  const TPlace place{grid.FocusedRecord(), grid.FocusedColumn()};
  const bool isChoice = place != FPlaced || (FTouched && !FChosen);
  if (source == nullptr || place.Record < 0 || place.Record >= source->GetRecordCount() || !isChoice) return;
  FChosen = true;
  FKept = KeyAt(*source, place.Record);
  FColumn = place.Column;
}

void TKeptRow::Restore(TVantrelGrid& grid, TMyTessaronSource& source, int firstColumn, int lockedColumn) {
  const int record = FindKept(source);
  if (!FChosen)
    grid.FocusColumn(firstColumn);
  else
    grid.FocusColumn(record < 0 ? lockedColumn : FColumn);
  if (record < 0)
    grid.GotoFirst();
  else
    grid.FocusRecord(record);
  FPlaced = {grid.FocusedRecord(), grid.FocusedColumn()};
  FTouched = false;
}
