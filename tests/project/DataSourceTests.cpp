#include <limits>
#include <map>

#include "SampleProjectTest.h"
#include "mLookup.h"
#include "uDataSource.h"
#include "uGradeStatistics.h"

namespace {

struct DataSourceTest : SampleProjectTest {
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    FProject->OnModified = [this] { ++FModifications; };
  }

  TCourse& Course() { return *FProject->Courses().GetItem(0); }
  TVariant Value(TMyTessaronSource& source, int ordinal) {
    TVariant value = "old";
    source.GetValue(&Course(), ordinal, value);
    return value;
  }

  TStudentCoursesSource FStudents{nullptr};
  TSubjectCoursesSource FSubjects{nullptr};
  int FModifications = 0;
};

TEST_F(DataSourceTest, RowsAreThoseOfTheListWhichGoesWithTheSource) {
  EXPECT_EQ(FStudents.GetRecordCount(), 0);
  EXPECT_EQ(FStudents.GetRecordHandle(0), nullptr);
  const auto& student = *Course().Student;
  {
    TStudentCoursesSource source(FProject->CoursesByStudent(student.TessaronId.Value));
    EXPECT_EQ(std::tuple(source.GetRecordCount(), source.GetRecordHandle(0)), std::tuple(5, &Course()));
  }
  EXPECT_EQ(FProject->Courses().Count(), 60);
}

TEST_F(DataSourceTest, OrdinalsReadTheirFields) {
  const std::pair<int, TMyTessaronInteger TCourse::*> numbers[] = {
      {2, &TCourse::Position},       {8, &TCourse::Note1Id},        {9, &TCourse::Note2Id},
      {10, &TCourse::Note3Id},       {11, &TCourse::Note4Id},       {12, &TCourse::Note5Id},
      {13, &TCourse::Endnote1Id},    {14, &TCourse::Endnote2Id},    {17, &TCourse::Mahnung},
      {20, &TCourse::ZusatzNote1Id}, {21, &TCourse::ZusatzNote2Id}, {22, &TCourse::ZusatzNote3Id},
      {23, &TCourse::ZusatzNote4Id}, {24, &TCourse::ZusatzNote5Id}, {25, &TCourse::ZusatzNote6Id},
      {26, &TCourse::ZusatzNote7Id}, {27, &TCourse::ZusatzNote8Id}, {28, &TCourse::ZusatzNote9Id},
      {29, &TCourse::VornoteId},     {30, &TCourse::VergesseneHA},  {31, &TCourse::VergesseneAM}};
  const std::pair<int, std::string TCourse::*> texts[] = {
      {1, &TCourse::SubjectToken}, {4, &TCourse::Unterrichtsart}, {5, &TCourse::Fachstatus}, {6, &TCourse::Schwerpunkt},
      {7, &TCourse::Niveau},       {15, &TCourse::Beurteilung},   {16, &TCourse::Merkmal},   {18, &TCourse::Tutor},
      {19, &TCourse::Fachlehrer},  {32, &TCourse::Leistungsart},  {33, &TCourse::Bestanden}};
  std::map<int, TVariant> expected = {{3, 0.5}};
  for (const auto& [ordinal, field] : numbers) {
    (Course().*field).SetAsInt(100 + ordinal);
    expected[ordinal] = 100 + ordinal;
  }
  for (const auto& [ordinal, field] : texts) expected[ordinal] = Course().*field = "Text " + std::to_string(ordinal);
  expected[0] = Course().Name();
  EXPECT_EQ(expected.size(), 34U);
  for (const auto& [ordinal, value] : expected) {
    EXPECT_EQ(Value(FStudents, ordinal), value) << ordinal;
    EXPECT_EQ(Value(FSubjects, ordinal == 0 ? 0 : ordinal + 6), value) << ordinal;
  }
  Course().Position.SetNull();
  EXPECT_TRUE(Value(FStudents, 2).IsNull());
  const auto* schoolClass = FProject->Classes().Find(Course().Student->ClassId.Value);
  ASSERT_NE(schoolClass, nullptr);
  EXPECT_EQ(Value(FSubjects, 1), TVariant(static_cast<int>(schoolClass->GradeType())));
  EXPECT_EQ(Value(FSubjects, 2), TVariant("Köhler"));
  EXPECT_EQ(Value(FSubjects, 3), TVariant(Course().Student->Vorname));
  EXPECT_EQ(Value(FSubjects, 4), Course().Student->Geburtsdatum.Value);
  EXPECT_EQ(Value(FSubjects, 5), TVariant(Course().Student->Personalnummer));
  EXPECT_EQ(Value(FSubjects, 6), TVariant(schoolClass->Token));
  EXPECT_EQ(Value(FSubjects, 40), GetGradeTypeName(schoolClass->GradeType()));

  EXPECT_TRUE(Value(FStudents, 34).IsNull());
  EXPECT_THROW(Value(FSubjects, 41), EVantrelException);
  for (TMyTessaronSource* source : std::initializer_list<TMyTessaronSource*>{&FStudents, &FSubjects}) {
    TVariant value = "old";
    source->GetValue(nullptr, 99, value);
    EXPECT_TRUE(value.IsNull());
  }
}

TEST_F(DataSourceTest, GradesAreCountedSharedOutAndAveraged) {
  auto& grades = FProject->Noten();
  int id = 9000;
  const auto add = [&](const char* token, float value, TGradeTypes type) {
    grades.AddNote(id++, token, "", value, type);
  };
  using enum TGradeTypes;
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::pair<const char*, float> values[] = {{"1-", 1.3F}, {"2+", 1.7F}, {"2-", 2.3F}, {"3-", 3.3F},
                                                  {"3", 3.0F},  {"5+", 4.7F}, {"5", 5.0F},  {"z", 0.0F}};
  for (const auto& [token, value] : values) add(token, value, gtValue);
  add("neg", -1, gtValue), add("nan", nan, gtValue), add("15", 15, gtPoints), add("nb", 6, gtFill);
  enum { OneMinus = 9000, TwoPlus, TwoMinus, ThreeMinus, Three, FivePlus, Five, Zero, Negative, Nan, Points, Fill };
  const std::tuple<std::vector<TVariant>, int, std::optional<double>, const char*> cases[] = {
      {{}, 0, {}, ""},
      {{TVariant::Null(), 4711, Fill}, 2, {}, "nb1 "},
      {{TwoPlus, Five, Three, OneMinus, TwoMinus, TwoPlus, ThreeMinus, FivePlus, Fill},
       9,
       2.88,
       "1-1 2+2 2-1 31 3-1 5+1 51 nb1 "},
      {{Zero, Three, Negative, Nan}, 4, 1.5, "nan1 neg1 z1 31 "},
      {{Zero, Zero, Zero, Zero, Zero, Zero, Zero, Five}, 8, 0.63, "z7 51 "},
      {{Three, Points}, 2, {}, "31 151 "}};
  for (const auto& [ids, count, average, shares] : cases) {
    const auto statistics = GradeStatisticsOf(grades, ids);
    std::string told;
    for (const auto& [token, times] : statistics.Distribution) told += token + std::to_string(times) + " ";
    EXPECT_EQ(std::tuple(statistics.Count, statistics.Average, told), std::tuple(count, average, shares));
  }
}

TEST_F(DataSourceTest, WritingStoresByKindAndAlwaysMarksAsModified) {
  FStudents.SetValue(&Course(), 8, 77);
  EXPECT_EQ(Course().Note1Id.AsInt(), 77);
  FSubjects.SetValue(&Course(), 14, TVariant::Null());
  EXPECT_TRUE(Course().Note1Id.IsNull());
  FStudents.SetValue(&Course(), 15, TVariant::Null());
  EXPECT_EQ(Course().Beurteilung, "");
  FSubjects.SetValue(&Course(), 39, "F");
  EXPECT_EQ(Course().Bestanden, "F");
  FStudents.SetValue(&Course(), 1, "De");
  EXPECT_EQ(FModifications, 5);
  EXPECT_THROW(FStudents.SetValue(&Course(), 1, TVariant::Null()), EConvertError);

  FModifications = 0;
  const auto tutor = Course().Tutor;
  for (const int ordinal : {0, 6, 18, 19, 99}) FStudents.SetValue(&Course(), ordinal, "x");
  for (const int ordinal : {0, 1, 2, 7, 12, 24, 40, 99}) FSubjects.SetValue(&Course(), ordinal, "x");
  EXPECT_EQ(FModifications, 13);
  EXPECT_EQ(std::tuple(Course().SubjectToken, Course().Tutor), std::tuple("De", tutor));
  EXPECT_EQ(Course().Student->Nachname, "Köhler");
}

TEST_F(DataSourceTest, LookupTablesMirrorTheProject) {
  auto& status = *FProject->Fachstati().GetItem(0);
  status.Token = "ein Kürzel mit mehr als zwanzig Zeichen";
  status.Description = std::string(400, 'b');
  {
    const auto module = CreateLookupModule(*FProject);
    EXPECT_EQ(LookupModule, module.get());
    EXPECT_EQ(module->ProjectObj, FProject.get());
    EXPECT_EQ(module->Grades.RecordCount(), FProject->Noten().Count());
    for (int i = 1; i < module->Grades.RecordCount(); ++i)
      EXPECT_LE(CompareText(module->Grades.ValueAt(i - 1, 1).AsText(), module->Grades.ValueAt(i, 1).AsText()), 0);
    EXPECT_EQ(module->Fachstati.ValueAt(0, 0), TVariant(status.Token));
    EXPECT_EQ(module->Fachstati.ValueAt(0, 1), TVariant(status.Description));
    const auto& grade = *FProject->Noten().GetItem(0);
    EXPECT_EQ(module->gv_Grades.Table->Lookup(module->gv_Grades.KeyField, grade.TessaronId, "Token"),
              TVariant(grade.Token));
    EXPECT_EQ(module->CertificateComments.RecordCount(), FProject->CertificateComments().Count());
  }
  EXPECT_EQ(LookupModule, nullptr);
}

}  // namespace
