#pragma once

#include <functional>
#include <string>

#include "VantrelDialogs.h"
#include "VantrelGrid.h"

/// Writes a grid as it is shown to a spreadsheet or a web page that the user names, and opens it with the program for
/// it. Made for one export.
class TGridExportModule {
 public:
  /// `onExported` is told the name of the file once it is written; it may be unset. The dialogs outlive the module.
  TGridExportModule(TVantrelDialogs& dialogs, std::function<void(const std::string& fileName)> onExported);

  TFileDialog SaveDialog;

  /// The entries differ in the kind that the dialog begins with; the user's choice decides. `title` is what the table
  /// is called. With `saveAll` all rows on show are written, else the selected ones. What goes wrong is told in a box;
  /// the file keeps its content then.
  void ExportCXGridToExcel(const TVantrelGrid& grid, const std::string& title, bool saveAll);
  void ExportCXGridToHTML(const TVantrelGrid& grid, const std::string& title, bool saveAll);

 private:
  void Export(const TVantrelGrid& grid, const std::string& title, bool saveAll);
  bool AcceptsTarget(const std::string& path) const;
  /// The chosen path with the ending of the chosen kind.
  std::string TargetOf(const std::string& path) const;

  TVantrelDialogs& FDialogs;
  std::function<void(const std::string&)> FOnExported;
};
