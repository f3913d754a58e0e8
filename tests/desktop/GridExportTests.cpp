#include <fmt/ranges.h>

#include "FakeOpener.h"
#include "FakeShell.h"
#include "GridFixture.h"
#include "MsgBoxes.h"
#include "mGridExport.h"
#include "uGridSheet.h"

namespace {

struct GridExportTest : GridTest {
  void Export(const std::string& name, int filter = 1) {
    FDialogs.FileName = FFolder / name;
    FDialogs.FilterIndex = filter;
    TGridExportModule module(FDialogs, [this](const std::string& exported) { FNote = exported; });
    module.ExportCXGridToExcel(Grid, "Mathematik", true);
  }
  /// What lies in the folder, with the first bytes of each file.
  std::vector<std::string> Files() const {
    std::vector<std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(FFolder.Path()))
      files.push_back(file.path().filename().string() + " " + ReadFileText(file.path()).substr(0, 2));
    std::ranges::sort(files);
    return files;
  }

  const TempFolder FFolder;
  FakeDialogs FDialogs;
  FakeBoxes FBoxes;
  FakeOpener FOpener;
  std::string FNote;
};

/// Rows as "text|text", headings in brackets, numbers with their format behind.
std::vector<std::string> Lines(const TSheet& sheet) {
  std::vector<std::string> lines;
  const auto add = [&](const auto& texts) { lines.push_back(fmt::format("{}", fmt::join(texts, "|"))); };
  add(sheet.Captions);
  for (const auto& row : sheet.Rows) {
    std::vector<std::string> texts;
    for (const auto& cell : row.Cells)
      texts.push_back(cell.Number ? fmt::format("{}={} {}", cell.Text, *cell.Number, cell.Format) : cell.Text);
    if (row.IsHeading) texts.front() = "[" + texts.front() + "]";
    add(texts);
  }
  return lines;
}

TEST_F(GridExportTest, TheSheetHoldsWhatTheGridShows) {
  EXPECT_THAT(Lines(SheetOf(Grid, "Mathematik", true)),
              ElementsAre("Name|Note|Fehltage|Ergebnis", "Özil||5=5 0|Bestanden (P)",
                          "adam|15|12=12 0|Nicht bestanden (F)", "Zink|1||Bestanden (P)"));
  Grid.ShowColumn(Absences, false);
  Grid.SetColumnSort(Name, TGridSortOrder::Descending, 0);
  Filter(Result, "P", "Bestanden (P)");
  EXPECT_THAT(Lines(SheetOf(Grid, {}, true)),
              ElementsAre("Name|Note|Ergebnis", "Zink|1|Bestanden (P)", "Özil||Bestanden (P)"));
  Grid.SetOptions({.ReadOnly = false, .MultiSelect = true});
  Grid.SelectRecords({0});
  EXPECT_THAT(Lines(SheetOf(Grid, {}, false)), ElementsAre("Name|Note|Ergebnis", "Özil||Bestanden (P)"));
  Grid.GroupColumn(Result, 0);
  EXPECT_THAT(Lines(SheetOf(Grid, {}, true)), ElementsAre("Name|Note|Ergebnis", "[Ergebnis: Bestanden (P) (2)]",
                                                          "Zink|1|Bestanden (P)", "Özil||Bestanden (P)"));
}

TEST_F(GridExportTest, NumbersAndDatesAreValuesAndNothingElseIs) {
  const auto shown = [&](const TGridColumn& column, const TVariant& value) {
    const int ordinal = AddColumn(column, value);
    const auto cell = SheetOf(Grid, {}, true).Rows[0].Cells[static_cast<std::size_t>(ordinal)];
    return cell.Number ? fmt::format("{}={} {}", cell.Text, *cell.Number, cell.Format) : cell.Text;
  };
  const TGridColumn number{
      .Id = "n", .Caption = "n", .Editor = {.Kind = TEditorKind::Spin, .ValueKind = TValueKind::Float, .Decimals = 2}};
  EXPECT_EQ(shown(number, 2.5), "2,5=2.5 0.0");
  EXPECT_EQ(shown(number, TVariant::Null()), "");
  EXPECT_EQ(shown(number, "2-"), "2-");
  const TGridColumn date{
      .Id = "d", .Caption = "d", .Editor = {.Kind = TEditorKind::Date, .ValueKind = TValueKind::Date}};
  EXPECT_EQ(shown(date, TVariant::DateTime(40603)), "01.03.2011=40603 DD.MM.YYYY");
  EXPECT_EQ(shown(date, TVariant::DateTime(1e300)), "ungültiges Datum");
  EXPECT_EQ(shown({.Id = "t", .Caption = "t"}, "09"), "09");
}

TEST_F(GridExportTest, TheChosenKindDecidesTheEnding) {
  const std::tuple<const char*, int, const char*> cases[] = {{"a.xls", 1, "a.xls \xD0\xCF"},
                                                             {"b", 2, "b.html <!"},
                                                             {"c.xls", 2, "c.html <!"},
                                                             {"d.HTM", 1, "d.xls \xD0\xCF"},
                                                             {"e.html", 3, "e.xlsx PK"},
                                                             {"f.kvrx", 1, "f.kvrx.xls \xD0\xCF"},
                                                             {"g 5. Klasse.", 3, "g 5. Klasse.xlsx PK"}};
  std::vector<std::string> written;
  for (const auto& [name, filter, file] : cases) {
    Export(name, filter);
    written.emplace_back(file);
  }
  EXPECT_EQ(Files(), written);
  EXPECT_THAT(FBoxes.Texts, IsEmpty());
  EXPECT_EQ(FNote, "g 5. Klasse.xlsx");
  EXPECT_EQ(FOpener.Opened.size(), std::size(cases));
  EXPECT_EQ(FOpener.Opened.back().FileName, FFolder / "g 5. Klasse.xlsx");
  EXPECT_FALSE(FDialogs.Waiting);
}

TEST_F(GridExportTest, AFileThatExistsIsReplacedAfterAYes) {
  WriteFileText(FFolder / "a.xls", "alt");
  Export("a.xls");
  EXPECT_THAT(Files(), ElementsAre("a.xls al"));
  EXPECT_THAT(FBoxes.Texts, ElementsAre(HasSubstr("„a.xls“")));
  EXPECT_THAT(FOpener.Opened, IsEmpty());
  FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
  Export("a.xls");
  EXPECT_THAT(Files(), ElementsAre("a.xls \xD0\xCF"));
}

TEST_F(GridExportTest, AFailureIsToldAndLeavesTheOldFile) {
  FBoxes.Answer = TVantrelMsgBoxResult::mbrYes;
  WriteFileText(FFolder / "a.xls", "alt");
  {
    const TVantrelFileStream held(FFolder / "a.xls", TVantrelFileAccessMode::famShareExclusive,
                                  TVantrelFileOpenMode::fomOpenReadWrite);
    Export("a.xls");
  }
  Export("fehlt/b.xls");
  ::setenv("TMPDIR", (FFolder / "fehlt").c_str(), 1);
  Export("c.xlsx", 3);
  ::unsetenv("TMPDIR");
  EXPECT_THAT(Files(), ElementsAre("a.xls al"));
  EXPECT_THAT(FBoxes.Texts,
              ElementsAre(HasSubstr("„a.xls“"), HasSubstr("„a.xls“"), HasSubstr("„b.xls“"),
                          testing::AllOf(HasSubstr("„c.xlsx“"), testing::Not(HasSubstr("filesystem error")))));
  EXPECT_EQ(FNote, "");
  EXPECT_THAT(FOpener.Opened, IsEmpty());
  EXPECT_FALSE(FDialogs.Waiting);
}

TEST_F(GridExportTest, NothingIsWrittenAfterCancel) {
  TGridExportModule module(FDialogs, {});
  module.ExportCXGridToHTML(Grid, "Mathematik", true);
  EXPECT_EQ(FDialogs.Last.FilterIndex, 2);
  EXPECT_EQ(FDialogs.Last.Title, "Liste exportieren nach");
  EXPECT_THAT(FOpener.Opened, IsEmpty());
}

}  // namespace
