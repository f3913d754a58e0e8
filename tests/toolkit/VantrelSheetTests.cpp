#include "VantrelSheet.h"

#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "InChild.h"
#include "Testing.h"

namespace {

struct TTold {
  int Result;
  std::string Text;
};

/// What a program of the support folder tells of a file.
TTold Told(const std::string& program, const std::string& file) {
  FILE* pipe = ::popen(fmt::format("/usr/bin/python3 support/{} '{}' 2>&1", program, file).c_str(), "r");
  TTold told{0, {}};
  char buffer[4096];
  while (const auto count = std::fread(buffer, 1, sizeof(buffer), pipe)) told.Text.append(buffer, count);
  told.Result = WEXITSTATUS(::pclose(pipe));
  return told;
}

/// What another program reads in the file, by its lines.
std::string CellsIn(const std::string& file) {
  return Told("sheet-cells", file).Text;
}

/// A line for each cell of a sheet that is not empty, as `line` tells it.
template <class TLine>
std::string LinesOf(const TSheet& sheet, const TLine& line) {
  std::string lines;
  const auto add = [&](std::size_t row, std::size_t column, const TSheetCell& cell, bool heading) {
    std::string text = line(row, column, cell, heading);
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) text.replace(at, 1, "\\n");
    if (!cell.Text.empty()) lines += text + "\n";
  };
  for (std::size_t i = 0; i < sheet.Captions.size(); ++i) add(0, i, {sheet.Captions[i]}, true);
  for (std::size_t row = 0; row < sheet.Rows.size(); ++row)
    for (std::size_t i = 0; i < sheet.Rows[row].Cells.size(); ++i)
      add(row + 1, i, sheet.Rows[row].Cells[i], sheet.Rows[row].IsHeading);
  return lines;
}

/// The same of the sheet itself.
std::string CellsOf(const TSheet& sheet, const std::string& name) {
  return name + " frozen\n" + LinesOf(sheet, [](auto row, auto column, const TSheetCell& cell, bool heading) {
           if (SheetTools::IsNumber(cell))
             return fmt::format("{}\t{}\tnumber\t{:.10g} {}", row, column, *cell.Number, cell.Format);
           return fmt::format("{}\t{}\t{}\t{}", row, column, heading ? "bold" : "text", cell.Text);
         });
}

/// What a spreadsheet shows of it, where the decimal sign is a point.
std::string ShownOf(const TSheet& sheet) {
  return LinesOf(sheet, [](auto row, auto column, const TSheetCell& cell, bool) {
    std::string text = cell.Text;
    if (cell.Number) std::ranges::replace(text, ',', '.');
    return fmt::format("{}\t{}\t{}", row, column, text);
  });
}

std::string Repeated(std::string_view text, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

TSheet SheetOfEverything() {
  TSheet sheet{.Name = "Mathematik", .Captions = {"Name", "Note <1>", "09", "Geburtsdatum"}};
  sheet.Rows.push_back({.Cells = {{"Klasse: 9a"}}, .IsHeading = true});
  sheet.Rows.push_back(
      {.Cells = {{"Stein & \"Söhne\""}, {"2-"}, {"0,5", 0.5, "0.0"}, {"01.03.2011", 40603, "DD.MM.YYYY"}}});
  sheet.Rows.push_back({.Cells = {{"=1+1"}, {"09"}, {}, {"31.12.1899", 1, "DD.MM.YYYY"}}});
  sheet.Rows.push_back({.Cells = {{"Zeile 1\nZeile 2\n\nEnde"}, {"😀 zählt zwei"}, {"-12", -12, "0"}, {}}});
  return sheet;
}

/// A file of that kind with the sheet in it.
std::string Written(const TempFolder& folder, const TSheet& sheet, const std::string& kind) {
  const auto file = folder / ("liste." + kind);
  if (kind == "html") {
    WriteFileText(file, HtmlPage(sheet));
  } else {
    const auto bytes = kind == "xls" ? XlsBytes(sheet) : XlsxBytes(sheet);
    WriteFileText(file, std::string(bytes.begin(), bytes.end()));
  }
  return file;
}

TEST(Sheet, OtherProgramsReadWhatWasWritten) {
  const TempFolder folder;
  const auto sheet = SheetOfEverything();
  for (const std::string kind : {"xls", "xlsx", "html"})
    EXPECT_EQ(CellsIn(Written(folder, sheet, kind)), CellsOf(sheet, "Mathematik")) << kind;
}

class SpreadsheetTest : public testing::TestWithParam<const char*> {};

TEST_P(SpreadsheetTest, ShowsTheTextsOfTheScreen) {
  const TempFolder folder;
  const auto sheet = SheetOfEverything();
  for (const std::string kind : {"xls", "xlsx", "html"}) {
    // ssconvert knows no cells of text in a web page.
    if (kind == "html" && GetParam() != std::string_view("soffice")) continue;
    const auto shown = Told(std::string("sheet-shown ") + GetParam(), Written(folder, sheet, kind));
    if (shown.Result == 77) GTEST_SKIP() << GetParam() << " is not installed";
    EXPECT_EQ(shown.Text, ShownOf(sheet)) << kind;
  }
}

INSTANTIATE_TEST_SUITE_P(Programs, SpreadsheetTest, testing::Values("soffice", "ssconvert"),
                         [](const auto& program) { return std::string(program.param); });

TEST(Sheet, TextsArriveWholeWhereverTheyAreBroken) {
  const TempFolder folder;
  TSheet sheet{.Name = "Texte", .Captions = {"Kurz", "Lang"}};
  // Lengths that bring every kind of text to the end of a record, with the break at every place.
  for (std::size_t i = 0; i < 120; ++i)
    sheet.Rows.push_back({.Cells = {{fmt::format("{} {}", i, Repeated(i % 3 == 0 ? "ä" : "€", 4000 + i))},
                                    {fmt::format("{}{}", i, Repeated("😀", 2000 + 41 * i))}}});
  sheet.Rows.push_back({.Cells = {{Repeated("x", 32767)}, {Repeated("x", 32767)}}});
  for (std::size_t i = 0; i < 200; ++i)
    sheet.Rows.push_back({.Cells = {{fmt::format("{}", i)}, {Repeated("€", 32000 - i)}}});
  const auto file = Written(folder, sheet, "xls");
  EXPECT_GT(std::filesystem::file_size(file), 109u * 128 * 512) << "the container's table outgrows its header";
  EXPECT_EQ(CellsIn(file), CellsOf(sheet, "Texte"));
}

TEST(Sheet, WhatAFormCannotHoldIsRefused) {
  const auto refusal = [](std::size_t rows, std::size_t columns, std::size_t units) {
    TSheet sheet{.Captions = std::vector<std::string>(columns, "x")};
    sheet.Rows.resize(rows);
    if (rows > 0) sheet.Rows.back().Cells = {{std::string(units, 'x')}};
    return ErrorOf<ESheetLimitError>([&] { XlsBytes(sheet); });
  };
  EXPECT_EQ(refusal(65535, 256, 32767), "");
  const TSheet longCaption{.Captions = {Repeated("x", 32768)}};
  EXPECT_NE(ErrorOf<ESheetLimitError>([&] { XlsBytes(longCaption); }), "");
  EXPECT_NE(ErrorOf<ESheetLimitError>([&] { XlsxBytes(longCaption); }), "");
  for (const auto& told : {refusal(65536, 1, 1), refusal(1, 257, 1), refusal(1, 1, 32768)})
    EXPECT_THAT(told, HasSubstr("HTML-Format"));
}

TEST(Sheet, AFullDiskIsToldAndNothingIsLeftThere) {
  const TempFolder folder;
  ::setenv("TMPDIR", folder.Path().c_str(), 1);
  EXPECT_FALSE(XlsxBytes({}).empty());
  EXPECT_EQ(InChild([] {
              ::signal(SIGXFSZ, SIG_IGN);
              const rlimit nothing{0, 0};
              ::setrlimit(RLIMIT_FSIZE, &nothing);
              return ErrorOf<EVantrelException>([] { XlsxBytes({}); }).starts_with("Die Tabelle") ? 1 : 0;
            }),
            1);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
  ::unsetenv("TMPDIR");
}

TEST(Sheet, NamesAndTextsAreWhatSpreadsheetsAllow) {
  EXPECT_EQ(SheetTools::SheetName("[Q1]: Was*ist?/das\\"), "Q1 Wasistdas");
  EXPECT_EQ(SheetTools::SheetName("''"), "Tabelle");
  EXPECT_EQ(SheetTools::SheetName("history"), "history_");
  EXPECT_EQ(SheetTools::SheetName(Repeated("n", 30) + "😀"), Repeated("n", 30));
  EXPECT_EQ(SheetTools::SheetName(Repeated("ä", 40)), Repeated("ä", 31));
  EXPECT_EQ(SheetTools::CellText("a\r\nb\rc\x01\xFF\xED\xA0\x80"), "a\nb\nc\uFFFD\uFFFD");
  EXPECT_FALSE(SheetTools::IsNumber({"1.1.1900", 2, "DD.MM.YYYY"}));
  EXPECT_TRUE(SheetTools::IsNumber({"-2,5", -2.5, "0.0"}));
  for (const TSheetCell& cell : {TSheetCell{"NAN", NAN, "0"},
                                 {"INF", INFINITY, "0"},
                                 {"1E-7", 1e-7, "0"},
                                 {"1000000000000000", 1e15, "0"},
                                 {"0,0000000000000001", 1e-16, "0.0000000000000000"}})
    EXPECT_FALSE(SheetTools::IsNumber(cell)) << cell.Text;
}

}  // namespace
