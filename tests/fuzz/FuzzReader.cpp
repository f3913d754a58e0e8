#include <cstdint>
#include <exception>

#include "VantrelMsgBox.h"
#include "uMissingGrades.h"
#include "uProject.h"

namespace {

using TStreamOperation = void (TVantrelDataStorage::*)(TVantrelStream&);
[[maybe_unused]] constexpr TStreamOperation Binary = &TVantrelDataStorage::LoadFromBinStream;
[[maybe_unused]] constexpr TStreamOperation Xml = &TVantrelDataStorage::LoadFromXmlStream;
[[maybe_unused]] constexpr TStreamOperation Json = &TVantrelDataStorage::LoadFromJsonStream;
[[maybe_unused]] constexpr TStreamOperation Zip = &TVantrelDataStorage::LoadFromZipStream;

/// Runs what may fail with a message; anything but an exception with a message is a finding.
template <class TOperation>
bool Succeeds(TOperation operation) {
  try {
    operation();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// What the program does with any document that it got, whole or damaged.
void Use(TMyTessaronProject& project) {
  CurrentProject = &project;
  CountMissingGrades(project);
  for (int i = 0; i < project.Students().Count(); ++i) project.Students().GetItem(i)->ViewDisplayName();
  Succeeds([&] { project.CoursesByStudent(TVariant(1)); });
  for (int i = 0; i < project.Courses().Count(); ++i) project.Courses().GetItem(i)->Name();
  CurrentProject = nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  TMyTessaronProject::RegisterClasses();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TVantrelMemoryStream input(std::vector<std::uint8_t>(data, data + size));
  auto project = CreateVantrel<TMyTessaronProject>();
  const bool whole = Succeeds([&] { ((*project).*FORM)(input); });
  if (whole == project->LoadDamage().has_value()) __builtin_trap();
  Use(*project);

  // What was read can be written in every form; the binary form comes back as the same bytes.
  TVantrelMemoryStream binary;
  if (!Succeeds([&] { project->SaveToBinStream(binary); })) __builtin_trap();
  TVantrelMemoryStream xml;
  TVantrelMemoryStream json;
  const bool xmlWritten = Succeeds([&] { project->SaveToXmlStream(xml); });
  Succeeds([&] { project->SaveToJsonStream(json); });
  binary.SetPosition(0);
  if (Succeeds([&] { project->LoadFromBinStream(binary); })) {
    TVantrelMemoryStream again;
    project->SaveToBinStream(again);
    if (again.Bytes() != binary.Bytes()) __builtin_trap();
  }
  xml.SetPosition(0);
  if (xmlWritten) Succeeds([&] { project->LoadFromXmlStream(xml); });
  return 0;
}
