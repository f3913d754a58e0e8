#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <string>

class QApplication;
class QWidget;

/// Style, icon theme and German texts of Qt itself. Called once, before the first window.
void PrepareApplication(QApplication& application);

/// Chooses the icons that can be seen on the palette: the dark variant of the theme on dark windows.
void FollowPalette(const QPalette& palette);

/// An icon of the theme, sharp at any size; empty for an empty name.
QIcon ThemeIcon(const std::string& name);

/// The picture of the program, for its windows.
QIcon ProgramIcon();

/// The window that a dialog stands over: the one in use, else the main window; none before there is one.
QWidget* ActiveWindow();

/// Lets a dialog stand above the splash window.
void StandAbove(QWidget& dialog);

/// `share` of `over` (0 to 1) laid on `under`.
QColor Blend(const QColor& under, const QColor& over, double share);
