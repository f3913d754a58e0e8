#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelExceptions.h"

/// A table is larger than the kind of file can hold; nothing was written.
class ESheetLimitError : public EVantrelException {
  using EVantrelException::EVantrelException;
};

/// One cell of a sheet: a text, or a number that is shown as one.
struct TSheetCell {
  std::string Text = {};              ///< as the user sees it
  std::optional<double> Number = {};  ///< the value behind it; a date as days since 1899-12-30
  std::string Format = {};            ///< the number's format as spreadsheets write it: "0", "0.00", "DD.MM.YYYY"
};

struct TSheetRow {
  std::vector<TSheetCell> Cells = {};
  bool IsHeading = false;  ///< names the rows below it
};

/// A table on its way into a file: one sheet with a row of captions above the others. The writers take texts of any
/// content: ill-formed ones are repaired, control characters left out, line ends become line feeds.
struct TSheet {
  std::string Name = {};  ///< as the user reads it; each writer makes what its form allows of it
  std::vector<std::string> Captions = {};
  std::vector<TSheetRow> Rows = {};
};

/// The sheet in the native spreadsheet form (".xls"). Raises ESheetLimitError beyond 65,536 rows with the captions',
/// 256 columns, or 32,767 UTF-16 units in a cell.
std::vector<std::uint8_t> XlsBytes(const TSheet& sheet);
/// The sheet as a packed spreadsheet (".xlsx"). Raises ESheetLimitError beyond 1,048,576 rows with the captions',
/// 16,384 columns, or 32,767 UTF-16 units in a cell, and EVantrelException where the folder of temporary files takes no
/// file.
std::vector<std::uint8_t> XlsxBytes(const TSheet& sheet);
/// The sheet as a web page in UTF-8 that spreadsheets read as well: their texts stay texts.
std::string HtmlPage(const TSheet& sheet);

/// What the writers share.
namespace SheetTools {
/// A name as spreadsheets allow it: at most 31 UTF-16 units without []:*?/\, without an apostrophe at its ends, never
/// empty, and none that spreadsheets keep for themselves.
std::string SheetName(std::string_view title);
/// A text as a cell takes it.
std::string CellText(std::string_view text);
/// The cell goes into a spreadsheet as a number, since its format gives back its text. A date before March 1900 does
/// not: spreadsheets count other days there.
bool IsNumber(const TSheetCell& cell);
/// The width of a column by its content, in characters.
int ColumnWidth(const TSheet& sheet, std::size_t column);
/// The text is shown in several lines.
bool IsWrapped(std::string_view text);
/// ESheetLimitError with these limits and the form that holds more.
[[noreturn]] void RaiseTooLarge(std::size_t maxRows, std::size_t maxColumns);
/// Raises ESheetLimitError if the sheet goes beyond these counts, the captions' row among the rows.
void CheckLimits(const TSheet& sheet, std::size_t maxRows, std::size_t maxColumns);
}  // namespace SheetTools
