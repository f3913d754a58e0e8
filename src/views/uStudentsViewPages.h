#pragma once

#include <vector>

#include "uAchievementsPane.h"
#include "uProjectHistory.h"

/// A page of the students view. A page need not answer what does not concern it.
class TStudentsViewPage {
 public:
  TStudentsViewPage() = default;
  TStudentsViewPage(const TStudentsViewPage&) = delete;
  TStudentsViewPage& operator=(const TStudentsViewPage&) = delete;
  virtual ~TStudentsViewPage() = default;

  /// Shows what it tells of a student and the class; either may be none.
  virtual void ShowStudent(TStudent* student, const TClass* schoolClass) = 0;
  /// Writes what open editors hold to where it belongs.
  virtual void PostEdits() {}
  /// As PostEdits, and no editor is open any more.
  virtual void EndEdits() {}
  /// Goes to a place that belongs to the page and the student on show.
  virtual void ShowPlace(const TProjectPlace& /*place*/) {}
  virtual void Fit() {}
  virtual void UpdateCount() {}
  /// Sets the state of the commands of its own.
  virtual void UpdateCommands() {}
  /// It shows courses: what the main window offers for them is meant for it.
  virtual bool ShowsCourses() const { return false; }
  /// It has lookups of grades.
  virtual bool OffersGrades() const { return true; }
  /// The types of grades that its lookups offer for a student of that class; none given means all.
  virtual std::vector<TGradeTypes> GradeTypes(const TClass&) const { return {}; }
};

/// "Leistungen": the courses of the student.
class TAchievementSheet final : public TStudentsViewPage {
 public:
  TAchievementSheet(TGridPaneUi& ui, TLookupTables& lookups);

  void ShowStudent(TStudent* student, const TClass* schoolClass) override;
  void PostEdits() override { FPane.PostEdit(); }
  void EndEdits() override { FPane.EndEdit(); }
  void ShowPlace(const TProjectPlace& place) override { FPane.ShowPlace(*place.Course, place.Key); }
  void Fit() override { FPane.Fit(); }
  void UpdateCount() override { FPane.UpdateCount(); }
  bool ShowsCourses() const override { return true; }
  std::vector<TGradeTypes> GradeTypes(const TClass& schoolClass) const override;
  TAchievementsPane& Pane() { return FPane; }

 private:
  TAchievementsPane FPane;
};
