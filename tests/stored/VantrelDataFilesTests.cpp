#include "MsgBoxes.h"
#include "TestDocument.h"
#include "Testing.h"

namespace {

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;
constexpr std::string_view Xml =
    "<Storage><Items><Items><Item Class=\"TTestItem\" "
    "ID=\"{AAAAAAAA-0000-0000-0000-000000000000}\"/></Items></Items></Storage>";
constexpr std::string_view Damaged = "<Storage><Items/></Storage>";
constexpr auto dsfXml = TFormat::dsfXml;

struct DataFilesTest : testing::Test {
  void SetUp() override {
    TTestDocument::RegisterClasses();
    WriteFileText(FName, Xml);
  }

  TempFolder FFolder;
  const std::string FName = FFolder / "a.xml";
  TVantrelPtr<TTestDocument> FDocument = CreateVantrel<TTestDocument>();
};

TEST_F(DataFilesTest, EachEntryPointHoldsTheFileInItsWay) {
  const std::tuple<std::function<void(TTestDocument&)>, bool, bool, bool> cases[] = {
      {[&](auto& document) { document.LoadFromFile(FName, dsfXml); }, false, true, true},
      {[&](auto& document) { document.OpenFile(FName, dsfXml); }, true, true, false},
      {[&](auto& document) { document.OpenFileReadOnly(FName, dsfXml); }, true, true, true},
      {[&](auto& document) { document.OpenFileExclusive(FName, dsfXml); }, true, false, false},
      {[&](auto& document) { document.SaveToFile(FName, dsfXml); }, false, true, true},
      {[&](auto& document) { document.StoreFile(FName, dsfXml); }, true, true, false},
  };
  int at = 0;
  for (const auto& [open, held, othersRead, othersWrite] : cases) {
    SCOPED_TRACE(at++);
    auto document = CreateVantrel<TTestDocument>();
    document->SetModifiedFlag(true);
    open(*document);
    EXPECT_EQ(document->FileName(), FName);
    EXPECT_FALSE(document->Modified());
    EXPECT_EQ(document->IsFileOpen(), held);
    EXPECT_EQ(OpeningErrorOf(FName, fomOpenRead), othersRead ? 0u : 32u);
    EXPECT_EQ(OpeningErrorOf(FName, fomOpenWrite), othersWrite ? 0u : 32u);
    document->CloseFile();
    EXPECT_EQ(OpeningErrorOf(FName), 0u);
  }
}

TEST_F(DataFilesTest, NothingHappensWithoutANameOrAFile) {
  FDocument->OpenFile(FName, dsfXml);
  FDocument->Log.clear();
  for (const std::string& name : {std::string(), FFolder / "fehlt.xml"}) {
    FDocument->OpenFile(name, dsfXml);
    FDocument->OpenFileReadOnly(name, dsfXml);
    FDocument->OpenFileExclusive(name, dsfXml);
    FDocument->LoadFromFile(name, dsfXml);
    EXPECT_TRUE(FDocument->TryLoadFromFile(name, dsfXml));
  }
  FDocument->SaveToFile("", dsfXml);
  FDocument->StoreFile("", dsfXml);
  EXPECT_EQ(std::tuple(FDocument->Log, FDocument->FileName()), std::tuple("", FName));
  EXPECT_TRUE(FDocument->IsFileOpen());
  EXPECT_EQ(FDocument->Items->Count(), 1);
  CreateVantrel<TTestDocument>()->StoreFile(dsfXml);
}

TEST_F(DataFilesTest, FallbackIsReadAsXml) {
  FDocument->Fallback = FName;
  const auto missing = FFolder / "fehlt.bin";
  FDocument->LoadFromFile(missing, TFormat::dsfBinary);
  EXPECT_EQ(std::tuple(FDocument->Items->Count(), FDocument->FileName()), std::tuple(1, missing));
  EXPECT_EQ(FDocument->Log, "BeforeOpen Clear4 AfterOpen ");
}

TEST_F(DataFilesTest, DamagedFileOpensInSilenceAndIsKeptAtTheFirstSave) {
  WriteFileText(FName, Damaged);
  FDocument->SetModifiedFlag(true);
  FDocument->OpenFileExclusive(FName, dsfXml);
  EXPECT_EQ(FDocument->Log, "BeforeOpen Clear4 AfterOpen ");
  EXPECT_EQ(FDocument->FileName(), FName);
  EXPECT_TRUE(!FDocument->IsFileOpen() && FDocument->Modified());
  EXPECT_TRUE(FDocument->LoadDamage()->Message.starts_with("Knoten /Storage/Items konnte nicht gelesen werden: "));
  EXPECT_EQ(FDocument->LoadDamage()->Place, "Zeile 1, /Storage/Items");
  WriteFileText(FName + ".beschaedigt", "frueher");
  for (int twice = 0; twice < 2; ++twice) FDocument->StoreFile(FName, dsfXml);
  EXPECT_EQ(ReadFileText(FName + ".beschaedigt2"), Damaged);
  EXPECT_EQ(ReadFileText(FName + ".beschaedigt"), "frueher");
  EXPECT_EQ(FFolder.FileCount(), 3u);
}

TEST_F(DataFilesTest, AGoodLoadForgetsTheDamageAndAForeignVersionIsKept) {
  WriteFileText(FName, Damaged);
  FDocument->OpenFileExclusive(FName, dsfXml);
  WriteFileText(FName, Xml);
  FDocument->OpenFileExclusive(FName, dsfXml);
  FDocument->StoreFile(FName, dsfXml);
  EXPECT_EQ(FFolder.FileCount(), 1u);

  WriteFileText(FFolder / "sync", "von anderswo");
  std::filesystem::rename(FFolder / "sync", FName);
  EXPECT_TRUE(FDocument->IsFileChanged());
  for (int twice = 0; twice < 2; ++twice) FDocument->StoreFile(FName, dsfXml);
  EXPECT_FALSE(FDocument->IsFileChanged());
  EXPECT_EQ(ReadFileText(FName + ".andere"), "von anderswo");
  EXPECT_EQ(OpeningErrorOf(FName), 32u);
  EXPECT_EQ(FFolder.FileCount(), 2u);
}

TEST_F(DataFilesTest, AFailedStoreKeepsNameAndHold) {
  FDocument->OpenFileExclusive(FName, dsfXml);
  EXPECT_THROW(FDocument->StoreFile("/dev/null/b.xml", dsfXml), EVantrelWin32Error);
  EXPECT_EQ(FDocument->FileName(), FName);
  EXPECT_EQ(OpeningErrorOf(FName), 32u);
}

TEST_F(DataFilesTest, ShortMemoryIsNoDamage) {
  FDocument->OnRead = [](auto&) { throw std::bad_alloc(); };
  FDocument->SetModifiedFlag(true);
  for (const auto open : {&TTestDocument::OpenFile, &TTestDocument::OpenFileExclusive, &TTestDocument::LoadFromFile}) {
    EXPECT_THROW((*FDocument.*open)(FName, dsfXml), EOutOfMemory);
    EXPECT_TRUE(!FDocument->LoadDamage().has_value() && !FDocument->IsFileOpen() && FDocument->Modified());
  }
  FDocument->StoreFile(FName, dsfXml);
  EXPECT_EQ(FFolder.FileCount(), 1u);
}

TEST_F(DataFilesTest, Saving) {
  const auto target = FFolder / "neu/tief/b.bin";
  std::string events;
  const auto listen = [](void* log, TVantrelDataStorage*) { static_cast<std::string*>(log)->append("SaveAs "); };
  FDocument->Observer().StorageSaveAs.Add(listen, &events);
  FDocument->AddItem("x");
  FDocument->SaveToFile(target, TFormat::dsfBinary);
  EXPECT_EQ(FDocument->Log, "BeforeStore AfterStore ");
  EXPECT_EQ(FDocument->StateInWrite, TVantrelDataStorageState::dssSaving);
  EXPECT_FALSE(FDocument->Modified());
  FDocument->StoreFile(target, TFormat::dsfBinary);
  FDocument->AddItem("y");
  FDocument->StoreFile(TFormat::dsfBinary);
  EXPECT_EQ(events, "SaveAs ");
  EXPECT_EQ(ReadFileText(target), TextOf(*FDocument, TFormat::dsfBinary));
  EXPECT_EQ(OpeningErrorOf(target, fomOpenWrite), 32u);
  EXPECT_EQ(OpeningErrorOf(target, fomOpenRead), 0u);

  FDocument->SetModifiedFlag(true);
  EXPECT_FALSE(FDocument->TrySaveToFile(FFolder / "anders.bin", TFormat::dsfBinary));
  EXPECT_EQ(FDocument->FileName(), target);
  EXPECT_TRUE(FDocument->Modified());
  FDocument->Log.clear();
  FDocument->NewFile();
  EXPECT_EQ(FDocument->Log, "BeforeNew Clear3 AfterNew ");
  EXPECT_EQ(FDocument->FileName(), "");
  EXPECT_FALSE(FDocument->Modified() || FDocument->IsFileOpen());
}

TEST_F(DataFilesTest, FileErrorsInWords) {
  FakeBoxes boxes;
  FDocument->SetFileName("x.xml");
  FDocument->ReportFileError(EVantrelException("Eigener Text"));
  EXPECT_EQ(boxes.Texts.back(), "Eigener Text");
  for (const auto& [code, text] : {std::pair(2u, "Die Datei \"x.xml\" existiert nicht."),
                                   {3u, "Der Pfad \"x.xml\" ist ungültig."},
                                   {5u, "Der Zugriff auf die Datei \"x.xml\" ist nicht möglich."}}) {
    FDocument->ReportFileError(EVantrelFileHandleError(code));
    EXPECT_TRUE(boxes.Texts.back().starts_with(text)) << boxes.Texts.back();
  }
}

}  // namespace
