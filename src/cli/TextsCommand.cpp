#include "CliTexts.h"
#include "Commands.h"
#include "ProjectFiles.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"

TCliResult Commands::Texts(const TArguments& files, TCliContext& context) {
  const auto& target = files[0];
  if (GetProjectFileKind(target) != TProjectFileKind::pfkUnknown)
    throw ECliUsageError(FormatText(CliTexts::NoDictionary, target));
  int count = 0;
  try {
    TVantrelI18nManager dictionary;
    if (TVantrelFileSystem::Exists(target)) dictionary.LoadStrings(target);
    count = dictionary.ExtractAndMergeStrings();
    dictionary.SaveStrings(target);
  } catch (const EVantrelWin32Error& error) {
    throw ECliError(FileErrorText(target, error));
  }
  context.Out << FormatText(CliTexts::TextsWritten, target, count) << '\n';
  return TCliResult::Good;
}
