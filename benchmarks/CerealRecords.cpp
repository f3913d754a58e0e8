#include "CerealRecords.h"

#include <cereal/archives/binary.hpp>
#include <cereal/types/array.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include <array>
#include <memory>
#include <sstream>
#include <streambuf>
#include <vector>

#include "uProject.h"

namespace {

using TGuidBytes = std::array<std::uint8_t, 16>;

/// The fields as a struct written for the purpose would have them.
struct TCerealCourse {
  std::string ClassName;
  TGuidBytes Id{};
  std::array<std::int32_t, 23> Integers{};
  TGuidBytes Student{};
  std::string StudentClass;
  float Faktor = 0;
  std::array<std::string, 12> Texts;

  template <class TArchive>
  void serialize(TArchive& archive) {
    archive(ClassName, Id, StudentClass, Student, Faktor);
    for (auto& value : Integers) archive(value);
    for (auto& text : Texts) archive(text);
  }
};

struct TCerealStudent {
  std::string ClassName;
  TGuidBytes Id{};
  std::array<std::int32_t, 15> Integers{};
  std::array<double, 8> Dates{};
  std::array<float, 2> Grades{};
  std::array<std::string, 11> Texts;
  std::array<std::uint8_t, 5> Bytes{};

  template <class TArchive>
  void serialize(TArchive& archive) {
    archive(ClassName, Id);
    for (auto& value : Integers) archive(value);
    for (auto& value : Dates) archive(value);
    for (auto& value : Grades) archive(value);
    for (auto& text : Texts) archive(text);
    for (auto& value : Bytes) archive(value);
  }
};

struct TCerealProject {
  std::vector<std::unique_ptr<TCerealCourse>> Courses;
  std::vector<std::unique_ptr<TCerealStudent>> Students;

  template <class TArchive>
  void serialize(TArchive& archive) {
    archive(Courses, Students);
  }
};

/// Deals the values of a record out to the arrays of a struct by their kind.
template <class TStruct>
struct TDealer {
  TStruct& Target;
  std::size_t Integer = 0, Text = 0, Date = 0, Float = 0;

  void operator()(std::string_view, const TVariant& value) {
    if (value.Kind() == TVariantKind::Text && Text < Target.Texts.size()) Target.Texts[Text++] = value.AsText();
    if (value.Kind() == TVariantKind::Integer && Integer < Target.Integers.size())
      Target.Integers[Integer++] = value.AsInteger();
    if constexpr (requires { Target.Dates; })
      if (value.Kind() == TVariantKind::DateTime && Date < Target.Dates.size()) Target.Dates[Date++] = value.AsFloat();
  }
};

/// A stream buffer over bytes that are there.
class TBytesBuffer : public std::streambuf {
 public:
  explicit TBytesBuffer(const std::string& bytes) {
    auto* begin = const_cast<char*>(bytes.data());
    setg(begin, begin, begin + bytes.size());
  }
};

}  // namespace

std::string WriteWithCereal(const TMyTessaronProject& project) {
  TCerealProject records;
  for (int i = 0; i < project.Courses().Count(); ++i) {
    const auto* course = project.Courses().GetItem(i);
    auto record = std::make_unique<TCerealCourse>();
    record->ClassName = course->GetDataClassName();
    record->Id = course->ID().Bytes;
    record->Student = course->RequireStudent().ID().Bytes;
    record->StudentClass = course->RequireStudent().GetDataClassName();
    course->VisitFields(TDealer<TCerealCourse>{*record});
    records.Courses.push_back(std::move(record));
  }
  for (int i = 0; i < project.Students().Count(); ++i) {
    const auto* student = project.Students().GetItem(i);
    auto record = std::make_unique<TCerealStudent>();
    record->ClassName = student->GetDataClassName();
    record->Id = student->ID().Bytes;
    student->VisitFields(TDealer<TCerealStudent>{*record});
    records.Students.push_back(std::move(record));
  }
  std::ostringstream stream;
  cereal::BinaryOutputArchive archive(stream);
  archive(records);
  return stream.str();
}

std::size_t ReadWithCereal(const std::string& bytes) {
  TBytesBuffer buffer(bytes);
  std::istream stream(&buffer);
  cereal::BinaryInputArchive archive(stream);
  TCerealProject records;
  archive(records);
  return records.Courses.size() + records.Students.size();
}
