#pragma once

#include "VantrelI18n.h"

/// Adds the built-in texts of the whole program, window and companion, behind those that the table has.
void AddProgramTexts(TVantrelResourceStringTable& table);
