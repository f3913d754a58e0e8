#include "DesktopLook.h"

#include <QApplication>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QMainWindow>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTranslator>
#include <algorithm>
#include <cmath>

#include "QtText.h"

namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// Moves the highlight away from its text, as far as needed and no further.
void DeepenHighlight(const QPalette& palette) {
  QPalette changed = QApplication::palette();
  bool changes = false;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    const QColor text = palette.color(group, QPalette::HighlightedText);
    const QColor told = palette.color(group, QPalette::Highlight);
    const QColor away = Luminance(text) > 0.18 ? Qt::black : Qt::white;
    QColor ground = told;
    for (int step = 1; step <= 20 && Contrast(text, ground) < MinimumContrast; ++step)
      ground = Blend(told, away, step * 0.05);
    changed.setColor(group, QPalette::Highlight, ground);
    changes = changes || ground != told;
  }
  if (changes) QApplication::setPalette(changed);
}

/// Fusion, with grid lines that can be seen on dark palettes as well.
class TLook : public QProxyStyle {
 public:
  TLook() : QProxyStyle(QStyleFactory::create("Fusion")) {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint != SH_Table_GridLineColor || option == nullptr) return QProxyStyle::styleHint(hint, option, widget, data);
    const QPalette& palette = option->palette;
    return static_cast<int>(Blend(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.22).rgb());
  }
};

}  // namespace

void PrepareApplication(QApplication& application) {
  Q_INIT_RESOURCE(pictures);
  QApplication::setStyle(new TLook);
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
  DeepenHighlight(palette);
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QIcon ThemeIcon(const std::string& name) {
  return name.empty() ? QIcon() : QIcon::fromTheme(FromUtf8(name));
}

QIcon ProgramIcon() {
  return QIcon(":/pictures/mytessaron.svg");
}

QWidget* MainWindow() {
  const auto windows = QApplication::topLevelWidgets();
  const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && qobject_cast<const QMainWindow*>(window) != nullptr;
  });
  return main == windows.end() ? nullptr : *main;
}

QWidget* ActiveWindow() {
  auto* active = QApplication::activeWindow();
  return active != nullptr ? active : MainWindow();
}

TDialogScope::TDialogScope() {
  for (auto* window : QApplication::topLevelWidgets())
    if (window->windowType() == Qt::SplashScreen) window->hide();
  const auto* cursor = QApplication::overrideCursor();
  if (cursor == nullptr) return;
  FCursor = *cursor;
  QApplication::restoreOverrideCursor();
}

TDialogScope::~TDialogScope() {
  if (FCursor) QApplication::setOverrideCursor(*FCursor);
}

double FontScale(const QWidget& widget) {
  constexpr double usualFont = 14;
  return std::max(1.0, QFontInfo(widget.font()).pixelSize() / usualFont);
}

QColor Blend(const QColor& under, const QColor& over, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                          mix(under.blueF(), over.blueF()));
}
