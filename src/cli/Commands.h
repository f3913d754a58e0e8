#pragma once

#include <string>
#include <vector>

#include "CliContext.h"

/// The commands of the companion. Each takes the arguments behind its name and raises ECliError where it cannot do its
/// work; see the usage text.
namespace Commands {

using TArguments = std::vector<std::string>;

/// Prints what a project is and holds.
TCliResult Info(const TArguments& files, TCliContext& context);
/// Prints what is damaged or cannot be meant in the files.
TCliResult Check(const TArguments& files, TCliContext& context);
/// Writes a project in another form.
TCliResult Convert(const TArguments& files, TCliContext& context);
/// Prints what two projects differ in.
TCliResult Diff(const TArguments& files, TCliContext& context);
/// Writes a project with made-up names.
TCliResult Sample(const TArguments& files, TCliContext& context);
/// Writes the texts of the programs for translators.
TCliResult Texts(const TArguments& files, TCliContext& context);

}  // namespace Commands

/// Runs the program with its arguments (without its own name). Never raises.
TCliResult RunCli(const std::vector<std::string>& arguments, TCliContext& context);
