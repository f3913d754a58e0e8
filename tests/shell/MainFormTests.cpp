#include "Collected.h"
#include "MainFormFixture.h"
#include "uOptions.h"

namespace {

using enum TMyTessaronViews;

TEST_F(MainFormTest, StartsEmptyOrWithTheFileOfTheCommandLine) {
  Start({FFolder / "gone.kvrx"});
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
  EXPECT_EQ(FWindow.Status, "Keine Projektdatei geladen.");
  EXPECT_NE(WelcomeView, nullptr);
  auto& commands = FForm->Commands();
  for (const auto* command : {&commands.SaveFileCommand, &commands.SaveFileAsCommand, &commands.StudentsViewCommand,
                              &commands.SubjectsViewCommand, &commands.ClassesViewCommand})
    EXPECT_FALSE(command->Enabled());
  commands.StudentsViewCommand.Execute();
  EXPECT_EQ(StudentsView, nullptr);
  EXPECT_EQ(FDialogs.Splash.find("Version "), 0U);
  FDialogs.FireTimers();
  EXPECT_EQ(FDialogs.Splash, "");

  Start({FFolder / "small.kvr7", FFolder / "empty.kvrx"});
  EXPECT_EQ(FWindow.Status, FFolder / "small.kvr7");
  EXPECT_EQ(FakeWelcomeUi::Last->Texts[TWelcomeText::StudentsText].Text(), "Anzahl der Schüler: 12");
  EXPECT_THAT(FWindow.Recent, IsEmpty());
  EXPECT_TRUE(FForm->Commands().StudentsViewCommand.Enabled());
}

TEST_F(MainFormTest, CommandsStandOnTheRibbonWithTheirKeys) {
  Start();
  EXPECT_EQ(FForm->Commands().OpenFileCommand.Hint(), "Öffnen");
  EXPECT_EQ(FForm->Commands().CloseApplicationCommand.Info().Shortcut, "Ctrl+Alt+F4");
  EXPECT_TRUE(FForm->Commands().AlleNichtEditierbar.Checked());
  EXPECT_TRUE(FForm->Commands().BatchCertificateDataCommand.Enabled());
  FForm->Commands().BatchCertificateDataCommand.Execute();
  EXPECT_EQ(FBatchDialogs, 0) << "nothing is open";
  ASSERT_EQ(FWindow.Ribbon.Tabs.size(), 2U);
  EXPECT_THAT(Collected(FWindow.Ribbon.Tabs[0].Groups, &TRibbonGroup::Caption),
              ElementsAre("Ansichten", "Navigation", "Beurteilungsart", "Extras"));
  FForm->Commands().VersionCommand.Execute();
  EXPECT_EQ(FDialogs.About.Product, "MyTESSARON");
  EXPECT_EQ(FDialogs.About.Version.back(), ' ');
  Open("small.kvrx");
  FForm->Commands().BatchCertificateDataCommand.Execute();
  EXPECT_EQ(FBatchDialogs, 1);
}

TEST_F(MainFormTest, AnOpenLandsOnTheWelcomeViewAndEntersTheRecentList) {
  Start();
  Open("small.kvrx");
  EXPECT_EQ(FDialogs.Last.FilterIndex, 3);
  EXPECT_EQ(FWindow.Status, FFolder / "small.kvrx");
  FForm->Commands().StudentsViewCommand.Execute();
  auto* view = StudentsView;
  FForm->Commands().StudentsViewCommand.Execute();
  EXPECT_EQ(StudentsView, view);
  EXPECT_TRUE(FWindow.Groups["NavigationBar"]);
  Open(nullptr);
  EXPECT_EQ(StudentsView, view);
  EXPECT_EQ(FDialogs.Last.InitialDir, FFolder.Path());
  Open("empty.kvrx");
  EXPECT_EQ(StudentsView, nullptr);
  EXPECT_FALSE(FWindow.Groups["NavigationBar"]);
  EXPECT_EQ(FWindow.Tab, "StartRibbonTab");
  Open("small.kvrx");
  EXPECT_THAT(RecentNames(), ElementsAre("small.kvrx", "empty.kvrx"));
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
}

TEST_F(MainFormTest, AVanishedRecentFileIsToldAndLeavesTheList) {
  Start();
  for (const char* name : {"small.kvrx", "small.kvr7", "empty.kvrx"}) Open(name);
  for (const char* name : {"small.kvrx", "small.kvr7"}) {
    std::filesystem::remove(FFolder / name);
    FWindow.OnRecentClick(0);
    EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("Die angegebene MyTESSARON-Datei konnte nicht gefunden werden."));
    EXPECT_THAT(FBoxes.Texts.back(), HasSubstr(name));
  }
  EXPECT_THAT(RecentNames(), ElementsAre("empty.kvrx"));
  FWindow.OnRecentClick(7);
  EXPECT_EQ(FBoxes.Texts.size(), 2U);
}

TEST_F(MainFormTest, TheEmptyStartListsTheRecentFilesAndADroppedFileOpensLikeThem) {
  Start();
  EXPECT_TRUE(FakeWelcomeUi::Last->Start);
  for (const char* name : {"small.kvrx", "small.kvr7"}) Open(name);
  EXPECT_FALSE(FakeWelcomeUi::Last->Start);
  Start();
  const auto choose = FakeWelcomeUi::Last->OnRecentClick;
  ASSERT_EQ(FakeWelcomeUi::Last->Recent.size(), 2U);
  std::filesystem::remove(FFolder / "small.kvrx");
  choose(0);
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("konnte nicht gefunden werden.")));
  ASSERT_EQ(FakeWelcomeUi::Last->Recent.size(), 1U);
  choose(0);
  EXPECT_EQ(FWindow.Status, FFolder / "small.kvr7");

  TypeAssessment("neu");
  FWindow.OnFileDropped(FFolder / "empty.kvrx");
  EXPECT_EQ(FBoxes.Texts.back(), "Möchten Sie die aktuelle MyTESSARON-Datei speichern?");
  EXPECT_EQ(FWindow.Status, FFolder / "empty.kvrx");
  FWindow.OnFileDropped(FFolder / "gone.kvrx");
  EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("konnte nicht gefunden werden."));
  EXPECT_EQ(FWindow.Status, FFolder / "empty.kvrx");
  EXPECT_THAT(RecentNames(), ElementsAre("small.kvr7"));
}

TEST_F(MainFormTest, TellsWhatIsWrongInAFileOnceItIsOpen) {
  const auto whole = ReadFileText(FFolder / "small.kvr7");
  const auto xml = ReadFileText(std::string(FIXTURES) + "/small.kvrxr");
  const auto inOld = [](std::string text) { return text.replace(text.find("Courses>"), 8, "Kurse>  "); };
  const auto spoilt = [this](auto spoil) {
    auto project = ProjectIn(FFolder / "small.kvr7");
    spoil(*project);
    TVantrelMemoryStream stream;
    project->SaveToBinStream(stream);
    return std::string(stream.Bytes().begin(), stream.Bytes().end());
  };
  const auto birthday = spoilt([](auto& project) {
    project.Students().GetItem(3)->Nachname = std::string(300, 'x');
    project.Students().GetItem(3)->Geburtsdatum.SetAsDateTime(1e300);
  });
  const auto classless = spoilt([](auto& project) {
    for (int i = 0; i < 12; ++i) project.Students().GetItem(i)->ClassId.SetAsInt(999);
  });
  const std::tuple<const char*, std::string, std::vector<const char*>, bool> cases[] = {
      {"a.kvr7", whole, {}, false},
      {"a.kvr7", whole + "xyz", {"In der Datei „a.kvr7“", "3 Byte", "„.beschaedigt“"}, true},
      {"a.kvr7", whole.substr(0, whole.size() - 99), {"Die Datei ist beschädigt: Es konnten nicht alle Daten"}, true},
      {"Klasse 5a 12:30.kvr7",
       birthday,
       {"In der Datei „Klasse 5a 12:30.kvr7“", "xxx...\r\n\r\nDie Datei ist geöffnet."},
       false},
      {"a.kvr7", classless, {": Die Klasse Nr. 999 steht nicht in der Datei.\r\nund 2 weitere"}, false},
      {"a.kvrxr", inOld(inOld(xml)), {}, true},
  };
  for (const auto& [name, bytes, told, keeps] : cases) {
    WriteFileText(FFolder / name, bytes);
    FBoxes.Texts.clear();
    Start();
    Open(name);
    EXPECT_EQ(FWindow.Status, FFolder / name);
    EXPECT_EQ(FBoxes.Texts.size(), told.empty() ? 0U : 1U);
    for (const auto* text : told) EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr(text)));
    FForm->SaveFile();
    const auto beside = FFolder / name + ".beschaedigt";
    EXPECT_EQ(std::filesystem::exists(beside) ? ReadFileText(beside) : "", keeps ? bytes : "");
    std::filesystem::remove(beside);
    FForm.reset();
  }
  WriteFileText(FFolder / "a.kvr7", ReadFileText(std::string(FIXTURES) + "/protected.kvr7") + "xyz");
  FBoxes.Texts.clear();
  Start();
  Open("a.kvr7");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("Passwort ist nicht korrekt")));
  Open("small.kvrx");
  CurrentProject->SetModified(true);
  WriteFileText(FFolder / "a.kvr7", std::string(5000, '\0'));
  Open("a.kvr7");
  EXPECT_THAT(FBoxes.Texts.back(), HasSubstr("bleibt mit ihren nicht gespeicherten Eingaben"));
  EXPECT_EQ(CurrentProject->FileName(), FFolder / "small.kvrx");
}

TEST_F(MainFormTest, TheAnswerOnOpeningChangesNothing) {
  Start();
  Open("small.kvrx");
  FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
  TypeAssessment("neu");
  EXPECT_FALSE(CurrentProject->Modified());
  Open("empty.kvrx");
  EXPECT_THAT(FBoxes.Texts, ElementsAre("Möchten Sie die aktuelle MyTESSARON-Datei speichern?"));
  EXPECT_NE(AssessmentIn(FFolder / "small.kvrx"), "neu");
}

TEST_F(MainFormTest, ClosingPostsAsksAndSavesOnYes) {
  for (const auto answer : {TVantrelMsgBoxResult::mbrNo, TVantrelMsgBoxResult::mbrYes}) {
    Start();
    Open("small.kvrx");
    TypeAssessment("zuletzt");
    FBoxes.Texts.clear();
    FBoxes.Answer = answer;
    FForm->Commands().CloseApplicationCommand.Execute();
    EXPECT_THAT(FBoxes.Texts, ElementsAre("Möchten Sie die aktuelle MyTESSARON-Datei speichern?"));
    FForm.reset();
    EXPECT_EQ(AssessmentIn(FFolder / "small.kvrx") == "zuletzt", answer == TVantrelMsgBoxResult::mbrYes);
  }
}

TEST_F(MainFormTest, SettingsThatCannotBeSavedAreToldOnceAtTheEnd) {
  WriteFileText(FFolder / "voll", "");
  FSettings.SetLocation(TVantrelStorageLocation::cslXML);
  FSettings.SetCustomXMLFile(FFolder / "voll/Registry.pref");
  const auto options = CreateVantrel<TMyTessaronOptions>(FFolder / "voll/MyTessaron.opt", FFolder / "voll");
  Start();
  ASSERT_THAT(FBoxes.Texts, IsEmpty());
  FForm.reset();
  EXPECT_THAT(FBoxes.Texts, ElementsAre(AllOf(HasSubstr("Die Optionen konnten nicht gespeichert werden"),
                                              HasSubstr(FFolder / "voll/MyTessaron.opt"),
                                              HasSubstr("Die Einstellungen konnten nicht gespeichert werden"),
                                              HasSubstr(FFolder / "voll/Registry.pref"))));
}

TEST_F(MainFormTest, ACommandGoesToTheViewOnShow) {
  struct TProbe : TBaseForm {
    explicit TProbe(TViewFrame& frame) : TBaseForm(frame.Storage, "Probe") {}
    TFormUi& Ui() override { return FUi; }
    void UpdateFilter(const TVariant& gradeType, const TVariant& classValue) override {
      Told += gradeType.AsText() + (classValue.IsNull() ? " " : "!");
    }
    void GotoNext() override { Told += "next "; }
    struct : TFormUi {
      void SetVisible(bool) override {}
    } FUi;
    std::string Told;
  };
  TProbe* probe = nullptr;
  FViews[viewSubjects] = [&](TViewFrame& frame) {
    return VantrelFormClass<TProbe>([&] {
      auto form = CreateVantrel<TProbe>(frame);
      probe = form.get();
      return form;
    });
  };
  Start({FFolder / "small.kvrx"});
  auto& commands = FForm->Commands();
  commands.Noten.Execute();
  commands.SubjectsViewCommand.Execute();
  ASSERT_NE(probe, nullptr);
  EXPECT_TRUE(FWindow.Groups["BeurteilungBar"]);
  for (auto* command : {&commands.Punkte, &commands.Beurteilungstexte, &commands.AlleNichtEditierbar, &commands.Noten,
                        &commands.GotoNextCommand, &commands.GotoPrevCommand, &commands.ExportToExcelCommand})
    command->Execute();
  EXPECT_EQ(probe->Told, "1 2 -1 0 next ");
}

TEST_F(MainFormTest, HoldsItsFileAndNoOther) {
  Start();
  std::string former;
  for (const char* name : {"small.kvrx", "small.kvr7", "neu.kvrx", "neu.kvrxr", "neu.kvr7"}) {
    std::string_view(name).starts_with("neu") ? SaveAs(FFolder / name) : Open(name);
    EXPECT_EQ(OpeningErrorOf(FFolder / name), 32u);
    EXPECT_EQ(former.empty() ? 0u : OpeningErrorOf(FFolder / former), 0u) << former;
    former = name;
  }
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
  Open("neu.kvr7");
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("Diese Datei ist hier bereits geöffnet.")));
  EXPECT_EQ(CurrentProject->FileName(), FFolder / "neu.kvr7");
}

TEST_F(MainFormTest, AViewThatFailsIsNoneAndCanBeShownLater) {
  Start();
  Open("small.kvrx");
  for (const bool fails : {true, false}) {
    FFailing = fails;
    FForm->Commands().StudentsViewCommand.Execute();
    FForm->Commands().GotoNextCommand.Execute();
    EXPECT_EQ(StudentsView == nullptr, fails);
  }
  EXPECT_NE(CurrentProject, nullptr);
}

struct TPlainUi : TFormUi {
  void SetVisible(bool visible) override { Visible = visible; }
  bool Visible = false;
};
struct TPlainForm : TBaseForm {
  explicit TPlainForm(TVantrelStorage& storage) : TBaseForm(storage, "Plain") {}
  TFormUi& Ui() override { return FUi; }
  bool CloseQuery() override { return Closes; }
  bool Closes = true;
  TPlainUi FUi;
};
struct TOtherForm : TPlainForm {
  using TPlainForm::TPlainForm;
};

TEST_F(MainFormTest, ContainerAsksCachesAndPosts) {
  TVantrelWaitCursor cursor(FDialogs);
  TVantrelFormContainer container(FDialogs, cursor);
  const auto plain = VantrelFormClass<TPlainForm>([&] { return CreateVantrel<TPlainForm>(FSettings); });
  const auto other = VantrelFormClass<TOtherForm>([&] { return CreateVantrel<TOtherForm>(FSettings); });

  container.CreateEmbeddedForm(other, false, true);
  auto* form = dynamic_cast<TOtherForm*>(container.EmbeddedForm());
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->FUi.Visible && form->IsInitialized());
  container.CreateEmbeddedForm(plain, false, true);
  EXPECT_EQ(container.EmbeddedForm(), form);

  container.ClearEmbeddedCache();
  container.SetEmbeddedCached(true);
  form->Closes = false;
  EXPECT_FALSE(container.FreeEmbeddedForm());
  form->Closes = true;
  EXPECT_TRUE(container.FreeEmbeddedForm());
  EXPECT_FALSE(form->FUi.Visible);
  container.CreateEmbeddedForm(plain, true, true);
  container.CreateEmbeddedForm(other, true, true);
  EXPECT_EQ(container.EmbeddedForm(), nullptr);
  FDialogs.FireTimers();
  EXPECT_EQ(container.EmbeddedForm(), form);
  EXPECT_EQ(container.ExtractEmbeddedForm().get(), form);
  EXPECT_EQ(container.EmbeddedForm(), nullptr);
}

}  // namespace
