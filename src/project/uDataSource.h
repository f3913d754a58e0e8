#pragma once

#include "VantrelGrid.h"
#include "uCourseColumns.h"

/// Rows of a grid that are courses: the base of both achievement grids. Owns the list, not its courses. Grades go in
/// and out as ids, null for none. Every write marks CurrentProject as modified, also one that a read-only ordinal
/// drops.
class TMyTessaronSource : public TVantrelGridSource {
 public:
  int GetRecordCount() override { return FList == nullptr ? 0 : FList->Count(); }
  /// The TCourse of the row.
  TVantrelObject* GetRecordHandle(int index) override;
  /// The columns by their ordinals.
  const TCourseColumns& Columns() const { return FColumns; }
  void GetValue(TVantrelObject* record, int ordinal, TVariant& value) final;
  /// A null record: nothing. Values of nullable fields are stored as they come; null gives the empty text for a text,
  /// or raises EConvertError where a text must be.
  void SetValue(TVantrelObject* record, int ordinal, const TVariant& value) final;
  /// The record that SetValue is writing to at this moment; null outside of it. Its change is the caller's own.
  const TVantrelObject* BeingWritten() const { return FBeingWritten; }

 protected:
  /// The list may be null: no records then.
  TMyTessaronSource(TVantrelPtr<TVantrelDataList> list, TCourseGrid grid)
      : FColumns(TCourseColumns::Of(grid)), FList(std::move(list)) {}
  /// What an ordinal reads that the grid has not.
  virtual TVariant ReadUnknown(int ordinal) const = 0;

 private:
  const TCourseColumns& FColumns;
  TVantrelPtr<TVantrelDataList> FList;
  const TVantrelObject* FBeingWritten = nullptr;
};

/// The courses of one student. Unknown ordinals read as null.
class TStudentCoursesSource final : public TMyTessaronSource {
 public:
  explicit TStudentCoursesSource(TVantrelPtr<TVantrelDataList> list)
      : TMyTessaronSource(std::move(list), TCourseGrid::Students) {}

 protected:
  TVariant ReadUnknown(int) const override { return TVariant::Null(); }
};

/// The courses of one subject, with columns of the student and the class. Reading raises EVantrelException for unknown
/// ordinals and for a course without a student.
class TSubjectCoursesSource final : public TMyTessaronSource {
 public:
  explicit TSubjectCoursesSource(TVantrelPtr<TVantrelDataList> list)
      : TMyTessaronSource(std::move(list), TCourseGrid::Subjects) {}

 protected:
  TVariant ReadUnknown(int ordinal) const override;
};
