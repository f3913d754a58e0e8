#include "SampleProjectTest.h"
#include "mLookup.h"
#include "uDataSource.h"

namespace {

class DataSourceTest : public SampleProjectTest {
 protected:
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
  Course().ZusatzNote9Id.SetAsInt(1009);
  Course().Bestanden = "P";
  Course().Position.SetNull();
  for (const auto& [ordinal, expected] : std::vector<std::pair<int, TVariant>>{
           {0, Course().Name()}, {1, "Fr"}, {2, TVariant::Null()}, {3, 0.5}, {17, 1}, {28, 1009}, {33, "P"}}) {
    EXPECT_EQ(Value(FStudents, ordinal), expected) << ordinal;
    EXPECT_EQ(Value(FSubjects, ordinal == 0 ? 0 : ordinal + 6), expected) << ordinal;
  }
  const auto* schoolClass = FProject->Classes().Find(Course().Student->ClassId.Value);
  ASSERT_NE(schoolClass, nullptr);
  EXPECT_EQ(Value(FSubjects, 1), TVariant(static_cast<int>(schoolClass->GradeType())));
  EXPECT_EQ(Value(FSubjects, 2), TVariant("Köhler"));
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
