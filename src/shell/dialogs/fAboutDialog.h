#pragma once

#include "VantrelDialogs.h"
#include "uProgramInfo.h"

/// What the about window says. A program without a copyright line gets one with the current year.
TAboutInfo AboutInfo(const TProgramInfo& program);
