#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QToolButton;

/// Tells in one line that rows are held back and which, with a button that lifts the user's filter. Out of sight
/// without a filter.
class TFilterLine : public QWidget {
 public:
  explicit TFilterLine(std::function<void()> onLift);
  /// An empty text: there is no filter.
  void Tell(const QString& text, bool canLift);

 private:
  QLabel* FLabel;
  QToolButton* FLift;
};
