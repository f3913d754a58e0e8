#pragma once

#include <string>

#include "uProject.h"

/// What the teacher is told of a file that opened although something is wrong with it: ten lines at most, and how many
/// more there are. Empty where nothing is wrong, and where loading has already told it.
std::string LoadReport(const TMyTessaronProject& project);
