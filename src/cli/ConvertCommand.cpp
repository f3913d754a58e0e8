#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "VantrelI18n.h"

TCliResult Commands::Convert(const TArguments& files, TCliContext& context) {
  const auto& source = files[0];
  const auto& target = files[1];
  RequireWritableKind(target);
  const auto project = ReadProject(source, context);
  SaveProject(*project, target);
  context.Out << FormatText(CliTexts::Converted, source, target) << '\n';
  return TCliResult::Good;
}
