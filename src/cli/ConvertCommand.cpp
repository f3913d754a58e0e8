#include "CliTexts.h"
#include "Commands.h"
#include "ProjectDifferences.h"
#include "ProjectFiles.h"
#include "VantrelDataJson.h"
#include "uRecordTexts.h"

using RecordTexts::PrintableText;

namespace {

/// What is other than in the project once its target is read back; raises what SaveFile raises for the content.
std::vector<TDifferences> FindLosses(TMyTessaronProject& project, const std::string& target) {
  using enum TVantrelDataStorageFormat;
  const auto kind = GetProjectFileKind(target);
  const auto format = kind == TProjectFileKind::pfkBinary    ? dsfBinary
                      : kind == TProjectFileKind::pfkUnknown ? dsfJson
                                                             : dsfXml;
  TVantrelMemoryStream stream;
  project.SaveToStream(stream, format);
  stream.SetPosition(0);
  const auto held = CreateVantrel<TMyTessaronProject>();
  held->LoadFromStream(stream, format);
  return FindDifferences(project, *held, format == dsfJson ? JsonText : nullptr);
}

}  // namespace

TCliResult Commands::Convert(const TArguments& files, TCliContext& context) {
  const auto& source = files[0];
  const auto& target = files[1];
  RequireWritableKind(target);
  RequireFreeTarget(target, context);
  const auto project = ReadProject(source, context);
  TellDamage(*project, context);
  const auto losses = FindLosses(*project, target);
  SaveProject(*project, target, context);
  context.Out << PrintableText(CliTexts::Converted, source, target) << '\n';
  if (!losses.empty()) context.Err << PrintableText(CliTexts::Losses, target) << '\n';
  PrintDifferences(losses, context.Err);
  return TCliResult::Good;
}
