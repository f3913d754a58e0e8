#pragma once

#include "VantrelSpelling.h"
#include "uOptions.h"
#include "uProject.h"

/// Makes a checker do what the options say. If spelling is checked at all, its dictionaries are loaded, which takes a
/// tenth of a second: that of the environment folder, else the system's; and the user's words, where there are any.
void ConfigureSpellChecker(TVantrelSpellChecker& checker, const TMyTessaronOptions& options);

/// The names of students, teachers and subjects in the project are no mistakes.
void KnowNamesOf(const TMyTessaronProject& project, TVantrelSpellChecker& checker);
