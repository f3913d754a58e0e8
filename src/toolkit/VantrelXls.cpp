#include <map>

#include "ToolkitTexts.h"
#include "VantrelBiffRecords.h"
#include "VantrelCompoundFile.h"
#include "VantrelSheet.h"
#include "VantrelText.h"

namespace {

constexpr std::size_t MaxRows = 65536;
constexpr std::size_t MaxColumns = 256;
constexpr std::size_t MaxBytes = 0x7FFFFFFF;

/// Kinds of records.
enum TKind : std::uint16_t {
  EndOfPart = 0x000A,
  Selection = 0x001D,
  Font = 0x0031,
  Window1 = 0x003D,
  Pane = 0x0041,
  CodePage = 0x0042,
  ColumnInfo = 0x007D,
  BoundSheet = 0x0085,
  CellFormat = 0x00E0,
  TextCell = 0x00FD,
  Dimensions = 0x0200,
  NumberCell = 0x0203,
  Window2 = 0x023E,
  StyleName = 0x0293,
  NumberFormat = 0x041E,
  BeginOfPart = 0x0809
};

constexpr std::uint16_t GlobalPart = 0x0005, SheetPart = 0x0010;
constexpr std::uint16_t NormalFont = 0, BoldFont = 1;
/// Numbers of formats: "General" and "@" stand for themselves, others get a number of their own.
constexpr std::uint16_t GeneralFormat = 0, TextFormat = 49, FirstOwnFormat = 164;
/// Cells refer to these by number; what comes behind them belongs to the numbers' formats.
constexpr std::uint16_t StyleCount = 15, HeaderStyle = 16, TextStyle = 17, WrappedStyle = 18, FirstNumberStyle = 19;

class TXlsWriter {
 public:
  explicit TXlsWriter(const TSheet& sheet) : FSheet(sheet) {}
  std::vector<std::uint8_t> Bytes();

 private:
  void BeginPart(std::uint16_t kind);
  void CollectFormats();
  void WriteGlobals();
  void WriteFonts();
  void WriteStyles();
  void WriteStyle(std::uint16_t font, std::uint16_t format, bool isCell, bool wraps);
  void WriteColumns();
  void WriteCells();
  void WriteText(std::size_t row, std::size_t column, const std::string& text, std::uint16_t style);
  void WriteCell(std::size_t row, std::size_t column, const TSheetCell& cell, bool isHeading);
  void WriteWindow();

  const TSheet& FSheet;
  TBiffRecords FRecords;
  /// The sheet's part, gathered before the globals, which hold its texts.
  TBiffRecords FCells;
  TBiffStrings FStrings;
  std::map<std::string, std::uint16_t> FNumberStyles;
};

/// The format that a number's style has for itself.
constexpr std::uint16_t FormatOf(std::uint16_t style) {
  return FirstOwnFormat + style - FirstNumberStyle;
}

void TXlsWriter::BeginPart(std::uint16_t kind) {
  FRecords.Begin(BeginOfPart);
  for (const std::uint16_t value : {std::uint16_t{0x0600}, kind, std::uint16_t{0x0DBB}, std::uint16_t{0x07CC}})
    FRecords.WriteWord(value);
  FRecords.WriteLongWord(0x00000041);
  FRecords.WriteLongWord(0x00000006);
}

void TXlsWriter::CollectFormats() {
  for (const auto& row : FSheet.Rows)
    for (const auto& cell : row.Cells)
      if (SheetTools::IsNumber(cell)) FNumberStyles.try_emplace(cell.Format);
  std::uint16_t next = FirstNumberStyle;
  for (auto& [format, style] : FNumberStyles) style = next++;
}

void TXlsWriter::WriteFonts() {
  constexpr std::uint16_t twips = 200, normal = 400, bold = 700, automatic = 0x7FFF;
  for (const auto weight : {normal, bold, normal, normal}) {
    FRecords.Begin(Font);
    FRecords.WriteWord(twips);
    FRecords.WriteWord(0);
    FRecords.WriteWord(automatic);
    FRecords.WriteWord(weight);
    FRecords.WriteLongWord(0);  // no script, no underline
    FRecords.WriteWord(0);
    constexpr std::u16string_view name = u"Arial";
    FRecords.WriteByte(static_cast<std::uint8_t>(name.size()));
    FRecords.WriteText(name);
  }
  for (const auto& [format, style] : FNumberStyles) {
    const auto text = Utf8ToUtf16(format);
    FRecords.Begin(NumberFormat);
    FRecords.WriteWord(FormatOf(style));
    FRecords.WriteWord(static_cast<std::uint16_t>(text.size()));
    FRecords.WriteText(text);
  }
}

void TXlsWriter::WriteStyle(std::uint16_t font, std::uint16_t format, bool isCell, bool wraps) {
  FRecords.Begin(CellFormat);
  FRecords.WriteWord(font);
  FRecords.WriteWord(format);
  FRecords.WriteWord(isCell ? 0x0001 : 0xFFF5);
  FRecords.WriteByte(wraps ? 0x08 : 0);  // aligned to the top
  FRecords.WriteWord(0);
  FRecords.WriteByte(isCell ? 0xFC : 0);
  FRecords.WriteLongWord(0);
  FRecords.WriteLongWord(0);
  FRecords.WriteWord(0x20C0);
}

void TXlsWriter::WriteStyles() {
  for (int i = 0; i < StyleCount; ++i) WriteStyle(NormalFont, GeneralFormat, false, false);
  WriteStyle(NormalFont, GeneralFormat, true, false);
  WriteStyle(BoldFont, TextFormat, true, false);
  WriteStyle(NormalFont, TextFormat, true, false);
  WriteStyle(NormalFont, GeneralFormat, true, true);  // spreadsheets fill long texts of the text format with "#"
  for (const auto& [format, style] : FNumberStyles) WriteStyle(NormalFont, FormatOf(style), true, false);
  FRecords.Begin(StyleName);
  FRecords.WriteWord(0x8000);
  FRecords.WriteWord(0xFF00);
}

void TXlsWriter::WriteGlobals() {
  BeginPart(GlobalPart);
  FRecords.Begin(CodePage);
  FRecords.WriteWord(1200);
  FRecords.Begin(Window1);
  for (const int value : {0, 0, 0x4000, 0x2000, 0x0038, 0, 0, 1, 600})
    FRecords.WriteWord(static_cast<std::uint16_t>(value));
  WriteFonts();
  WriteStyles();
  FRecords.Begin(BoundSheet);
  const auto place = FRecords.Size();
  FRecords.WriteLongWord(0);
  FRecords.WriteWord(0);
  const auto name = Utf8ToUtf16(SheetTools::SheetName(FSheet.Name));
  FRecords.WriteByte(static_cast<std::uint8_t>(name.size()));
  FRecords.WriteText(name);
  FStrings.WriteTo(FRecords);
  FRecords.Begin(EndOfPart);
  FRecords.Patch(place, static_cast<std::uint32_t>(FRecords.Size()));
}

void TXlsWriter::WriteColumns() {
  constexpr int unitsPerCharacter = 256, margin = 2;
  for (std::size_t i = 0; i < FSheet.Captions.size(); ++i) {
    FRecords.Begin(ColumnInfo);
    FRecords.WriteWord(static_cast<std::uint16_t>(i));
    FRecords.WriteWord(static_cast<std::uint16_t>(i));
    FRecords.WriteWord(static_cast<std::uint16_t>((SheetTools::ColumnWidth(FSheet, i) + margin) * unitsPerCharacter));
    FRecords.WriteWord(StyleCount);
    FRecords.WriteLongWord(0);
  }
  FRecords.Begin(Dimensions);
  FRecords.WriteLongWord(0);
  FRecords.WriteLongWord(static_cast<std::uint32_t>(FSheet.Rows.size() + 1));
  FRecords.WriteWord(0);
  FRecords.WriteWord(static_cast<std::uint16_t>(FSheet.Captions.size()));
  FRecords.WriteWord(0);
}

void TXlsWriter::WriteText(std::size_t row, std::size_t column, const std::string& text, std::uint16_t style) {
  FCells.Begin(TextCell);
  FCells.WriteWord(static_cast<std::uint16_t>(row));
  FCells.WriteWord(static_cast<std::uint16_t>(column));
  FCells.WriteWord(style);
  FCells.WriteLongWord(FStrings.IndexOf(text));
}

void TXlsWriter::WriteCell(std::size_t row, std::size_t column, const TSheetCell& cell, bool isHeading) {
  if (SheetTools::IsNumber(cell)) {
    FCells.Begin(NumberCell);
    FCells.WriteWord(static_cast<std::uint16_t>(row));
    FCells.WriteWord(static_cast<std::uint16_t>(column));
    FCells.WriteWord(FNumberStyles.at(cell.Format));
    FCells.WriteDouble(*cell.Number);
    return;
  }
  const auto text = SheetTools::CellText(cell.Text);
  if (text.empty()) return;
  const auto plain = SheetTools::IsWrapped(text) ? WrappedStyle : TextStyle;
  WriteText(row, column, text, isHeading ? HeaderStyle : plain);
}

void TXlsWriter::WriteCells() {
  for (std::size_t i = 0; i < FSheet.Captions.size(); ++i)
    WriteText(0, i, SheetTools::CellText(FSheet.Captions[i]), HeaderStyle);
  for (std::size_t row = 0; row < FSheet.Rows.size(); ++row) {
    const auto& cells = FSheet.Rows[row].Cells;
    for (std::size_t i = 0; i < cells.size(); ++i) WriteCell(row + 1, i, cells[i], FSheet.Rows[row].IsHeading);
  }
}

void TXlsWriter::WriteWindow() {
  constexpr std::uint16_t frozenActiveWithGrid = 0x07BE;
  constexpr std::uint32_t automaticColor = 0x40;
  FRecords.Begin(Window2);
  FRecords.WriteWord(frozenActiveWithGrid);
  FRecords.WriteLongWord(0);
  FRecords.WriteLongWord(automaticColor);
  FRecords.WriteLongWord(0);
  FRecords.WriteLongWord(0);
  constexpr int bottomLeft = 2;
  FRecords.Begin(Pane);
  for (const int value : {0, 1, 1, 0, bottomLeft}) FRecords.WriteWord(static_cast<std::uint16_t>(value));
  FRecords.Begin(Selection);
  FRecords.WriteByte(bottomLeft);
  for (const int value : {1, 0, 0, 1, 1, 1, 0}) FRecords.WriteWord(static_cast<std::uint16_t>(value));
}

std::vector<std::uint8_t> TXlsWriter::Bytes() {
  CollectFormats();
  WriteCells();
  WriteGlobals();
  BeginPart(SheetPart);
  WriteColumns();
  auto bytes = FRecords.Bytes();
  bytes.insert(bytes.end(), FCells.Bytes().begin(), FCells.Bytes().end());
  FRecords = {};
  WriteWindow();
  FRecords.Begin(EndOfPart);
  bytes.insert(bytes.end(), FRecords.Bytes().begin(), FRecords.Bytes().end());
  if (bytes.size() > MaxBytes) SheetTools::RaiseTooLarge(MaxRows, MaxColumns);
  return CompoundFile("Workbook", bytes);
}

}  // namespace

std::vector<std::uint8_t> XlsBytes(const TSheet& sheet) {
  SheetTools::CheckLimits(sheet, MaxRows, MaxColumns);
  return TXlsWriter(sheet).Bytes();
}
