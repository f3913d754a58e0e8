#pragma once

#include <memory>

#include "DesktopFormItems.h"
#include "GridPaneUi.h"

class QLabel;
class TCommandActions;
class TDesktopGrid;

/// The button before the count.
enum class TPaneButton { None, Fit, SelectAll };

/// A grid with its heading, its count and its filter line as one widget. It may end within an event of its own: the
/// widget belongs to the window and dies when the event is over.
class TDesktopGridPane final : public TGridPaneUi {
 public:
  /// `heading` is a built-in text, shown above the grid; empty for none.
  TDesktopGridPane(const char* heading, TPaneButton button);
  TDesktopGridPane(const TDesktopGridPane&) = delete;
  TDesktopGridPane& operator=(const TDesktopGridPane&) = delete;
  ~TDesktopGridPane() override;

  QWidget& Panel() { return *FPanel; }
  TDesktopGrid& DesktopGrid() { return *FGrid; }
  TVantrelGrid& Grid() override;
  TVantrelFormItem& Status() override { return FStatus; }
  TVantrelFormItem& Note() override { return FNote; }
  void SetCommands(const std::vector<TVantrelCommand*>& commands) override;

 private:
  QWidget* MakeButton(const char* text, const char* icon, const std::function<void()>& onClick);

  std::unique_ptr<TCommandActions> FActions;
  QWidget* FPanel;
  TDesktopGrid* FGrid;
  QLabel* FCount;
  QLabel* FNoteLabel;
  TDesktopLabelItem FStatus, FNote;
  /// Receiver of the button's signal: none comes after the end.
  QObject FReceiver;
};
