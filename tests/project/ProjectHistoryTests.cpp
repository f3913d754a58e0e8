#include "RandomEntries.h"
#include "SampleProjectTest.h"
#include "VantrelStreams.h"
#include "uProjectHistory.h"

namespace {

class ProjectHistoryTest : public SampleProjectTest {
 protected:
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FHistory.emplace(*FProject);
  }
  std::string Content() const {
    TVantrelMemoryStream stream;
    FProject->SaveToBinStream(stream);
    return {stream.Bytes().begin(), stream.Bytes().end()};
  }
  TCourse& Course(int index) const { return *FProject->Courses().GetItem(index); }
  TStudent& Student(int index) const { return *FProject->Students().GetItem(index); }
  void Enter(const char* key, const TVariant& value) { FProject->ChangeField(Course(0), key, value); }

  std::optional<TProjectHistory> FHistory;
};

TEST_F(ProjectHistoryTest, TenThousandEntriesGoBackAndForthToTheByte) {
  const auto before = Content();
  TRandomEntries entries(*FProject, 7);
  for (int i = 0; i < 10'000; ++i) entries.Enter();
  const auto after = Content();
  ASSERT_NE(before, after);
  for (int round = 0; round < 2; ++round) {
    while (FHistory->CanUndo()) FHistory->Undo();
    EXPECT_EQ(before, Content());
    EXPECT_FALSE(FProject->Modified());
    while (FHistory->CanRedo()) FHistory->Redo();
    EXPECT_EQ(after, Content());
    EXPECT_TRUE(FProject->Modified());
  }
}

TEST_F(ProjectHistoryTest, AnEditorIsOneStepAndNoneWhereItEndsAsItBegan) {
  int told = 0;
  FHistory->OnChange = [&] { ++told; };
  const auto before = Course(0).Note1Id.Value;
  FProject->BeginEdit();
  for (const int id : {3, 31, 4}) Enter("Note1ID", id);
  FProject->EndEdit();
  FProject->BeginEdit();
  Enter("Note2ID", 5);
  FHistory->Undo();
  EXPECT_EQ(FHistory->RedoText(), "Note2-Anzeige für Yara Köhler, Französisch");
  // What an open editor has written meanwhile and taken back costs nothing that can be done again.
  Enter("Note2ID", 6);
  Enter("Note2ID", TVariant::Null());
  FProject->EndEdit();
  EXPECT_TRUE(FHistory->CanRedo());
  Enter("Note1ID", 4);
  EXPECT_EQ(FHistory->Undo().Key, "Note1ID");
  EXPECT_EQ(Course(0).Note1Id.Value, before);
  EXPECT_FALSE(FHistory->CanUndo());
  EXPECT_EQ(told, 4);
}

TEST_F(ProjectHistoryTest, ModifiedIsWhatDiffersFromTheLastSave) {
  const auto path = testing::TempDir() + "history.kvrx";
  const auto isModifiedAfter = [&](TProjectPlace (TProjectHistory::*step)()) {
    ((*FHistory).*step)();
    return FProject->Modified();
  };
  Enter("Merkmal", "eins");
  FProject->SaveFile(path);
  Enter("Merkmal", "zwei");
  EXPECT_FALSE(isModifiedAfter(&TProjectHistory::Undo));
  EXPECT_TRUE(isModifiedAfter(&TProjectHistory::Undo));
  EXPECT_FALSE(isModifiedAfter(&TProjectHistory::Redo));
  EXPECT_TRUE(isModifiedAfter(&TProjectHistory::Undo));
  // The saved state cannot be reached any more.
  Enter("Merkmal", "drei");
  EXPECT_TRUE(isModifiedAfter(&TProjectHistory::Undo));
  FProject->SaveFile(path);
  EXPECT_TRUE(isModifiedAfter(&TProjectHistory::Redo));
}

TEST_F(ProjectHistoryTest, TellsWhatAndWhere) {
  auto& student = Student(0);
  const auto name = student.Vorname + " " + student.Nachname;
  student.DeleteAllCertificateComments();
  const auto* remark = student.AddCertificateComment(1, "", "eins");
  EXPECT_EQ(FHistory->UndoText(), "Zeugnisbemerkungen für " + name);
  auto place = FHistory->Undo();
  EXPECT_TRUE(place.IsRemark && place.Remark == nullptr && place.Student == &student);
  place = FHistory->Redo();
  EXPECT_TRUE(place.IsRemark && place.Remark == remark && place.Student == &student);
  FProject->ChangeField(student, "Fehltage", 12);
  EXPECT_EQ(FHistory->UndoText(), "Fehltage-Anzeige für " + name);
  {
    const TJoinedChanges joined(*FProject);
    for (int i = 0; i < 3; ++i) FProject->ChangeField(Student(i), "Fehltage", 77);
  }
  EXPECT_EQ(FHistory->UndoText(), "3 Angaben bei 3 Schülern");
}

}  // namespace
