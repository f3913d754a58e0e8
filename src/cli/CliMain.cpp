#include <getopt.h>

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

constexpr int HelpOption = 'h', PasswordFileOption = 'p', SampleOption = 's', ForceOption = 'f';
constexpr option Options[] = {{"help", no_argument, nullptr, HelpOption},
                              {"password-file", required_argument, nullptr, PasswordFileOption},
                              {"students", required_argument, nullptr, SampleOption},
                              {"subjects", required_argument, nullptr, SampleOption},
                              {"classes", required_argument, nullptr, SampleOption},
                              {"seed", required_argument, nullptr, SampleOption},
                              {"edition", required_argument, nullptr, SampleOption},
                              {"force", no_argument, nullptr, ForceOption},
                              {}};

struct TCommand {
  std::string_view Name;
  std::size_t LeastFiles;
  std::size_t MostFiles;
  /// The options that not every command takes.
  std::string_view Options;
  TCliResult (*Run)(const TArguments& files, TCliContext& context);
};
constexpr TCommand CommandTable[] = {
    {"info", 1, 1, "", Commands::Info},        {"check", 1, SIZE_MAX, "", Commands::Check},
    {"convert", 2, 2, "f", Commands::Convert}, {"diff", 2, 2, "", Commands::Diff},
    {"sample", 1, 1, "fs", Commands::Sample},  {"texts", 1, 1, "f", Commands::Texts}};

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

/// The word that an unknown option stands in: of several letters behind one dash the first is unknown.
std::string UnknownWord(const std::vector<char*>& words) {
  const auto next = static_cast<std::size_t>(::optind);
  const std::string behind = words[next - 1];
  const bool isWhole =
      ::optopt == 0 || behind.starts_with("--") || behind == std::string{'-', static_cast<char>(::optopt)};
  return isWhole ? behind : words[next];
}

/// Takes the options out of the arguments, which keep the rest, and notes those that not every command takes. True:
/// help is asked for.
bool TakeOptions(TArguments& arguments, TCliContext& context, std::vector<option>& taken) {
  std::vector<char*> words{nullptr};
  for (auto& argument : arguments) words.push_back(argument.data());
  const int count = static_cast<int>(words.size());
  words.push_back(nullptr);
  int which = 0;
  ::optind = 0;
  ::opterr = 0;
  for (int found = 0; (found = ::getopt_long(count, words.data(), ":h", Options, &which)) != -1;) {
    if (found == HelpOption) return true;
    if (found == ':')
      throw ECliUsageError(PrintableText(CliTexts::OptionWithoutValue, words[static_cast<std::size_t>(::optind) - 1]));
    if (found == '?') throw ECliUsageError(PrintableText(CliTexts::UnknownOption, UnknownWord(words)));
    if (found == PasswordFileOption) context.Password = FirstLine(::optarg);
    if (found == SampleOption) SetSampleOption(context.Sample, Options[which].name, ::optarg);
    if (found == ForceOption) context.Force = true;
    if (found != PasswordFileOption) taken.push_back(Options[which]);
  }
  arguments = TArguments(words.begin() + ::optind, words.end() - 1);
  return false;
}

TCliResult Run(TArguments arguments, TCliContext& context) {
  std::vector<option> taken;
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
    if (command->Options.find(static_cast<char>(one.val)) == std::string_view::npos)
      throw ECliUsageError(PrintableText(CliTexts::ForeignOption, one.name, command->Name));
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
