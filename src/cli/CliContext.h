#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "SampleProject.h"
#include "VantrelExceptions.h"

/// What the program answers to its caller.
enum class TCliResult { Good = 0, Findings = 1, Failed = 2 };

/// What a command talks to.
struct TCliContext {
  std::ostream& Out;
  std::ostream& Err;
  /// Whether Err shows a line that is overwritten again and again.
  bool ShowProgress = false;
  /// Asks the user for the password of the named file; empty where there is nobody to ask.
  std::function<std::string(const std::string& fileName)> AskPassword = {};
  /// From the option --password-file.
  std::optional<std::string> Password = {};
  /// From the option --force: a target that exists is replaced.
  bool Force = false;
  /// From the options of the sample.
  TSampleOptions Sample = {};
};

/// A command cannot be carried out; the message is for the user.
class ECliError : public EVantrelException {
  using EVantrelException::EVantrelException;
};
/// The program was called in a wrong way.
class ECliUsageError : public ECliError {
  using ECliError::ECliError;
};
