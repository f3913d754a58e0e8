#pragma once

#include <vector>

#include "DesktopFormItems.h"
#include "HostedPanel.h"

class QScrollArea;
class TDesktopGridPane;

/// Shows the widget without a frame, and scrolls where the room is too small for it. The keyboard goes past it.
QScrollArea* Scrolled(QWidget* content);

/// What the screens of the working views share: the title across the top, the list on the left, the rest on the right.
/// It wants 1264 by 616 pixels and scrolls where there is less.
class TDesktopViewScreen {
 public:
  explicit TDesktopViewScreen(TDesktopMainWindow& window);

  /// Called once. List and rest become parts of the screen; their logic ends before it. The regions are where F6 goes,
  /// in its order.
  void SetContent(TDesktopGridPane& list, QWidget* rest, const std::vector<QWidget*>& regions);
  void SetVisible(bool visible) { FPanel.SetVisible(visible); }
  TVantrelFormItem& Title() { return FTitle; }
  /// Receiver of the screen's signals: none comes after the end of the view.
  QObject& Receiver() { return FPanel.Receiver(); }

 private:
  QLabel* FTitleLabel;
  TDesktopLabelItem FTitle;
  THostedPanel FPanel;
};
