#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelDataIO.h"

/// Counts names by the section of a document where they were missed or found. Keeps a bounded number of names; the
/// others are counted together.
class TVantrelNameCounts {
 public:
  /// The line is that of the first occurrence.
  void Add(std::string_view section, std::string_view name, std::uint32_t line = 0);
  /// A note per name: section, name, count and line fill the text. A section itself stands there without its name
  /// again.
  void AppendNotes(const char* text, std::vector<TVantrelLoadNote>& notes) const;

 private:
  struct TEntry {
    std::string Section;
    std::string Name;
    std::uint32_t Line;
    std::int64_t Count;
  };

  std::vector<TEntry> FEntries;
  std::int64_t FOthers = 0;
};
