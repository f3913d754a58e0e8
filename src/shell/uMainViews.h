#pragma once

#include <functional>
#include <map>
#include <utility>

#include "ShellTexts.h"
#include "VantrelFormContainer.h"

enum class TMyTessaronViews { viewWelcome, viewSubjects, viewStudents, viewClasses };

/// A view as the main window offers it: the command that shows it, and the bars that stand beside it.
struct TMainView {
  TMyTessaronViews View;
  const char* Caption;
  const char* Icon;
  const char* Shortcut = "";
  bool NeedsProject = true;  ///< its command is disabled while no project is open
  bool OnViewsBar = true;
  bool BeginsGroup = false;  ///< on that bar
  bool NavigationBar = true, BeurteilungBar = false, ExtrasBar = true;
};

/// In the order of the ViewsBar.
inline constexpr TMainView MainViews[] = {
    {.View = TMyTessaronViews::viewStudents, .Caption = ShellTexts::StudentsView, .Icon = "im-user", .Shortcut = "F9"},
    {.View = TMyTessaronViews::viewSubjects,
     .Caption = ShellTexts::SubjectsView,
     .Icon = "view-list-details",
     .Shortcut = "F10",
     .BeurteilungBar = true},
    {.View = TMyTessaronViews::viewClasses,
     .Caption = ShellTexts::ClassesView,
     .Icon = "view-task",
     .BeginsGroup = true},
    {.View = TMyTessaronViews::viewWelcome,
     .Caption = ShellTexts::WelcomeView,
     .Icon = "go-home",
     .NeedsProject = false,
     .OnViewsBar = false,
     .NavigationBar = false,
     .ExtrasBar = false},
};

/// How the form of a view is made in the frame of a main window.
using TViewClass = std::function<TVantrelFormClass(TViewFrame& frame)>;

/// That of TView, on the screen that `createUi` gives.
template <class TView, class TCreateUi>
TViewClass ViewClass(TCreateUi createUi) {
  return [createUi](TViewFrame& frame) {
    return VantrelFormClass<TView>([&frame, createUi] { return CreateVantrel<TView>(frame, createUi()); });
  };
}

/// The views that a program has. The command of one that is missing is disabled for good.
using TViewClasses = std::map<TMyTessaronViews, TViewClass>;
