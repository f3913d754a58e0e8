#include "CliTexts.h"
#include "Commands.h"
#include "ProjectDifferences.h"
#include "ProjectFiles.h"
#include "VantrelI18n.h"

TCliResult Commands::Diff(const TArguments& files, TCliContext& context) {
  const auto before = ReadProject(files[0], context);
  const auto after = ReadProject(files[1], context);
  const auto found = FindDifferences(*before, *after);
  for (const auto& part : found) {
    context.Out << part.Title << '\n';
    for (const auto& line : part.Lines) context.Out << "  " << line << '\n';
  }
  if (!found.empty()) return TCliResult::Findings;
  context.Out << ResourceText(CliTexts::NoDifference) << '\n';
  return TCliResult::Good;
}
