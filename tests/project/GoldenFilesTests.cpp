#include <gtest/gtest.h>

#include "TempFolder.h"
#include "uProject.h"

namespace {

namespace fs = std::filesystem;

TVantrelPtr<TMyTessaronProject> Load(const fs::path& path) {
  auto project = CreateVantrel<TMyTessaronProject>();
  EXPECT_TRUE(project->LoadForReading(path));
  return project;
}

class GoldenFilesTest : public testing::Test {
 protected:
  void SetUp() override { TMyTessaronProject::RegisterClasses(); }

  TempFolder FFolder;
};

class GoldenPairsTest : public GoldenFilesTest,
                        public testing::WithParamInterface<std::tuple<const char*, const char*, const char*>> {};

/// Every document in every kind, through every other kind and back.
TEST_P(GoldenPairsTest, ConvertsAndComesBackWithoutADifference) {
  const auto& [document, from, to] = GetParam();
  const fs::path original = fs::path(FIXTURES) / (std::string(document) + "." + from);
  const fs::path there = FFolder / (std::string("there.") + to);
  const fs::path back = FFolder / (std::string("back.") + from);

  for (const auto& [source, target] : {std::pair(original, there), std::pair(there, back)}) {
    auto project = Load(source);
    project->SetFileName(target);
    project->SaveFile({});
    EXPECT_FALSE(project->Modified());
  }

  EXPECT_EQ(ReadFileText(back), ReadFileText(original));
}

INSTANTIATE_TEST_SUITE_P(All, GoldenPairsTest,
                         testing::Combine(testing::Values("small", "protected", "empty"),
                                          testing::Values("kvr7", "kvrx", "kvrxr"),
                                          testing::Values("kvr", "kvr7", "kvrx", "kvrxr")),
                         [](const auto& param) {
                           return std::string(std::get<0>(param.param)) + "_" + std::get<1>(param.param) + "_" +
                                  std::get<2>(param.param);
                         });

TEST_F(GoldenFilesTest, ValuesOfTheSmallDocument) {
  for (const char* extension : {"kvr7", "kvrx", "kvrxr"}) {
    const auto project = Load(fs::path(FIXTURES) / (std::string("small.") + extension));
    EXPECT_EQ(project->Noten().Count(), 34);
    ASSERT_EQ(project->Courses().Count(), 60);
    const auto* student = project->Students().GetItem(0);
    EXPECT_EQ(student->Nachname, "von-der-Heide");
    EXPECT_EQ(student->Geschlecht, u'D');
    EXPECT_TRUE(student->Geburtsdatum.IsNull());
    const auto* course = project->Courses().GetItem(0);
    EXPECT_EQ(course->SubjectToken, "Fr");
    EXPECT_EQ(course->Faktor.AsFloat(), 0.5F);
    EXPECT_EQ(course->Mahnung.AsInt(), 1);
    EXPECT_EQ(GuidToText(course->Student->ID()), "{08216B65-B8FE-4F4B-A915-53A98BA56D34}");
    EXPECT_GE(project->Students().IndexOf(course->Student), 0);
  }
}

}  // namespace
