#pragma once

#include "VantrelDialogs.h"
#include "uProgramInfo.h"
#include "uTessaronSession.h"

/// What the about window says of the program that the session runs. A program without a copyright line gets one with
/// the current year.
TAboutInfo AboutInfo(const TProgramInfo& program, const TTessaronSession& session);
