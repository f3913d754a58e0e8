#include "VantrelDataNotes.h"

#include <algorithm>

#include "StoredTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {

constexpr std::size_t MostNames = 20;
/// Names of a file may be of any length.
constexpr std::size_t LongestName = 60;

}  // namespace

void TVantrelNameCounts::Add(std::string_view section, std::string_view name, std::uint32_t line) {
  const auto known =
      std::ranges::find_if(FEntries, [&](const auto& entry) { return entry.Name == name && entry.Section == section; });
  if (known != FEntries.end())
    ++known->Count;
  else if (FEntries.size() < MostNames)
    FEntries.push_back({std::string(section), std::string(name), line, 1});
  else
    ++FOthers;
}

void TVantrelNameCounts::AppendNotes(const char* text, std::vector<TVantrelLoadNote>& notes) const {
  for (const auto& entry : FEntries) {
    const auto section = entry.Section == entry.Name
                             ? std::string()
                             : FormatText(StoredTexts::NameInSection, Shortened(entry.Section, LongestName));
    notes.push_back({false, FormatText(text, section, Shortened(entry.Name, LongestName), entry.Count, entry.Line)});
  }
  if (FOthers > 0) notes.push_back({false, FormatText(StoredTexts::OtherNames, FOthers)});
}
