#include <xlsxwriter.h>

#include <map>

#include "SystemFolders.h"
#include "ToolkitTexts.h"
#include "VantrelFileStreams.h"
#include "VantrelI18n.h"
#include "VantrelPaths.h"
#include "VantrelSheet.h"

namespace {

/// A file that nobody else can read, on the way of a table; goes with the object.
struct TScratchFile {
  TScratchFile() = default;
  TScratchFile(const TScratchFile&) = delete;
  TScratchFile& operator=(const TScratchFile&) = delete;
  ~TScratchFile() { System::RemoveFile(Name); }

  const std::string Name = TVantrelFilePath::GetTempFileName(TVantrelFilePath::GetTempPath(), "mytessaron-");
};

/// The library frees a workbook when it closes it, and only then.
class TWorkbook {
 public:
  explicit TWorkbook(const std::string& fileName) : FBook(workbook_new(fileName.c_str())) {
    Require(FBook == nullptr ? LXW_ERROR_MEMORY_MALLOC_FAILED : LXW_NO_ERROR);
  }
  TWorkbook(const TWorkbook&) = delete;
  TWorkbook& operator=(const TWorkbook&) = delete;
  ~TWorkbook() {
    if (FBook != nullptr) workbook_close(FBook);
  }

  void Close() { Require(workbook_close(std::exchange(FBook, nullptr))); }
  lxw_worksheet* AddSheet(const std::string& name) {
    auto* page = workbook_add_worksheet(FBook, name.c_str());
    Require(page == nullptr ? LXW_ERROR_SHEETNAME_LENGTH_EXCEEDED : LXW_NO_ERROR);
    return page;
  }
  lxw_format* AddFormat(const std::string& number, bool isBold, bool wraps) {
    auto* format = workbook_add_format(FBook);
    format_set_num_format(format, number.c_str());
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
    if (isBold) format_set_bold(format);
    if (wraps) format_set_text_wrap(format);
    return format;
  }
  /// Raises EVantrelException for an error.
  static void Require(lxw_error error) {
    if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) throw EOutOfMemory();
    if (error != LXW_NO_ERROR) throw EVantrelException(FormatText(ToolkitTexts::SheetNotMade, static_cast<int>(error)));
  }

 private:
  lxw_workbook* FBook;
};

class TXlsxWriter {
 public:
  TXlsxWriter(const TSheet& sheet, TWorkbook& book)
      : FSheet(sheet), FBook(book), FPage(book.AddSheet(SheetTools::SheetName(sheet.Name))) {}

  void Write() {
    constexpr int margin = 2;
    for (std::size_t i = 0; i < FSheet.Captions.size(); ++i) {
      const auto column = static_cast<lxw_col_t>(i);
      worksheet_set_column(FPage, column, column, SheetTools::ColumnWidth(FSheet, i) + margin, nullptr);
      WriteText(0, i, SheetTools::CellText(FSheet.Captions[i]), FBold);
    }
    worksheet_freeze_panes(FPage, 1, 0);
    for (std::size_t row = 0; row < FSheet.Rows.size(); ++row) {
      const auto& [cells, isHeading] = FSheet.Rows[row];
      for (std::size_t i = 0; i < cells.size(); ++i) WriteCell(row + 1, i, cells[i], isHeading);
    }
  }

 private:
  void WriteText(std::size_t row, std::size_t column, const std::string& text, lxw_format* format) {
    TWorkbook::Require(worksheet_write_string(FPage, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                              text.c_str(), format));
  }
  void WriteCell(std::size_t row, std::size_t column, const TSheetCell& cell, bool isHeading) {
    if (SheetTools::IsNumber(cell)) {
      auto& format = FNumbers[cell.Format];
      if (format == nullptr) format = FBook.AddFormat(cell.Format, false, false);
      TWorkbook::Require(worksheet_write_number(FPage, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                                *cell.Number, format));
    } else if (const auto text = SheetTools::CellText(cell.Text); !text.empty()) {
      auto* plain = SheetTools::IsWrapped(text) ? FWrapped : FText;
      WriteText(row, column, text, isHeading ? FBold : plain);
    }
  }

  const TSheet& FSheet;
  TWorkbook& FBook;
  lxw_worksheet* FPage;
  lxw_format* FBold = FBook.AddFormat("@", true, false);
  lxw_format* FText = FBook.AddFormat("@", false, false);
  /// Spreadsheets fill long texts of the text format with "#".
  lxw_format* FWrapped = FBook.AddFormat("General", false, true);
  std::map<std::string, lxw_format*> FNumbers;
};

}  // namespace

std::vector<std::uint8_t> XlsxBytes(const TSheet& sheet) {
  SheetTools::CheckLimits(sheet, LXW_ROW_MAX, LXW_COL_MAX);
  const TScratchFile scratch;
  TWorkbook book(scratch.Name);
  TXlsxWriter(sheet, book).Write();
  book.Close();
  TVantrelFileStream stream(scratch.Name, TVantrelFileAccessMode::famShareDenyWrite, TVantrelFileOpenMode::fomOpenRead);
  return stream.ReadAll();
}
