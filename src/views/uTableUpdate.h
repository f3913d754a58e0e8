#pragma once

#include "VantrelMemTable.h"

/// The controls of a table are held off until the scope ends, however it ends.
class TTableUpdate {
 public:
  explicit TTableUpdate(TVantrelMemTable& table) : FTable(table) { FTable.DisableControls(); }
  TTableUpdate(const TTableUpdate&) = delete;
  TTableUpdate& operator=(const TTableUpdate&) = delete;
  ~TTableUpdate() { FTable.EnableControls(); }

 private:
  TVantrelMemTable& FTable;
};
