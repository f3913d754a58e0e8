#include "DesktopLook.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMainWindow>
#include <QStyleFactory>
#include <QTranslator>
#include <algorithm>

#include "QtText.h"

void PrepareApplication(QApplication& application) {
  Q_INIT_RESOURCE(pictures);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* translator = new QTranslator(&application);
  if (translator->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(translator);
  auto paths = QIcon::themeSearchPaths();
  if (!paths.contains("/usr/share/icons")) QIcon::setThemeSearchPaths(paths << "/usr/share/icons");
  FollowPalette(QApplication::palette());
  QApplication::setWindowIcon(ProgramIcon());
}

void FollowPalette(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  const QString theme = dark ? "breeze-dark" : "breeze";
  if (QIcon::themeName() != theme) QIcon::setThemeName(theme);
}

QIcon ThemeIcon(const std::string& name) {
  return name.empty() ? QIcon() : QIcon::fromTheme(FromUtf8(name));
}

QIcon ProgramIcon() {
  return QIcon(":/pictures/mytessaron.svg");
}

QWidget* ActiveWindow() {
  if (auto* active = QApplication::activeWindow()) return active;
  const auto windows = QApplication::topLevelWidgets();
  const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && qobject_cast<const QMainWindow*>(window) != nullptr;
  });
  return main == windows.end() ? nullptr : *main;
}

void StandAbove(QWidget& dialog) {
  const auto windows = QApplication::topLevelWidgets();
  const bool onTop = std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && window->windowType() == Qt::SplashScreen;
  });
  dialog.setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
}

QColor Blend(const QColor& under, const QColor& over, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                          mix(under.blueF(), over.blueF()));
}
