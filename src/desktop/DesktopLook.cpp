#include "DesktopLook.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStyleFactory>
#include <QTranslator>

#include "QtText.h"

void PrepareApplication(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* translator = new QTranslator(&application);
  if (translator->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(translator);
  auto paths = QIcon::themeSearchPaths();
  if (!paths.contains("/usr/share/icons")) QIcon::setThemeSearchPaths(paths << "/usr/share/icons");
  FollowPalette(QApplication::palette());
}

void FollowPalette(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  const QString theme = dark ? "breeze-dark" : "breeze";
  if (QIcon::themeName() != theme) QIcon::setThemeName(theme);
}

QIcon ThemeIcon(const std::string& name) {
  return name.empty() ? QIcon() : QIcon::fromTheme(FromUtf8(name));
}

QColor Blend(const QColor& under, const QColor& over, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                          mix(under.blueF(), over.blueF()));
}
