#pragma once

#include <QPropertyAnimation>
#include <QWidget>
#include <string>

/// The picture that greets, with the version on it. Never takes the keyboard.
class TSplashWindow : public QWidget {
 public:
  explicit TSplashWindow(const std::string& versionText);

  /// Shows it in the middle of the screen.
  void BlendIn();
  /// Deletes it in the end.
  void BlendOut();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Blend(double opacity, int milliseconds);

  QString FVersion;
  QPropertyAnimation FBlend;
};
