#pragma once

#include "Collected.h"
#include "DesktopStudentsView.h"
#include "ViewFixture.h"

enum { Kurs, Note1 = 8, Note2 = 9, Beurteilung = 15 };
enum { Klasse = 1, Nachname = 3 };

/// The students view on its real screen. Every student has the subjects 1 to 5, each one beginning with another; the
/// second one has no subject 3.
struct StudentsViewTest : ViewTest {
  void SetUp() override {
    ViewTest::SetUp();
    for (int student = 0; student < FProject->Students().Count(); ++student) {
      const auto courses = FProject->CoursesByStudent(Student(student).TessaronId.Value);
      for (int i = 0; i < courses->Count(); ++i) courses->GetItem(i)->SubjectId.SetAsInt((i + student) % 5 + 1);
      if (student != 1) continue;
      for (int i = 0; i < courses->Count(); ++i)
        if (courses->GetItem(i)->SubjectId.AsInt() == 3) courses->GetItem(i)->SubjectId.SetAsInt(9);
    }
  }
  void TearDown() override {
    FView.reset();
    EXPECT_EQ(StudentsView, nullptr);
    SampleProjectTest::TearDown();
  }

  void Open() {
    FView.reset();
    auto ui = std::make_unique<TDesktopStudentsView>(FWindow);
    FUi = ui.get();
    FView = CreateVantrel<TStudentsView>(FFrame, std::move(ui));
    FView->Show();
    QTest::qWait(1);
    List().SetFocus();
  }
  TDesktopGrid& List() { return dynamic_cast<TDesktopGrid&>(FUi->Students().Grid()); }
  TDesktopGrid& Grid() { return dynamic_cast<TDesktopGrid&>(FUi->Achievements().Grid()); }
  void PutIntoClass(std::initializer_list<int> students, int classId) {
    for (const int student : students) Student(student).ClassId.SetAsInt(classId);
  }
  void Filter(const TVariant& classId) {
    List().LiftFilter();
    List().FilterByUser(Klasse, classId, "Klasse: 9a");
  }
  std::string Title() { return FUi->TitleLabel().Value().AsText(); }
  TCourse& Course(int row) {
    return *FProject->CoursesByStudent(List().Value(List().FocusedRecord(), 0))->GetItem(row);
  }
  std::vector<std::string> ShownIds() {
    return Collected(Grid().ShownColumns(), [this](int ordinal) { return Grid().Columns()[ordinal].Id; });
  }
  void Turn(TStudentsPage page) {
    FUi->SetPageVisible(page, true);
    FUi->SetActivePage(page);
    FUi->OnPageChanged();
  }
  std::pair<int, int> Focus() { return {Grid().FocusedRecord(), Grid().FocusedColumn()}; }
  int Subject() { return Course(Grid().FocusedRecord()).SubjectId.AsInt(); }
  TDesktopStudentsView* FUi = nullptr;
  TVantrelPtr<TStudentsView> FView;
};
