#include <cstring>
#include <sstream>
#include <utility>

#include "SampleProjectTest.h"
#include "VantrelText.h"
#include "uClassOverview.h"
#include "uMissingGrades.h"

namespace {

struct ProjectRecordsTest : testing::Test {
  void SetUp() override {
    TMyTessaronProject::RegisterClasses();
    CurrentProject = FProject.get();
  }
  void TearDown() override { CurrentProject = nullptr; }

  TStudent& AddStudent(int id, int classId, std::string_view firstName, std::string_view lastName) {
    auto* student = static_cast<TStudent*>(FProject->Students().Add(TStudent::Class()));
    student->TessaronId.SetAsInt(id);
    student->ClassId.SetAsInt(classId);
    student->Vorname = firstName;
    student->Nachname = lastName;
    return *student;
  }
  TCourse& AddCourse(int id, TStudent& student, int subject, std::string_view token, int endnote) {
    auto course = CreateVantrel<TCourse>(FProject.get());
    auto& added = *course;
    course->TessaronId.SetAsInt(id);
    course->SubjectId.SetAsInt(subject);
    course->SubjectToken = token;
    course->Student = &student;
    course->Endnote1Id.SetAsInt(endnote);
    FProject->AddCourse(std::move(course));
    return added;
  }
  /// Two classes, three students, a grade, and five courses in two subjects.
  void Build() {
    FProject->Classes().AddClass(1, "10a", TGradeTypes::gtValue);
    FProject->Classes().AddClass(2, "10b", TGradeTypes::gtPoints);
    FProject->Noten().AddNote(5, "2+", "gut", 1.7F, TGradeTypes::gtValue);
    FProject->Noten().AddNote(6, "12", "", 12, TGradeTypes::gtPoints);
    FProject->Noten().AddNote(-1, "x", "", 0, TGradeTypes::gtFill);
    auto& anna = AddStudent(11, 1, "Anna", "Beck");
    auto& bert = AddStudent(12, 2, "Bert", "");
    auto& ohne = AddStudent(13, 9, "", "");
    AddCourse(101, anna, 7, "Ma", 5).Beurteilung = "erste";
    AddCourse(102, anna, 8, "De", -1).Beurteilung = "zweite";
    AddCourse(103, bert, 7, "Ma", 6);
    AddCourse(104, bert, 8, "De", 99);
    AddCourse(105, ohne, 7, "Ma", -1);
  }
  static std::string Rows(TVantrelMemTable& table) {
    std::string rows;
    for (table.First(); !table.Eof(); table.Next()) {
      for (const auto& field : table.Fields()) rows += field->Value().AsTextOrEmpty() + ",";
      rows += ";";
    }
    return rows;
  }
  /// An open table with the fields of the list, integers by a leading "#".
  TVantrelMemTable& Table(const std::string& fields) {
    FTable = CreateVantrel<TVantrelMemTable>();
    std::istringstream list(fields);
    for (std::string field; list >> field;) {
      const bool number = field[0] == '#';
      FTable->AddField(field.substr(number), number ? TVantrelFieldType::ftInteger : TVantrelFieldType::ftText);
    }
    FTable->Open();
    return *FTable;
  }

  TempFolder FFolder;
  TVantrelPtr<TMyTessaronProject> FProject = CreateVantrel<TMyTessaronProject>();
  TVantrelPtr<TVantrelMemTable> FTable;
};

/// What the program does not understand travels through every kind as it came.
TEST_F(ProjectRecordsTest, RawValuesSurvive) {
  auto text = ReadFileText(std::string(FIXTURES) + "/small.kvrxr");
  const char* changes[] = {"TeacherType>255",    "TeacherType>200",
                           "GradeType>0",        "GradeType>7",
                           "Customization>2",    "Customization>253",
                           "AbsenceBehaviour>1", "AbsenceBehaviour>9",
                           "Gender>D",           "Gender>€",
                           "Mahnung>1",          "Mahnung>-32768",
                           "Lastname>von",       "Lastname>a&#13;b&#13;\n&lt;\xF0\x9F\x98\x80"};
  for (std::size_t i = 0; i < std::size(changes); i += 2)
    text.replace(text.find(std::string("<") + changes[i]), 1 + std::strlen(changes[i]),
                 std::string("<") + changes[i + 1]);
  WriteFileText(FFolder / "0.kvrxr", text);
  const char* names[] = {"0.kvrxr", "1.kvrxr", "2.kvr7", "3.kvrx", "4.kvrxr"};
  for (int i = 0; i < 4; ++i) {
    auto project = ProjectIn(FFolder / names[i]);
    project->SetFileName(FFolder / names[i + 1]);
    project->SaveFile({});
  }
  const auto end = ReadFileText(FFolder / "4.kvrxr");
  EXPECT_EQ(end, ReadFileText(FFolder / "1.kvrxr"));
  for (std::size_t i = 1; i < std::size(changes); i += 2)
    EXPECT_NE(end.find(changes[i]), std::string::npos) << changes[i];
}

TEST_F(ProjectRecordsTest, KeysAndMarkersOfTheXmlForm) {
  auto& student = AddStudent(1, -1, "", "");
  student.Zugang.SetAsDateTime(45000);
  student.Versetzt = "\x01x\xED\xA0\x80y";
  const auto* column = FProject->Options().Columns().AddColumn("Note1", "Note 1", true, true, true, 3);
  EXPECT_EQ(column->Customname(), "Note 1");
  FProject->SetFileName(FFolder / "a.kvrxr");
  FProject->SaveFile({});
  const auto text = ReadFileText(FFolder / "a.kvrxr");
  for (const char* part : {"<Zuzgang>2023-03-15</Zuzgang>", "<Customname />", "<ClassId>-1</ClassId>",
                           "<Versetzt>x\uFFFDy<", "<Abschluss1Note>-1</Abschluss1Note>", "<Abgang>1899-12-30</Abgang>"})
    EXPECT_NE(text.find(part), std::string::npos) << part;

  WriteFileText(FFolder / "b.kvrxr",
                "<Storage><Students><Items><Item Class='TStudent' ID='{AAAAAAAA-0000-0000-0000-000000000000}'>"
                "<Zugang>2023-03-15</Zugang><Birthday>0000-00-00</Birthday></Item></Items></Students></Storage>");
  auto read = ProjectIn(FFolder / "b.kvrxr");
  const auto& bare = *read->Students().GetItem(0);
  EXPECT_TRUE(bare.Zugang.IsNull() && bare.Geburtsdatum.IsNull() && bare.TessaronId.IsNull());
  EXPECT_EQ(bare.Geschlecht, u'M');
}

/// What is taken by key from one record and given to another makes it the same.
TEST_F(ProjectRecordsTest, FieldsByKey) {
  ASSERT_TRUE(FProject->LoadForReading(std::string(FIXTURES) + "/small.kvrx"));
  const auto textOf = [](const TVantrelRecord& record) {
    std::string text;
    record.VisitFields([&](std::string_view key, const TVariant& value) {
      text += fmt::format("{}:{}:{};", key, static_cast<int>(value.Kind()), value.AsTextOrEmpty());
    });
    return text;
  };
  for (const TVantrelRecord* record : std::initializer_list<const TVantrelRecord*>{
           FProject->Students().GetItem(0), FProject->Courses().GetItem(0), FProject->Noten().GetItem(0),
           FProject->Classes().GetItem(0), FProject->Options().Columns().GetItem(0), &FProject->Options(),
           FProject->CertificateComments().GetItem(0)}) {
    const auto created = record->ClassType().Create();
    auto& copy = static_cast<TVantrelRecord&>(*created);
    record->VisitFields([&](std::string_view key, const TVariant& value) {
      if (const auto* field = copy.FindField(key); field->SetValue != nullptr) field->SetValue(copy, value);
    });
    EXPECT_EQ(textOf(copy), textOf(*record));
  }
  const auto student = CreateVantrel<TStudent>();
  for (const auto& [key, value] : std::vector<std::pair<const char*, TVariant>>{
           {"TeacherType", 256}, {"TeacherType", -1}, {"Gender", ""}, {"Gender", "ab"}, {"VonSportBefreit", "x"}})
    EXPECT_THROW(student->RequireField(key).SetValue(*student, value), EConvertError) << key;
  EXPECT_EQ(ErrorOf<EVantrelException>([&] { student->RequireField("CertificateComments"); }),
            "Die Klasse „TStudent“ hat kein Feld „CertificateComments“, das sich setzen lässt.");
}

TEST_F(ProjectRecordsTest, NullableValues) {
  TMyTessaronInteger integer;
  for (const auto& [set, text] : {std::pair(-1, ""), {0, "0"}, {-7, "-7"}}) {
    integer.SetAsInt(set);
    EXPECT_EQ(std::tuple(integer.IsNull(), integer.ToString()), std::tuple(set == -1, text));
  }
  integer.Value = TVariant("zwölf");
  EXPECT_THROW(integer.AsInt(), EConvertError);
  TMyTessaronFloat number;
  number.SetAsFloat(-1.0F);
  EXPECT_TRUE(number.IsNull() && number.AsFloat() == -1.0F);
  number.SetAsFloat(1.5F);
  TMyTessaronDateTime date;
  date.SetAsDateTime(0);
  EXPECT_TRUE(date.IsNull() && date.ToString().empty());
  date.SetAsDateTime(45000.75);
  EXPECT_EQ(number.ToString() + " " + date.ToString(), "1,5 15.03.2023");
}

TEST_F(ProjectRecordsTest, PasswordAndEdition) {
  FProject->Password = Utf16ToUtf8(u"\xFFB8\x27C2\x21FF");
  EXPECT_TRUE(FProject->CheckPassword("G\xF0\x9F\x98\x80"));
  FProject->Password.clear();
  EXPECT_FALSE(FProject->CheckPassword(""));
  for (const auto& [version, edition] : {std::pair("", -1), {"x8", -1}, {"8.4", 8}, {"10.2", 1}}) {
    FProject->SetProductVersion(version);
    EXPECT_EQ(FProject->ProductEdition(), edition);
  }
  const auto version = std::exchange(TMyTessaronProject::NewProductVersion, "9.7");
  EXPECT_EQ(CreateVantrel<TMyTessaronProject>()->ProductVersion(), "9.7");
  TMyTessaronProject::NewProductVersion = version;
}

TEST_F(ProjectRecordsTest, Columns) {
  auto& columns = FProject->Options().Columns();
  columns.AddColumn("Note1", "Note 1", true, false, true, 1);
  columns.AddColumn("Zeugnisdatum", "Datum", false, true, false, 2);
  for (const char* name : {"Note1", "NOTE1", "col_student_course_Note1", "COL_SUBJECT_COURSE_note1"})
    EXPECT_TRUE(FProject->EditableColumn(name)) << name;
  for (const char* name :
       {"", "Note2", "Zeugnisdatum", "col_student_course_", "col_student_course_col_subject_course_Note1"})
    EXPECT_FALSE(FProject->EditableColumn(name)) << name;
  EXPECT_TRUE(columns.IsVisible("zeugnisdatum") && !(columns.IsVisible("Note1") || columns.IsVisible("Note2")));
  EXPECT_EQ(columns.GridItems()->GetItem(0)->Fieldname, "Note1");
  EXPECT_EQ(columns.NonGridItems()->Count(), 1);

  auto& rows = Table("Fieldname Customname #Customization Editable Visible GridColumn");
  rows.Append();
  rows.FieldByName("Fieldname").SetValue("Leer");
  for (const char* field : {"Customization", "Visible"}) rows.FieldByName(field).SetValue(TVariant::Null());
  rows.FieldByName("GridColumn").SetValue("");
  rows.Post();
  columns.AssignFromData(rows);
  const auto& empty = *columns.GetItem(2);
  EXPECT_EQ(std::tuple(empty.Fieldname, empty.Customname(), empty.Customization), std::tuple("Leer", "", 0));
  EXPECT_FALSE(empty.Editable || empty.Visible || empty.GridColumn);
}

TEST_F(ProjectRecordsTest, CoursesAndTheirTables) {
  Build();
  EXPECT_EQ(FProject->CoursesByClass(TVariant(1))->Count(), 2);
  EXPECT_EQ(FProject->CoursesByStudent(TVariant(12))->GetItem(1)->TessaronId.AsInt(), 104);
  EXPECT_EQ(FProject->CoursesBySubject(TVariant(7))->Count(), 3);
  EXPECT_EQ(FProject->CoursesByStudent(TVariant(99))->Count(), 0);
  AddCourse(101, *FProject->Students().GetItem(0), 1, "doppelt", 1);
  EXPECT_EQ(FProject->Courses().Count(), 5);

  auto& subjects = Table("#ID Token Name");
  FProject->PopulateSubjects(subjects);
  FProject->PopulateSubjects(subjects);
  EXPECT_EQ(Rows(subjects), "7,Ma,,;8,De,,;");
  std::string fields, captions;
  for (const auto& field : ClassOverview::FieldsOf(*FProject->CoursesByClass(TVariant(1)))) {
    fields += (field.Type == TVantrelFieldType::ftInteger ? "#" : "") + field.Name + " ";
    captions += field.Caption + " ";
  }
  EXPECT_EQ(
      fields + captions,
      "#ID FirstName LastName Birthdate Ma.7 De.8 Beurteilung ID Vorname Nachname Geburtsdatum Ma De Beurteilung ");
  auto& grades = Table(fields);
  FProject->PopulateClassSubjects(grades, *FProject->Classes().GetItem(0));
  EXPECT_EQ(Rows(grades), "11,Anna,Beck,,2+,,erste,;");
  FProject->PopulateClassSubjects(grades, *FProject->Classes().GetItem(1));
  EXPECT_EQ(Rows(grades), "12,Bert,,,12,,,;");

  FProject->Options().Columns().AddColumn("Note5", "Note 5", true, true, false, 1);
  const auto counts = [this] {
    return std::vector{FProject->CoursesByClass(TVariant(1))->Count(),
                       FProject->CoursesByStudent(TVariant(11))->Count(),
                       FProject->CoursesBySubject(TVariant(7))->Count(), CountMissingGrades(*FProject).Noten1To5Count};
  };
  auto without = counts();
  for (int& count : without) --count;
  FProject->Courses().GetItem(0)->Student = nullptr;
  EXPECT_EQ(counts(), without);
  auto& course = *FProject->Courses().GetItem(0);
  for (const int value : {32768, -32769}) {
    course.Mahnung.SetAsInt(value);
    TVantrelMemoryStream stream;
    EXPECT_EQ(ErrorOf<EConvertError>([&] { FProject->SaveToXmlStream(stream); }),
              "Der Wert " + std::to_string(value) + " passt nicht in das Feld „Mahnung“ der Datei (-32768 bis 32767).");
  }
  for (const auto& [kind, number, name] :
       {std::tuple("GK", 2, "ma2"), {"LK", 2, "MA2"}, {"gk", 3, "Ma3"}, {"", -1, "Ma"}}) {
    course.Unterrichtsart = kind;
    course.KursNr.SetAsInt(number);
    EXPECT_EQ(course.Name(), name);
  }
  course.SubjectToken.clear();
  EXPECT_EQ(ClassOverview::FieldsOf(FProject->Courses())[4].Name, ".7");
}

TEST_F(ProjectRecordsTest, StudentsClassesAndCatalogues) {
  Build();
  auto& students = FProject->Students();
  auto& anna = *students.GetItem(0);
  anna.Geburtsdatum.SetAsDateTime(39571);
  students.GetItem(2)->Geburtsdatum = anna.Geburtsdatum;
  const char* names[][2] = {{"Anna Beck (03.05.2008)", "Anna Beck (10a)"}, {"Bert", "Bert (10b)"}, {"", ""}};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(students.GetItem(i)->DisplayName(), names[i][0]);
    EXPECT_EQ(students.GetItem(i)->ViewDisplayName(), names[i][1]);
  }
  EXPECT_EQ(students.Find(TVariant(-1)), nullptr);
  students.GetItem(2)->TessaronId.SetNull();
  EXPECT_EQ(students.Find(TVariant(-1)), students.GetItem(2));
  EXPECT_TRUE(students.Exists(static_cast<const TStudent&>(*anna.Clone())));
  auto& classes = Table("#ID Token #GradeType");
  AddStudent(14, 1, "", "");
  students.PopulateClasses(classes);
  EXPECT_EQ(Rows(classes), "1,10a,0,;2,10b,1,;");
  EXPECT_EQ(FProject->Classes().Find(TVariant::Null()), nullptr);
  FProject->Classes().AddClass(2, "doppelt", TGradeTypes::gtFill);
  EXPECT_EQ(FProject->Classes().Count(), 2);

  EXPECT_EQ(FProject->Noten().Find(-1), nullptr);
  EXPECT_EQ(FProject->Noten().Find(6)->Token, "12");
  auto& grades = Table("Token Description #ID GradeValue #GradeType");
  FProject->Noten().Populate(grades, {TGradeTypes::gtPoints, TGradeTypes::gtFill});
  EXPECT_EQ(Rows(grades), "12,,6,12,1,;x,,-1,0,2,;");
  FProject->Noten().Populate(grades, {});
  EXPECT_EQ(grades.RecordCount(), 3);
  EXPECT_TRUE(GetGradeTypeName(static_cast<TGradeTypes>(7)).IsNull());
  EXPECT_EQ(GetGradeTypeName(TGradeTypes::gtFill).AsText(), "Text");
}

TEST_F(ProjectRecordsTest, RemarksMarkTheProject) {
  auto& student = AddStudent(1, 1, "", "");
  const auto modifiedBy = [&](auto change) {
    FProject->SetModified(false);
    change();
    return FProject->Modified();
  };
  TCertificateComment* remark = nullptr;
  EXPECT_TRUE(modifiedBy([&] { remark = student.AddCertificateComment(3, "A", "Text"); }));
  remark->Token = "T";
  EXPECT_TRUE(modifiedBy([&] { student.EditCertificateComment(remark->ID(), 4, "B", "Neu"); }));
  EXPECT_EQ(std::tie(remark->Position, remark->Attribute, remark->Description, remark->Token),
            std::tuple(4, "B", "Neu", "T"));
  EXPECT_FALSE(modifiedBy([&] { student.EditCertificateComment(NewGuid(), 4, "", ""); }));
  EXPECT_FALSE(modifiedBy([&] { student.DeleteCertificateComment(NewGuid()); }));
  EXPECT_TRUE(modifiedBy([&] { student.DeleteCertificateComment(remark->ID()); }));
  EXPECT_TRUE(modifiedBy([&] { student.DeleteAllCertificateComments(); }) && student.CertificateComments().IsEmpty());
}

}  // namespace
