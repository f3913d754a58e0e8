#include <QApplication>
#include <QMainWindow>

/// What the start of the program is measured against: a main window of Qt with nothing in it.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1366, 768);
  window.show();
  return QApplication::exec();
}
