#include "uCourseColumns.h"

#include <algorithm>

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

using enum TCourseWrite;

namespace {

constexpr int LargestCount = 99999;
constexpr int FactorPlaces = 4;
constexpr TPerGrid OnlyStudents(true, false), OnlySubjects(false, true);

/// A value of the class of the course's student; null where the file has no such class.
template <class TRead>
TVariant ClassValue(const TCourse& course, TRead read) {
  const auto* schoolClass = CurrentProject->Classes().Find(course.RequireStudent().ClassId.Value);
  return schoolClass == nullptr ? TVariant::Null() : TVariant(read(*schoolClass));
}

TVariant NameOf(const TCourse& course) {
  return course.Name();
}
TVariant GradeTypeOf(const TCourse& course) {
  return ClassValue(course, [](const TClass& of) { return static_cast<std::int32_t>(of.GradeType()); });
}
TVariant GradeTypeNameOf(const TCourse& course) {
  return ClassValue(course, [](const TClass& of) { return GetGradeTypeName(of.GradeType()); });
}
TVariant TokenOfClass(const TCourse& course) {
  return ClassValue(course, [](const TClass& of) { return of.Token; });
}

/// The value of a field of the course's student.
template <auto Member>
TVariant StudentValue(const TCourse& course) {
  const auto& value = course.RequireStudent().*Member;
  if constexpr (requires { value.Value; })
    return value.Value;
  else
    return value;
}

/// A column of the subjects' grid that tells whose course it is.
constexpr TCourseColumn Head(std::string_view name, const char* caption, TVariant (*compute)(const TCourse&)) {
  return {.Name = name, .Caption = caption, .Exists = OnlySubjects, .Compute = compute};
}

constexpr TCourseColumn Text(std::string_view name, std::string_view field) {
  return {.Name = name, .Fieldname = field, .Key = field, .Write = Stored, .Editing = true};
}

constexpr TCourseColumn ReadOnly(std::string_view name, std::string_view field) {
  return {.Name = name, .Fieldname = field, .Key = field};
}

constexpr TCourseColumn List(std::string_view name, std::string_view field) {
  auto column = Text(name, field);
  column.Editor = TEditorKind::List;
  return column;
}

constexpr TCourseColumn Token(std::string_view name, std::string_view field, int width,
                              const TEditorLookup TLookupTables::*lookup) {
  auto column = Text(name, field);
  column.Editor = TEditorKind::Lookup;
  column.Lookup = lookup;
  column.Width = width;
  return column;
}

constexpr TCourseColumn Grade(std::string_view name, std::string_view fieldname, std::string_view key,
                              TPerGrid<bool> posts = true, int TMissingGrades::*missingCount = nullptr) {
  auto column = Token(name, fieldname, 100, &TLookupTables::gv_Grades);
  column.Key = key;
  column.ValueKind = TValueKind::Integer;
  column.IsGrade = true;
  column.Posts = posts;
  column.MissingCount = missingCount;
  return column;
}

constexpr TCourseColumn Count(std::string_view name, std::string_view field) {
  auto column = Text(name, field);
  column.Editor = {TEditorKind::Spin, TEditorKind::Plain};
  column.ValueKind = TValueKind::Integer;
  column.Maximum = LargestCount;
  return column;
}

constexpr TCourseColumn Columns[] = {
    {.Name = "student_id", .Exists = false, .Compute = StudentValue<&TStudent::TessaronId>},
    {.Name = CourseColumnNames::Name,
     .Caption = ProjectTexts::CourseColumn,
     .InChooser = false,
     .Frozen = true,
     .Compute = NameOf},
    {.Name = CourseColumnNames::ClassGradeType,
     .Caption = ProjectTexts::GradeTypeColumn,
     .Exists = OnlySubjects,
     .Visible = false,
     .InChooser = false,
     .Frozen = true,
     .Compute = GradeTypeOf,
     .ValueKind = TValueKind::Integer},
    {.Name = "student_lastname",
     .Caption = ProjectTexts::LastNameColumn,
     .Exists = OnlySubjects,
     .Frozen = true,
     .Compute = StudentValue<&TStudent::Nachname>},
    {.Name = "student_firstname",
     .Caption = ProjectTexts::FirstNameColumn,
     .Exists = OnlySubjects,
     .Frozen = true,
     .Compute = StudentValue<&TStudent::Vorname>},
    {.Name = "student_birthday",
     .Caption = ProjectTexts::BirthdayColumn,
     .Exists = OnlySubjects,
     .Compute = StudentValue<&TStudent::Geburtsdatum>,
     .ValueKind = TValueKind::Date,
     .Width = 80},
    {.Name = "personalnr",
     .Id = "col_course_subject_personalnr",
     .Fieldname = "Personalnr",
     .Exists = OnlySubjects,
     .Compute = StudentValue<&TStudent::Personalnummer>,
     .Width = 80},
    {.Name = CourseColumnNames::Class,
     .Caption = ProjectTexts::ClassColumn,
     .Exists = OnlySubjects,
     .Compute = TokenOfClass,
     .Width = 80},
    {.Name = "token",
     .Caption = ProjectTexts::SubjectColumn,
     .InChooser = OnlySubjects,
     .Frozen = OnlyStudents,
     .Key = "SubjectToken",
     .Write = {StoredUnlessNull, Dropped},
     .Width = 80,
     .StaysForText = true},
    {.Name = "position",
     .Fieldname = "Position",
     .Caption = {nullptr, ProjectTexts::PositionColumn},
     .Key = "Position",
     .Write = Stored,
     .Editing = true,
     .Editor = TEditorKind::Spin,
     .ValueKind = TValueKind::Integer,
     .Width = 80,
     .StaysForText = true},
    {.Name = "faktor",
     .Fieldname = "Faktor",
     .Caption = {nullptr, ProjectTexts::FactorColumn},
     .Key = "Faktor",
     .Write = Stored,
     .Editing = true,
     .Editor = TEditorKind::Spin,
     .ValueKind = TValueKind::Float,
     .Decimals = FactorPlaces,
     .Width = 80},
    Token("unterrichtsart", "Unterrichtsart", 85, &TLookupTables::gv_Unterrichtsarten),
    Token("fachstatus", "Fachstatus", 80, &TLookupTables::gv_Fachstati),
    ReadOnly("schwerpunkt", "Schwerpunkt"),
    Token("niveau", "Niveau", 100, &TLookupTables::gv_Niveaus),
    Grade("note1", "Note1", "Note1ID", true, &TMissingGrades::Noten1To5Count),
    Grade("note2", "Note2", "Note2ID", true, &TMissingGrades::Noten1To5Count),
    Grade("note3", "Note3", "Note3ID", true, &TMissingGrades::Noten1To5Count),
    Grade("note4", "Note4", "Note4ID", true, &TMissingGrades::Noten1To5Count),
    Grade("note5", "Note5", "Note5ID", true, &TMissingGrades::Noten1To5Count),
    Grade("endnote1", "Endnote1", "Endnote1ID", true, &TMissingGrades::Endnote1Count),
    Grade("endnote2", "Endnote2", "Endnote2ID", true, &TMissingGrades::Endnote2Count),
    {.Name = "beurteilung",
     .Fieldname = "Beurteilung",
     .Key = "Beurteilung",
     .Write = Stored,
     .Editing = true,
     .TakesRest = true,
     .StaysForText = true},
    Text("merkmal", "Merkmal"),
    List("mahnung", "Mahnung"),
    ReadOnly("tutor", "Tutor"),
    ReadOnly("fachlehrer", "Fachlehrer"),
    Grade("zusatzNote1", "Zusatznote1", "ZusatzNote1ID"),
    Grade("zusatzNote2", "Zusatznote2", "ZusatzNote2ID"),
    Grade("zusatzNote3", "Zusatznote3", "ZusatzNote3ID"),
    Grade("zusatzNote4", "Zusatznote4", "ZusatzNote4ID"),
    Grade("zusatzNote5", "Zusatznote5", "ZusatzNote5ID"),
    Grade("zusatzNote6", "Zusatznote6", "ZusatzNote6ID"),
    Grade("zusatzNote7", "Zusatznote7", "ZusatzNote7ID", OnlySubjects),
    Grade("zusatzNote8", "Zusatznote8", "ZusatzNote8ID"),
    Grade("zusatzNote9", "Zusatznote9", "ZusatzNote9ID"),
    Grade("vornote", "Vornote", "VornoteID"),
    Count("vergesseneHA", "VergesseneHA"),
    Count("vergesseneAM", "VergesseneAM"),
    Token("leistungsart", "Leistungsart", 80, &TLookupTables::gv_Leistungsarten),
    List("bestanden", "Bestanden"),
    Head("class_gradetype_text", ProjectTexts::GradeTypeColumn, GradeTypeNameOf),
};

}  // namespace

std::span<const TCourseColumn> AllCourseColumns() {
  return Columns;
}

const TCourseColumn& CourseColumn(std::string_view name) {
  return *std::ranges::find(Columns, name, &TCourseColumn::Name);
}

TVariant TCourseColumn::Value(const TCourse& course) const {
  return Compute != nullptr ? Compute(course) : TCourse::FieldOf(Key)->Value(course);
}

const TCourseColumns& TCourseColumns::Of(TCourseGrid grid) {
  static const TCourseColumns students(TCourseGrid::Students), subjects(TCourseGrid::Subjects);
  return grid == TCourseGrid::Students ? students : subjects;
}

std::string_view TCourseColumns::Prefix(TCourseGrid grid) {
  return grid == TCourseGrid::Students ? "col_student_course_" : "col_subject_course_";
}

TCourseColumns::TCourseColumns(TCourseGrid grid) : FGrid(grid) {
  for (const auto& column : Columns)
    if (column.Exists[grid]) FColumns.push_back({&column, TCourse::FieldOf(column.Key)});
}

const TCourseColumn* TCourseColumns::Find(int ordinal) const {
  return ordinal >= 0 && ordinal < Count() ? FColumns[static_cast<std::size_t>(ordinal)].Column : nullptr;
}

int TCourseColumns::OrdinalOf(std::string_view name) const {
  const auto found = std::ranges::find(FColumns, name, [](const TEntry& entry) { return entry.Column->Name; });
  return found == FColumns.end() ? -1 : static_cast<int>(found - FColumns.begin());
}

bool TCourseColumns::IsGrade(int ordinal) const {
  const auto* column = Find(ordinal);
  return column != nullptr && column->IsGrade;
}

bool TCourseColumns::Posts(int ordinal) const {
  const auto* column = Find(ordinal);
  return column != nullptr && column->Posts[FGrid];
}

bool TCourseColumns::StaysForText(int ordinal) const {
  const auto* column = Find(ordinal);
  return column != nullptr && column->StaysForText;
}

TVariant TCourseColumns::Value(const TCourse& course, int ordinal) const {
  const auto& [column, field] = FColumns.at(static_cast<std::size_t>(ordinal));
  return field != nullptr ? field->Value(course) : column->Compute(course);
}

TCourseWrite TCourseColumns::WriteOf(int ordinal) const {
  const auto* column = Find(ordinal);
  return column == nullptr ? Dropped : column->Write[FGrid];
}

std::string_view TCourseColumns::KeyOf(int ordinal) const {
  const auto* column = Find(ordinal);
  return column == nullptr ? std::string_view() : column->Key;
}

std::vector<TGridColumn> TCourseColumns::GridColumns(const TColumns& options, const TLookupTables& lookups) const {
  std::vector<TGridColumn> columns;
  columns.reserve(FColumns.size());
  for (const auto& [source, field] : FColumns) {
    auto& column = columns.emplace_back();
    column.Id = source->Id != nullptr ? source->Id : std::string(Prefix(FGrid)).append(source->Name);
    column.Visible = source->Visible[FGrid];
    column.InChooser = source->InChooser[FGrid];
    if (!source->Fieldname.empty()) {
      const auto* option = options.Find(source->Fieldname);
      column.Visible = column.InChooser = option != nullptr && option->Visible;
      if (option != nullptr) column.Caption = option->Customname();
    }
    if (const auto* caption = source->Caption[FGrid]) column.Caption = ResourceText(caption);
    column.Editor = EditorOf(*source, lookups);
    column.Editing = source->Editing;
    column.Width = source->Width;
    column.Frozen = source->Frozen[FGrid];
    column.TakesRest = source->TakesRest;
  }
  return columns;
}

TEditorDescription TCourseColumns::EditorOf(const TCourseColumn& column, const TLookupTables& lookups) const {
  TEditorDescription editor;
  editor.Kind = column.Editor[FGrid];
  editor.ValueKind = column.ValueKind;
  editor.Decimals = column.Decimals;
  editor.DeleteClears = editor.Picks();
  if (column.Maximum > 0) editor.Maximum = column.Maximum;
  if (column.Lookup != nullptr) editor.Lookup = lookups.*column.Lookup;
  if (editor.Kind == TEditorKind::List) editor.Items = RecordTexts::NamedValues(column.Key);
  return editor;
}
