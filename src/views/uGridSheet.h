#pragma once

#include <string>

#include "VantrelGrid.h"
#include "VantrelSheet.h"

/// The grid as it is shown: its filter, its visible columns with their captions, its rows in their order with all
/// groups opened, as the texts that the user reads. Numbers and dates are values whose format gives the same text; what
/// is picked from a list, and what is no value, is text. Without `all` the selected records alone.
TSheet SheetOf(const TVantrelGrid& grid, const std::string& title, bool all);
