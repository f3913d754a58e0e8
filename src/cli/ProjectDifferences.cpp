#include "ProjectDifferences.h"

#include <cmath>
#include <map>
#include <set>

#include "CliTexts.h"
#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

namespace {

using RecordTexts::CourseName;
using RecordTexts::Printable;
using RecordTexts::StudentName;
using TLines = std::vector<std::string>;

constexpr std::string_view PasswordKey = "Password", AbsenceKey = "AbsenceBehaviour";

bool IsNan(const TVariant& value) {
  const auto kind = value.Kind();
  return (kind == TVariantKind::Float || kind == TVariantKind::DateTime) && std::isnan(value.AsFloat());
}

class TComparer {
 public:
  TComparer(const TMyTessaronProject& before, const TMyTessaronProject& after,
            const std::function<std::string(std::string_view)>& rewritten)
      : FBefore(before), FAfter(after), FRewritten(rewritten) {}

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

  bool SameValue(const TVariant& before, const TVariant& after) const {
    if (before == after || (IsNan(before) && IsNan(after))) return true;
    return FRewritten && before.Kind() == TVariantKind::Text && after == TVariant(FRewritten(before.AsText()));
  }

  /// What has changed in a thing that has a caption; `record` is empty where the title says whose it is.
  static std::string Change(const std::string& record, const std::string& caption, const std::string& old,
                            const std::string& now) {
    return FormatText(CliTexts::Changed, record.empty() ? caption : FormatText(CliTexts::ChangedOf, record, caption),
                      old, now);
  }

  /// The line of one changed field.
  std::string Line(const std::string& record, std::string_view key, const std::string& caption, const TVariant& before,
                   const TVariant& after) const {
    if (key == PasswordKey) return ResourceText(CliTexts::PasswordChanged);
    auto old = RecordTexts::FieldValue(FBefore, key, before, false);
    auto now = RecordTexts::FieldValue(FAfter, key, after, false);
    if (old == now) {
      old = RecordTexts::FieldValue(FBefore, key, before, true);
      now = RecordTexts::FieldValue(FAfter, key, after, true);
    }
    return Change(record, caption, old, now);
  }

  template <class TRecord>
  std::string CaptionOf(std::string_view key) const {
    constexpr bool hasColumns = std::is_same_v<TRecord, TStudent> || std::is_same_v<TRecord, TCourse>;
    return hasColumns ? RecordTexts::FieldCaption(FAfter, key) : RecordTexts::OwnCaption(key);
  }

  template <class TRecord>
  void CompareFields(const std::string& name, const TRecord& before, const TRecord& after, TLines& lines) const {
    std::vector<TVariant> old;
    before.VisitFields([&](std::string_view, const TVariant& value) { old.push_back(value); });
    std::size_t field = 0;
    after.VisitFields([&](std::string_view key, const TVariant& now) {
      if (const auto& was = old[field++]; !SameValue(was, now))
        lines.push_back(Line(name, key, CaptionOf<TRecord>(key), was, now));
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

  /// What has become of the list itself: entries of an item that were added or left out, and where the order of the
  /// others begins to differ.
  template <class TItem, class TNameOf>
  static TLines CompareEntries(const TVantrelDataListOf<TItem>& before, const TVantrelDataListOf<TItem>& after,
                               TNameOf nameOf) {
    std::map<TGuid, std::pair<int, int>> counts;
    for (int i = 0; i < before.Count(); ++i) ++counts[before.GetItem(i)->ID()].first;
    for (int i = 0; i < after.Count(); ++i) ++counts[after.GetItem(i)->ID()].second;
    TLines lines;
    std::set<TGuid> told;
    std::vector<const TItem*> kept;
    for (int i = 0; i < after.Count(); ++i) {
      const auto* item = after.GetItem(i);
      const auto& [old, now] = counts[item->ID()];
      if (old == now) {
        kept.push_back(item);
      } else if (std::max(old, now) > 1 && told.insert(item->ID()).second) {
        lines.push_back(
            Change(nameOf(*item), ResourceText(CliTexts::Entries), std::to_string(old), std::to_string(now)));
      }
    }
    std::size_t place = 0;
    for (int i = 0; i < before.Count(); ++i) {
      const auto* item = before.GetItem(i);
      if (const auto& [old, now] = counts[item->ID()]; old != now) continue;
      const auto* other = kept[place++];
      if (item->ID() == other->ID()) continue;
      lines.push_back(Change({}, FormatText(CliTexts::OrderFrom, place), nameOf(*item), nameOf(*other)));
      break;
    }
    return lines;
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
    Append(lines, CompareEntries(before, after, nameOf));
    return lines;
  }

  void CompareHeader() {
    TLines lines;
    CompareFields({}, FBefore, FAfter, lines);
    const auto behaviour = [](const TMyTessaronProject& project) {
      return TVariant(static_cast<std::int32_t>(project.Options().AbsenceBehaviour()));
    };
    if (behaviour(FBefore) != behaviour(FAfter))
      lines.push_back(Line({}, AbsenceKey, RecordTexts::OwnCaption(AbsenceKey), behaviour(FBefore), behaviour(FAfter)));
    if (const auto& old = FBefore.Options().ID(), &now = FAfter.Options().ID(); old != now)
      lines.push_back(Change({}, ResourceText(CliTexts::OptionsId), GuidToText(old), GuidToText(now)));
    Add(ResourceText(ProjectTexts::Header), std::move(lines));
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
    Add(ResourceText(CliTexts::InfoCourses),
        CompareEntries(FBefore.Courses(), FAfter.Courses(), [this](const TCourse& course) {
          return FormatText(CliTexts::ChangedOf, StudentName(FAfter, course.Student), CourseName(course));
        }));
  }

  void CompareCourse(const TCourse& before, const TCourse& after, TLines& lines) const {
    const auto idOf = [](const TCourse& course) { return course.Student == nullptr ? TGuid() : course.Student->ID(); };
    if (idOf(before) != idOf(after))
      lines.push_back(Change(CourseName(after), ResourceText(CliTexts::Student), StudentName(FBefore, before.Student),
                             StudentName(FAfter, after.Student)));
    CompareFields(CourseName(after), before, after, lines);
  }

  void CompareStudents() {
    Add(ResourceText(CliTexts::InfoStudents),
        CompareEntries(FBefore.Students(), FAfter.Students(),
                       [this](const TStudent& student) { return StudentName(FAfter, &student); }));
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
    return CompareList(before.CertificateComments(), after.CertificateComments(), RecordTexts::RemarkName);
  }

  static void Append(TLines& lines, TLines more) { std::ranges::move(more, std::back_inserter(lines)); }

  const TMyTessaronProject& FBefore;
  const TMyTessaronProject& FAfter;
  const std::function<std::string(std::string_view)>& FRewritten;
  /// Differences in courses by the object id of their student.
  std::map<TGuid, TLines> FCourseLines;
  std::vector<TDifferences> FFound;
};

}  // namespace

std::vector<TDifferences> FindDifferences(const TMyTessaronProject& before, const TMyTessaronProject& after,
                                          const std::function<std::string(std::string_view)>& rewritten) {
  return TComparer(before, after, rewritten).Compare();
}

void PrintDifferences(const std::vector<TDifferences>& differences, std::ostream& target) {
  for (const auto& part : differences) {
    target << part.Title << '\n';
    for (const auto& line : part.Lines) target << "  " << line << '\n';
  }
}
