#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

using RecordTexts::PrintableText;

TCliResult Commands::Convert(const TArguments& files, TCliContext& context) {
  const auto& source = files[0];
  const auto& target = files[1];
  RequireWritableKind(target);
  RequireFreeTarget(target, context);
  const auto project = ReadProject(source, context);
  SaveProject(*project, target, context);
  context.Out << PrintableText(CliTexts::Converted, source, target) << '\n';
  return TCliResult::Good;
}
