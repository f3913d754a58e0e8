#include "FakeViews.h"
#include "SampleProjectTest.h"
#include "uCXUtils.h"

namespace {

using enum TWelcomeText;

struct WelcomeViewTest : SampleProjectTest {
  void Open() {
    FView.reset();
    FView = CreateVantrel<TWelcomeView>(FFrame, std::make_unique<FakeWelcomeUi>());
  }
  std::string Text(TWelcomeText text) { return FakeWelcomeUi::Last->Texts[text].Text(); }

  FakeSettings FSettings;
  TVantrelCommands FCommands;
  TVantrelCommand& FCommand = FCommands.Add({});
  TViewFrame FFrame{.Storage = FSettings,
                    .ProgramVersion = "10.2.0",
                    .GotoFirstCommand = FCommand,
                    .GotoPrevCommand = FCommand,
                    .GotoNextCommand = FCommand,
                    .GotoLastCommand = FCommand,
                    .EditZeugnisbeurteilungenCommand = FCommand,
                    .ExportToExcelCommand = FCommand};
  TVantrelPtr<TWelcomeView> FView;
};

TEST_F(WelcomeViewTest, TellsFileAndMissingGrades) {
  CurrentProject = FProject.get();
  ShowOnly({"Note1", "Endnote1", "Endnote2"});
  for (int i = 0; i < 60; ++i) {
    FProject->Courses().GetItem(i)->Note1Id.SetAsInt(i == 0 ? -1 : 1);
    FProject->Courses().GetItem(i)->Endnote1Id.SetAsInt(i < 2 ? -1 : 1);
    FProject->Courses().GetItem(i)->Endnote2Id.SetAsInt(1);
  }
  Open();
  EXPECT_EQ(Text(FilenameText),
            "Folgende Noten sind noch einzugeben:\n  Noten 1-5:         1\n  Endnoten:          2\n"
            "  Endnoten (Gesamt): 2");
  EXPECT_EQ(Text(StudentsText), "Anzahl der Schüler: 12");
  EXPECT_EQ(Text(PeriodText).substr(Text(PeriodText).size() - 7), "ID = -1");
  EXPECT_EQ(Text(FilepathText), std::string("Verzeichnis: ") + FIXTURES);
  EXPECT_EQ(Text(ChangedOnText).substr(10), " " + Text(CreatedOnText).substr(10));
  EXPECT_EQ(Text(CreatedOnText).size(), std::string("Erstellt: dd.mm.yyyy hh:nn:ss").size());

  FProject->Courses().GetItem(0)->Note1Id.SetAsInt(5);
  FProject->Courses().GetItem(0)->Endnote1Id.SetAsInt(5);
  Open();
  EXPECT_NE(Text(FilenameText).find("Noten 1-5:         0\n  Endnoten:          1"), std::string::npos);
  FProject->Courses().GetItem(1)->Endnote1Id.SetAsInt(5);
  Open();
  EXPECT_EQ(Text(FilenameText), "Keine Noten einzugeben");

  FProject->Courses().GetItem(1)->Endnote2Id.SetNull();
  ShowOnly({"Endnote2"});
  Open();
  EXPECT_EQ(Text(FilenameText), "Folgende Noten sind noch einzugeben:");
}

}  // namespace
