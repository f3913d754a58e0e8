#include <algorithm>

#include "RandomEntries.h"
#include "SampleProjectTest.h"
#include "uJournal.h"

namespace {

class JournalTest : public SampleProjectTest {
 protected:
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FListening = FProject->Listen([this](const TProjectChange& change) {
      if (const auto entry = JournalEntryOf(*FProject, change)) FJournal->Append(*entry);
    });
    Begin();
  }
  void TearDown() override {
    FJournal.reset();
    SampleProjectTest::TearDown();
  }
  void Begin() {
    FJournal = std::make_unique<TJournal>(
        State(), TJournalHead{.Begun = 46000.5, .Path = std::string(FIXTURES) + "/small.kvrx", .Password = "gehe1m"});
  }
  std::string State() const { return FFolder / "state/MyTessaron"; }
  /// What a program that was killed now would leave.
  std::vector<TLeftJournal> Left() {
    FJournal.reset();
    return LeftJournals(State());
  }
  static std::string Content(TMyTessaronProject& project) {
    TVantrelMemoryStream stream;
    project.SaveToBinStream(stream);
    return {stream.Bytes().begin(), stream.Bytes().end()};
  }
  void Enter(const char* text) { FProject->ChangeField(*FProject->Courses().GetItem(0), "Merkmal", text); }

  TempFolder FFolder;
  std::unique_ptr<TJournal> FJournal;
  TProjectListeners::TToken FListening;
};

TEST_F(JournalTest, EveryEntryComesBackInAnotherLoad) {
  TRandomEntries entries(*FProject, 3);
  for (int i = 0; i < 3'000; ++i) entries.Enter();
  const auto left = Left();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].Head.Digest, FileDigest(left[0].Head.Path));
  EXPECT_EQ(left[0].Head.Password, "gehe1m");
  const auto again = ProjectIn(left[0].Head.Path);
  CurrentProject = again.get();
  for (const auto& entry : NetEntries(left[0].Entries))
    EXPECT_EQ(ReplayEntry(*again, entry), TReplay::Done) << entry.Key;
  EXPECT_EQ(Content(*again), Content(*FProject));
  for (const auto& entry : NetEntries(left[0].Entries)) EXPECT_EQ(JudgeEntry(*again, entry), TReplay::Already);
}

TEST_F(JournalTest, WhatHasChangedElsewhereStands) {
  const auto before = FProject->Courses().GetItem(0)->Merkmal;
  Enter("eins");
  Enter("zwei");
  FProject->ChangeField(*FProject->Students().GetItem(2), "Fehltage", 3);
  FProject->ChangeField(*FProject->Students().GetItem(2), "Fehltage", TVariant::Null());
  const auto net = NetEntries(Left().at(0).Entries);
  const auto again = ProjectIn(std::string(FIXTURES) + "/small.kvrx");
  CurrentProject = again.get();
  auto& course = *again->Courses().GetItem(0);
  course.Merkmal = "anders";
  EXPECT_EQ(JudgeEntry(*again, net.at(0)), TReplay::Differs);
  EXPECT_EQ(ReplayEntry(*again, net[0]), TReplay::Differs);
  EXPECT_EQ(course.Merkmal, "anders");
  course.Merkmal = before;
  again->Courses().Move(0, 5);
  EXPECT_EQ(ReplayEntry(*again, net[0]), TReplay::Done);
  EXPECT_EQ(course.Merkmal, "zwei");
}

TEST_F(JournalTest, NothingStandsOpenOnTheDiskAndOnlyTheTornEndIsLost) {
  for (const char* text : {"Sorgenkind", "Sonnenschein", "Wirbelwind"}) Enter(text);
  ASSERT_TRUE(FJournal->Flush());
  EXPECT_TRUE(LeftJournals(State()).empty()) << "held by a running program";
  const auto left = Left();
  ASSERT_EQ(left.at(0).Entries.size(), 3U);
  EXPECT_EQ(left[0].Entries[2].After, TVariant("Wirbelwind"));
  const auto file = left[0].FileName;
  const auto whole = ReadFileText(file);
  for (const char* open : {"Sorgenkind", "Merkmal", "small.kvrx", "gehe1m"})
    EXPECT_EQ(whole.find(open), std::string::npos) << open;
  for (const auto& path : {std::filesystem::path(file), std::filesystem::path(State()) / "schluessel"})
    EXPECT_EQ(std::filesystem::status(path).permissions() & ~std::filesystem::perms::owner_all,
              std::filesystem::perms::none);
  const auto entriesOf = [&](const std::string& bytes) {
    WriteFileText(file, bytes);
    const auto journals = LeftJournals(State());
    return journals.empty() ? -1 : static_cast<int>(journals[0].Entries.size());
  };
  EXPECT_EQ(entriesOf(whole.substr(0, whole.size() - 1)), 2);
  auto flipped = whole;
  flipped[flipped.size() - 200] ^= 1;
  EXPECT_LT(entriesOf(flipped), 3);
  EXPECT_EQ(entriesOf("MTJ1"), -1);
  EXPECT_EQ(entriesOf(whole + "\xFF\xFF\xFF\xFF"), 3);
  WriteFileText(std::filesystem::path(State()) / "schluessel", std::string(32, 'x'));
  EXPECT_EQ(entriesOf(whole), -1);
}

TEST_F(JournalTest, WhereNothingCanBeWrittenTheEntriesWait) {
  WriteFileText(FFolder / "state", "");
  Enter("wartet");
  EXPECT_FALSE(FJournal->Flush());
  EXPECT_TRUE(FJournal->IsResting());
  std::filesystem::remove(FFolder / "state");
  EXPECT_TRUE(FJournal->Flush());
  EXPECT_FALSE(FJournal->IsResting());
  FJournal->Discard();
  EXPECT_TRUE(Left().empty());
}

}  // namespace
