#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "SampleProject.h"
#include "uRecordTexts.h"

using RecordTexts::PrintableText;

TCliResult Commands::Sample(const TArguments& files, TCliContext& context) {
  const auto& target = files.front();
  RequireWritableKind(target);
  RequireFreeTarget(target, context);
  const auto project = CreateVantrel<TMyTessaronProject>();
  BuildSample(*project, context.Sample);
  SaveProject(*project, target, context);
  context.Out << PrintableText(CliTexts::SampleMade, target, project->Students().Count(), project->Courses().Count())
              << '\n';
  return TCliResult::Good;
}
