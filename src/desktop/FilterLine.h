#pragma once

#include <QWidget>
#include <functional>

class QLabel;

/// Tells in one line that rows are held back and which, with a button that lifts the filter. Out of sight without a
/// filter.
class TFilterLine : public QWidget {
 public:
  explicit TFilterLine(std::function<void()> onLift);
  /// An empty text: there is no filter.
  void Tell(const QString& text);

 private:
  QLabel* FLabel;
};
