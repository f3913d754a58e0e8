#include "InChild.h"
#include "MsgBoxes.h"
#include "SampleProjectTest.h"

namespace {

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

struct ProjectFilesTest : testing::Test {
  void SetUp() override {
    TMyTessaronProject::RegisterClasses();
    Renew();
  }
  void Renew() {
    FProject = CreateVantrel<TMyTessaronProject>();
    FProject->OnLoadFile = [this](auto& project, auto firedOn) {
      EXPECT_EQ(&project, FProject.get());
      FEvents += firedOn == TFileLoadTimeType::lfBefore ? 'B' : 'A';
    };
    FProject->OnModified = [this] { FEvents += 'M'; };
    FEvents.clear();
    FBoxes.Texts.clear();
  }
  std::string Fixture(std::string_view extension) {
    return ReadFileText(std::string(FIXTURES) + "/small." + std::string(extension == "kvr" ? "kvr7" : extension));
  }
  std::string Place(std::string_view extension, std::string_view bytes) {
    const auto name = FFolder / ("a." + std::string(extension));
    WriteFileText(name, bytes);
    return name;
  }
  std::uint32_t Load(const std::string& name) {
    return FileErrorOf([&] { FProject->LoadFile(name); });
  }

  TempFolder FFolder;
  FakeBoxes FBoxes;
  std::string FEvents;
  TVantrelPtr<TMyTessaronProject> FProject;
};

/// What LoadFile does with a file in each state: error code, events (before, after, modified), and what stands then.
TEST_F(ProjectFilesTest, LoadFile) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"good", "0 BAM named held 12", "0 BAM named held 12"},
      {"missing", "0 M 0", "2 BA 0"},
      {"locked", "32 B named held 0", "32 BA held 0"},
      {"foreign", "0 BAM named damage 0", "0 BAM box damage 0"},
      {"cut", "0 BAM named damage 12", "0 BAM box damage 0"}};
  for (const auto& [state, heldKinds, enciphered] : cases) {
    for (const std::string extension : {"kvr", "kvr7", "kvrxr", "kvrx"}) {
      SCOPED_TRACE(state + extension);
      const bool cut = std::string_view(state) == "cut";
      if (cut && extension == "kvrxr") continue;
      const bool foreign = std::string_view(state) == "foreign";
      const auto bytes = Fixture(extension);
      const auto name = Place(extension, foreign ? "fremd" : bytes.substr(0, bytes.size() - (cut ? 7000 : 0)));
      std::unique_ptr<TVantrelFileStream> lock;
      if (std::string_view(state) == "locked")
        lock = std::make_unique<TVantrelFileStream>(name, famShareExclusive, fomOpenRead);
      if (std::string_view(state) == "missing") std::filesystem::remove(name);
      Renew();
      const auto code = Load(name);
      EXPECT_EQ(fmt::format("{} {}{}{}{}{} {}", code, FEvents, FProject->FileName() == name ? " named" : "",
                            OpeningErrorOf(name) == 32 ? " held" : "", FBoxes.Texts.empty() ? "" : " box",
                            FProject->LoadDamage() ? " damage" : "", FProject->Students().Count()),
                extension == "kvrx" ? enciphered : heldKinds);
      EXPECT_FALSE(FProject->Modified());
      FProject.reset();
      lock.reset();
      EXPECT_NE(OpeningErrorOf(name), 32u);
    }
  }
  Renew();
  EXPECT_EQ(Load(Place("KVRX", Fixture("kvrx"))), 0u);
  EXPECT_EQ(FEvents + FProject->FileName(), "M");
}

/// A save ends in the same way in every kind: nothing modified, OnModified called, the file held, and ready for more.
TEST_F(ProjectFilesTest, SaveFile) {
  for (const char* extension : {"kvr", "kvr7", "kvrx", "kvrxr"}) {
    SCOPED_TRACE(extension);
    const auto name = Place(extension, Fixture(extension));
    Renew();
    Load(name);
    for (int times = 1; times <= 2; ++times) {
      FEvents.clear();
      FProject->Description = std::to_string(times);
      FProject->SetModified(true);
      FProject->SaveFile({});
      EXPECT_EQ(FEvents, "MM");
      EXPECT_FALSE(FProject->Modified());
      EXPECT_EQ(OpeningErrorOf(name), 32u);
    }
    FProject.reset();
    auto again = ProjectIn(name);
    EXPECT_EQ(again->Description, "2");
    EXPECT_EQ(OpeningErrorOf(name), 0u);
    EXPECT_EQ(FFolder.FileCount(), 1u);
    std::filesystem::remove(name);
  }
  Renew();
  FProject->SaveFile(FFolder / "a.KVRX");
  EXPECT_EQ(FEvents, "M");
  EXPECT_EQ(FFolder.FileCount(), 0u);
}

/// The file of the document is held at every moment of a save, and no other one is.
TEST_F(ProjectFilesTest, ASaveNeverLetsGoOfItsFileAndHoldsNoOther) {
  for (const char* from : {"kvrx", "kvr7", "kvrxr"}) {
    for (const char* to : {"kvrx", "kvr7", "kvrxr"}) {
      SCOPED_TRACE(std::string(from) + " to " + to);
      const auto name = Place(from, Fixture(from));
      Renew();
      Load(name);
      static std::string watched;
      watched = name;
      FProject->Observer().StorageSave.Add([](void*, TVantrelDataStorage*) { EXPECT_EQ(OpeningErrorOf(watched), 32u); },
                                           nullptr);
      FProject->SaveFile({});
      const auto other = FFolder / ("12:30\\b." + std::string(to));
      FProject->SetFileName("/dev/null/b." + std::string(to));
      EXPECT_ANY_THROW(FProject->SaveFile({}));
      EXPECT_EQ(OpeningErrorOf(name), 32u);
      FProject->SetFileName(other);
      FProject->SaveFile({});
      EXPECT_EQ(OpeningErrorOf(name), 0u);
      EXPECT_EQ(OpeningErrorOf(other), 32u);
      EXPECT_EQ(FFolder.FileCount(), 2u);
      FProject.reset();
      std::filesystem::remove(name);
      std::filesystem::remove(other);
    }
  }
}

/// What the window and the companion make of a file is open to nobody who could not read that.
TEST_F(ProjectFilesTest, WhatIsMadeOfAFileIsNoMoreReadable) {
  const auto name = Place("kvr7", Fixture("kvr7"));
  std::filesystem::permissions(name, std::filesystem::perms(0600));
  for (const bool forReading : {true, false}) {
    Renew();
    forReading ? static_cast<void>(FProject->LoadForReading(name)) : FProject->LoadFile(name);
    const auto made = FFolder / "neu.kvrx";
    FProject->SetFileName(made);
    FProject->SaveFile({});
    EXPECT_EQ(static_cast<int>(std::filesystem::status(made).permissions()), 0600);
    FProject.reset();
    std::filesystem::remove(made);
  }
  Renew();
  FProject->LoadFile(name);
  std::filesystem::remove(name);
  FProject->SaveFile({});
  EXPECT_EQ(static_cast<int>(std::filesystem::status(name).permissions()), 0600);
}

TEST_F(ProjectFilesTest, FailedSaveKeepsFileFlagAndHold) {
  for (const char* extension : {"kvr7", "kvrx", "kvrxr"}) {
    SCOPED_TRACE(extension);
    const auto name = Place(extension, Fixture(extension));
    Renew();
    Load(name);
    FProject->Students().GetItem(5)->Ausbildungsjahr.Value = TVariant("abc");
    FProject->SetModified(true);
    FEvents.clear();
    EXPECT_THROW(FProject->SaveFile({}), EConvertError);
    EXPECT_TRUE(FProject->Modified());
    EXPECT_EQ(FEvents, "");
    EXPECT_EQ(OpeningErrorOf(name), 32u);
    EXPECT_EQ(ReadFileText(name), Fixture(extension));

    FProject->Students().GetItem(5)->Ausbildungsjahr.SetNull();
    auto& birthday = FProject->Students().GetItem(5)->Geburtsdatum;
    birthday.SetAsDateTime(1e300);
    if (std::string_view(extension) != "kvr7") {
      const auto error = ErrorOf<EVantrelDateTimeError>([&] { FProject->SaveFile({}); });
      EXPECT_NE(error.find(FProject->Students().GetItem(5)->Nachname), std::string::npos) << error;
      EXPECT_NE(error.find(", Geburtsdatum: "), std::string::npos) << error;
      EXPECT_EQ(ReadFileText(name), Fixture(extension));
    } else {
      FProject->SaveFile({});
      Load("");
      EXPECT_EQ(FProject->Students().GetItem(5)->Geburtsdatum.AsDateTime(), 1e300);
      WriteFileText(name, Fixture(extension));
    }
    FProject->Students().GetItem(5)->Geburtsdatum.SetNull();
    FProject->Password = "a\xED\xA0\x80";
    if (std::string_view(extension) != "kvr7") {
      EXPECT_TRUE(ErrorOf<EVantrelException>([&] { FProject->SaveFile({}); }).starts_with("Das Kennwort der Datei"));
      EXPECT_EQ(ReadFileText(name), Fixture(extension));
      EXPECT_EQ(OpeningErrorOf(name), 32u);
    } else {
      FProject->SaveFile({});
      Load("");
      EXPECT_EQ(FProject->Password, "a\xED\xA0\x80");
    }
    FProject->Password = "a\xF0\x9F\x98\x80\xFF";
    FProject->SaveFile({});
    Load("");
    EXPECT_EQ(FProject->Password, "a\xF0\x9F\x98\x80\uFFFD");
    FProject.reset();
    const auto refused = [&] {
      Renew();
      Load(name);
      std::filesystem::permissions(name, std::filesystem::perms::owner_read);
      const auto code = FileErrorOf([&] { FProject->SaveFile({}); });
      std::filesystem::permissions(name, std::filesystem::perms::owner_all);
      return code == 5 && OpeningErrorOf(name) == 32 ? 0 : 1;
    };
    EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), refused), 0);
  }
}

namespace fs = std::filesystem;

using GoldenFilesTest = ProjectFilesTest;

class GoldenPairsTest : public GoldenFilesTest,
                        public testing::WithParamInterface<std::tuple<const char*, const char*, const char*>> {};

/// Every document in every kind, through every other kind and back.
TEST_P(GoldenPairsTest, ConvertsAndComesBackWithoutADifference) {
  const auto& [document, from, to] = GetParam();
  const fs::path original = fs::path(FIXTURES) / (std::string(document) + "." + from);
  const fs::path there = FFolder / (std::string("there.") + to);
  const fs::path back = FFolder / (std::string("back.") + from);

  for (const auto& [source, target] : {std::pair(original, there), std::pair(there, back)}) {
    auto project = ProjectIn(source);
    project->SetFileName(target);
    project->SaveFile({});
    EXPECT_FALSE(project->Modified());
  }

  EXPECT_EQ(ReadFileText(back), ReadFileText(original));
}

INSTANTIATE_TEST_SUITE_P(All, GoldenPairsTest,
                         testing::Combine(testing::Values("small", "protected", "empty"),
                                          testing::Values("kvr7", "kvrx", "kvrxr"),
                                          testing::Values("kvr", "kvr7", "kvrx", "kvrxr")));

TEST_F(GoldenFilesTest, ValuesOfTheSmallDocument) {
  for (const char* extension : {"kvr7", "kvrx", "kvrxr"}) {
    const auto project = ProjectIn(fs::path(FIXTURES) / (std::string("small.") + extension));
    EXPECT_EQ(project->Noten().Count(), 34);
    ASSERT_EQ(project->Courses().Count(), 60);
    const auto* student = project->Students().GetItem(0);
    const auto* course = project->Courses().GetItem(0);
    EXPECT_EQ(std::tuple(student->Nachname, student->Geschlecht, student->Geburtsdatum.IsNull(), course->SubjectToken,
                         course->Faktor.AsFloat(), course->Mahnung.AsInt()),
              std::tuple("von-der-Heide", u'D', true, "Fr", 0.5F, 1));
    EXPECT_EQ(GuidToText(course->Student->ID()), "{08216B65-B8FE-4F4B-A915-53A98BA56D34}");
    EXPECT_GE(project->Students().IndexOf(course->Student), 0);
  }
}

}  // namespace
