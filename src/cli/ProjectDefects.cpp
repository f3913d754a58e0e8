#include "ProjectDefects.h"

#include <set>
#include <unordered_set>

#include "CliTexts.h"
#include "RecordTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {

using RecordTexts::CourseName;
using RecordTexts::Printable;
using RecordTexts::StudentName;

/// Fields that hold a token, and the catalogue where it must stand.
constexpr struct {
  std::string_view Key;
  TCatalogs& (TMyTessaronProject::*Catalog)() const;
} TokenFields[] = {{"Fachstatus", &TMyTessaronProject::Fachstati},
                   {"Unterrichtsart", &TMyTessaronProject::Unterrichtsarten},
                   {"Niveau", &TMyTessaronProject::Niveaus},
                   {"Leistungsart", &TMyTessaronProject::Leistungsarten},
                   {"Versetzungsart", &TMyTessaronProject::Versetzungsarten},
                   {"Abschluss1", &TMyTessaronProject::Abschluesse},
                   {"Abschluss1Art", &TMyTessaronProject::Abschlussarten},
                   {"Abschluss2", &TMyTessaronProject::Abschluesse},
                   {"Abschluss2Art", &TMyTessaronProject::Abschlussarten},
                   {"Empfehlung", &TMyTessaronProject::Empfehlungen}};

class TDefectFinder {
 public:
  explicit TDefectFinder(const TMyTessaronProject& project) : FProject(project) {
    for (const auto& field : TokenFields) {
      auto& tokens = FTokens[field.Key];
      Each((project.*field.Catalog)(), [&](const TCatalog& entry) { tokens.insert(entry.Token); });
    }
    Each(project.Noten(), [&](const TGrade& grade) { FGradeIds.insert(grade.TessaronId); });
    Each(project.Students(), [&](const TStudent& student) { FStudents.insert(&student); });
  }

  std::vector<std::string> Find() {
    Each(FProject.Courses(), [this](const TCourse& course) { CheckCourse(course); });
    Each(FProject.Students(), [this](const TStudent& student) { CheckStudent(student); });
    Each(FProject.Options().Columns(), [this](const TColumn& column) {
      if (column.Customname().empty()) Report(CliTexts::NoCaption, Printable(column.Fieldname));
    });
    CheckDoubles();
    return std::move(FDefects);
  }

 private:
  template <class TItem, class TCall>
  static void Each(const TVantrelDataListOf<TItem>& list, TCall call) {
    for (int i = 0; i < list.Count(); ++i) call(*list.GetItem(i));
  }

  template <class... TArgs>
  void Report(const char* text, const TArgs&... args) {
    FDefects.push_back(FormatText(text, args...));
  }

  void CheckCourse(const TCourse& course) {
    const auto name = fmt::format("{}, {}", StudentName(FProject, course.Student), CourseName(course));
    if (course.Student == nullptr) {
      Report(CliTexts::NoStudent, CourseName(course));
    } else if (!FStudents.contains(course.Student)) {
      Report(CliTexts::LostStudent, CourseName(course));
    }
    CheckFields(course, name);
  }

  void CheckStudent(const TStudent& student) {
    const auto name = StudentName(FProject, &student);
    if (!student.ClassId.IsNull() && !FProject.Classes().Exists(student.ClassId.Value))
      Report(CliTexts::UnknownClass, name, student.ClassId.AsInt());
    CheckFields(student, name);
  }

  /// Grades and tokens of a record.
  template <class TRecord>
  void CheckFields(const TRecord& record, const std::string& name) {
    record.VisitFields([&](std::string_view key, const TVariant& value) {
      if (value.IsEmpty()) return;
      const auto caption = [&] { return RecordTexts::FieldCaption(FProject, key); };
      if (RecordTexts::IsGradeKey(key) && !FGradeIds.contains(value.AsInteger()))
        Report(CliTexts::UnknownGrade, name, caption(), value.AsInteger());
      const auto tokens = FTokens.find(key);
      if (tokens == FTokens.end()) return;
      if (const auto token = value.AsText(); !token.empty() && !tokens->second.contains(token))
        Report(CliTexts::UnknownToken, name, caption(), Printable(token));
    });
  }

  void CheckDoubles() {
    const auto idOf = [](const auto& record) { return record.TessaronId.AsInt(); };
    const auto plainIdOf = [](const auto& record) { return record.TessaronId; };
    CheckDoubles(FProject.Students(), CliTexts::DoubleStudent, idOf);
    CheckDoubles(FProject.Courses(), CliTexts::DoubleCourse, idOf);
    CheckDoubles(FProject.Classes(), CliTexts::DoubleClass, plainIdOf);
    CheckDoubles(FProject.Noten(), CliTexts::DoubleGrade, plainIdOf);
    CheckDoubles(FProject.Options().Columns(), CliTexts::DoubleColumn,
                 [](const TColumn& column) { return LowerCase(Printable(column.Fieldname)); });
  }

  /// Reports each key of the list's records, and each object, that occurs more than once; -1 is no key.
  template <class TItem, class TKeyOf>
  void CheckDoubles(const TVantrelDataListOf<TItem>& list, const char* text, TKeyOf keyOf) {
    using TKey = decltype(keyOf(std::declval<const TItem&>()));
    std::map<TKey, int> keys;
    std::map<TGuid, int> objects;
    Each(list, [&](const TItem& item) {
      if (const auto key = keyOf(item); ++objects[item.ID()] == 1)
        ++keys[key];
      else if (objects[item.ID()] == 2)
        Report(CliTexts::DoubleObject, GuidToText(item.ID()));
    });
    if constexpr (std::is_integral_v<TKey>) keys.erase(-1);
    for (const auto& [key, count] : keys)
      if (count > 1) Report(text, key);
  }

  const TMyTessaronProject& FProject;
  std::map<std::string_view, std::set<std::string, std::less<>>> FTokens;
  std::set<std::int32_t> FGradeIds;
  std::unordered_set<const TStudent*> FStudents;
  std::vector<std::string> FDefects;
};

}  // namespace

std::vector<std::string> FindDefects(const TMyTessaronProject& project) {
  return TDefectFinder(project).Find();
}
