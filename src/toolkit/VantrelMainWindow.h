#pragma once

#include <functional>
#include <string>
#include <vector>

#include "VantrelCommands.h"

/// One line of the list of recent documents: what is shown, and the path that it stands for.
struct TRecentItem {
  std::string DisplayText;
  std::string StoredText;
};

/// The show states of a window, as they are stored.
enum class TWindowState { Normal = 1, Minimized = 2, Maximized = 3 };

/// Where a window stands: its normal rectangle in pixels, and its show state.
struct TWindowPlacement {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
  TWindowState State = TWindowState::Normal;
};

/// A part of the screen whose drawing can be put off.
class TVantrelControl {
 public:
  virtual ~TVantrelControl() = default;
  /// Off: nothing is drawn until it is on again, which draws all of it.
  virtual void SetRedraw(bool redraw) = 0;
};

/// A window as far as its place goes, and what the system tells of it.
class TVantrelPlacedWindow : public TVantrelControl {
 public:
  std::function<void()> OnFocusChanged;     ///< another part of the window has the keyboard
  std::function<void()> OnQueryEndSession;  ///< the user's desktop is about to end; the window is asked to close next

  virtual TWindowPlacement Placement() const = 0;
  /// Kept on the screen that is there.
  virtual void SetPlacement(const TWindowPlacement& placement) = 0;
  /// The user may change its size.
  virtual bool IsSizeable() const { return true; }
  /// Shows the window in front of all others, with the keyboard.
  virtual void ShowTopMost() = 0;
};

/// The main window as its logic sees it: ribbon, status text and recent documents. What hosts the views is the window's
/// own matter.
class TVantrelMainWindow : public TVantrelPlacedWindow {
 public:
  std::function<void()> OnShow;   ///< once, when the window first shows
  std::function<void()> OnClose;  ///< the window is about to close, and will
  std::function<void(int index)> OnRecentClick;
  std::function<void(const std::string& path)> OnFileDropped;  ///< a file was dragged onto the window

  /// Builds the ribbon; an empty description takes it away, before its commands end.
  virtual void SetRibbon(const TRibbonDescription& description) = 0;
  /// By the ids of the description; an unknown id is nothing.
  virtual void SetGroupVisible(const std::string& groupId, bool visible) = 0;
  virtual void ActivateTab(const std::string& tabId) = 0;
  virtual void SetRecentItems(const std::vector<TRecentItem>& items) = 0;
  virtual void SetTitle(const std::string& title) = 0;
  virtual void SetStatusText(const std::string& text) = 0;
  /// A quiet word at the end of the status bar; an empty one takes it away.
  virtual void SetStatusNote(const std::string& text) = 0;
  virtual void Close() = 0;
};
