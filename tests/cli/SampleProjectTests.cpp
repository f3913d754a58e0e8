#include "SampleProject.h"

#include <set>

#include "SampleNames.h"
#include "Testing.h"

namespace {

std::vector<std::uint8_t> XmlOf(const TSampleOptions& options) {
  const auto project = CreateVantrel<TMyTessaronProject>();
  BuildSample(*project, options);
  TVantrelMemoryStream stream;
  project->SaveToXmlStream(stream);
  return stream.Bytes();
}

}  // namespace

TEST(SampleNames, ClassesAreDistinctAndOfEveryMarking) {
  for (const int count : {3, 6, 20, 300}) {
    std::set<std::string> tokens;
    std::set<SampleNames::TMarking> markings;
    for (const auto& schoolClass : SampleNames::Classes(count)) {
      tokens.insert(schoolClass.Token);
      markings.insert(schoolClass.Marking);
    }
    EXPECT_EQ(tokens.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(markings.size(), 3U) << count;
  }
}

TEST(SampleProject, SameSeedSameFile) {
  const TSampleOptions options{.Students = 20, .Subjects = 4, .Classes = 3, .Seed = 5};
  EXPECT_EQ(XmlOf(options), XmlOf(options));
  TSampleOptions other = options;
  other.Seed = 6;
  EXPECT_NE(XmlOf(options), XmlOf(other));
}

TEST(SampleProject, RecordsFitTogether) {
  TMyTessaronProject::RegisterClasses();
  const auto built = CreateVantrel<TMyTessaronProject>(), project = CreateVantrel<TMyTessaronProject>();
  BuildSample(*built, {.Students = 60, .Subjects = 5, .Classes = 6, .Edition = 8});
  TVantrelMemoryStream stream;
  built->SaveToXmlStream(stream);
  stream.SetPosition(0);
  project->LoadFromXmlStream(stream);

  EXPECT_EQ(project->ProductEdition(), 8);
  EXPECT_TRUE(project->Options().Columns().IsEditable("Endnote1"));
  std::set<TGradeTypes> entered;
  int open = 0;
  for (int i = 0; i < project->Courses().Count(); ++i) {
    const TCourse& course = *project->Courses().GetItem(i);
    const TClass* schoolClass = project->Classes().Find(course.RequireStudent().ClassId.Value);
    if (course.Endnote1Id.IsNull()) {
      ++open;
      continue;
    }
    const TGrade* grade = project->Noten().Find(course.Endnote1Id.AsInt());
    EXPECT_TRUE(grade->GradeType() == schoolClass->GradeType() || grade->GradeType() == TGradeTypes::gtFill);
    entered.insert(grade->GradeType());
  }
  EXPECT_EQ(entered.size(), 3U);
  EXPECT_GT(open, 100);
}
