#include "CliTexts.h"
#include "Commands.h"
#include "ProjectDifferences.h"
#include "ProjectFiles.h"
#include "VantrelI18n.h"

TCliResult Commands::Diff(const TArguments& files, TCliContext& context) {
  const auto before = ReadProject(files[0], context);
  const auto after = ReadProject(files[1], context);
  const auto found = FindDifferences(*before, *after);
  PrintDifferences(found, context.Out);
  if (!found.empty()) return TCliResult::Findings;
  context.Out << ResourceText(CliTexts::NoDifference) << '\n';
  return TCliResult::Good;
}
