#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "SampleProject.h"
#include "VantrelI18n.h"

TCliResult Commands::Sample(const TArguments& files, TCliContext& context) {
  const auto& target = files.front();
  RequireWritableKind(target);
  const auto project = CreateVantrel<TMyTessaronProject>();
  BuildSample(*project, context.Sample);
  SaveProject(*project, target);
  context.Out << FormatText(CliTexts::SampleMade, target, project->Students().Count(), project->Courses().Count())
              << '\n';
  return TCliResult::Good;
}
