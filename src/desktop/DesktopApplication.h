#pragma once

#include <QApplication>
#include <set>
#include <string>

/// The application object of the window. What a handler of an event lets through ends neither the program nor the
/// painting of a widget: it is kept and told in one box, once the event is over.
class TDesktopApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  /// A message that was told before is told again only if the user asked for what failed: a widget that cannot be
  /// painted fails at every painting.
  void Keep(const char* message, bool isAsked);
  void Tell();

  /// What waits or is on show; empty for nothing.
  std::string FKept;
  std::set<std::string> FTold;
};
