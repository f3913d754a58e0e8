#include <algorithm>
#include <charconv>
#include <fstream>

#include "CliTexts.h"
#include "Commands.h"
#include "SampleNames.h"
#include "SystemFolders.h"
#include "VantrelI18n.h"
#include "uProject.h"
#include "uRecordTexts.h"

namespace {

using Commands::TArguments;
using RecordTexts::PrintableLines;
using RecordTexts::PrintableText;

enum class TOptionKind { Help, PasswordFile, Sample, Force };
struct TOption {
  std::string_view Name;
  TOptionKind Kind;
  bool HasValue;
};
constexpr TOption OptionTable[] = {
    {"help", TOptionKind::Help, false},      {"password-file", TOptionKind::PasswordFile, true},
    {"students", TOptionKind::Sample, true}, {"subjects", TOptionKind::Sample, true},
    {"classes", TOptionKind::Sample, true},  {"seed", TOptionKind::Sample, true},
    {"edition", TOptionKind::Sample, true},  {"force", TOptionKind::Force, false}};

struct TCommand {
  std::string_view Name;
  std::size_t LeastFiles;
  std::size_t MostFiles;
  bool TakesForce;
  bool TakesSample;
  TCliResult (*Run)(const TArguments& files, TCliContext& context);
};
constexpr TCommand CommandTable[] = {
    {"info", 1, 1, false, false, Commands::Info},      {"check", 1, SIZE_MAX, false, false, Commands::Check},
    {"convert", 2, 2, true, false, Commands::Convert}, {"diff", 2, 2, false, false, Commands::Diff},
    {"sample", 1, 1, true, true, Commands::Sample},    {"texts", 1, 1, true, false, Commands::Texts}};

bool Takes(const TCommand& command, TOptionKind option) {
  if (option == TOptionKind::Force) return command.TakesForce;
  return option != TOptionKind::Sample || command.TakesSample;
}

std::string FirstLine(const std::string& fileName) {
  std::ifstream file(System::PathOf(fileName), std::ios::binary);
  std::string line;
  std::getline(file, line);
  if (file.bad() || !file.is_open()) throw ECliError(PrintableText(CliTexts::NoPasswordFile, fileName));
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

/// Raises ECliUsageError for a text that is no number between the two.
template <class T>
T NumberOf(std::string_view option, std::string_view text, T least, T most) {
  T value = 0;
  const auto* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end || value < least || value > most)
    throw ECliUsageError(PrintableText(CliTexts::WrongNumber, text, option, least, most));
  return value;
}

void SetSampleOption(TSampleOptions& sample, std::string_view option, std::string_view value) {
  constexpr int mostStudents = 100000, mostClasses = 1000;
  if (option == "students") {
    sample.Students = NumberOf(option, value, 0, mostStudents);
  } else if (option == "subjects") {
    sample.Subjects = NumberOf(option, value, 1, static_cast<int>(SampleNames::Subjects().size()));
  } else if (option == "classes") {
    sample.Classes = NumberOf(option, value, 1, mostClasses);
  } else if (option == "seed") {
    sample.Seed = NumberOf(option, value, std::uint64_t{0}, UINT64_MAX);
  } else if (value == "8" || value == "10") {
    sample.Edition = value == "8" ? 8 : 10;
  } else {
    throw ECliUsageError(ResourceText(CliTexts::WrongEdition));
  }
}

/// The option that the word is. Raises ECliUsageError for one that there is not.
const TOption& OptionOf(const std::string& word) {
  if (word == "-h") return *std::ranges::find(OptionTable, TOptionKind::Help, &TOption::Kind);
  const auto end = word.find('=');
  const auto* option = std::ranges::find_if(
      OptionTable, [&](const auto& known) { return word.starts_with("--") && word.substr(2, end - 2) == known.Name; });
  if (option == std::end(OptionTable) || (end != std::string::npos && !option->HasValue))
    throw ECliUsageError(PrintableText(CliTexts::UnknownOption, word));
  return *option;
}

void ApplyOption(const TOption& option, const std::string& value, TCliContext& context) {
  if (option.Kind == TOptionKind::PasswordFile) context.Password = FirstLine(value);
  if (option.Kind == TOptionKind::Sample) SetSampleOption(context.Sample, option.Name, value);
  if (option.Kind == TOptionKind::Force) context.Force = true;
}

/// Takes the options out of the arguments, which keep the rest, and notes them. What stands behind "--" is no option.
/// True: help is asked for.
bool TakeOptions(TArguments& arguments, TCliContext& context, std::vector<TOption>& taken) {
  TArguments rest;
  for (auto word = arguments.begin(); word != arguments.end(); ++word) {
    if (*word == "--") {
      rest.insert(rest.end(), word + 1, arguments.end());
      break;
    }
    if (!word->starts_with('-') || *word == "-") {
      rest.push_back(*word);
      continue;
    }
    const auto& option = taken.emplace_back(OptionOf(*word));
    if (option.Kind == TOptionKind::Help) return true;
    const auto equals = word->find('=');
    if (option.HasValue && equals == std::string::npos && ++word == arguments.end())
      throw ECliUsageError(PrintableText(CliTexts::OptionWithoutValue, "--" + std::string(option.Name)));
    ApplyOption(option, equals == std::string::npos ? *word : word->substr(equals + 1), context);
  }
  arguments = std::move(rest);
  return false;
}

TCliResult Run(TArguments arguments, TCliContext& context) {
  std::vector<TOption> taken;
  if (TakeOptions(arguments, context, taken)) {
    context.Out << ResourceText(CliTexts::Usage);
    return TCliResult::Good;
  }
  if (arguments.empty()) {
    context.Err << ResourceText(CliTexts::Usage);
    return TCliResult::Failed;
  }
  const auto* command = std::ranges::find(CommandTable, std::string_view(arguments.front()), &TCommand::Name);
  if (command == std::end(CommandTable))
    throw ECliUsageError(PrintableText(CliTexts::UnknownCommand, arguments.front()));
  for (const auto& one : taken)
    if (!Takes(*command, one.Kind))
      throw ECliUsageError(PrintableText(CliTexts::ForeignOption, one.Name, command->Name));
  arguments.erase(arguments.begin());
  if (arguments.size() < command->LeastFiles || arguments.size() > command->MostFiles)
    throw ECliUsageError(PrintableText(CliTexts::WrongFileCount, command->Name));
  const auto result = command->Run(arguments, context);
  if (!context.Out.flush()) throw ECliError(ResourceText(CliTexts::OutputFailed));
  return result;
}

void Tell(const TCliContext& context, std::string_view message) {
  for (const auto& line : PrintableLines(message)) context.Err << line << '\n';
}

}  // namespace

TCliResult RunCli(const std::vector<std::string>& arguments, TCliContext& context) {
  try {
    TMyTessaronProject::RegisterClasses();
    return Run(arguments, context);
  } catch (const ECliUsageError& error) {
    Tell(context, error.Message());
    context.Err << ResourceText(CliTexts::SeeHelp) << '\n';
  } catch (const EVantrelException& error) {
    Tell(context, error.Message());
  } catch (const std::exception& error) {
    Tell(context, PrintableText(CliTexts::UnexpectedError, error.what()));
  }
  return TCliResult::Failed;
}
