#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

using RecordTexts::PrintableText;

TCliResult Commands::Texts(const TArguments& files, TCliContext& context) {
  const auto& target = files[0];
  if (GetProjectFileKind(target) != TProjectFileKind::pfkUnknown)
    throw ECliUsageError(PrintableText(CliTexts::NoDictionary, target));
  int count = 0;
  try {
    TVantrelI18nManager dictionary;
    count = dictionary.ExtractAndMergeStrings();
    if (!TVantrelFileSystem::Exists(target) || !dictionary.CompleteStrings(target)) {
      RequireFreeTarget(target, context);
      dictionary.SaveStrings(target);
    }
  } catch (const EVantrelWin32Error& error) {
    throw ECliError(FileErrorText(target, error));
  }
  context.Out << PrintableText(CliTexts::TextsWritten, target, count) << '\n';
  return TCliResult::Good;
}
