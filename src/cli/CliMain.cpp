#include <getopt.h>

#include <algorithm>
#include <fstream>

#include "CliTexts.h"
#include "Commands.h"
#include "VantrelI18n.h"
#include "uProject.h"

namespace {

using Commands::TArguments;

enum TOption { HelpOption = 'h', PasswordFileOption = 'p' };
constexpr option Options[] = {
    {"help", no_argument, nullptr, HelpOption}, {"password-file", required_argument, nullptr, PasswordFileOption}, {}};

struct TCommand {
  std::string_view Name;
  std::size_t LeastFiles;
  std::size_t MostFiles;
  TCliResult (*Run)(const TArguments& files, TCliContext& context);
};
constexpr TCommand CommandTable[] = {{"info", 1, 1, Commands::Info},
                                     {"check", 1, SIZE_MAX, Commands::Check},
                                     {"convert", 2, 2, Commands::Convert},
                                     {"diff", 2, 2, Commands::Diff}};

std::string FirstLine(const std::string& fileName) {
  std::ifstream file(fileName, std::ios::binary);
  std::string line;
  std::getline(file, line);
  if (file.bad() || !file.is_open()) throw ECliError(FormatText(CliTexts::NoPasswordFile, fileName));
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

/// Takes the options out of the arguments and gives the rest. True: help is asked for.
bool TakeOptions(TArguments& arguments, TCliContext& context) {
  std::vector<char*> words{nullptr};
  for (auto& argument : arguments) words.push_back(argument.data());
  const int count = static_cast<int>(words.size());
  words.push_back(nullptr);
  ::optind = 0;
  ::opterr = 0;
  for (int found = 0; (found = ::getopt_long(count, words.data(), ":h", Options, nullptr)) != -1;) {
    const std::string word = words[static_cast<std::size_t>(::optind - 1)];
    if (found == HelpOption) return true;
    if (found == ':') throw ECliUsageError(FormatText(CliTexts::OptionWithoutValue, word));
    if (found == '?') throw ECliUsageError(FormatText(CliTexts::UnknownOption, word));
    context.Password = FirstLine(::optarg);
  }
  arguments.assign(words.begin() + ::optind, words.end() - 1);
  return false;
}

TCliResult Run(TArguments arguments, TCliContext& context) {
  if (TakeOptions(arguments, context)) {
    context.Out << ResourceText(CliTexts::Usage);
    return TCliResult::Good;
  }
  if (arguments.empty()) {
    context.Err << ResourceText(CliTexts::Usage);
    return TCliResult::Failed;
  }
  const auto* command = std::ranges::find(CommandTable, std::string_view(arguments.front()), &TCommand::Name);
  if (command == std::end(CommandTable)) throw ECliUsageError(FormatText(CliTexts::UnknownCommand, arguments.front()));
  arguments.erase(arguments.begin());
  if (arguments.size() < command->LeastFiles || arguments.size() > command->MostFiles)
    throw ECliUsageError(FormatText(CliTexts::WrongFileCount, command->Name));
  const auto result = command->Run(arguments, context);
  if (!context.Out.flush()) throw ECliError(ResourceText(CliTexts::OutputFailed));
  return result;
}

}  // namespace

TCliResult RunCli(const std::vector<std::string>& arguments, TCliContext& context) {
  try {
    TMyTessaronProject::RegisterClasses();
    return Run(arguments, context);
  } catch (const ECliUsageError& error) {
    context.Err << error.Message() << '\n' << ResourceText(CliTexts::SeeHelp) << '\n';
  } catch (const EVantrelException& error) {
    context.Err << error.Message() << '\n';
  } catch (const std::exception& error) {
    context.Err << FormatText(CliTexts::UnexpectedError, error.what()) << '\n';
  }
  return TCliResult::Failed;
}
