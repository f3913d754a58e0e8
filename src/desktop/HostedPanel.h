#pragma once

#include <QWidget>
#include <vector>

class TDesktopMainWindow;

/// The widget of a view in the window that hosts it. The view may end within an event of its own: the widget then goes
/// out of sight at once and dies when the event is over.
class THostedPanel {
 public:
  THostedPanel(TDesktopMainWindow& window, QWidget* panel) : FWindow(window), FPanel(panel) {}
  THostedPanel(const THostedPanel&) = delete;
  THostedPanel& operator=(const THostedPanel&) = delete;
  ~THostedPanel();

  QWidget& Panel() { return *FPanel; }
  /// Fills the client area of the window and takes the keyboard, or goes out of sight.
  void SetVisible(bool visible);
  /// Receiver of the panel's signals: none comes after the end of the view.
  QObject& Receiver() { return FReceiver; }
  /// F6 goes to the regions in the order in which they were added, before the panel shows.
  void AddRegion(QWidget& region) { FRegions.push_back(&region); }

 private:
  TDesktopMainWindow& FWindow;
  QWidget* FPanel;
  std::vector<QWidget*> FRegions;
  bool FVisible = false;
  QObject FReceiver;
};
