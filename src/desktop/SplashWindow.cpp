#include "SplashWindow.h"

#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>

#include "QtText.h"
#include "ViewTexts.h"

namespace {
constexpr int side = 500;
constexpr int blendIn = 250, blendOut = 200;  // milliseconds
}  // namespace

TSplashWindow::TSplashWindow(const std::string& versionText)
    : QWidget(nullptr,
              Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      FVersion(FromUtf8(versionText)),
      FBlend(this, "windowOpacity") {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(UserText(ViewTexts::WindowTitle));
  setAccessibleName(FVersion);
  const QRect room = screen()->availableGeometry();
  setFixedSize(QSize(side, side).boundedTo(room.size()));
  move(room.center() - rect().center());
}

void TSplashWindow::BlendIn() {
  setWindowOpacity(0);
  show();
  Blend(1, blendIn);
}

void TSplashWindow::BlendOut() {
  connect(&FBlend, &QPropertyAnimation::finished, this, &QObject::deleteLater);
  Blend(0, blendOut);
}

void TSplashWindow::Blend(double opacity, int milliseconds) {
  FBlend.stop();
  FBlend.setStartValue(windowOpacity());
  FBlend.setEndValue(opacity);
  FBlend.setDuration(milliseconds);
  FBlend.start();
}

void TSplashWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QSvgRenderer(QString(":/pictures/splash.svg")).render(&painter, rect());
  painter.setPen(Qt::white);
  QFont name = font();
  name.setPixelSize(46);
  name.setBold(true);
  painter.setFont(name);
  const QRect band(0, height() * 72 / 100, width(), height() * 14 / 100);
  painter.drawText(band, Qt::AlignCenter, windowTitle());
  name.setPixelSize(20);
  name.setBold(false);
  painter.setFont(name);
  painter.drawText(band.translated(0, band.height() * 4 / 5), Qt::AlignCenter, FVersion);
}
