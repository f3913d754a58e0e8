// Preloaded into a program with windows: ends it as soon as its main window has been painted for the first time.
#include <unistd.h>

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

namespace {
class TFirstPaint : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr)
      QTimer::singleShot(0, [] { ::_exit(0); });
    return false;
  }
};
}  // namespace

static void WaitForPaint() {
  qApp->installEventFilter(new TFirstPaint(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(WaitForPaint)
