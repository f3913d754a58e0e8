#pragma once

#include <map>

#include "VantrelCommands.h"
#include "uMainViews.h"

/// Ids of the ribbon's parts whose state the main window changes.
namespace RibbonIds {
inline constexpr const char* StartRibbonTab = "StartRibbonTab";
inline constexpr const char* HelpRibbonTab = "HelpRibbonTab";
inline constexpr const char* ViewsBar = "ViewsBar";
inline constexpr const char* NavigationBar = "NavigationBar";
inline constexpr const char* BeurteilungBar = "BeurteilungBar";
inline constexpr const char* ExtrasBar = "ExtrasBar";
inline constexpr const char* HelpMenu = "HelpMenu";
}  // namespace RibbonIds

/// What the commands of the main window do. A command whose handler is unset is disabled for good.
struct TMainHandlers {
  std::function<void()> OpenFile, SaveFile, SaveFileAs, CloseApplication, Undo, Redo;
  std::map<TMyTessaronViews, std::function<void()>> ShowView;
  std::function<void()> GotoFirst, GotoPrev, GotoNext, GotoLast;
  std::function<void()> UpdateFilter, GotoOpenGrade, EditZeugnisbeurteilungen, BatchCertificateData, ExportToExcel;
  std::function<void()> ShowManual, ShowSpellCheck, ShowVersion;
};

/// The commands of the main window and where they stand on the ribbon.
class TMainCommands {
 public:
  explicit TMainCommands(const TMainHandlers& handlers);

  TRibbonDescription Ribbon();
  /// Enables the command if it has a handler.
  static void SetEnabled(TVantrelCommand& command, bool enabled);
  /// The command that shows the view.
  TVantrelCommand& ViewCommand(TMyTessaronViews view) { return *FViewCommands.at(view); }

 private:
  TVantrelCommand& Add(const char* caption, const char* icon, const char* shortcut, std::function<void()> handler,
                       const char* radioGroup = "");
  std::map<TMyTessaronViews, TVantrelCommand*> AddViews(const TMainHandlers& on);
  TRibbonGroup ViewsBar();
  TRibbonTab StartTab();
  TRibbonTab HelpTab();

  TVantrelCommands FCommands;
  std::map<TMyTessaronViews, TVantrelCommand*> FViewCommands;

 public:
  TVantrelCommand &OpenFileCommand, &SaveFileCommand, &SaveFileAsCommand, &CloseApplicationCommand;
  TVantrelCommand &UndoCommand, &RedoCommand;
  TVantrelCommand &StudentsViewCommand, &SubjectsViewCommand, &ClassesViewCommand;
  TVantrelCommand &GotoFirstCommand, &GotoPrevCommand, &GotoNextCommand, &GotoLastCommand;
  TVantrelCommand &AlleNichtEditierbar, &Noten, &Punkte, &Beurteilungstexte, &GotoOpenGradeCommand;
  TVantrelCommand &EditZeugnisbeurteilungenCommand, &BatchCertificateDataCommand, &ExportToExcelCommand;
  TVantrelCommand &WelcomeViewCommand, &ManualCommand, &SpellCheckOptionsCommand, &VersionCommand;
};
