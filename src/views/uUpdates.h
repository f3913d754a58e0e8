#pragma once

#include "VantrelGrid.h"
#include "VantrelMemTable.h"
#include "VantrelScopes.h"

/// A begin/end update of a grid for the length of a scope.
using TGridUpdate = TVantrelBracket<TVantrelGrid, &TVantrelGrid::BeginUpdate, &TVantrelGrid::EndUpdate>;

/// The controls of a table are held off for the length of a scope.
using TTableUpdate =
    TVantrelBracket<TVantrelMemTable, &TVantrelMemTable::DisableControls, &TVantrelMemTable::EnableControls>;
