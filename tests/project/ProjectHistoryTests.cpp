#include <random>

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

/// Entries of all kinds in all places that views write to, a tenth of them in steps of several.
class TRandomEntries {
 public:
  TRandomEntries(TMyTessaronProject& project, unsigned seed) : FProject(project), FRandom(seed) {}

  void Enter() {
    if (Below(10) > 0) return EnterOne();
    const TJoinedChanges joined(FProject);
    for (int i = Below(6); i >= 0; --i) EnterOne();
  }

 private:
  int Below(int limit) { return static_cast<int>(FRandom() % static_cast<unsigned>(limit)); }
  TVariant Text() { return Below(4) == 0 ? "" : std::string(static_cast<std::size_t>(Below(9)), 'a') + "ß\r\n"; }
  void EnterOne() {
    auto& student = *FProject.Students().GetItem(Below(FProject.Students().Count()));
    auto& course = *FProject.Courses().GetItem(Below(FProject.Courses().Count()));
    auto& remarks = student.CertificateComments();
    switch (Below(8)) {
      case 0:
      case 1:
        return FProject.ChangeField(course, "Note" + std::to_string(1 + Below(5)) + "ID",
                                    Below(3) == 0 ? TVariant::Null() : TVariant(Below(30)));
      case 2:
        return FProject.ChangeField(course, "Beurteilung", Text());
      case 3:
        return FProject.ChangeField(course, "Faktor", Below(1000) / 7.0);
      case 4:
        return FProject.ChangeField(student, "Zeugnisdatum", TVariant::DateTime(Below(50000) + 0.25));
      case 5:
        return FProject.ChangeField(student, "Fehltage", Below(200) - 1);
      case 6:
        student.AddCertificateComment(Below(9), Text().AsText(), Text().AsText());
        return;
      default:
        if (remarks.IsEmpty()) return;
        if (Below(9) == 0) return student.DeleteAllCertificateComments();
        const auto id = remarks.GetItem(Below(remarks.Count()))->ID();
        if (Below(3) == 0) return student.DeleteCertificateComment(id);
        student.EditCertificateComment(id, Below(9), Text().AsText(), Text().AsText());
    }
  }

  TMyTessaronProject& FProject;
  std::mt19937 FRandom;
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
