#include "uMainCommands.h"

#include "ShellTexts.h"
#include "VantrelI18n.h"
#include "ViewTexts.h"

using enum TMyTessaronViews;

namespace {
constexpr const char* GradeTypeGroup = "Beurteilungsart";
}

TMainCommands::TMainCommands(const TMainHandlers& on)
    : FViewCommands(AddViews(on)),
      OpenFileCommand(Add(ShellTexts::OpenFile, "document-open", "Ctrl+O", on.OpenFile)),
      SaveFileCommand(Add(ShellTexts::SaveFile, "document-save", "Ctrl+S", on.SaveFile)),
      SaveFileAsCommand(Add(ShellTexts::SaveFileAs, "document-save-as", "Ctrl+Shift+S", on.SaveFileAs)),
      CloseApplicationCommand(
          Add(ShellTexts::CloseApplication, "application-exit", "Ctrl+Alt+F4", on.CloseApplication)),
      UndoCommand(Add(ShellTexts::Undo, "edit-undo", "Ctrl+Z", on.Undo)),
      RedoCommand(Add(ShellTexts::Redo, "edit-redo", "Ctrl+Y; Ctrl+Shift+Z", on.Redo)),
      StudentsViewCommand(ViewCommand(viewStudents)),
      SubjectsViewCommand(ViewCommand(viewSubjects)),
      ClassesViewCommand(ViewCommand(viewClasses)),
      GotoFirstCommand(Add(ShellTexts::GotoFirst, "go-first", "", on.GotoFirst)),
      GotoPrevCommand(Add(ShellTexts::GotoPrev, "go-previous", "", on.GotoPrev)),
      GotoNextCommand(Add(ShellTexts::GotoNext, "go-next", "", on.GotoNext)),
      GotoLastCommand(Add(ShellTexts::GotoLast, "go-last", "", on.GotoLast)),
      AlleNichtEditierbar(Add(ShellTexts::AlleNichtEditierbar, "", "", on.UpdateFilter, GradeTypeGroup)),
      Noten(Add(ShellTexts::Noten, "", "", on.UpdateFilter, GradeTypeGroup)),
      Punkte(Add(ShellTexts::Punkte, "", "", on.UpdateFilter, GradeTypeGroup)),
      Beurteilungstexte(Add(ShellTexts::Beurteilungstexte, "", "", on.UpdateFilter, GradeTypeGroup)),
      GotoOpenGradeCommand(Add(ShellTexts::GotoOpenGrade, "go-jump", "F8", on.GotoOpenGrade)),
      EditZeugnisbeurteilungenCommand(
          Add(ShellTexts::EditZeugnisbeurteilungen, "document-edit", "", on.EditZeugnisbeurteilungen)),
      BatchCertificateDataCommand(Add(ShellTexts::BatchCertificateData, "tools-wizard", "", on.BatchCertificateData)),
      ExportToExcelCommand(Add(ShellTexts::ExportToExcel, "x-office-spreadsheet", "", on.ExportToExcel)),
      WelcomeViewCommand(ViewCommand(viewWelcome)),
      ManualCommand(Add(ShellTexts::Manual, "help-contents", "", on.ShowManual)),
      SpellCheckOptionsCommand(Add(ShellTexts::SpellCheckOptions, "tools-check-spelling", "", on.ShowSpellCheck)),
      VersionCommand(Add(ShellTexts::Version, "help-about", "", on.ShowVersion)) {
  AlleNichtEditierbar.SetChecked(true);
}

TVantrelCommand& TMainCommands::Add(const char* caption, const char* icon, const char* shortcut,
                                    std::function<void()> handler, const char* radioGroup) {
  const bool available = handler != nullptr;
  TCommandInfo info{.Caption = ResourceText(caption), .Icon = icon, .Shortcut = shortcut, .RadioGroup = radioGroup};
  if (available) info.OnExecute = [handler = std::move(handler)] { RunForUser(handler); };
  auto& command = FCommands.Add(std::move(info));
  command.SetEnabled(available);
  return command;
}

std::map<TMyTessaronViews, TVantrelCommand*> TMainCommands::AddViews(const TMainHandlers& on) {
  std::map<TMyTessaronViews, TVantrelCommand*> commands;
  for (const auto& view : MainViews) {
    const auto show = on.ShowView.find(view.View);
    commands[view.View] =
        &Add(view.Caption, view.Icon, view.Shortcut, show == on.ShowView.end() ? nullptr : show->second);
  }
  return commands;
}

TRibbonGroup TMainCommands::ViewsBar() {
  TRibbonGroup bar{.Id = RibbonIds::ViewsBar, .Caption = ResourceText(ShellTexts::ViewsBar)};
  for (const auto& view : MainViews)
    if (view.OnViewsBar)
      bar.Buttons.push_back({.Command = &ViewCommand(view.View), .Large = true, .BeginsGroup = view.BeginsGroup});
  return bar;
}

void TMainCommands::SetEnabled(TVantrelCommand& command, bool enabled) {
  command.SetEnabled(enabled && command.Info().OnExecute != nullptr);
}

TRibbonTab TMainCommands::StartTab() {
  return {.Id = RibbonIds::StartRibbonTab,
          .Caption = ResourceText(ShellTexts::StartTab),
          .Groups = {ViewsBar(),
                     {.Id = RibbonIds::NavigationBar,
                      .Caption = ResourceText(ShellTexts::NavigationBar),
                      .Buttons = {{.Command = &GotoFirstCommand},
                                  {.Command = &GotoPrevCommand},
                                  {.Command = &GotoNextCommand},
                                  {.Command = &GotoLastCommand}}},
                     {.Id = RibbonIds::BeurteilungBar,
                      .Caption = ResourceText(ShellTexts::BeurteilungBar),
                      .Buttons = {{.Command = &AlleNichtEditierbar},
                                  {.Command = &Noten},
                                  {.Command = &Punkte},
                                  {.Command = &Beurteilungstexte},
                                  {.Command = &GotoOpenGradeCommand}}},
                     {.Id = RibbonIds::ExtrasBar,
                      .Caption = ResourceText(ShellTexts::ExtrasBar),
                      .Buttons = {{.Command = &EditZeugnisbeurteilungenCommand},
                                  {.Command = &BatchCertificateDataCommand},
                                  {.Command = &ExportToExcelCommand}}}}};
}

TRibbonTab TMainCommands::HelpTab() {
  return {.Id = RibbonIds::HelpRibbonTab,
          .Caption = ResourceText(ShellTexts::HelpTab),
          .Groups = {{.Id = RibbonIds::HelpMenu,
                      .Caption = ResourceText(ShellTexts::HelpMenu),
                      .Buttons = {{.Command = &WelcomeViewCommand, .Large = true},
                                  {.Command = &ManualCommand, .Large = true, .BeginsGroup = true},
                                  {.Command = &SpellCheckOptionsCommand, .Large = true},
                                  {.Command = &VersionCommand, .Large = true}}}}};
}

TRibbonDescription TMainCommands::Ribbon() {
  return {.ApplicationButton = ResourceText(ShellTexts::ApplicationButton),
          .ApplicationMenu = {{.Command = &OpenFileCommand, .Large = true},
                              {.Command = &SaveFileCommand, .Large = true, .BeginsGroup = true},
                              {.Command = &SaveFileAsCommand, .Large = true}},
          .ButtonRow = {&CloseApplicationCommand},
          .PaneHeading = ResourceText(ViewTexts::RecentFiles),
          .Tabs = {StartTab(), HelpTab()},
          .QuickAccess = {&SaveFileCommand, &UndoCommand, &RedoCommand}};
}
