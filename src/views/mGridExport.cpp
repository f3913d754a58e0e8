#include "mGridExport.h"

#include <algorithm>

#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelFileLauncher.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelSafeSave.h"
#include "VantrelText.h"
#include "ViewTexts.h"
#include "uGridSheet.h"

namespace {

using TBytes = std::vector<std::uint8_t>;

TBytes PageBytes(const TSheet& sheet) {
  const auto page = HtmlPage(sheet);
  return {page.begin(), page.end()};
}

/// The kinds in the order of the dialog's filter.
constexpr struct {
  const char* Ending;
  TBytes (*Write)(const TSheet&);
} Kinds[] = {{".xls", XlsBytes}, {".html", PageBytes}, {".xlsx", XlsxBytes}};
constexpr int ExcelFilter = 1, HtmlFilter = 2;

const auto& KindAt(int filterIndex) {
  return Kinds[static_cast<std::size_t>(std::clamp(filterIndex, 1, static_cast<int>(std::size(Kinds))) - 1)];
}

/// An ending that tells one of the kinds.
bool IsKnownEnding(const std::string& ending) {
  return SameText(ending, ".htm") ||
         std::ranges::any_of(Kinds, [&](const auto& kind) { return SameText(ending, kind.Ending); });
}

}  // namespace

TGridExportModule::TGridExportModule(TVantrelDialogs& dialogs, std::function<void(const std::string&)> onExported)
    : FDialogs(dialogs), FOnExported(std::move(onExported)) {
  SaveDialog.Title = ResourceText(ViewTexts::ExportTitle);
  SaveDialog.Filter = ResourceText(ViewTexts::ExportFilter);
  SaveDialog.DefaultExtension = "xls";
  SaveDialog.Accepts = [this](const std::string& path) { return AcceptsTarget(path); };
}

void TGridExportModule::ExportCXGridToExcel(const TVantrelGrid& grid, const std::string& title, bool saveAll) {
  SaveDialog.FilterIndex = ExcelFilter;
  Export(grid, title, saveAll);
}

void TGridExportModule::ExportCXGridToHTML(const TVantrelGrid& grid, const std::string& title, bool saveAll) {
  SaveDialog.FilterIndex = HtmlFilter;
  Export(grid, title, saveAll);
}

std::string TGridExportModule::TargetOf(const std::string& path) const {
  auto target = System::PathOf(path);
  const auto ending = System::NameOf(target.extension());
  if (ending == "." || IsKnownEnding(ending)) target.replace_extension();
  return System::NameOf(target) + KindAt(SaveDialog.FilterIndex).Ending;
}

bool TGridExportModule::AcceptsTarget(const std::string& path) const {
  const auto target = TargetOf(path);
  if (!TVantrelFileSystem::Exists(target)) return true;
  const auto name = System::LastNameOf(target);
  return MsgBoxAsk(ResourceText(ViewTexts::NoteCaption), FormatText(ViewTexts::ExportOverwrite, RepairUtf8(name))) ==
         TVantrelMsgBoxResult::mbrYes;
}

void TGridExportModule::Export(const TVantrelGrid& grid, const std::string& title, bool saveAll) {
  if (!FDialogs.SaveFile(SaveDialog)) return;
  const auto target = TargetOf(SaveDialog.FileName);
  const auto name = RepairUtf8(System::LastNameOf(target));
  try {
    TVantrelWaitCursor cursor(FDialogs);
    const TVantrelWaitScope wait(cursor);
    const auto bytes = KindAt(SaveDialog.FilterIndex).Write(SheetOf(grid, title, saveAll));
    TVantrelSafeSave::Write(target, bytes, TVantrelFileAccessMode::famShareDenyWrite);
  } catch (const std::exception& error) {
    return MsgBoxError(FormatText(ViewTexts::ExportFailed, name, error.what()));
  }
  if (FOnExported) FOnExported(name);
  TCommonUtils::FileExecute(target);
}
