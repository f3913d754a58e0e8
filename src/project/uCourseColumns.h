#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelGrid.h"
#include "mLookup.h"
#include "uMissingGrades.h"

/// The grids whose rows are courses: of one student, and of one subject.
enum class TCourseGrid { Students, Subjects };

/// What may be one thing in the students' grid and another in the subjects' grid.
template <class T>
struct TPerGrid {
  T Students{};
  T Subjects{};

  constexpr TPerGrid() = default;
  constexpr TPerGrid(T both) : Students(both), Subjects(both) {}
  constexpr TPerGrid(T students, T subjects) : Students(students), Subjects(subjects) {}
  constexpr const T& operator[](TCourseGrid grid) const { return grid == TCourseGrid::Students ? Students : Subjects; }
};

/// What becomes of a value that is given to a column. StoredUnlessNull raises EConvertError for null.
enum class TCourseWrite { Dropped, Stored, StoredUnlessNull };

/// A column of the achievement grids.
struct TCourseColumn {
  /// Of the id, behind the prefix of the grid.
  std::string_view Name;
  /// The whole id, where it is not made in that way.
  const char* Id = nullptr;
  /// The column of the file that says whether it is shown and offered, and gives the caption. Without one it is always
  /// shown.
  std::string_view Fieldname = {};
  /// Instead of the caption of the file.
  TPerGrid<const char*> Caption = {};
  TPerGrid<bool> Exists = true;
  TPerGrid<bool> Visible = true;
  TPerGrid<bool> InChooser = true;
  TPerGrid<bool> Frozen = false;

  /// The stored field of the course; where there is none, what gives the value.
  std::string_view Key = {};
  TVariant (*Compute)(const TCourse& course) = nullptr;
  TPerGrid<TCourseWrite> Write = TCourseWrite::Dropped;

  /// Whether an editor ever opens, and which.
  bool Editing = false;
  TPerGrid<TEditorKind> Editor = TEditorKind::Plain;
  TValueKind ValueKind = TValueKind::Text;
  const TEditorLookup TLookupTables::*Lookup = nullptr;
  int Maximum = 0;  ///< of numbers; 0 for the usual one
  int Decimals = 0;
  int Width = 100;
  bool TakesRest = false;

  bool IsGrade = false;
  /// Once it is shown, the whole grid posts at every change.
  TPerGrid<bool> Posts = false;
  /// What a class without grades leaves in the students' grid.
  bool StaysForText = false;
  /// Where its null values count as grades that are still to be entered.
  int TMissingGrades::*MissingCount = nullptr;

  /// The value of the course; null for one of a class that the file has not. Some columns raise EVantrelException for a
  /// course without a student.
  TVariant Value(const TCourse& course) const;
};

/// All columns, in the order of the grids.
std::span<const TCourseColumn> AllCourseColumns();
/// The column of that name, which there must be.
const TCourseColumn& CourseColumn(std::string_view name);

/// Names of columns that are asked for one by one.
namespace CourseColumnNames {
inline constexpr std::string_view Name = "name";  ///< where nothing can be typed
inline constexpr std::string_view ClassGradeType = "class_gradetype";
inline constexpr std::string_view Class = "class";
}  // namespace CourseColumnNames

/// The columns of one grid. The ordinal of a column is its place among them.
class TCourseColumns {
 public:
  static const TCourseColumns& Of(TCourseGrid grid);
  /// What the ids of the grid's columns begin with.
  static std::string_view Prefix(TCourseGrid grid);

  int Count() const { return static_cast<int>(FColumns.size()); }
  /// Null for an ordinal that the grid has not.
  const TCourseColumn* Find(int ordinal) const;
  /// -1 for a name that the grid has not.
  int OrdinalOf(std::string_view name) const;

  /// The three are false for an ordinal that the grid has not. Enter goes down in a column of grades.
  bool IsGrade(int ordinal) const;
  bool Posts(int ordinal) const;
  bool StaysForText(int ordinal) const;
  /// Dropped for an ordinal that the grid has not.
  TCourseWrite WriteOf(int ordinal) const;
  /// The stored field of the course; empty where there is none.
  std::string_view KeyOf(int ordinal) const;

  /// The value of the course in the column of that ordinal, which the grid must have (see TCourseColumn::Value).
  TVariant Value(const TCourse& course, int ordinal) const;

  /// The columns as the grid takes them. Captions and visibility come from `options`; a field without a column there is
  /// hidden. The lookup tables outlive the columns.
  std::vector<TGridColumn> GridColumns(const TColumns& options, const TLookupTables& lookups) const;

 private:
  struct TEntry {
    const TCourseColumn* Column;
    const TVantrelRecordField* Field;
  };

  explicit TCourseColumns(TCourseGrid grid);
  TEditorDescription EditorOf(const TCourseColumn& column, const TLookupTables& lookups) const;

  TCourseGrid FGrid;
  std::vector<TEntry> FColumns;
};
