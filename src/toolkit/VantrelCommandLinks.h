#pragma once

#include <initializer_list>
#include <string_view>

#include "VantrelCommands.h"
#include "VantrelMemTable.h"

/// What must be so of a table, of its record or of a command, for a command to be enabled.
enum class TDBEnableType {
  dbtIsActive,
  dbtCanModify,
  dbtFieldNotNull,
  dbtNotEOF,
  dbtNotBOF,
  dbtHasRecords,
  dbtIsModified,
  dbtIsNotModified,
  dbtInEdit,
  dbtNotInEdit,
  dbtEnabled,
  dbtDisabled,
};
using TDBEnableTypes = std::initializer_list<TDBEnableType>;

/// Links between tables and commands.
class TDBTools {
 public:
  TDBTools() = delete;

  /// Enables `component` if `enabled` and every test of `enableTypes` hold. Without a table, `enabled` stands alone.
  /// The first and the last record count as start and end. `fieldname` is for dbtFieldNotNull; a field that the table
  /// has not counts as null.
  static void UpdateLink(TVantrelCommand& component, const TVantrelMemTable* dataSource, bool enabled,
                         TDBEnableTypes enableTypes = {}, std::string_view fieldname = {});
};
