#include "ProjectDifferences.h"

#include <cmath>
#include <map>

#include "CliTexts.h"
#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

namespace {

using RecordTexts::CourseName;
using RecordTexts::Printable;
using RecordTexts::StudentName;
using TLines = std::vector<std::string>;

constexpr std::string_view PasswordKey = "Password";

bool SameValue(const TVariant& a, const TVariant& b) {
  if (a == b) return true;
  const auto isNan = [](const TVariant& value) {
    const auto kind = value.Kind();
    return (kind == TVariantKind::Float || kind == TVariantKind::DateTime) && std::isnan(value.AsFloat());
  };
  return isNan(a) && isNan(b);
}

class TComparer {
 public:
  TComparer(const TMyTessaronProject& before, const TMyTessaronProject& after) : FBefore(before), FAfter(after) {}

  std::vector<TDifferences> Compare() {
    CompareHeader();
    CompareCatalogs();
    CompareOptions();
    CollectCourses();
    CompareStudents();
    return std::move(FFound);
  }

 private:
  void Add(std::string title, TLines lines) {
    if (!lines.empty()) FFound.push_back({std::move(title), std::move(lines)});
  }

  /// The line of one changed field; `record` is empty where the title says whose it is.
  std::string Line(const std::string& record, std::string_view key, const TVariant& before,
                   const TVariant& after) const {
    if (key == PasswordKey) return ResourceText(CliTexts::PasswordChanged);
    const auto caption = RecordTexts::FieldCaption(FAfter, key);
    auto old = RecordTexts::FieldValue(FBefore, key, before, false);
    auto now = RecordTexts::FieldValue(FAfter, key, after, false);
    if (old == now) {
      old = RecordTexts::FieldValue(FBefore, key, before, true);
      now = RecordTexts::FieldValue(FAfter, key, after, true);
    }
    return FormatText(CliTexts::Changed, record.empty() ? caption : FormatText(CliTexts::ChangedOf, record, caption),
                      old, now);
  }

  template <class TRecord>
  void CompareFields(const std::string& name, const TRecord& before, const TRecord& after, TLines& lines) const {
    std::vector<TVariant> old;
    before.VisitFields([&](std::string_view, const TVariant& value) { old.push_back(value); });
    std::size_t field = 0;
    after.VisitFields([&](std::string_view key, const TVariant& now) {
      if (const auto& was = old[field++]; !SameValue(was, now)) lines.push_back(Line(name, key, was, now));
    });
  }

  /// Tells each record of the two lists with the one of the same id in the other list, or null.
  template <class TItem, class TCall>
  static void ForPairs(const TVantrelDataListOf<TItem>& before, const TVantrelDataListOf<TItem>& after, TCall call) {
    std::map<TGuid, TItem*> old;
    for (int i = 0; i < before.Count(); ++i) old.emplace(before.GetItem(i)->ID(), before.GetItem(i));
    std::map<TGuid, bool> seen;
    for (int i = 0; i < after.Count(); ++i) {
      auto* item = after.GetItem(i);
      const auto found = old.find(item->ID());
      if (seen.emplace(item->ID(), true).second) call(found == old.end() ? nullptr : found->second, item);
    }
    for (int i = 0; i < before.Count(); ++i) {
      auto* item = before.GetItem(i);
      if (seen.emplace(item->ID(), true).second) call(item, static_cast<TItem*>(nullptr));
    }
  }

  template <class TItem, class TNameOf>
  TLines CompareList(const TVantrelDataListOf<TItem>& before, const TVantrelDataListOf<TItem>& after,
                     TNameOf nameOf) const {
    TLines lines;
    ForPairs(before, after, [&](const TItem* old, const TItem* now) {
      if (old == nullptr) {
        lines.push_back(FormatText(CliTexts::Added, nameOf(*now)));
      } else if (now == nullptr) {
        lines.push_back(FormatText(CliTexts::Removed, nameOf(*old)));
      } else {
        CompareFields(nameOf(*old), *old, *now, lines);
      }
    });
    return lines;
  }

  void CompareHeader() {
    TLines lines;
    CompareFields({}, FBefore, FAfter, lines);
    const auto behaviour = [](const TMyTessaronProject& project) {
      return TVariant(static_cast<std::int32_t>(project.Options().AbsenceBehaviour()));
    };
    if (behaviour(FBefore) != behaviour(FAfter))
      lines.push_back(Line({}, "AbsenceBehaviour", behaviour(FBefore), behaviour(FAfter)));
    Add(ResourceText(CliTexts::Header), std::move(lines));
  }

  void CompareCatalogs() {
    const auto tokenOf = [](const TCatalog& entry) { return FormatText(ProjectTexts::Quoted, Printable(entry.Token)); };
    for (std::size_t i = 0; i < std::size(ProjectCatalogs); ++i)
      Add(FormatText(CliTexts::Catalog, ResourceText(ProjectTexts::Catalogs[i])),
          CompareList((FBefore.*ProjectCatalogs[i])(), (FAfter.*ProjectCatalogs[i])(), tokenOf));
    Add(FormatText(CliTexts::Catalog, ResourceText(CliTexts::Grades)),
        CompareList(FBefore.Noten(), FAfter.Noten(), tokenOf));
    Add(ResourceText(CliTexts::Remarks),
        CompareList(FBefore.CertificateComments(), FAfter.CertificateComments(), tokenOf));
    Add(ResourceText(CliTexts::InfoClasses),
        CompareList(FBefore.Classes(), FAfter.Classes(), [](const TClass& item) { return Printable(item.Token); }));
  }

  void CompareOptions() {
    Add(ResourceText(CliTexts::Columns),
        CompareList(FBefore.Options().Columns(), FAfter.Options().Columns(),
                    [](const TColumn& column) { return Printable(column.Fieldname); }));
  }

  void CollectCourses() {
    ForPairs(FBefore.Courses(), FAfter.Courses(), [this](const TCourse* old, const TCourse* now) {
      const auto* student = now != nullptr ? now->Student : old->Student;
      auto& lines = FCourseLines[student == nullptr ? TGuid() : student->ID()];
      if (old == nullptr) {
        lines.push_back(FormatText(CliTexts::Added, CourseName(*now)));
      } else if (now == nullptr) {
        lines.push_back(FormatText(CliTexts::Removed, CourseName(*old)));
      } else {
        CompareCourse(*old, *now, lines);
      }
    });
  }

  void CompareCourse(const TCourse& before, const TCourse& after, TLines& lines) const {
    const auto idOf = [](const TCourse& course) { return course.Student == nullptr ? TGuid() : course.Student->ID(); };
    if (idOf(before) != idOf(after))
      lines.push_back(FormatText(CliTexts::Changed,
                                 FormatText(CliTexts::ChangedOf, CourseName(after), ResourceText(CliTexts::Student)),
                                 StudentName(FBefore, before.Student), StudentName(FAfter, after.Student)));
    CompareFields(CourseName(after), before, after, lines);
  }

  void CompareStudents() {
    ForPairs(FBefore.Students(), FAfter.Students(), [this](TStudent* old, TStudent* now) {
      TLines lines;
      if (old == nullptr) {
        lines.push_back(ResourceText(CliTexts::StudentAdded));
      } else if (now == nullptr) {
        lines.push_back(ResourceText(CliTexts::StudentRemoved));
      } else {
        CompareFields({}, *old, *now, lines);
        Append(lines, CompareRemarks(*old, *now));
      }
      auto courses = FCourseLines.extract((now != nullptr ? now : old)->ID());
      if (!courses.empty()) Append(lines, std::move(courses.mapped()));
      Add(now != nullptr ? StudentName(FAfter, now) : StudentName(FBefore, old), std::move(lines));
    });
    for (auto& [id, lines] : FCourseLines) Add(StudentName(FAfter, nullptr), std::move(lines));
  }

  TLines CompareRemarks(TStudent& before, TStudent& after) const {
    return CompareList(
        before.CertificateComments(), after.CertificateComments(), [](const TCertificateComment& remark) {
          return FormatText(CliTexts::StudentRemark, FormatText(ProjectTexts::Quoted, Printable(remark.Description)));
        });
  }

  static void Append(TLines& lines, TLines more) { std::ranges::move(more, std::back_inserter(lines)); }

  const TMyTessaronProject& FBefore;
  const TMyTessaronProject& FAfter;
  /// Differences in courses by the object id of their student.
  std::map<TGuid, TLines> FCourseLines;
  std::vector<TDifferences> FFound;
};

}  // namespace

std::vector<TDifferences> FindDifferences(const TMyTessaronProject& before, const TMyTessaronProject& after) {
  return TComparer(before, after).Compare();
}
