#pragma once

#include "uListPane.h"

/// The list of students, by class, name and birthday: the class as its token, also in the filter.
TListPaneSettings StudentsList();
/// The same for choosing some of them; a class that the file does not know is empty.
TListPaneSettings StudentsToSelect();
