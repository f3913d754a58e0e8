#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class TVantrelCommands;

/// What a command is from its birth on.
struct TCommandInfo {
  std::string Caption;        ///< with "&" before the access key
  std::string Icon = {};      ///< name in the icon theme; empty for none
  std::string Shortcut = {};  ///< as in "Ctrl+Shift+S", several as in "F2; Ctrl+E"; empty for none
  std::function<void()> OnExecute = {};
  std::string RadioGroup = {};  ///< commands of one name: exactly one of them is down once one was
  bool Visible = true;
};

/// Something that the user can do, with its state. Menus, buttons and shortcuts show it and listen to it.
class TVantrelCommand {
 public:
  explicit TVantrelCommand(TVantrelCommands& owner, TCommandInfo info) : FOwner(owner), FInfo(std::move(info)) {}
  TVantrelCommand(const TVantrelCommand&) = delete;
  TVantrelCommand& operator=(const TVantrelCommand&) = delete;

  const TCommandInfo& Info() const { return FInfo; }
  /// What the command does at this moment; else the caption without its access-key mark and without dots.
  std::string Hint() const;
  void SetHint(std::string hint);
  bool Enabled() const { return FEnabled; }
  bool Visible() const { return FInfo.Visible; }
  bool Checked() const { return FChecked; }

  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  /// Taking down one of a radio group lets the others come up. Does not execute anything.
  void SetChecked(bool checked);
  /// As if the user had pressed it: nothing while it is disabled; one of a radio group goes down first.
  void Execute();

  /// Called at every change of state. One listener at a time.
  std::function<void()> OnChanged;

 private:
  void Change(bool& state, bool value);

  TVantrelCommands& FOwner;
  TCommandInfo FInfo;
  std::string FHint;
  bool FEnabled = true;
  bool FChecked = false;
};

/// The commands of a window, at addresses that stay.
class TVantrelCommands {
 public:
  TVantrelCommand& Add(TCommandInfo info);
  const std::vector<std::unique_ptr<TVantrelCommand>>& All() const { return FCommands; }

 private:
  std::vector<std::unique_ptr<TVantrelCommand>> FCommands;
};

/// A command as a button of the ribbon.
struct TRibbonButton {
  TVantrelCommand* Command = nullptr;
  bool Large = false;
  bool BeginsGroup = false;  ///< a separator stands before it
};

/// Buttons above one caption. The id tells the group to who shows and hides it.
struct TRibbonGroup {
  std::string Id;
  std::string Caption;
  std::vector<TRibbonButton> Buttons = {};
};

/// What one tab of the ribbon shows, from left to right.
struct TRibbonTab {
  std::string Id;
  std::string Caption;
  std::vector<TRibbonGroup> Groups = {};
};
/// The ribbon of a window: application button with its menu and side pane, then the tabs. The first tab is active.
struct TRibbonDescription {
  std::string ApplicationButton;
  std::vector<TRibbonButton> ApplicationMenu;
  std::vector<TVantrelCommand*> ButtonRow;
  std::string PaneHeading;
  std::vector<TRibbonTab> Tabs;
  /// Small buttons beside the application button.
  std::vector<TVantrelCommand*> QuickAccess = {};
};
