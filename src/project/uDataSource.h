#pragma once

#include "VantrelGrid.h"
#include "uProject.h"

/// Rows of a grid that are courses: the base of both achievement grids. Owns the list, not its courses. Grades go in
/// and out as ids, null for none. Every write marks CurrentProject as modified, also one that a read-only ordinal
/// drops.
class TMyTessaronSource : public TVantrelGridSource {
 public:
  /// The list may be null: no records then.
  explicit TMyTessaronSource(TVantrelPtr<TVantrelDataList> list) : FList(std::move(list)) {}

  int GetRecordCount() override { return FList == nullptr ? 0 : FList->Count(); }
  /// The TCourse of the row.
  TVantrelObject* GetRecordHandle(int index) override;
  void GetValue(TVantrelObject* record, int ordinal, TVariant& value) final;
  /// A null record: nothing. Values of nullable fields are stored as they come; null gives the empty text for a text.
  void SetValue(TVantrelObject* record, int ordinal, const TVariant& value) final;

 protected:
  virtual TVariant Read(const TCourse& course, int ordinal) const = 0;
  virtual void Write(TCourse& course, int ordinal, const TVariant& value) const = 0;

 private:
  TVantrelPtr<TVantrelDataList> FList;
};

/// The courses of one student: ordinals 0 to 33, others read as null.
class TStudentCoursesSource final : public TMyTessaronSource {
 public:
  using TMyTessaronSource::TMyTessaronSource;

 protected:
  TVariant Read(const TCourse& course, int ordinal) const override;
  /// Raises EConvertError for a null subject token.
  void Write(TCourse& course, int ordinal, const TVariant& value) const override;
};

/// The courses of one subject, with columns of the student and the class: ordinals 0 to 40. Reading raises
/// EVantrelException for other ordinals, for a course without a student, and for a class that the file has not.
class TSubjectCoursesSource final : public TMyTessaronSource {
 public:
  using TMyTessaronSource::TMyTessaronSource;

 protected:
  TVariant Read(const TCourse& course, int ordinal) const override;
  void Write(TCourse& course, int ordinal, const TVariant& value) const override;
};
