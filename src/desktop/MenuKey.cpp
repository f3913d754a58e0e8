#include "MenuKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QWidget>

bool OpensMenu(const QKeyEvent& key, const QWidget& window) {
  auto* focused = window.focusWidget();
  if (key.key() != Qt::Key_F10 || key.modifiers() != Qt::ShiftModifier || focused == nullptr) return false;
  const QPoint place = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
  QApplication::sendEvent(focused, &menu);
  return true;
}
