#include "ProjectFiles.h"

#include <fmt/format.h>

#include <filesystem>

#include "CliTexts.h"
#include "SystemFolders.h"
#include "VantrelI18n.h"
#include "VantrelPaths.h"
#include "VantrelSafeSave.h"
#include "uRecordTexts.h"

using RecordTexts::PrintableText;

namespace {

constexpr std::string_view JsonExtension = "json";

std::string DamageText(const TVantrelLoadDamage& damage) {
  const auto message = RecordTexts::Printable(damage.Message);
  return damage.Place.empty() ? message : fmt::format("{} ({})", message, RecordTexts::Printable(damage.Place));
}

}  // namespace

ECliDamaged::ECliDamaged(const std::string& fileName, const TVantrelLoadDamage& damage)
    : ECliError(PrintableText(CliTexts::Damaged, fileName, DamageText(damage))), Damage(DamageText(damage)) {}

ECliPasswordNeeded::ECliPasswordNeeded(const std::string& fileName)
    : ECliError(PrintableText(CliTexts::PasswordNeeded, fileName)) {}

std::string FileErrorText(const std::string& fileName, const EVantrelWin32Error& error) {
  switch (static_cast<TVantrelErrorCode>(error.ErrorCode())) {
    case TVantrelErrorCode::FileNotFound:
      return PrintableText(CliTexts::FileNotFound, fileName);
    case TVantrelErrorCode::PathNotFound:
      return PrintableText(CliTexts::PathNotFound, fileName);
    case TVantrelErrorCode::AccessDenied:
      return PrintableText(CliTexts::AccessDenied, fileName);
    case TVantrelErrorCode::SharingViolation:
      return PrintableText(CliTexts::FileInUse, fileName);
    case TVantrelErrorCode::DiskFull:
      return PrintableText(CliTexts::DiskFull, fileName);
    default:
      return PrintableText(CliTexts::FileError, fileName, EVantrelWin32Error::TextOf(error.ErrorCode()));
  }
}

namespace {

void Save(TMyTessaronProject& project, const std::string& target) {
  if (TVantrelFilePath::GetExtension(target) == JsonExtension) {
    TVantrelMemoryStream json;
    project.SaveToJsonStream(json);
    TVantrelSafeSave::Write(target, json.Bytes(), TVantrelFileAccessMode::famShareExclusive, nullptr,
                            project.FileRights());
  } else {
    project.SetFileName(target);
    project.SaveFile({});
  }
}

void RequirePassword(const TMyTessaronProject& project, const std::string& fileName, const TCliContext& context) {
  if (!project.PasswordProtected) return;
  if (!context.Password && !context.AskPassword) throw ECliPasswordNeeded(fileName);
  if (!project.CheckPassword(context.Password ? *context.Password : context.AskPassword(fileName)))
    throw ECliError(ResourceText(CliTexts::WrongPassword));
}

}  // namespace

TVantrelPtr<TMyTessaronProject> ReadProject(const std::string& fileName, const TCliContext& context) {
  auto project = CreateVantrel<TMyTessaronProject>();
  try {
    if (!project->LoadForReading(fileName)) throw ECliError(PrintableText(CliTexts::UnknownKind, fileName));
  } catch (const ECliError&) {
    throw;
  } catch (const EVantrelWin32Error& error) {
    throw ECliError(FileErrorText(fileName, error));
  } catch (const std::exception& error) {
    throw ECliDamaged(fileName, project->LoadDamage().value_or(TVantrelLoadDamage{error.what(), {}}));
  }
  RequirePassword(*project, fileName, context);
  return project;
}

std::vector<std::string> DamageTexts(const TMyTessaronProject& project) {
  std::vector<std::string> texts;
  for (const auto& note : project.LoadNotes())
    if (note.IsDamage) texts.push_back(PrintableText(CliTexts::CheckDamaged, note.Text));
  return texts;
}

void TellDamage(const TMyTessaronProject& project, const TCliContext& context) {
  for (const auto& text : DamageTexts(project)) context.Err << text << '\n';
}

void RequireFreeTarget(const std::string& target, const TCliContext& context) {
  const auto path = System::PathOf(target);
  std::error_code error;
  if (path.has_parent_path() && !std::filesystem::is_directory(path.parent_path(), error))
    throw ECliError(PrintableText(CliTexts::PathNotFound, target));
  if (!context.Force && std::filesystem::exists(std::filesystem::symlink_status(path, error)))
    throw ECliError(PrintableText(CliTexts::TargetExists, target));
}

void SaveProject(TMyTessaronProject& project, const std::string& target, const TCliContext& context) {
  RequireWritableKind(target);
  RequireFreeTarget(target, context);
  try {
    Save(project, target);
  } catch (const EVantrelWin32Error& error) {
    throw ECliError(FileErrorText(target, error));
  }
}

void RequireWritableKind(const std::string& target) {
  if (GetProjectFileKind(target) == TProjectFileKind::pfkUnknown &&
      TVantrelFilePath::GetExtension(target) != JsonExtension)
    throw ECliUsageError(PrintableText(CliTexts::UnknownTarget, target));
}
