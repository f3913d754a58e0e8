#include "uLoadReport.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>

#include "ShellTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "uFileNames.h"
#include "uProjectDefects.h"
#include "uRecordTexts.h"

namespace {

constexpr std::size_t MostLines = 10;
constexpr std::size_t LongestLine = 200;

/// One line of a box, whatever the file holds.
std::string BoxLine(const std::string& text) {
  return Shortened(RecordTexts::Printable(text), LongestLine);
}

TProjectDefects DefectsOf(const TMyTessaronProject& project) {
  // What is missing of a file that was not read to its end are no defects of its values.
  if (const auto& damage = project.LoadDamage())
    return {{FormatText(ShellTexts::DamageAt, damage->Message, damage->Place)}, 1};
  TProjectDefects found;
  for (const auto& note : project.LoadNotes())
    if (note.IsDamage) found.Texts.push_back(note.Text);
  auto defects = FindDefects(project, TDefectScope::Teacher, MostLines - found.Texts.size());
  found.Count = found.Texts.size() + defects.Count;
  std::ranges::move(defects.Texts, std::back_inserter(found.Texts));
  return found;
}

}  // namespace

std::string LoadReport(const TMyTessaronProject& project) {
  if (project.FileName().empty()) return {};
  auto found = DefectsOf(project);
  if (found.Count == 0) return {};
  std::vector<std::string> lines;
  std::ranges::transform(found.Texts, std::back_inserter(lines), BoxLine);
  if (found.Count > lines.size()) lines.push_back(FormatText(ShellTexts::MoreDefects, found.Count - lines.size()));
  return FormatText(ShellTexts::LoadReport, ShownFileName(project.FileName()),
                    fmt::format("{}", fmt::join(lines, "\r\n")),
                    ResourceText(project.IsDamaged() ? ShellTexts::DamagedOpened : ShellTexts::DefectsOpened));
}
