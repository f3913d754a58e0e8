#include "uRecordTexts.h"

#include <fmt/format.h>

#include <algorithm>

#include "ProjectTexts.h"
#include "VantrelDateTime.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelNumbers.h"
#include "VantrelText.h"
#include "VantrelTextParts.h"
#include "VantrelUtf16.h"

namespace RecordTexts {
namespace {

/// Fields whose column has another name than the key tells.
constexpr std::pair<std::string_view, std::string_view> Fieldnames[] = {
    {"Zeugniskonferenz", "ZeugniskonferenzAm"}, {"Leistungsanforderung", "Leistungsanforderungen"}};

std::string_view FieldnameOf(std::string_view key) {
  for (const auto& [stored, fieldname] : Fieldnames)
    if (stored == key) return fieldname;
  for (const std::string_view ending : {"GradeId", "ID"})
    if (IsGradeKey(key) && key.ends_with(ending)) return key.substr(0, key.size() - ending.size());
  return key;
}

/// The token that the entry of that id has in its list.
template <class TList>
std::string TokenOf(const TList& list, std::int32_t id, bool exact) {
  const auto* entry = list.Find(id);
  if (entry == nullptr) return FormatText(ProjectTexts::UnknownNumber, id);
  if (entry->Token.empty()) return FormatText(ProjectTexts::NumberOnly, id);
  return exact ? FormatText(ProjectTexts::WithNumber, Printable(entry->Token), id) : Printable(entry->Token);
}

std::string DateText(const TVariant& value, bool exact) {
  if (!IsDateTime(value.AsFloat()) && exact) return GermanFloatText(value.AsFloat());
  return exact ? DateTimeToGermanText(value.AsFloat()) : value.AsText();
}

}  // namespace

std::string Printable(std::string_view text) {
  constexpr char16_t pictures = 0x2400, pictureOfDelete = 0x2421;
  auto units = Utf8ToUtf16(text);
  ReplaceUnpaired(units);
  for (auto& unit : units) {
    if (unit < u' ')
      unit = static_cast<char16_t>(unit + pictures);
    else if (unit >= 0x7F && unit < 0xA0)
      unit = unit == 0x7F ? pictureOfDelete : ReplacementCharacter;
  }
  return Utf16ToUtf8(units);
}

std::vector<std::string> PrintableLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) lines.push_back(Printable(TakeLine(text)));
  return lines;
}

std::string StudentName(const TMyTessaronProject& project, const TStudent* student) {
  if (student == nullptr) return ResourceText(ProjectTexts::UnknownStudent);
  const auto name = Printable(Join(student->Vorname, student->Nachname, " "));
  if (name.empty()) return FormatText(ProjectTexts::NamelessStudent, student->TessaronId.AsInt());
  const auto* schoolClass = project.Classes().Find(student->ClassId.Value);
  if (schoolClass == nullptr || schoolClass->Token.empty()) return name;
  return fmt::format("{} ({})", name, Printable(schoolClass->Token));
}

std::string CourseName(const TCourse& course) {
  const auto name = Printable(course.Name());
  if (course.SubjectName.empty())
    return name.empty() ? FormatText(ProjectTexts::NamelessCourse, course.TessaronId.AsInt()) : name;
  return name.empty() ? Printable(course.SubjectName) : fmt::format("{} ({})", Printable(course.SubjectName), name);
}

std::string RemarkName(const TCertificateComment& remark) {
  return FormatText(ProjectTexts::RemarkName, Printable(remark.Description));
}

bool IsGradeKey(std::string_view key) {
  return key.ends_with("GradeId") || (key.ends_with("ID") && key != "ID");
}

std::string OwnCaption(std::string_view key) {
  const auto* known = std::ranges::find(ProjectTexts::Captions, key, [](const auto& entry) { return entry.Key; });
  return known == std::end(ProjectTexts::Captions) ? std::string(FieldnameOf(key)) : ResourceText(known->Caption);
}

std::string FieldCaption(const TMyTessaronProject& project, std::string_view key) {
  const auto* column = project.Options().Columns().Find(FieldnameOf(key));
  return column == nullptr || column->Customname().empty() ? OwnCaption(key) : Printable(column->Customname());
}

std::vector<TEditorItem> NamedValues(std::string_view key) {
  std::vector<TEditorItem> items;
  for (const auto& known : ProjectTexts::ValueNames) {
    if (key != known.Key) continue;
    const bool isNumber = known.Value[0] >= '0' && known.Value[0] <= '9';
    items.push_back({ResourceText(known.Shown), isNumber ? TVariant(TextToInteger(known.Value)) : known.Value});
  }
  return items;
}

std::string FieldValue(const TMyTessaronProject& project, std::string_view key, const TVariant& value, bool exact) {
  if (value.IsEmpty()) return ResourceText(ProjectTexts::Empty);
  if (value.Kind() == TVariantKind::Boolean)
    return ResourceText(value.AsBoolean() ? ProjectTexts::Yes : ProjectTexts::No);
  if (value.Kind() == TVariantKind::DateTime) return DateText(value, exact);
  if (value.Kind() == TVariantKind::Float) return GermanFloatText(value.AsFloat());
  const auto text = value.AsText();
  if (text.empty()) return ResourceText(ProjectTexts::Empty);
  for (const auto& known : ProjectTexts::ValueNames)
    if (key == known.Key && text == known.Value) return ResourceText(known.Shown);
  if (value.Kind() == TVariantKind::Text) return FormatText(ProjectTexts::Quoted, Printable(text));
  if (IsGradeKey(key)) return TokenOf(project.Noten(), value.AsInteger(), exact);
  if (key == "ClassId") return TokenOf(project.Classes(), value.AsInteger(), exact);
  return text;
}

}  // namespace RecordTexts
