#pragma once

#include <QColor>
#include <QCursor>
#include <QIcon>
#include <QPalette>
#include <optional>
#include <string>

class QApplication;
class QWidget;

/// Style, icon theme and German texts of Qt itself. Called once, before the first window.
void PrepareApplication(QApplication& application);

/// Makes text and icons readable on the palette: the dark variant of the theme on dark windows, a highlight that leaves
/// its text a contrast of MinimumContrast at least, and placeholders that have it on their ground.
void FollowPalette(const QPalette& palette);
inline constexpr double MinimumContrast = 4.5;

/// How well two colours can be told apart, from 1 (not at all) to 21 (black and white), by their relative luminance.
double Contrast(const QColor& a, const QColor& b);

/// What frames an editor that has not taken a key; to be told from light and dark grounds alike.
inline constexpr QColor WarningColour(0xda, 0x44, 0x53);

/// An icon of the theme, sharp at any size; empty for an empty name.
QIcon ThemeIcon(const std::string& name);

/// The picture of the program, for its windows.
QIcon ProgramIcon();

/// The main window; none before it shows.
QWidget* MainWindow();

/// The window that a dialog stands over: the one in use, else the main window.
QWidget* ActiveWindow();

/// For as long as a dialog is on show: no wait cursor, and no splash window, which is gone for good then.
class TDialogScope {
 public:
  TDialogScope();
  TDialogScope(const TDialogScope&) = delete;
  TDialogScope& operator=(const TDialogScope&) = delete;
  ~TDialogScope();

 private:
  std::optional<QCursor> FCursor;
};

/// How much larger than usual the font of a widget is, from 1 on. Widths are told for the usual one.
double FontScale(const QWidget& widget);

/// `share` of `over` (0 to 1) laid on `under`.
QColor Blend(const QColor& under, const QColor& over, double share);
