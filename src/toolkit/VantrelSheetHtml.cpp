#include <fmt/format.h>

#include <algorithm>

#include "VantrelSheet.h"

namespace {

/// A text between tags, or in double quotes.
std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\n':
        escaped += "<br/>";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

constexpr std::string_view TextMark = R"(sdnum="1031;0;@")";

std::string Content(std::string_view text) {
  return Escaped(SheetTools::CellText(text));
}

/// The format as German spreadsheets write it. In dates it is the same.
std::string GermanFormat(std::string format) {
  if (format.find('Y') == std::string::npos) std::ranges::replace(format, '.', ',');
  return format;
}

/// The value is told in English, the format in German.
void AppendCell(std::string& page, const TSheetCell& cell) {
  if (SheetTools::IsNumber(cell))
    page += fmt::format("<td class=\"n\" sdval=\"{}\" sdnum=\"1033;1031;{}\">{}</td>", *cell.Number,
                        Escaped(GermanFormat(cell.Format)), Content(cell.Text));
  else
    page += fmt::format("<td {}>{}</td>", TextMark, Content(cell.Text));
}

void AppendRow(std::string& page, const TSheetRow& row, std::size_t columns) {
  page += "<tr>";
  if (row.IsHeading)
    page += fmt::format("<th {} class=\"g\" colspan=\"{}\">{}</th>", TextMark, columns,
                        row.Cells.empty() ? std::string() : Content(row.Cells.front().Text));
  else
    for (const auto& cell : row.Cells) AppendCell(page, cell);
  page += "</tr>\n";
}

constexpr std::string_view Head = R"(<!DOCTYPE html>
<html lang="de" xmlns="http://www.w3.org/1999/xhtml">
<head>
<meta charset="utf-8"/>
<title>{0}</title>
<style>
body {{ font-family: sans-serif; }}
table {{ border-collapse: collapse; }}
th, td {{ border: 1px solid #999; padding: 2px 6px; text-align: left; vertical-align: top; white-space: pre-wrap;
  mso-number-format: "\@"; }}
td.n {{ text-align: right; mso-number-format: General; }}
th.g {{ background: #eee; }}
br {{ mso-data-placement: same-cell; }}
@media print {{ thead {{ display: table-header-group; }} }}
</style>
</head>
<body>
<h1>{0}</h1>
<table>
)";

}  // namespace

std::string HtmlPage(const TSheet& sheet) {
  auto title = SheetTools::CellText(sheet.Name);
  std::ranges::replace(title, '\n', ' ');
  std::string page = fmt::format(Head, Escaped(title));
  page += "<thead><tr>";
  for (const auto& caption : sheet.Captions) page += fmt::format("<th {}>{}</th>", TextMark, Content(caption));
  page += "</tr></thead>\n<tbody>\n";
  for (const auto& row : sheet.Rows) AppendRow(page, row, sheet.Captions.size());
  page += "</tbody>\n</table>\n</body>\n</html>\n";
  return page;
}
