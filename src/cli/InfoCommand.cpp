#include <fmt/format.h>
#include <fmt/ranges.h>

#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "VantrelPaths.h"
#include "VantrelText.h"
#include "uMissingGrades.h"
#include "uRecordTexts.h"

namespace {

using RecordTexts::Printable;

constexpr int CaptionWidth = 16;

void PrintLine(std::ostream& out, const char* caption, std::string_view value) {
  out << fmt::format("{:<{}}{}\n", ResourceText(caption) + ":", CaptionWidth, value);
}

std::string KindOf(const std::string& fileName) {
  const char* name = CliTexts::KindPlainXml;
  if (GetProjectFileKind(fileName) == TProjectFileKind::pfkBinary) name = CliTexts::KindBinary;
  if (GetProjectFileKind(fileName) == TProjectFileKind::pfkEncryptedXml) name = CliTexts::KindEncryptedXml;
  return fmt::format("{} (.{})", ResourceText(name), TVantrelFilePath::GetExtension(fileName));
}

std::string NumberText(const TMyTessaronInteger& id) {
  return id.IsNull() ? ResourceText(ProjectTexts::Empty) : id.ToString();
}

std::string WithId(const std::string& name, const TMyTessaronInteger& id) {
  return Join(Printable(name), FormatText(CliTexts::NumberOfName, NumberText(id)), ", ");
}

/// The lines of a text below each other.
std::string Indented(std::string_view text) {
  return fmt::format("{}", fmt::join(RecordTexts::PrintableLines(text), fmt::format("\n{:{}}", "", CaptionWidth)));
}

std::string MissingText(const TMissingGrades& missing) {
  std::vector<std::string> texts;
  for (const auto& [text, count] : {std::pair(CliTexts::MissingNotes, missing.Noten1To5Count),
                                    std::pair(CliTexts::MissingEndnote1, missing.Endnote1Count),
                                    std::pair(CliTexts::MissingEndnote2, missing.Endnote2Count)})
    if (count >= 0) texts.push_back(FormatText(text, count));
  return missing.IsNothingMissing() ? ResourceText(CliTexts::NothingMissing)
                                    : fmt::format("{}", fmt::join(texts, ", "));
}

}  // namespace

TCliResult Commands::Info(const TArguments& files, TCliContext& context) {
  const auto& fileName = files.front();
  const auto project = ReadProject(fileName, context);
  TellDamage(*project, context);
  auto& out = context.Out;
  const auto teacher = Join(project->TeacherToken, project->TeacherName, " ");
  PrintLine(out, CliTexts::InfoFile, Printable(fileName));
  PrintLine(out, CliTexts::InfoKind, KindOf(fileName));
  PrintLine(out, CliTexts::InfoVersion, Printable(project->ProductVersion()));
  PrintLine(out, CliTexts::InfoTenant, NumberText(project->TenantId));
  PrintLine(out, CliTexts::InfoTeacher, WithId(teacher, project->TeacherId));
  PrintLine(out, CliTexts::InfoTerm, WithId(project->TermName, project->TermId));
  PrintLine(out, CliTexts::InfoDescription, Indented(project->Description));
  PrintLine(out, CliTexts::InfoPassword,
            ResourceText(project->PasswordProtected ? ProjectTexts::Yes : ProjectTexts::No));
  PrintLine(out, CliTexts::InfoClasses, std::to_string(project->Classes().Count()));
  PrintLine(out, CliTexts::InfoStudents, std::to_string(project->Students().Count()));
  PrintLine(out, CliTexts::InfoCourses, std::to_string(project->Courses().Count()));
  PrintLine(out, CliTexts::InfoMissing, MissingText(CountMissingGrades(*project)));
  return TCliResult::Good;
}
