#include "uKeptSubject.h"

namespace {

const TVariant& SubjectAt(TMyTessaronSource& source, int record) {
  return static_cast<const TCourse*>(source.GetRecordHandle(record))->SubjectId.Value;
}

/// The first row of the subject, -1 if there is none. A course without a subject is like no other.
int FindSubject(TMyTessaronSource& source, const TVariant& subject) {
  for (int record = 0; record < source.GetRecordCount() && !subject.IsEmpty(); ++record)
    if (SubjectAt(source, record) == subject) return record;
  return -1;
}

}  // namespace

void TKeptSubject::Save(const TVantrelGrid& grid, TMyTessaronSource* source) {
  const TPlace place{grid.FocusedRecord(), grid.FocusedColumn()};
  const bool isChoice = place != FPlaced || (FTouched && !FChosen);
  if (source == nullptr || place.Record < 0 || place.Record >= source->GetRecordCount() || !isChoice) return;
  FChosen = true;
  FSubject = SubjectAt(*source, place.Record);
  FColumn = place.Column;
}

void TKeptSubject::Restore(TVantrelGrid& grid, TMyTessaronSource& source, int firstColumn, int lockedColumn) {
  const int record = FindSubject(source, FSubject);
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
