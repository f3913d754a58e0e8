#pragma once

#include <string>
#include <vector>

#include "CliContext.h"
#include "uProject.h"

/// The content of the file is damaged.
class ECliDamaged : public ECliError {
 public:
  ECliDamaged(const std::string& fileName, const TVantrelLoadDamage& damage);
  /// What is damaged, and where.
  const std::string Damage;
};
/// The file is protected, and no password was given.
class ECliPasswordNeeded : public ECliError {
 public:
  explicit ECliPasswordNeeded(const std::string& fileName);
};

/// Reads a project with writing denied to others meanwhile, but does not hold it. A protected one is given only for
/// its password, which `context` has or asks for. Raises ECliError.
TVantrelPtr<TMyTessaronProject> ReadProject(const std::string& fileName, const TCliContext& context);

/// What the reader noticed as damage of a project that could be read all the same, one line each.
std::vector<std::string> DamageTexts(const TMyTessaronProject& project);
/// Prints those to Err.
void TellDamage(const TMyTessaronProject& project, const TCliContext& context);

/// Raises ECliUsageError where the name of a target tells no kind that can be written.
void RequireWritableKind(const std::string& target);
/// Raises ECliError where the folder of a target is missing, and where the target exists and `context` does not force
/// its replacement.
void RequireFreeTarget(const std::string& target, const TCliContext& context);
/// Writes the project in the kind that the target's name tells, JSON among them. Raises ECliError, also as the two
/// above, and what SaveFile raises for the content; the target is then as it was.
void SaveProject(TMyTessaronProject& project, const std::string& target, const TCliContext& context);

/// What a failed system call on a file means to the user.
std::string FileErrorText(const std::string& fileName, const EVantrelWin32Error& error);
