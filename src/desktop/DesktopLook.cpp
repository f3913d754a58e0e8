#include "DesktopLook.h"

#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLibraryInfo>
#include <QLocale>
#include <QMainWindow>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyleOptionComplex>
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

/// The highlight, as far away from its text as needed and no further.
QColor DeepHighlight(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor text = palette.color(group, QPalette::HighlightedText);
  const QColor told = palette.color(group, QPalette::Highlight);
  const QColor away = Luminance(text) > 0.18 ? Qt::black : Qt::white;
  QColor ground = told;
  for (int step = 1; step <= 20 && Contrast(text, ground) < MinimumContrast; ++step)
    ground = Blend(told, away, step * 0.05);
  return ground;
}

/// What stands in an empty field: fainter than a text, where the palette has nothing that can be read.
QColor ReadablePlaceholder(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor base = palette.color(group, QPalette::Base), told = palette.color(group, QPalette::PlaceholderText);
  const bool isReadable = Contrast(Blend(base, told, told.alphaF()), base) >= MinimumContrast;
  return isReadable ? told : Blend(base, palette.color(group, QPalette::Text), 0.6);
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

void MakeReadable(const QPalette& palette) {
  QPalette changed = QApplication::palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    changed.setColor(group, QPalette::Highlight, DeepHighlight(palette, group));
    changed.setColor(group, QPalette::PlaceholderText, ReadablePlaceholder(palette, group));
  }
  if (changed != QApplication::palette()) QApplication::setPalette(changed);
}

/// Fusion, with lines and edges that can be seen on dark palettes as well, and a frame around the text that has the
/// keyboard.
class TLook : public QProxyStyle {
 public:
  TLook() : QProxyStyle(QStyleFactory::create("Fusion")) {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint != SH_Table_GridLineColor || option == nullptr) return QProxyStyle::styleHint(hint, option, widget, data);
    const QPalette& palette = option->palette;
    return static_cast<int>(Blend(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.22).rgb());
  }
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    const bool isText = metric == PM_DefaultFrameWidth && qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
    return isText ? 2 : QProxyStyle::pixelMetric(metric, option, widget);
  }
  void polish(QWidget* widget) override {
    QProxyStyle::polish(widget);
    // It has asked for the width of its frame before it was known as a text.
    if (auto* text = qobject_cast<QPlainTextEdit*>(widget)) text->setFrameStyle(text->frameStyle());
  }
  using QProxyStyle::polish;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_Frame) DrawFrame(*option, *painter, qobject_cast<const QPlainTextEdit*>(widget) != nullptr);
    if (element == PE_FrameLineEdit) DrawEdge(option->rect, *option, *painter);
    if (element == PE_IndicatorCheckBox) {
      QStyleOption edge = *option;
      edge.state.setFlag(State_HasFocus, false);
      DrawEdge(edge.rect, edge, *painter);
    }
    if (element != PE_FrameGroupBox) return;
    // Fusion leaves room for the title above.
    constexpr int titleMargin = 3;
    const auto* box = qobject_cast<const QGroupBox*>(widget);
    const bool hasTitle = box == nullptr || !box->title().isEmpty();
    const int title =
        hasTitle ? std::max(pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height()) : 0;
    DrawEdge(option->rect.adjusted(0, title + titleMargin, 0, 0), *option, *painter);
  }
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* number = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    const auto* choice = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if ((number != nullptr && number->frame) || (choice != nullptr && choice->frame))
      DrawEdge(option->rect, *option, *painter);
  }

 private:
  static void DrawFrame(const QStyleOption& option, QPainter& painter, bool isText) {
    const bool hasKeyboard = isText && option.state.testFlag(State_HasFocus);
    painter.save();
    painter.setPen(option.palette.color(hasKeyboard ? QPalette::Highlight : QPalette::Base));
    if (isText) painter.drawRect(option.rect.adjusted(1, 1, -2, -2));
    if (hasKeyboard) painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
    if (!hasKeyboard) DrawEdge(option.rect, option, painter);
  }
  /// What has the keyboard shows so by its own edge.
  static void DrawEdge(const QRect& rect, const QStyleOption& option, QPainter& painter) {
    if (!IsDark(option.palette) || option.state.testFlag(State_HasFocus)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Blend(option.palette.color(QPalette::Window), option.palette.color(QPalette::WindowText), 0.35));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
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
  const QString theme = IsDark(palette) ? "breeze-dark" : "breeze";
  if (QIcon::themeName() != theme) QIcon::setThemeName(theme);
  MakeReadable(palette);
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
