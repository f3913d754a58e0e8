#pragma once

#include <QTimer>

#include "DesktopBatchDialog.h"
#include "DesktopMainWindow.h"
#include "DesktopStudentsView.h"
#include "FakeShell.h"
#include "SampleProjectTest.h"
#include "TypedText.h"
#include "fMain.h"
#include "uTessaronSession.h"

/// The main window without a screen, and a folder of project files.
struct MainFormTest : testing::Test {
  void SetUp() override {
    TMyTessaronProject::RegisterClasses();
    FSession->FModule = TApplicationKind::akMyTessaron;
    Session = FSession.get();
    for (const char* name : {"small.kvrx", "small.kvr7", "empty.kvrx", "protected.kvrx"})
      std::filesystem::copy_file(std::filesystem::path(FIXTURES) / name, FFolder / name);
    WriteFileText(FFolder / "damaged.kvrx", "no project");
    WriteFileText(FFolder / "foreign.txt", "no project");
  }
  void TearDown() override {
    FForm.reset();
    Session = nullptr;
    EXPECT_EQ(CurrentProject, nullptr);
    EXPECT_EQ(LookupModule, nullptr);
    EXPECT_EQ(FDialogs.Splash, "");
  }

  void Start(std::vector<std::string> arguments = {}) {
    FForm.reset();
    FForm = CreateVantrel<TMainForm>(TMainFormPorts{.Window = FWindow,
                                                    .Dialogs = FDialogs,
                                                    .Storage = FSettings,
                                                    .Views = FViews,
                                                    .Screens = FScreens,
                                                    .RecoveryFolder = FRecoveryFolder},
                                     std::move(arguments));
    FScreen.show();
    FWindow.OnShow();
  }
  void Open(const char* name) {
    FDialogs.FileName = name == nullptr ? std::string() : FFolder / name;
    FForm->Commands().OpenFileCommand.Execute();
    EXPECT_FALSE(FDialogs.Waiting);
  }
  void SaveAs(const std::string& name) {
    FDialogs.FileName = name;
    FForm->Commands().SaveFileAsCommand.Execute();
  }
  /// Types into the first course of the students view; the editor stays open.
  void TypeAssessment(const char* text) {
    const auto& columns = CurrentProject->Options().Columns();
    for (int i = 0; i < columns.Count(); ++i) {
      auto& column = *columns.GetItem(i);
      column.Visible = column.Editable = column.Fieldname == "Beurteilung";
    }
    FForm->ShowView(TMyTessaronViews::viewStudents, false);
    ASSERT_TRUE(TypeInto(Courses(), 15, text));
  }
  TDesktopGrid& Courses() { return dynamic_cast<TDesktopGrid&>(FStudents->Achievements().Grid()); }
  std::vector<std::string> RecentNames() {
    std::vector<std::string> names;
    for (const auto& item : FWindow.Recent) names.push_back(item.DisplayText);
    return names;
  }
  static std::string AssessmentIn(const std::string& path) {
    auto project = ProjectIn(path);
    return project->CoursesByStudent(project->Students().GetItem(0)->TessaronId.Value)->GetItem(0)->Beurteilung;
  }

  std::unique_ptr<TStudentsViewUi> StudentsUi() {
    if (FFailing) throw EVantrelException("no screen");
    auto ui = std::make_unique<TDesktopStudentsView>(FScreen);
    FStudents = ui.get();
    return ui;
  }

  TempFolder FFolder;
  TVantrelPtr<TTessaronSession> FSession = CreateVantrel<TTessaronSession>();
  FakeBoxes FBoxes;
  FakeSettings FSettings;
  FakeDialogs FDialogs;
  FakeWindow FWindow;
  /// Where the students view stands.
  TDesktopMainWindow FScreen;
  TDesktopStudentsView* FStudents = nullptr;
  bool FFailing = false;
  std::string FRecoveryFolder;
  TViewClasses FViews{
      {TMyTessaronViews::viewWelcome, ViewClass<TWelcomeView>([] { return std::make_unique<FakeWelcomeUi>(); })},
      {TMyTessaronViews::viewStudents, ViewClass<TStudentsView>([this] { return StudentsUi(); })}};
  int FBatchDialogs = 0;
  /// The batch dialog closes at once.
  TMainDialogs FScreens{.BatchCertificateData = [this] {
    ++FBatchDialogs;
    auto dialog = std::make_unique<TDesktopBatchDialog>();
    QTimer::singleShot(0, dialog.get(), &QDialog::reject);
    return dialog;
  }};
  TVantrelPtr<TMainForm> FForm;
};
