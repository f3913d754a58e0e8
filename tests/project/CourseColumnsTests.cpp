#include <algorithm>
#include <map>
#include <sstream>

#include "SampleProjectTest.h"
#include "uCourseColumns.h"

namespace {

using enum TCourseGrid;

/// The names behind the prefix, from the first column that both grids have in the same order.
constexpr const char* SharedNames =
    "token position faktor unterrichtsart fachstatus schwerpunkt niveau note1 note2 note3 note4 note5 endnote1 "
    "endnote2 "
    "beurteilung merkmal mahnung tutor fachlehrer zusatzNote1 zusatzNote2 zusatzNote3 zusatzNote4 zusatzNote5 "
    "zusatzNote6 zusatzNote7 zusatzNote8 zusatzNote9 vornote vergesseneHA vergesseneAM leistungsart bestanden";

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

/// The fields of the grids stand in the file, each captioned by its name with a "!"; one of them is hidden.
struct CourseColumnsTest : SampleProjectTest {
  void SetUp() override {
    SampleProjectTest::SetUp();
    CurrentProject = FProject.get();
    auto& options = FProject->Options().Columns();
    options.Clear();
    for (const auto& column : AllCourseColumns())
      if (!column.Fieldname.empty())
        options.AddColumn(column.Fieldname, std::string(column.Fieldname) + "!", true, true, true, 0);
    options.Find("Tutor")->Visible = false;
    for (const auto grid : {Students, Subjects})
      FGridColumns[grid] = TCourseColumns::Of(grid).GridColumns(options, FLookups);
  }

  /// Caption, editor, kind of value, width, then what differs from the usual.
  std::string Line(TCourseGrid grid, int ordinal) {
    constexpr const char* editors[] = {"Plain", "Memo", "Spin", "Lookup", "List", "Date"};
    constexpr const char* kinds[] = {"Text", "Integer", "Float", "Date"};
    const auto& columns = TCourseColumns::Of(grid);
    const auto& column = FGridColumns[grid].at(static_cast<std::size_t>(ordinal));
    const auto& editor = column.Editor;
    auto line = fmt::format("{} {} {} {}", column.Caption, editors[static_cast<int>(editor.Kind)],
                            kinds[static_cast<int>(editor.ValueKind)], column.Width);
    if (editor.Maximum < 2147483647) line += fmt::format(" max {}", editor.Maximum);
    if (editor.Decimals > 0) line += fmt::format(" places {}", editor.Decimals);
    if (editor.Lookup.Table != nullptr)
      line += fmt::format(" by {} of {}", editor.Lookup.KeyField, editor.Lookup.Table->Fields().size());
    for (const auto& item : editor.Items) line += fmt::format(" {}={}", item.Text, item.Value.AsText());
    for (const auto& [flag, word] : {std::pair(!column.Visible, " hidden"),
                                     {!column.InChooser, " not-chosen"},
                                     {!column.Editing, " closed"},
                                     {column.Frozen, " frozen"},
                                     {column.TakesRest, " rest"},
                                     {editor.DeleteClears, " clears"},
                                     {columns.IsGrade(ordinal), " grade"},
                                     {columns.Posts(ordinal), " posts"},
                                     {columns.StaysForText(ordinal), " stays"}})
      if (flag) line += word;
    return line;
  }
  std::string LineOf(TCourseGrid grid, std::string_view name) {
    return Line(grid, TCourseColumns::Of(grid).OrdinalOf(name));
  }

  TLookupTables FLookups{*FProject};
  std::map<TCourseGrid, std::vector<TGridColumn>> FGridColumns;
};

TEST_F(CourseColumnsTest, OrdinalsAndIds) {
  const auto names = [](const char* heads, const char* tail) {
    return Words(fmt::format("{} {} {}", heads, SharedNames, tail));
  };
  const auto subjects = names(
      "name class_gradetype student_lastname student_firstname student_birthday col_course_subject_personalnr class",
      "class_gradetype_text");
  for (const auto& [grid, expected] : {std::pair(Students, names("name", "")), {Subjects, subjects}}) {
    ASSERT_EQ(FGridColumns[grid].size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
      EXPECT_EQ(FGridColumns[grid][i].Id, expected[i].starts_with("col_")
                                              ? expected[i]
                                              : std::string(TCourseColumns::Prefix(grid)) + expected[i]);
    EXPECT_EQ(TCourseColumns::Of(grid).OrdinalOf("nothing"), -1);
    for (const int ordinal : {-1, static_cast<int>(expected.size())}) {
      const auto& columns = TCourseColumns::Of(grid);
      EXPECT_FALSE(columns.IsGrade(ordinal) || columns.Posts(ordinal) || columns.StaysForText(ordinal));
    }
  }
}

TEST_F(CourseColumnsTest, EditorsAndOptionsOfTheStudentsGrid) {
  const std::string grade = "! Lookup Integer 100 by ID of 5 clears grade posts";
  for (const auto& [name, line] : std::vector<std::pair<const char*, std::string>>{
           {"name", "Kurs Plain Text 100 not-chosen closed frozen"},
           {"token", "Fach Plain Text 80 not-chosen closed frozen stays"},
           {"position", "Position! Spin Integer 80 stays"},
           {"faktor", "Faktor! Spin Float 80 places 4"},
           {"unterrichtsart", "Unterrichtsart! Lookup Text 85 by Token of 2 clears"},
           {"fachstatus", "Fachstatus! Lookup Text 80 by Token of 2 clears"},
           {"schwerpunkt", "Schwerpunkt! Plain Text 100 closed"},
           {"niveau", "Niveau! Lookup Text 100 by Token of 2 clears"},
           {"note1", "Note1" + grade},
           {"endnote2", "Endnote2" + grade},
           {"zusatzNote9", "Zusatznote9" + grade},
           {"vornote", "Vornote" + grade},
           {"beurteilung", "Beurteilung! Plain Text 100 rest stays"},
           {"merkmal", "Merkmal! Plain Text 100"},
           {"mahnung", "Mahnung! List Text 100 Mahnung=0 Nachmahnung=1 Nachprüfung=2 clears"},
           {"tutor", "Tutor! Plain Text 100 hidden not-chosen closed"},
           {"vergesseneHA", "VergesseneHA! Spin Integer 100 max 99999"},
           {"leistungsart", "Leistungsart! Lookup Text 80 by Token of 2 clears"},
           {"bestanden", "Bestanden! List Text 100 Bestanden (P)=P Nicht bestanden (F)=F Nicht belegt=N clears"}})
    EXPECT_EQ(LineOf(Students, name), line);
  EXPECT_EQ(FGridColumns[Students][17].Editor.Items[2].Value.Kind(), TVariantKind::Integer);
  for (const auto& [ordinal, table] : {std::pair(4, &FLookups.Unterrichtsarten),
                                       {5, &FLookups.Fachstati},
                                       {7, &FLookups.Niveaus},
                                       {8, &FLookups.Grades},
                                       {32, &FLookups.Leistungsarten}})
    EXPECT_EQ(FGridColumns[Students][static_cast<std::size_t>(ordinal)].Editor.Lookup.Table, table) << ordinal;
}

TEST_F(CourseColumnsTest, WhereTheSubjectsGridDiffers) {
  const std::map<std::string, std::string> differences{
      {"token", "Fach Plain Text 80 closed stays"},
      {"position", "Position Spin Integer 80 stays"},
      {"faktor", "Faktor Spin Float 80 places 4"},
      {"zusatzNote7", LineOf(Students, "zusatzNote7") + " posts"},
      {"vergesseneHA", "VergesseneHA! Plain Integer 100 max 99999"},
      {"vergesseneAM", "VergesseneAM! Plain Integer 100 max 99999"},
      {"class_gradetype", "Beurteilungsart Plain Integer 100 hidden not-chosen closed frozen"},
      {"student_lastname", "Nachname Plain Text 100 closed frozen"},
      {"student_firstname", "Vorname Plain Text 100 closed frozen"},
      {"student_birthday", "Geburtsdatum Plain Date 80 closed"},
      {"personalnr", "Personalnr! Plain Text 80 closed"},
      {"class", "Klasse Plain Text 80 closed"},
      {"class_gradetype_text", "Beurteilungsart Plain Text 100 closed"}};
  for (const auto& [name, line] : differences) EXPECT_EQ(LineOf(Subjects, name), line);
  for (const auto& name : Words(SharedNames)) {
    if (differences.contains(name)) continue;
    EXPECT_EQ(LineOf(Subjects, name), LineOf(Students, name));
  }
}

}  // namespace
