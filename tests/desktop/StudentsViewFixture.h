#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <QToolButton>
#include <set>

#include "DesktopGrid.h"
#include "DesktopMainWindow.h"
#include "DesktopStudentsView.h"
#include "FakeViews.h"
#include "SampleProjectTest.h"
#include "TypedText.h"
#include "uProjectLookups.h"

enum { Kurs, Note1 = 8, Note2 = 9, Beurteilung = 15 };
enum { Klasse = 1, Nachname = 3 };

/// The students view on its real screen. Every student has the subjects 1 to 5, each one beginning with another; the
/// second one has no subject 3.
class StudentsViewTest : public SampleProjectTest {
 protected:
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FLookups.AfterLoad(*FProject);
    FLookups.SetOpen(FProject.get());
    FFrame.EditAssessment = [this](const std::string&, const std::string&) { return FAssessment; };
    FFrame.ExportGrid = [](TVantrelGrid&, const std::string&) {};
    for (const char* name : {"Note1", "Note2", "Beurteilung"}) {
      auto* column = FProject->Options().Columns().Find(name);
      if (column == nullptr) column = FProject->Options().Columns().AddColumn(name, name, true, true, true, 0);
      column->Visible = column->Editable = true;
    }
    for (int student = 0; student < FProject->Students().Count(); ++student) {
      const auto courses = FProject->CoursesByStudent(Student(student).TessaronId.Value);
      for (int i = 0; i < courses->Count(); ++i) courses->GetItem(i)->SubjectId.SetAsInt((i + student) % 5 + 1);
      if (student != 1) continue;
      for (int i = 0; i < courses->Count(); ++i)
        if (courses->GetItem(i)->SubjectId.AsInt() == 3) courses->GetItem(i)->SubjectId.SetAsInt(9);
    }
    FWindow.resize(1366, 768);
    FWindow.show();
  }
  void TearDown() override {
    FView.reset();
    EXPECT_EQ(StudentsView, nullptr);
    SampleProjectTest::TearDown();
  }

  TVantrelCommand& Command() { return FCommands.Add({}); }
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
  TStudent& Student(int index) { return *FProject->Students().GetItem(index); }
  void PutIntoClass(std::initializer_list<int> students, int classId) {
    for (const int student : students) Student(student).ClassId.SetAsInt(classId);
  }
  void Filter(const TVariant& classId) {
    List().ClearFilter();
    List().AddFilter(Klasse, classId, "Klasse: 9a");
    List().SetFilterActive(true);
  }
  std::string Title() { return FUi->TitleLabel().Value().AsText(); }
  std::vector<bool> GotoStates() {
    return {FFrame.GotoFirstCommand.Enabled(), FFrame.GotoPrevCommand.Enabled(), FFrame.GotoNextCommand.Enabled(),
            FFrame.GotoLastCommand.Enabled()};
  }
  TCourse& Course(int row) {
    return *FProject->CoursesByStudent(List().Value(List().FocusedRecord(), 0))->GetItem(row);
  }
  std::string FirstToken() { return FLookups.OfOpen().Grades.ValueAt(0, 1).AsText(); }
  std::vector<std::int32_t> OfferedTypes() {
    std::set<std::int32_t> types;
    for (int i = 0; i < FLookups.OfOpen().Grades.RecordCount(); ++i)
      types.insert(FLookups.OfOpen().Grades.ValueAt(i, 4).AsInteger());
    return {types.begin(), types.end()};
  }
  std::vector<std::string> ShownIds() {
    std::vector<std::string> ids;
    for (const int ordinal : Grid().ShownColumns()) ids.push_back(Grid().Columns()[ordinal].Id);
    return ids;
  }
  void Turn(TStudentsPage page) {
    FUi->SetPageVisible(page, true);
    FUi->SetActivePage(page);
    FUi->OnPageChanged();
  }
  int Subject() { return Course(Grid().FocusedRecord()).SubjectId.AsInt(); }
  QToolButton* LiftButton() {
    for (auto* button : FWindow.findChildren<QToolButton*>())
      if (button->accessibleName() == "Filter aufheben" && button->isVisible()) return button;
    return nullptr;
  }

  FakeBoxes FBoxes;
  FakeSettings FSettings;
  TVantrelCommands FCommands;
  std::optional<std::string> FAssessment;
  TProjectLookups FLookups;
  TViewFrame FFrame{.Storage = FSettings,
                    .ProgramVersion = "10.2",
                    .GotoFirstCommand = Command(),
                    .GotoPrevCommand = Command(),
                    .GotoNextCommand = Command(),
                    .GotoLastCommand = Command(),
                    .EditZeugnisbeurteilungenCommand = Command(),
                    .ExportToExcelCommand = Command(),
                    .Lookups = [this]() -> TLookupTables& { return FLookups.OfOpen(); }};
  TDesktopMainWindow FWindow;
  TDesktopStudentsView* FUi = nullptr;
  TVantrelPtr<TStudentsView> FView;
};
