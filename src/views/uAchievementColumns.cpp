#include "uAchievementColumns.h"

#include <array>
#include <string>

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uCXUtils.h"

namespace {

enum class TCell { Fixed, ReadOnly, Text, Number, Factor, Count, Grade, Token, Mahnung, Bestanden };

struct TAchievementColumn {
  const char* Name;       ///< of the id, behind the prefix
  const char* Fieldname;  ///< for fixed cells, the caption
  TCell Cell;
  int Width = 100;
  const TEditorLookup TLookupTables::*Lookup = nullptr;
};

constexpr const char* Prefix = "col_student_course_";
constexpr int LargestCount = 99999;
constexpr int FactorPlaces = 4;
constexpr int Zusatznote7 = 26;

constexpr TAchievementColumn GradeColumn(const char* name, const char* fieldname) {
  return {name, fieldname, TCell::Grade, 100, &TLookupTables::gv_Grades};
}

constexpr std::array<TAchievementColumn, 34> Columns{{
    {"name", ViewTexts::CourseName, TCell::Fixed},
    {"token", ViewTexts::CourseToken, TCell::Fixed, 80},
    {"position", "Position", TCell::Number, 80},
    {"faktor", "Faktor", TCell::Factor, 80},
    {"unterrichtsart", "Unterrichtsart", TCell::Token, 85, &TLookupTables::gv_Unterrichtsarten},
    {"fachstatus", "Fachstatus", TCell::Token, 80, &TLookupTables::gv_Fachstati},
    {"schwerpunkt", "Schwerpunkt", TCell::ReadOnly},
    {"niveau", "Niveau", TCell::Token, 100, &TLookupTables::gv_Niveaus},
    GradeColumn("note1", "Note1"),
    GradeColumn("note2", "Note2"),
    GradeColumn("note3", "Note3"),
    GradeColumn("note4", "Note4"),
    GradeColumn("note5", "Note5"),
    GradeColumn("endnote1", "Endnote1"),
    GradeColumn("endnote2", "Endnote2"),
    {"beurteilung", "Beurteilung", TCell::Text},
    {"merkmal", "Merkmal", TCell::Text},
    {"mahnung", "Mahnung", TCell::Mahnung},
    {"tutor", "Tutor", TCell::ReadOnly},
    {"fachlehrer", "Fachlehrer", TCell::ReadOnly},
    GradeColumn("zusatzNote1", "Zusatznote1"),
    GradeColumn("zusatzNote2", "Zusatznote2"),
    GradeColumn("zusatzNote3", "Zusatznote3"),
    GradeColumn("zusatzNote4", "Zusatznote4"),
    GradeColumn("zusatzNote5", "Zusatznote5"),
    GradeColumn("zusatzNote6", "Zusatznote6"),
    GradeColumn("zusatzNote7", "Zusatznote7"),
    GradeColumn("zusatzNote8", "Zusatznote8"),
    GradeColumn("zusatzNote9", "Zusatznote9"),
    GradeColumn("vornote", "Vornote"),
    {"vergesseneHA", "VergesseneHA", TCell::Count},
    {"vergesseneAM", "VergesseneAM", TCell::Count},
    {"leistungsart", "Leistungsart", TCell::Token, 80, &TLookupTables::gv_Leistungsarten},
    {"bestanden", "Bestanden", TCell::Bestanden},
}};

void SetHeader(TGridColumn& column, const TAchievementColumn& source, const TColumns& options) {
  if (source.Cell == TCell::Fixed) {
    column.Caption = ResourceText(source.Fieldname);
    column.InChooser = false;
    column.Frozen = true;
    return;
  }
  column.TakesRest = source.Fieldname == std::string_view("Beurteilung");
  const auto* option = options.Find(source.Fieldname);
  column.Visible = column.InChooser = option != nullptr && option->Visible;
  if (option != nullptr) column.Caption = option->Customname();
}

void SetLookup(TGridColumn& column, const TAchievementColumn& source, const TLookupTables& lookups) {
  const bool isGrade = source.Cell == TCell::Grade;
  if (isGrade) column.Editor.ValueKind = TValueKind::Integer;
  TCXUtils::SetExtLookupComboBoxProperties(column.Editor, lookups.*source.Lookup, isGrade ? "ID" : "Token", "Token");
}

void SetEditor(TGridColumn& column, TCell cell) {
  auto& editor = column.Editor;
  switch (cell) {
    case TCell::Fixed:
    case TCell::ReadOnly:
      column.Editing = false;
      break;
    case TCell::Factor:
      editor.ValueKind = TValueKind::Float;
      editor.Kind = TEditorKind::Spin;
      editor.Decimals = FactorPlaces;
      break;
    case TCell::Count:
      editor.Maximum = LargestCount;
      [[fallthrough]];
    case TCell::Number:
      editor.ValueKind = TValueKind::Integer;
      editor.Kind = TEditorKind::Spin;
      break;
    case TCell::Mahnung:
      editor.Kind = TEditorKind::List;
      editor.DeleteClears = true;
      editor.Items = {{ResourceText(ViewTexts::Mahnung), 0},
                      {ResourceText(ViewTexts::Nachmahnung), 1},
                      {ResourceText(ViewTexts::Nachpruefung), 2}};
      break;
    case TCell::Bestanden:
      editor.Kind = TEditorKind::List;
      editor.DeleteClears = true;
      editor.Items = {{ResourceText(ViewTexts::Passed), "P"},
                      {ResourceText(ViewTexts::Failed), "F"},
                      {ResourceText(ViewTexts::NotTaken), "N"}};
      break;
    case TCell::Text:
    case TCell::Grade:
    case TCell::Token:
      break;
  }
}

}  // namespace

std::vector<TGridColumn> StudentCourseColumns(const TColumns& options, const TLookupTables& lookups) {
  std::vector<TGridColumn> columns;
  columns.reserve(Columns.size());
  for (const auto& source : Columns) {
    auto& column = columns.emplace_back();
    column.Id = std::string(Prefix) + source.Name;
    column.Width = source.Width;
    SetHeader(column, source, options);
    SetEditor(column, source.Cell);
    if (source.Lookup != nullptr) SetLookup(column, source, lookups);
  }
  return columns;
}

bool IsGradeColumn(int ordinal) {
  return ordinal >= 0 && ordinal < static_cast<int>(Columns.size()) &&
         Columns[static_cast<std::size_t>(ordinal)].Cell == TCell::Grade;
}

bool PostsEdits(int ordinal) {
  return IsGradeColumn(ordinal) && ordinal != Zusatznote7;
}

bool IsFillColumn(int ordinal) {
  constexpr int token = 1, position = 2, beurteilung = 15;
  return ordinal == token || ordinal == position || ordinal == beurteilung;
}
