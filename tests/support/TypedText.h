#pragma once

#include <QTest>
#include <string>

#include "DesktopGrid.h"

/// Types into the focused cell of a column; the editor stays open. False where none opens.
inline bool TypeInto(TDesktopGrid& grid, int ordinal, const std::string& text) {
  grid.FocusColumn(ordinal);
  for (const char key : text) {
    auto* editor = grid.IsEditing() ? grid.View().indexWidget(grid.View().currentIndex()) : nullptr;
    QTest::keyClick(editor == nullptr ? &grid.View() : editor, key);
  }
  return grid.IsEditing();
}
