#pragma once

#include <string>
#include <vector>

#include "uProject.h"

/// What is wrong in a project that could be read, one German sentence each: references to nothing, ids and tokens
/// that stand in no catalogue, columns without a caption, ids that occur twice.
std::vector<std::string> FindDefects(const TMyTessaronProject& project);
