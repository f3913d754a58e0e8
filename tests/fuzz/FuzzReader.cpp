#include <cstdint>
#include <exception>

#include "ProjectDifferences.h"
#include "uMissingGrades.h"
#include "uProjectDefects.h"
#include "uRecordTexts.h"

namespace {

/// Runs what may refuse with a message; anything but an exception with a message is a finding.
template <class TOperation>
bool Succeeds(TOperation operation) {
  try {
    operation();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

template <class TRecord>
void ShowFields(const TMyTessaronProject& project, const TRecord& record) {
  record.GetDisplayText();
  record.VisitFields([&](std::string_view key, const TVariant& value) {
    RecordTexts::FieldCaption(project, key);
    RecordTexts::FieldValue(project, key, value, true);
  });
}

template <class TItem, class TCall>
void Each(const TVantrelDataListOf<TItem>& list, TCall call) {
  for (int i = 0; i < list.Count(); ++i) call(*list.GetItem(i));
}

/// What the programs show of any document that they got, whole or damaged: nothing of it may raise.
void Show(TMyTessaronProject& project) {
  CurrentProject = &project;
  CountMissingGrades(project);
  FindDefects(project, TDefectScope::All);
  FindImpossibleDate(project);
  FindDifferences(project, project);
  ShowFields(project, project);
  const auto show = [&](auto& record) { ShowFields(project, record); };
  Each(project.Noten(), show);
  Each(project.Classes(), show);
  Each(project.Options().Columns(), show);
  Each(project.Students(), [&](TStudent& student) {
    ShowFields(project, student);
    student.ViewDisplayName();
    Each(student.CertificateComments(), show);
  });
  Each(project.Courses(), [&](const TCourse& course) {
    ShowFields(project, course);
    RecordTexts::CourseName(course);
  });
  Succeeds([&] { project.CoursesByStudent(TVariant(1)); });
  CurrentProject = nullptr;
}

/// Writes the project in one form. What was not refused comes back, and but for the escapes of the JSON form it is then
/// written as the same bytes.
void WriteAndReadBack(TMyTessaronProject& project, TVantrelDataStorageFormat form) {
  TVantrelMemoryStream written, again;
  if (!Succeeds([&] { project.SaveToStream(written, form); })) return;
  written.SetPosition(0);
  const auto back = CreateVantrel<TMyTessaronProject>();
  if (!Succeeds([&] { back->LoadFromStream(written, form); })) __builtin_trap();
  Show(*back);
  if (!Succeeds([&] { back->SaveToStream(again, form); })) __builtin_trap();
  if (form != TVantrelDataStorageFormat::dsfJson && again.Bytes() != written.Bytes()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  TMyTessaronProject::RegisterClasses();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TVantrelMemoryStream input(std::vector<std::uint8_t>(data, data + size));
  auto project = CreateVantrel<TMyTessaronProject>();
  const bool whole = Succeeds([&] { project->READER(input); });
  if (whole == project->LoadDamage().has_value()) __builtin_trap();
  Show(*project);
  using enum TVantrelDataStorageFormat;
  for (const auto form : {dsfXml, dsfJson, dsfBinary}) WriteAndReadBack(*project, form);
  return 0;
}
