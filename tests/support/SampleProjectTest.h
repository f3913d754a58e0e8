#pragma once

#include <set>

#include "Testing.h"
#include "uProject.h"

/// The project in a file, which is let go again.
inline TVantrelPtr<TMyTessaronProject> ProjectIn(const std::string& path) {
  auto project = CreateVantrel<TMyTessaronProject>();
  EXPECT_TRUE(project->LoadForReading(path));
  return project;
}

/// A project from a file: twelve students of five classes with five courses each. It becomes the current one where the
/// test makes it so.
class SampleProjectTest : public testing::Test {
 protected:
  void SetUp() override {
    TMyTessaronProject::RegisterClasses();
    ASSERT_TRUE(FProject->LoadForReading(std::string(FIXTURES) + "/small.kvrx"));
  }
  void TearDown() override { CurrentProject = nullptr; }
  void ShowOnly(const std::set<std::string>& fields) {
    auto& columns = FProject->Options().Columns();
    for (int i = 0; i < columns.Count(); ++i)
      columns.GetItem(i)->Visible = fields.contains(columns.GetItem(i)->Fieldname);
  }

  TVantrelPtr<TMyTessaronProject> FProject = CreateVantrel<TMyTessaronProject>();
};
