#include "uProjectDefects.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "uRecordTexts.h"

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

template <class TItem, class TCall>
void Each(const TVantrelDataListOf<TItem>& list, TCall call) {
  for (int i = 0; i < list.Count(); ++i) call(*list.GetItem(i));
}

/// A value, or what gives it once it is asked for.
template <class T>
decltype(auto) Given(const T& value) {
  if constexpr (std::is_invocable_v<T>)
    return value();
  else
    return value;
}

class TDefectFinder {
 public:
  TDefectFinder(const TMyTessaronProject& project, std::size_t most) : FProject(project), FMost(most) {
    FStudents.reserve(static_cast<std::size_t>(project.Students().Count()));
    Each(project.Students(), [&](const TStudent& student) { FStudents.insert(&student); });
    Each(project.Classes(), [&](const TClass& schoolClass) { FClasses.insert(schoolClass.TessaronId); });
  }

  TProjectDefects Find(TDefectScope scope) {
    CheckHeader();
    Each(FProject.Courses(), [this](const TCourse& course) { CheckCourse(course); });
    Each(FProject.Students(), [this](const TStudent& student) { CheckStudent(student); });
    CheckCatalogs();
    CheckDoubles();
    if (scope == TDefectScope::All) {
      Each(FProject.Students(), [this](const TStudent& student) { CheckRemarks(student); });
      CheckReferences();
      CheckColumns();
    }
    return std::move(FFound);
  }

 private:
  /// The parts of the text are asked for where it is told.
  template <class... TArgs>
  void Report(const char* text, const TArgs&... args) {
    if (FFound.Count++ < FMost) FFound.Texts.push_back(FormatText(text, Given(args)...));
  }

  auto NameOf(const TStudent& student) const {
    return [this, &student] { return StudentName(FProject, &student); };
  }
  auto NameOf(const TCourse& course) const {
    return [this, &course] { return fmt::format("{}, {}", StudentName(FProject, course.Student), CourseName(course)); };
  }

  auto NameOf(const TStudent& student, const TCertificateComment& remark) const {
    return [this, &student, &remark] {
      return fmt::format("{}, {}", StudentName(FProject, &student), RecordTexts::RemarkName(remark));
    };
  }

  template <class TName, class TCaption>
  void ReportImpossible(const TName& name, const TCaption& caption, std::string_view key, const TVariant& value) {
    Report(ProjectTexts::ImpossibleValue, name, caption,
           [&] { return RecordTexts::FieldValue(FProject, key, value, false); });
  }

  template <class TRecord, class TName>
  void CheckValues(const TRecord& record, const TName& name) {
    record.VisitNumbers([&](std::string_view key, const TVariant& value) {
      if (!Fields::IsImpossible(key, value)) return;
      ReportImpossible(
          name, [&] { return RecordTexts::FieldCaption(FProject, key); }, key, value);
    });
  }

  /// Its numbers are ids that refer to nothing in the file.
  void CheckHeader() {
    FProject.VisitFields([this](std::string_view key, const TVariant& value) {
      if (value.Kind() != TVariantKind::Integer || value.AsFloat() >= 0) return;
      ReportImpossible([] { return ResourceText(ProjectTexts::Header); }, [&] { return RecordTexts::OwnCaption(key); },
                       key, value);
    });
  }

  void CheckCourse(const TCourse& course) {
    if (course.Student == nullptr) {
      Report(ProjectTexts::NoStudent, [&] { return CourseName(course); });
    } else if (!FStudents.contains(course.Student)) {
      Report(ProjectTexts::LostStudent, [&] { return CourseName(course); });
    }
    CheckValues(course, NameOf(course));
  }

  void CheckStudent(const TStudent& student) {
    if (!student.ClassId.IsNull() && !FClasses.contains(student.ClassId.AsInt()))
      Report(ProjectTexts::UnknownClass, NameOf(student), student.ClassId.AsInt());
    if (student.TessaronId.IsNull()) Report(ProjectTexts::NoNumber, NameOf(student));
    CheckValues(student, NameOf(student));
  }

  /// -1 stands for no position.
  void CheckRemarks(const TStudent& student) {
    if (student.CertificateComments() == nullptr) return;
    Each(*student.CertificateComments(), [&](const TCertificateComment& remark) {
      remark.VisitNumbers([&](std::string_view key, const TVariant& value) {
        if (!Fields::IsImpossible(key, value) || value == TVariant(-1)) return;
        ReportImpossible(
            NameOf(student, remark), [&] { return RecordTexts::OwnCaption(key); }, key, value);
      });
    });
  }

  template <class TItem>
  void CheckGradeTypes(const TVantrelDataListOf<TItem>& list, const char* text) {
    Each(list, [&](const TItem& item) {
      if (GetGradeTypeName(item.GradeType()).IsNull())
        Report(
            text, [&] { return Printable(item.Token); }, static_cast<int>(item.GradeType()));
    });
  }

  void CheckCatalogs() {
    CheckGradeTypes(FProject.Classes(), ProjectTexts::ClassGradeType);
    CheckGradeTypes(FProject.Noten(), ProjectTexts::GradeGradeType);
    Each(FProject.Noten(), [this](const TGrade& grade) {
      CheckValues(grade, [&] { return FormatText(ProjectTexts::Quoted, Printable(grade.Token)); });
    });
    for (std::size_t i = 0; i < std::size(ProjectCatalogs); ++i) {
      Each((FProject.*ProjectCatalogs[i])(), [&](const TCatalog& entry) {
        if (&entry.ClassType() == &TCatalog::Class()) return;
        Report(
            ProjectTexts::ForeignItem, [&] { return ResourceText(ProjectTexts::Catalogs[i]); },
            [&] { return Printable(entry.Token); }, entry.GetDataClassName());
      });
    }
  }

  void CheckDoubles() {
    const auto idOf = [](const auto& record) { return record.TessaronId.AsInt(); };
    const auto plainIdOf = [](const auto& record) { return record.TessaronId; };
    CheckDoubles(FProject.Students(), ProjectTexts::DoubleStudent, idOf);
    CheckDoubles(FProject.Courses(), ProjectTexts::DoubleCourse, idOf);
    CheckDoubles(FProject.Classes(), ProjectTexts::DoubleClass, plainIdOf);
    CheckDoubles(FProject.Noten(), ProjectTexts::DoubleGrade, plainIdOf);
  }

  /// Reports each object, and each key of the list's records, that occurs more than once; -1 is no key.
  template <class TItem, class TKeyOf>
  void CheckDoubles(const TVantrelDataListOf<TItem>& list, const char* text, TKeyOf keyOf) {
    std::vector<const TItem*> items;
    items.reserve(static_cast<std::size_t>(list.Count()));
    Each(list, [&](const TItem& item) { items.push_back(&item); });
    const auto once = TakeDoubles(
        items, [&](const TItem* item) { Report(ProjectTexts::DoubleObject, [&] { return GuidToText(item->ID()); }); });
    std::vector<decltype(keyOf(*once.front()))> keys;
    keys.reserve(once.size());
    for (const auto* item : once) keys.push_back(keyOf(*item));
    if constexpr (std::is_integral_v<decltype(keyOf(*once.front()))>) std::erase(keys, -1);
    TakeDoubles(keys, [&](const auto& key) { Report(text, key); });
  }

  /// The values without their doubles, each of which is told once.
  template <class T, class TTell>
  static std::vector<T> TakeDoubles(std::vector<T> values, TTell tell) {
    std::ranges::sort(values);
    std::vector<T> once;
    for (auto at = values.begin(); at != values.end();) {
      const auto end = std::find_if(at, values.end(), [&](const T& value) { return value != *at; });
      if (end - at > 1) tell(*at);
      once.push_back(*at);
      at = end;
    }
    return once;
  }

  /// Grades and tokens.
  void CheckReferences() {
    for (const auto& field : TokenFields) {
      auto& tokens = FTokens[field.Key];
      Each((FProject.*field.Catalog)(), [&](const TCatalog& entry) { tokens.insert(entry.Token); });
    }
    Each(FProject.Noten(), [&](const TGrade& grade) { FGradeIds.insert(grade.TessaronId); });
    Each(FProject.Courses(), [this](const TCourse& course) { CheckReferences(course); });
    Each(FProject.Students(), [this](const TStudent& student) { CheckReferences(student); });
  }

  template <class TRecord>
  void CheckReferences(const TRecord& record) {
    record.VisitFields([&](std::string_view key, const TVariant& value) {
      if (value.IsEmpty()) return;
      const auto caption = [&] { return RecordTexts::FieldCaption(FProject, key); };
      if (RecordTexts::IsGradeKey(key) && !FGradeIds.contains(value.AsInteger()))
        Report(ProjectTexts::UnknownGrade, NameOf(record), caption, value.AsInteger());
      const auto tokens = FTokens.find(key);
      if (tokens == FTokens.end()) return;
      if (const auto token = value.AsText(); !token.empty() && !tokens->second.contains(token))
        Report(ProjectTexts::UnknownToken, NameOf(record), caption, Printable(token));
    });
  }

  void CheckColumns() {
    const auto& columns = FProject.Options().Columns();
    Each(columns, [this](const TColumn& column) {
      if (column.Customname().empty()) Report(ProjectTexts::NoCaption, Printable(column.Fieldname));
    });
    CheckDoubles(columns, ProjectTexts::DoubleColumn,
                 [](const TColumn& column) { return LowerCase(Printable(column.Fieldname)); });
  }

  const TMyTessaronProject& FProject;
  const std::size_t FMost;
  std::map<std::string_view, std::set<std::string, std::less<>>> FTokens;
  std::set<std::int32_t> FGradeIds;
  std::set<std::int32_t> FClasses;
  std::unordered_set<const TStudent*> FStudents;
  TProjectDefects FFound;
};

}  // namespace

TProjectDefects FindDefects(const TMyTessaronProject& project, TDefectScope scope, std::size_t most) {
  return TDefectFinder(project, most).Find(scope);
}

std::string FindImpossibleDate(const TMyTessaronProject& project) {
  std::string found;
  for (int i = 0; i < project.Students().Count() && found.empty(); ++i) {
    const auto& student = *project.Students().GetItem(i);
    student.VisitNumbers([&](std::string_view key, const TVariant& value) {
      if (value.Kind() != TVariantKind::DateTime || !Fields::IsImpossible(key, value) || !found.empty()) return;
      found = FormatText(ProjectTexts::ImpossibleValue, StudentName(project, &student),
                         RecordTexts::FieldCaption(project, key), RecordTexts::FieldValue(project, key, value, false));
    });
  }
  return found;
}
