#pragma once

#include "uListPane.h"

/// The list of subjects: their tokens, and beside them how many grades are open.
TListPaneSettings SubjectsList();

/// The field of that number, null for none.
inline constexpr const char* OpenGradesField = "Open";
