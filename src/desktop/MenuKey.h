#pragma once

class QKeyEvent;
class QWidget;

/// Shift+F10, for keyboards that have no key for the menu: opens that of the widget with the keyboard in this window.
/// False for other keys.
bool OpensMenu(const QKeyEvent& key, const QWidget& window);
