#include <fmt/format.h>

#include "SampleProjectTest.h"
#include "VantrelExceptions.h"
#include "uDataSource.h"

namespace {

/// Tells each change in a line, and can take all of them back.
class ProjectChangesTest : public SampleProjectTest {
 protected:
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
  }

  void Hear(const TProjectChange& change) {
    FTold.push_back(
        change.Kind == TChangeKind::Field
            ? fmt::format("{}: {} -> {}", change.Key, change.Before.AsTextOrEmpty(), change.After.AsTextOrEmpty())
            : fmt::format("{} {} {}", static_cast<int>(change.Kind), change.Index, change.Target));
    FRemoved = change.Removed == nullptr ? nullptr : std::move(*change.Removed);
    FList = change.List;
  }
  std::vector<std::string> Told() { return std::exchange(FTold, {}); }
  std::vector<std::string> FTold;
  TVantrelPtr<TVantrelDataObject> FRemoved;
  TVantrelDataList* FList = nullptr;
  TProjectListeners::TToken FListening =
      FProject->Listen([this](const auto& change) { Hear(change); },
                       [this](auto mark) { FTold.push_back(mark == TChangeMark::Begin ? "{" : "}"); });
};

TEST_F(ProjectChangesTest, EveryStepIsTold) {
  auto& course = *FProject->Courses().GetItem(0);
  auto& student = *FProject->Students().GetItem(0);
  student.CertificateComments().Clear();
  const auto entered = student.Zugang.Value.AsTextOrEmpty();
  TSubjectCoursesSource source(nullptr);

  source.SetValue(&course, 14, 7);
  source.SetValue(&course, 14, TVariant::Null());
  source.SetValue(&course, 24, "dropped");
  FProject->ChangeField(student, "Zuzgang", TVariant::DateTime(45000));
  EXPECT_EQ(Told(), (std::vector<std::string>{"Note1ID:  -> 7", "Note1ID: 7 -> ",
                                              "Zuzgang: " + entered + " -> 15.03.2023"}));

  const auto first = student.AddCertificateComment(1, "A", "eins")->ID();
  const auto second = student.AddCertificateComment(2, "B", "zwei")->ID();
  student.EditCertificateComment(second, 3, "C", "drei");
  FProject->MoveItem(student.CertificateComments(), 0, 1);
  student.DeleteCertificateComment(first);
  {
    const TJoinedChanges joined(*FProject);
    student.DeleteAllCertificateComments();
  }
  EXPECT_EQ(Told(),
            (std::vector<std::string>{"1 0 -1", "1 1 -1", "{", "Position: 2 -> 3", "Attribute: B -> C",
                                      "Description: zwei -> drei", "}", "3 0 1", "2 1 -1", "{", "2 0 -1", "}"}));
  EXPECT_EQ(FList, &student.CertificateComments());
}

TEST_F(ProjectChangesTest, WhatRaisesChangesNothing) {
  auto& comments = FProject->Students().GetItem(0)->CertificateComments();
  comments.Clear();
  auto& remark = *comments.AddCertificateComment("", "", "", 1);
  FProject->SetModified(false);
  EXPECT_THROW(FProject->ChangeField(remark, "Position", "eins"), EConvertError);
  EXPECT_THROW(FProject->ChangeField(remark, "position", 1), EVantrelException);
  EXPECT_THROW(FProject->ChangeField(*FProject->Courses().GetItem(0), "Student", 1), EVantrelException);
  EXPECT_THROW(FProject->DeleteItem(comments, 1), EVantrelCollectionError);
  EXPECT_THROW(FProject->InsertItem(comments, 0, CreateVantrel<TCatalog>()), EVantrelCollectionError);
  FProject->InsertItem(comments, 0, nullptr);
  EXPECT_FALSE(FProject->Modified());
  EXPECT_TRUE(FTold.empty() && remark.Position == 1 && comments.Count() == 1);
}

/// Counts how many of its kind have ended.
struct TRemark : TCertificateComment {
  using TCertificateComment::TCertificateComment;
  ~TRemark() override { ++Freed; }
  static inline int Freed = 0;
};

/// An item that was deleted goes with its last listener, unless it lives on: a damaged file may hold it twice, and a
/// list may not own it. Nothing can be put into such a list: nobody would free it.
TEST_F(ProjectChangesTest, AListTakesAndGivesAwayItsOwnItemsOnly) {
  auto& own = FProject->Students().GetItem(0)->CertificateComments();
  const auto foreign = CreateVantrel<TCertificateComments>(FProject.get(), false);
  const struct {
    TCertificateComments& List;
    int Entries;
    bool IsGivenAway;
    int FreedByInsert;
  } cases[] = {{own, 1, true, 0}, {own, 2, false, 0}, {*foreign, 1, false, 1}};
  for (const auto& [list, entries, isGivenAway, freedByInsert] : cases) {
    own.Clear();
    auto* remark = own.AddCertificateComment("", "doppelt", "", 1);
    if (&list != &own) list.Add(remark);
    if (entries == 2) list.Add(remark);
    FProject->DeleteItem(list, 0);
    EXPECT_EQ(FRemoved != nullptr, isGivenAway);
    EXPECT_EQ(own.Contains(remark), !isGivenAway);
    FRemoved.reset();

    TRemark::Freed = 0;
    const auto insert = [&] { FProject->InsertItem(list, 0, CreateVantrel<TRemark>(FProject.get())); };
    if (freedByInsert > 0)
      EXPECT_THROW(insert(), EVantrelCollectionError);
    else
      insert();
    EXPECT_EQ(TRemark::Freed, freedByInsert);
  }
}

TEST_F(ProjectChangesTest, ListenersMayComeAndGoWhileTheyAreTold) {
  auto& course = *FProject->Courses().GetItem(0);
  std::string heard;
  TProjectListeners::TToken self, other, added;
  const auto note = [&](char who) { return [&heard, who](const TProjectChange&) { heard += who; }; };
  self = FProject->Listen([&](const TProjectChange&) {
    heard += 's';
    self.reset();
    other.reset();
    added = FProject->Listen(note('a'));
  });
  other = FProject->Listen(note('o'));
  const auto last = FProject->Listen(note('l'));
  for (int i = 0; i < 2; ++i) FProject->ChangeField(course, "Merkmal", "x");
  EXPECT_EQ(heard, "slla");
  EXPECT_EQ(Told().size(), 2U);
}

}  // namespace
