#pragma once

#include <string>
#include <vector>

#include "CliContext.h"

/// The commands of the companion. Each takes the arguments behind its name and raises ECliError where it cannot do its
/// work; see the usage text.
namespace Commands {

using TArguments = std::vector<std::string>;

TCliResult Info(const TArguments& files, TCliContext& context);
TCliResult Check(const TArguments& files, TCliContext& context);
TCliResult Convert(const TArguments& files, TCliContext& context);
TCliResult Diff(const TArguments& files, TCliContext& context);
TCliResult Sample(const TArguments& files, TCliContext& context);
TCliResult Texts(const TArguments& files, TCliContext& context);

}  // namespace Commands

/// Runs the program with its arguments (without its own name). Never raises.
TCliResult RunCli(const std::vector<std::string>& arguments, TCliContext& context);
