#include "VantrelSheet.h"

#include <algorithm>
#include <cmath>

#include "ToolkitTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"
#include "VantrelUtf16.h"

namespace {

constexpr std::size_t MaxNameUnits = 31;
constexpr std::size_t MaxTextUnits = 32767;
/// In characters. What is longer is wrapped.
constexpr int MinWidth = 6;
constexpr int MaxWidth = 60;

/// The longest line of a text, in UTF-16 units.
int LineWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t start = 0; start <= text.size();) {
    const auto end = std::min(text.find('\n', start), text.size());
    width = std::max(width, Utf16Length(text.substr(start, end - start)));
    start = end + 1;
  }
  return static_cast<int>(std::min(width, MaxTextUnits));
}

}  // namespace

std::string SheetTools::CellText(std::string_view text) {
  auto units = Utf8ToUtf16(RepairUtf8(text));
  ReplaceUnpaired(units);
  std::u16string shown;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto unit = units[i];
    if (unit == u'\r')
      shown += i + 1 < units.size() && units[i + 1] == u'\n' ? u"" : u"\n";
    else if (unit >= u' ' ? unit != 0x7F && unit < 0xFFFE : unit == u'\n' || unit == u'\t')
      shown += unit;
  }
  return Utf16ToUtf8(shown);
}

std::string SheetTools::SheetName(std::string_view title) {
  std::string name = CellText(title);
  std::erase_if(name, [](char c) {
    return c == '\n' || c == '\t' || std::string_view("[]:*?/\\").find(c) != std::string_view::npos;
  });
  const auto units = Utf8ToUtf16(name);
  name = Trimmed(Utf16ToUtf8(units.substr(0, WholeUnits(units, MaxNameUnits))), "'");
  // Spreadsheets keep this name for themselves.
  if (SameText(name, "History")) name += '_';
  return name.empty() ? ResourceText(ToolkitTexts::SheetName) : name;
}

bool SheetTools::IsNumber(const TSheetCell& cell) {
  constexpr double firstOfMarch1900 = 61, firstInexact = 1e15;
  constexpr std::size_t maxFormat = 2 + 15;  // "0." and the places
  if (!cell.Number || !(std::abs(*cell.Number) < firstInexact) || cell.Format.size() > maxFormat) return false;
  const bool isDate = cell.Format.find('Y') != std::string::npos;
  return isDate ? *cell.Number >= firstOfMarch1900 : cell.Text.find_first_not_of("-0123456789,") == std::string::npos;
}

int SheetTools::ColumnWidth(const TSheet& sheet, std::size_t column) {
  int width = LineWidth(sheet.Captions[column]);
  for (const auto& row : sheet.Rows)
    if (!row.IsHeading && column < row.Cells.size()) width = std::max(width, LineWidth(row.Cells[column].Text));
  return std::clamp(width, MinWidth, MaxWidth);
}

bool SheetTools::IsWrapped(std::string_view text) {
  return text.find('\n') != std::string_view::npos || Utf16Length(text) > static_cast<std::size_t>(MaxWidth);
}

void SheetTools::RaiseTooLarge(std::size_t maxRows, std::size_t maxColumns) {
  throw ESheetLimitError(FormatText(ToolkitTexts::SheetTooLarge, maxRows, maxColumns, MaxTextUnits));
}

void SheetTools::CheckLimits(const TSheet& sheet, std::size_t maxRows, std::size_t maxColumns) {
  const auto isLong = [](const std::string& text) {
    return text.size() > MaxTextUnits && Utf16Length(text) > MaxTextUnits;
  };
  const bool fits = sheet.Rows.size() < maxRows && sheet.Captions.size() <= maxColumns &&
                    std::ranges::none_of(sheet.Captions, isLong) &&
                    std::ranges::none_of(sheet.Rows, [&](const auto& row) {
                      return row.Cells.size() > maxColumns || std::ranges::any_of(row.Cells, isLong, &TSheetCell::Text);
                    });
  if (!fits) RaiseTooLarge(maxRows, maxColumns);
}
