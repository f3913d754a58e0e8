#pragma once

#include <gtest/gtest.h>

#include "uProject.h"

/// A project from a file: twelve students of five classes with five courses each. It becomes the current one where the
/// test makes it so.
class SampleProjectTest : public testing::Test {
 protected:
  void SetUp() override {
    TMyTessaronProject::RegisterClasses();
    ASSERT_TRUE(FProject->LoadForReading(std::string(FIXTURES) + "/small.kvrx"));
  }
  void TearDown() override { CurrentProject = nullptr; }

  TVantrelPtr<TMyTessaronProject> FProject = CreateVantrel<TMyTessaronProject>();
};
