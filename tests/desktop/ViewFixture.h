#pragma once

#include <QTest>
#include <QToolButton>
#include <set>

#include "DesktopGrid.h"
#include "DesktopMainWindow.h"
#include "FakeViews.h"
#include "SampleProjectTest.h"
#include "TypedText.h"
#include "uProjectLookups.h"

/// A view on its real screen, over the sample with Note1, Note2 and Beurteilung visible and editable.
struct ViewTest : SampleProjectTest {
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FLookups.AfterLoad(*FProject);
    FLookups.SetOpen(FProject.get());
    FFrame.EditAssessment = [this](const std::string&, const std::string&, const std::string& student) {
      FAssessedStudent = student;
      return FAssessment;
    };
    FFrame.ExportGrid = [](TVantrelGrid&, const std::string&) {};
    for (const char* name : {"Note1", "Note2", "Beurteilung"}) {
      auto* column = FProject->Options().Columns().Find(name);
      if (column == nullptr) column = FProject->Options().Columns().AddColumn(name, name, true, true, true, 0);
      column->Visible = column->Editable = true;
    }
    FWindow.resize(1366, 768);
    FWindow.show();
  }

  TVantrelCommand& Command() { return FCommands.Add({}); }
  TStudent& Student(int index) { return *FProject->Students().GetItem(index); }
  std::vector<bool> GotoStates() {
    return {FFrame.GotoFirstCommand.Enabled(), FFrame.GotoPrevCommand.Enabled(), FFrame.GotoNextCommand.Enabled(),
            FFrame.GotoLastCommand.Enabled()};
  }
  std::string FirstToken() { return FLookups.OfOpen().Grades.ValueAt(0, 1).AsText(); }
  std::vector<std::int32_t> OfferedTypes() {
    std::set<std::int32_t> types;
    for (int i = 0; i < FLookups.OfOpen().Grades.RecordCount(); ++i)
      types.insert(FLookups.OfOpen().Grades.ValueAt(i, 4).AsInteger());
    return {types.begin(), types.end()};
  }
  QToolButton* LiftButton() {
    for (auto* button : FWindow.findChildren<QToolButton*>())
      if (button->accessibleName() == "Filter aufheben" && button->isVisible()) return button;
    return nullptr;
  }

  FakeBoxes FBoxes;
  FakeSettings FSettings;
  TVantrelCommands FCommands;
  std::optional<std::string> FAssessment;
  std::string FAssessedStudent;
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
};
