#pragma once

#include <functional>
#include <memory>
#include <string>

#include "VantrelScopes.h"
#include "VantrelVariant.h"

/// A file dialog between two uses.
struct TFileDialog {
  std::string Title;
  std::string Filter;   ///< "Text|pattern|Text|pattern..."
  int FilterIndex = 1;  ///< from 1 on; after the dialog, the one that the user chose
  std::string InitialDir;
  std::string DefaultExtension;  ///< without dot; empty for none
  std::string FileName;          ///< the preset path; after the dialog, the chosen one
  /// Judges the chosen path, with boxes of its own where that needs words: unless it answers true the dialog stays.
  /// FilterIndex is the chosen one by then. May be unset.
  std::function<bool(const std::string& path)> Accepts;
};

/// The lines of the about window.
struct TAboutInfo {
  std::string Product;
  std::string Version;
  std::string Copyright;
};

/// A timer of the user interface. It never fires after its end.
class TVantrelTimer {
 public:
  virtual ~TVantrelTimer() = default;
  /// Fires every so many milliseconds until Stop.
  virtual void Start(int milliseconds, std::function<void()> onTimer) = 0;
  virtual void Stop() = 0;
};

/// The small windows and system services that the flows ask for.
class TVantrelDialogs {
 public:
  virtual ~TVantrelDialogs() = default;
  /// False if the user cancelled; `dialog` stays as it was then. No overwrite question is asked.
  virtual bool OpenFile(TFileDialog& dialog) = 0;
  virtual bool SaveFile(TFileDialog& dialog) = 0;
  /// The typed text, empty if cancelled.
  virtual std::string AskPassword() = 0;
  virtual void ShowAbout(const TAboutInfo& about) = 0;
  virtual void ShowSplash(const std::string& versionText) = 0;
  virtual void CloseSplash() = 0;
  virtual void SetWaitCursor(bool wait) = 0;
  virtual std::unique_ptr<TVantrelTimer> CreateTimer() = 0;
};

/// A counted wait cursor: set at the first Start, restored when the last Stop has come.
class TVantrelWaitCursor {
 public:
  explicit TVantrelWaitCursor(TVantrelDialogs& dialogs) : FDialogs(dialogs) {}
  void Start() {
    if (FCount++ == 0) FDialogs.SetWaitCursor(true);
  }
  void Stop() {
    if (FCount > 0 && --FCount == 0) FDialogs.SetWaitCursor(false);
  }

 private:
  TVantrelDialogs& FDialogs;
  int FCount = 0;
};

/// The wait cursor for the length of a scope.
using TVantrelWaitScope = TVantrelBracket<TVantrelWaitCursor, &TVantrelWaitCursor::Start, &TVantrelWaitCursor::Stop>;

/// An editor, label or group of a form, by what the logic does with it. The value of a label is its text; an empty
/// editor gives null. Setting a value raises no event.
class TVantrelFormItem {
 public:
  virtual ~TVantrelFormItem() = default;
  std::function<void()> OnChange;       ///< at every change by the user
  std::function<void()> OnDoubleClick;  ///< of a list
  virtual TVariant Value() const = 0;
  virtual void SetValue(const TVariant& value) = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual void SetFocus() = 0;
};

/// A modal form: shown until the user ends it.
class TVantrelModalForm {
 public:
  virtual ~TVantrelModalForm() = default;
  /// Asked whenever it is about to end, however that came about; `ok` as ShowModal will answer. False keeps it open.
  std::function<bool(bool ok)> OnCloseQuery;
  /// True if it ended with its OK button.
  virtual bool ShowModal() = 0;
  /// Ends it from a handler.
  virtual void Close(bool ok) = 0;
};
