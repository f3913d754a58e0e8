#include "CliTexts.h"
#include "Commands.h"
#include "ProgramTexts.h"
#include "ProjectFiles.h"
#include "VantrelFileSystem.h"

namespace {
TVantrelResourceStringTable AllTexts() {
  TVantrelResourceStringTable table;
  AddProgramTexts(table);
  for (const auto& field : CliTexts::Captions) table.SetString(table.Count(), field.Caption);
  for (const auto& value : CliTexts::ValueNames) table.SetString(table.Count(), value.Shown);
  return table;
}
}  // namespace

TCliResult Commands::Texts(const TArguments& files, TCliContext& context) {
  const auto& target = files[0];
  if (GetProjectFileKind(target) != TProjectFileKind::pfkUnknown)
    throw ECliUsageError(FormatText(CliTexts::NoDictionary, target));
  const auto table = AllTexts();
  try {
    TVantrelI18nManager dictionary;
    if (TVantrelFileSystem::Exists(target)) dictionary.LoadStrings(target);
    dictionary.ExtractAndMergeStrings(table);
    dictionary.SaveStrings(target);
  } catch (const EVantrelWin32Error& error) {
    throw ECliError(FileErrorText(target, error));
  }
  context.Out << FormatText(CliTexts::TextsWritten, target, table.Count()) << '\n';
  return TCliResult::Good;
}
