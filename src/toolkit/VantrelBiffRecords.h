#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "VantrelIO.h"

/// Records of a native spreadsheet, one behind the other: kind, length and content. What is written goes into the
/// record that was begun last; a record holds at most 8224 bytes.
class TBiffRecords final : public TVantrelWriter {
 public:
  static constexpr std::size_t MaxContent = 8224;

  void Begin(std::uint16_t kind);
  void Write(const void* source, std::int64_t count) override;
  /// Bytes that the record still takes.
  std::size_t Room() const { return MaxContent - (FBytes.size() - FStart); }
  /// A text behind its flags alone: one byte a character if all are Latin-1, else two. A length goes before it.
  void WriteText(std::u16string_view text);
  /// The place where the next record begins.
  std::size_t Size() const { return FBytes.size(); }
  /// Puts a number over the one that stands at that place.
  void Patch(std::size_t place, std::uint32_t value);

  const std::vector<std::uint8_t>& Bytes() const { return FBytes; }

 private:
  std::vector<std::uint8_t> FBytes;
  std::size_t FStart = 0;
};

/// The texts of the cells, each kept once.
class TBiffStrings {
 public:
  /// The place of a text; an equal one has the same.
  std::uint32_t IndexOf(const std::string& text);
  /// Writes the table of all texts, over as many records as it takes.
  void WriteTo(TBiffRecords& records) const;

 private:
  std::unordered_map<std::string, std::uint32_t> FIndices;
  std::vector<std::u16string> FTexts;
  std::uint32_t FUses = 0;
};
