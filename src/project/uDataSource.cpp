#include "uDataSource.h"

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelScopes.h"

TVantrelObject* TMyTessaronSource::GetRecordHandle(int index) {
  return FList == nullptr ? nullptr : FList->GetItem(index);
}

void TMyTessaronSource::GetValue(TVantrelObject* record, int ordinal, TVariant& value) {
  value = TVariant::Null();
  if (record == nullptr) return;
  value = FColumns.Find(ordinal) == nullptr ? ReadUnknown(ordinal)
                                            : FColumns.Value(*static_cast<TCourse*>(record), ordinal);
}

void TMyTessaronSource::SetValue(TVantrelObject* record, int ordinal, const TVariant& value) {
  if (record == nullptr) return;
  const TVantrelScopedValue<const TVantrelObject*> writing(FBeingWritten, record, nullptr);
  const auto write = FColumns.WriteOf(ordinal);
  if (write == TCourseWrite::Dropped) return CurrentProject->SetModified(true);
  const auto given = write == TCourseWrite::StoredUnlessNull ? TVariant(value.AsText()) : value;
  CurrentProject->ChangeField(*static_cast<TCourse*>(record), FColumns.Find(ordinal)->Key, given);
}

TVariant TSubjectCoursesSource::ReadUnknown(int ordinal) const {
  throw EVantrelException(FormatText(ProjectTexts::OrdinalNotFound, ordinal));
}
