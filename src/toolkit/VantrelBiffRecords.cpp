#include "VantrelBiffRecords.h"

#include <algorithm>

#include "VantrelText.h"
#include "VantrelUtf16.h"

namespace {

constexpr std::uint16_t StringTable = 0x00FC;
constexpr std::uint16_t Continue = 0x003C;
constexpr std::uint8_t OneByte = 0;
constexpr std::uint8_t TwoBytes = 1;

bool IsLatin(std::u16string_view text) {
  return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x100; });
}

void WriteUnits(TBiffRecords& records, std::u16string_view units, std::uint8_t flags) {
  for (const auto unit : units) {
    if (flags == OneByte)
      records.WriteByte(static_cast<std::uint8_t>(unit));
    else
      records.WriteChar(unit);
  }
}

/// As many units as the record takes, without parting a pair.
std::size_t FittingUnits(const TBiffRecords& records, std::u16string_view units, std::size_t unitSize) {
  return WholeUnits(units, records.Room() / unitSize);
}

/// A text of the table. Its length and flags stand in one record with its beginning; where it is broken, the next
/// record begins with the flags again.
void WriteString(TBiffRecords& records, std::u16string_view text) {
  const auto flags = IsLatin(text) ? OneByte : TwoBytes;
  const std::size_t unitSize = flags == OneByte ? 1 : 2;
  constexpr std::size_t header = 3, pair = 4;
  if (records.Room() < header + pair) records.Begin(Continue);
  records.WriteWord(static_cast<std::uint16_t>(text.size()));
  records.WriteByte(flags);
  for (;;) {
    const auto count = FittingUnits(records, text, unitSize);
    WriteUnits(records, text.substr(0, count), flags);
    text.remove_prefix(count);
    if (text.empty()) return;
    records.Begin(Continue);
    records.WriteByte(flags);
  }
}

}  // namespace

void TBiffRecords::Begin(std::uint16_t kind) {
  const std::uint8_t header[] = {static_cast<std::uint8_t>(kind), static_cast<std::uint8_t>(kind >> 8), 0, 0};
  FBytes.insert(FBytes.end(), std::begin(header), std::end(header));
  FStart = FBytes.size();
}

void TBiffRecords::Write(const void* source, std::int64_t count) {
  const auto* bytes = static_cast<const std::uint8_t*>(source);
  FBytes.insert(FBytes.end(), bytes, bytes + count);
  const auto length = static_cast<std::uint16_t>(FBytes.size() - FStart);
  FBytes[FStart - 2] = static_cast<std::uint8_t>(length);
  FBytes[FStart - 1] = static_cast<std::uint8_t>(length >> 8);
}

void TBiffRecords::WriteText(std::u16string_view text) {
  const auto flags = IsLatin(text) ? OneByte : TwoBytes;
  WriteByte(flags);
  WriteUnits(*this, text, flags);
}

void TBiffRecords::Patch(std::size_t place, std::uint32_t value) {
  for (std::size_t i = 0; i < sizeof(value); ++i) FBytes[place + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

std::uint32_t TBiffStrings::IndexOf(const std::string& text) {
  ++FUses;
  const auto [known, isNew] = FIndices.try_emplace(text, static_cast<std::uint32_t>(FTexts.size()));
  if (isNew) FTexts.push_back(Utf8ToUtf16(text));
  return known->second;
}

void TBiffStrings::WriteTo(TBiffRecords& records) const {
  records.Begin(StringTable);
  records.WriteLongWord(FUses);
  records.WriteLongWord(static_cast<std::uint32_t>(FTexts.size()));
  for (const auto& text : FTexts) WriteString(records, text);
}
