#pragma once

#include <QAccessible>
#include <QMetaEnum>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <string>
#include <vector>

/// Role and name of a part of a window, as a screen reader has them.
inline std::string Told(QAccessibleInterface* part) {
  const auto roles = QMetaEnum::fromType<QAccessible::Role>();
  return roles.valueToKey(part->role()) + (" " + part->text(QAccessible::Name)).toStdString();
}

/// What Tab leads through in a window, from where the keyboard is until it comes back there.
inline std::vector<std::string> TabWalk(const QWidget& window) {
  std::vector<std::string> places;
  const auto* first = window.focusWidget();
  do {
    places.push_back(Told(QAccessible::queryAccessibleInterface(window.focusWidget())));
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  } while (window.focusWidget() != first && places.size() < 60);
  return places;
}

/// What can be used below this part, is on show and has no name.
inline std::vector<std::string> Nameless(QAccessibleInterface* part) {
  using enum QAccessible::Role;
  std::vector<std::string> found;
  if (part == nullptr || part->state().invisible) return found;
  const auto uses = {Button, CheckBox, ComboBox, EditableText, List, PageTab, SpinBox, Table, Tree};
  if (std::ranges::find(uses, part->role()) != uses.end()) {
    if (part->text(QAccessible::Name).isEmpty()) found.push_back(Told(part));
    return found;
  }
  for (int i = 0; i < part->childCount(); ++i)
    for (auto& name : Nameless(part->child(i))) found.push_back(std::move(name));
  return found;
}
inline std::vector<std::string> Nameless(QWidget& window) {
  return Nameless(QAccessible::queryAccessibleInterface(&window));
}
